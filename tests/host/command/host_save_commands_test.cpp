#include <gmock/gmock.h>

#include <filesystem>

#include "host/command/command_runner.h"
#include "host/command/host_commands.h"
#include "host/command/script_input.h"
#include "recorded_window.h"
#include "support/model_writer.h"
#include "support/temp_folder.h"
#include "support/typed_input.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

class HostSaveCommandsTest : public testing::Test {
 protected:
  HostSaveCommandsTest() {
    ONX_Model model;
    model.m_3dm_file_version = 50;
    model.m_layer_table.emplace_back().m_name = "Default";
    WriteFileContent(Path(), WriteModel(model));
    EXPECT_EQ(Run("Open \"" + Path() + "\""), CommandResult::success) << told_;
  }
  ~HostSaveCommandsTest() override { RhinoApp().ActiveDoc().SetModel({}, {}); }

  CommandResult Run(std::string_view script) {
    const RecordedWindow window;
    ScriptInput input(script, "-c");
    const CommandResult result = CommandRunner(registry_, input).RunAll(commands_.ExitRequested());
    told_ = window.Text();
    return result;
  }
  // As at the prompt.
  CommandResult Type(std::vector<std::string> answers) {
    const RecordedWindow window;
    TypedInput input(std::move(answers));
    const CommandResult result = CommandRunner(registry_, input).RunAll(commands_.ExitRequested());
    told_ = window.Text();
    prompts_ = input.Prompts();
    return result;
  }
  std::string Path(const std::string& name = "modell.3dm") const { return folder_.File(name); }

  TempFolder folder_;
  CommandRegistry registry_;
  HostCommands commands_{registry_};
  std::string told_;
  std::vector<std::string> prompts_;
};

TEST_F(HostSaveCommandsTest, SaveTellsOfAFileThatIsGone) {
  std::filesystem::remove(Path());
  EXPECT_EQ(Run("Save"), CommandResult::failure);
  EXPECT_EQ(told_, Path() +
                       " isn't there any more; SaveAs saves the document there again or "
                       "elsewhere.\n");
  EXPECT_FALSE(std::filesystem::exists(Path()));
  EXPECT_EQ(Run("SaveAs \"" + Path() + "\""), CommandResult::success);
  EXPECT_TRUE(std::filesystem::exists(Path()));
}

TEST_F(HostSaveCommandsTest, SaveTellsOfAnotherFileInItsPlace) {
  WriteFileContent(Path("other"), "of another program");
  std::filesystem::rename(Path("other"), Path());
  EXPECT_EQ(Run("Save"), CommandResult::failure);
  EXPECT_EQ(told_, "Another program has put another file in the place of " + Path() +
                       " since it was opened; SaveAs saves the document elsewhere or over it.\n");
  EXPECT_EQ(FileContent(Path()), "of another program");
}

TEST_F(HostSaveCommandsTest, SaveTellsOfAFileThatWasWrittenTo) {
  WriteFileContent(Path(), "of another program");
  EXPECT_EQ(Run("Save"), CommandResult::failure);
  EXPECT_THAT(told_, HasSubstr("has been changed by another program since"));
  EXPECT_EQ(FileContent(Path()), "of another program");
}

TEST_F(HostSaveCommandsTest, AtAPromptSaveAsAsksBeforeItReplaces) {
  WriteFileContent(Path("alt.3dm"), "old");
  EXPECT_EQ(Type({"SaveAs", Path("alt.3dm"), "No", Path("alt.3dm"), "Yes"}),
            CommandResult::success);
  EXPECT_EQ(FileContent(Path("alt.3dm")), FileContent(Path()));
  EXPECT_THAT(prompts_[2], HasSubstr("exists. Replace it?"));
}

// The file whose name was typed isn't there, but that with the extension is.
TEST_F(HostSaveCommandsTest, TheAddedExtensionLeadsToTheSameQuestion) {
  WriteFileContent(Path("alt.3dm"), "old");
  EXPECT_EQ(Type({"SaveAs", Path("alt"), "Enter", "No", "!"}), CommandResult::cancel);
  EXPECT_EQ(FileContent(Path("alt.3dm")), "old");
  EXPECT_EQ(Type({"SaveAs", Path("neu")}), CommandResult::success);
  EXPECT_EQ(FileContent(Path("neu.3dm")), FileContent(Path()));
}

TEST_F(HostSaveCommandsTest, AFileWithoutANameIsNotWritten) {
  std::filesystem::create_directory(Path("ordner"));
  const std::string path = Path("ordner/");
  EXPECT_EQ(Run("SaveAs \"" + path + "\""), CommandResult::failure);
  EXPECT_EQ(told_, "'" + path + ".3dm' has no name before its extension.\n");
  EXPECT_TRUE(std::filesystem::is_empty(Path("ordner")));
  EXPECT_EQ(Run("SaveAs \"\""), CommandResult::failure);
  EXPECT_EQ(told_, "'.3dm' has no name before its extension.\n");
  EXPECT_FALSE(std::filesystem::exists(".3dm"));
}

TEST_F(HostSaveCommandsTest, AScriptIsNotAsked) {
  WriteFileContent(Path("alt.3dm"), "old");
  EXPECT_EQ(Run("SaveAs \"" + Path("alt") + "\""), CommandResult::success);
  EXPECT_EQ(told_, "Saved " + Path("alt.3dm") + ".\n");
  EXPECT_EQ(FileContent(Path("alt.3dm")), FileContent(Path()));
}

}  // namespace
