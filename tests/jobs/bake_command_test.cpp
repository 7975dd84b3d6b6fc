#include "jobs/bake_command.h"

#include <gmock/gmock.h>

#include "command_fixture.h"
#include "host/system/text.h"
#include "settings/settings_store.h"
#include "support/rib_checker.h"
#include "support/scoped_environment.h"
#include "tools/tool_bench.h"

namespace orv {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// What the prompt shows before anything was chosen.
constexpr std::string_view kPrompt =
    "Orv Bake ( BakeMesh=No  EdgeLength=0  Gamma=1.8  MeshMode=Color  MeshNormals=Yes  "
    "MeshTexCoords=Yes  Selected=No  TexelSize=0.1 ): ";

// A document of two squares that maps can be made of, with a bake front end that records its runs.
class BakeCommand : public CommandTest {
 protected:
  BakeCommand() {
    ONX_Model model;
    model.m_object_table = {Textured("one"), Textured("two")};
    doc_.SetModel(std::move(model), "");
    plugIn_.UserStrings().SetUserString("RibName", folder_.File("hall.rib"));
    plugIn_.UserStrings().SetUserString("BakeImageName", folder_.File("map.png"));
  }

  static ONX_ModelObject Textured(const std::string& name) {
    auto mesh = std::make_shared<ON_Mesh>();
    mesh->m_V = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    mesh->m_T = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    mesh->m_F = {{{0, 1, 2, 3}}};
    ONX_ModelObject object;
    object.m_geometry = std::move(mesh);
    object.m_attributes.m_name = name;
    return object;
  }
  CommandResult Bake(std::vector<std::string> answers, Form form = Form::scripted) {
    return Run<CCommandOrvBake>(form, std::move(answers));
  }
  // The scene that was written last.
  std::string Scene() const {
    std::string rib = FileContent(folder_.File("hall_bake.rib"));
    EXPECT_THAT(CheckRib(rib).Complaints, IsEmpty());
    return rib;
  }
  // How many maps the scene asks for.
  std::size_t Maps() const { return CheckRib(Scene()).Named("Display").size(); }
  void Store(std::string_view key, std::string_view value) {
    plugIn_.UserStrings().SetUserString(key, value);
  }

  ToolBench bench_;
};

TEST_F(BakeCommand, EnterBakesMapsOfAllObjects) {
  Store("Selected", "1");
  plugIn_.User().Threads = 3;
  ASSERT_TRUE(doc_.Objects()[0]->Select());
  EXPECT_EQ(Bake({"Enter"}), CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre(kPrompt));
  EXPECT_EQ(messages_,
            "Writing " + folder_.File("hall_bake.rib") + "\nBaking 2 maps with 3 thread(s)\n");
  EXPECT_EQ(Maps(), 2U);
  const std::vector<ToolRun> runs = bench_.WaitForRuns(1);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_THAT(runs[0].command,
              ElementsAre("bakeorv.exe", "-p", "3", "-pri", "-1", folder_.File("hall_bake.rib")));
  EXPECT_EQ(runs[0].folder, folder_.Path().string());
  EXPECT_FALSE(std::filesystem::exists(folder_.File("hall.rib")));
  EXPECT_EQ(Setting("Selected"), "1");
}

TEST_F(BakeCommand, PriorityIsTheDocuments) {
  Store("LowPriority", "0");
  EXPECT_EQ(Bake({"Enter"}), CommandResult::success);
  const std::vector<ToolRun> runs = bench_.WaitForRuns(1);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_THAT(runs[0].command,
              ElementsAre("bakeorv.exe", "-p", "1", "-pri", "0", folder_.File("hall_bake.rib")));
}

TEST_F(BakeCommand, AsksTheSameInBothForms) {
  EXPECT_EQ(Bake({"!"}, Form::interactive), CommandResult::cancel);
  EXPECT_THAT(prompts_, ElementsAre(kPrompt));
  EXPECT_EQ(Bake({"!"}, Form::scripted), CommandResult::cancel);
  EXPECT_THAT(prompts_, ElementsAre(kPrompt));
  EXPECT_EQ(messages_, "");
}

TEST_F(BakeCommand, PromptShowsTheStoredValues) {
  Store("BakeEdgeLength", "2.5");
  Store("BakeGamma", "2.2");
  Store("BakeMeshMode", "4");
  Store("BakeNormals", "0");
  Store("BakeTexCoords", "0");
  Store("BakeTexelSize", "0.25");
  Store("Selected", "1");
  EXPECT_EQ(Bake({"!"}), CommandResult::cancel);
  EXPECT_THAT(prompts_, ElementsAre("Orv Bake ( BakeMesh=No  EdgeLength=2.5  Gamma=2.2  "
                                    "MeshMode=DiffuseLight  MeshNormals=No  MeshTexCoords=No  "
                                    "Selected=No  TexelSize=0.25 ): "));
}

// An option of the prompt: what it asks, and values that it refuses and takes.
struct Row {
  std::string name;
  std::string question;
  std::vector<std::string> refused;
  // Each with the way in which the prompt shows it.
  std::vector<std::pair<std::string, std::string>> taken;
};

const Row kRows[] = {
    {"EdgeLength", "Max edge length ", {"-0.1", "10000.1", "x"}, {{"0", "0"}, {"10000", "10000"}}},
    {"Gamma", "Gamma ", {"0.09", "10.1", "x"}, {{"0.1", "0.1"}, {"10", "10"}}},
    {"MeshMode",
     "MeshMode",
     {"6", "Shadow"},
     {{"Color", "Color"},
      {"Occlusion", "Occlusion"},
      {"Indirect", "Indirect"},
      {"Diffuse", "Diffuse"},
      {"DiffuseLight", "DiffuseLight"},
      {"UnlitColor", "UnlitColor"}}},
    {"TexelSize",
     "Texel size ",
     {"0", "0.000009", "10000.1", "x"},
     {{"0.00001", "1e-05"}, {"10000", "10000"}}},
    {"BakeMesh", "", {"Maybe"}, {{"Yes", "Yes"}, {"No", "No"}}},
    {"MeshNormals", "", {"Maybe"}, {{"No", "No"}, {"Yes", "Yes"}}},
    {"MeshTexCoords", "", {"Maybe"}, {{"No", "No"}, {"Yes", "Yes"}}},
    {"Selected", "", {"Maybe"}, {{"Yes", "Yes"}, {"No", "No"}}},
};

TEST_F(BakeCommand, OptionsHaveTheirBounds) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    for (const std::string& value : row.refused) {
      EXPECT_EQ(Bake({row.name + "=" + value}), CommandResult::failure) << value;
    }
    for (const auto& [value, shown] : row.taken) {
      EXPECT_EQ(Bake({row.name + "=" + value, "!"}), CommandResult::cancel) << value;
      EXPECT_THAT(prompts_.back(), HasSubstr(" " + row.name + "=" + shown + " ")) << value;
    }
  }
}

TEST_F(BakeCommand, OptionsAskForTheirValue) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    if (row.question.empty()) {
      EXPECT_EQ(Bake({row.name, "!"}), CommandResult::cancel);
      continue;
    }
    EXPECT_EQ(Bake({row.name, row.taken[0].first, "!"}), CommandResult::cancel);
    ASSERT_EQ(prompts_.size(), 3U);
    EXPECT_THAT(prompts_[1], testing::StartsWith(row.question));
    EXPECT_THAT(prompts_[2], HasSubstr(" " + row.name + "=" + row.taken[0].second + " "));
  }
}

TEST_F(BakeCommand, AnythingElseFails) {
  EXPECT_EQ(Bake({"Quality"}), CommandResult::failure);
  EXPECT_EQ(messages_, "");
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(BakeCommand, SelectedMakesMapsOfTheSelectionAlone) {
  ASSERT_TRUE(doc_.Objects()[1]->Select());
  EXPECT_EQ(Bake({"Selected=Yes", "Enter"}), CommandResult::success);
  EXPECT_EQ(Maps(), 1U);
  EXPECT_THAT(Scene(), AllOf(HasSubstr("[\"one\"]"), HasSubstr("[\"two\"]")));
  EXPECT_THAT(messages_, HasSubstr("Baking 1 maps with 1 thread(s)\n"));
  EXPECT_THAT(bench_.WaitForRuns(1), testing::SizeIs(1));
}

TEST_F(BakeCommand, OfMeshesCountsNoMaps) {
  EXPECT_EQ(
      Bake({"BakeMesh=Yes", "MeshMode=UnlitColor", "MeshNormals=No", "EdgeLength=2", "Enter"}),
      CommandResult::success);
  EXPECT_THAT(Scene(), HasSubstr("Option \"bake\" \"bakemesh\" [1]\n"
                                 "GeometricApproximation \"edgelength\" [2]\n"
                                 "Attribute \"render\" \"meshoutput\" \"color Cs=color "
                                 "__constant\"\n"
                                 "Attribute \"render\" \"meshexclude\" \"N\"\n"
                                 "Exposure 1 1.8\n"
                                 "Display \"bakemesh.tif\" \"framebuffer\" \"rgba\"\n"));
  EXPECT_EQ(messages_, "Writing " + folder_.File("hall_bake.rib") + "\nBaking meshes\n");
  EXPECT_THAT(bench_.WaitForRuns(1), testing::SizeIs(1));
}

TEST_F(BakeCommand, WithoutMapsStartsNothing) {
  Store("BakeUseMap1", "0");
  EXPECT_EQ(Bake({"Enter"}), CommandResult::nothing);
  EXPECT_EQ(Maps(), 0U);
  EXPECT_EQ(messages_, "Writing " + folder_.File("hall_bake.rib") + "\n");
  // Nothing is selected.
  Store("BakeUseMap1", "1");
  EXPECT_EQ(Bake({"Selected=Yes", "Enter"}), CommandResult::nothing);
  // Meshes can be baked all the same.
  EXPECT_EQ(Bake({"Selected=Yes", "BakeMesh=Yes", "Enter"}), CommandResult::success);
  EXPECT_THAT(bench_.WaitForRuns(1), testing::SizeIs(1));
}

TEST_F(BakeCommand, FailedExportStartsNothing) {
  Store("RibName", folder_.File("none/hall.rib"));
  EXPECT_EQ(Bake({"BakeMesh=Yes", "Enter"}), CommandResult::nothing);
  EXPECT_EQ(messages_, "Unable to save " + folder_.File("none/hall_bake.rib") + ".\n");
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(BakeCommand, FrontEndHasAWindow) {
  const std::string own = std::filesystem::read_symlink("/proc/self/fd/1").string();
  Store("OrvShow", "1");
  EXPECT_EQ(Bake({"Enter"}), CommandResult::success);
  const auto runs = bench_.WaitForRuns(1);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_EQ(runs[0].streams.at(1), own.starts_with("pipe:") ? "/dev/null" : own);
}

TEST_F(BakeCommand, OfALongNameTheFileThatWasWrittenIsBaked) {
  // Folders up to five characters before the last one that counts.
  constexpr std::size_t kCounts = 999;
  std::string path = folder_.Path().string();
  const auto left = [&] { return kCounts - 5 - host::CodePointCount(path); };
  while (left() > 1) {
    path += "/" + std::string(std::min<std::size_t>(left() - 1, 200), 'x');
    std::filesystem::create_directory(path);
  }
  Store("RibName", path + "/abcdef.rib");
  EXPECT_EQ(Bake({"Enter"}), CommandResult::success);
  const std::string written = std::string(host::FirstCodePoints(path + "/abcdef", kCounts));
  EXPECT_TRUE(std::filesystem::is_regular_file(written));
  const auto runs = bench_.WaitForRuns(1);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_EQ(runs[0].command.back(), written);
  EXPECT_EQ(runs[0].folder, path);
}

TEST_F(BakeCommand, MissingFrontEndIsTold) {
  const ScopedEnvironment path("PATH", folder_.Path().string());
  EXPECT_EQ(Bake({"Enter"}), CommandResult::failure);
  EXPECT_EQ(messages_, "Writing " + folder_.File("hall_bake.rib") +
                           "\nError - failed to start BakeOrv render process.\n");
}

TEST_F(BakeCommand, NameThatWouldBeMoreThanOneWordStartsNothing) {
  Store("RibName", folder_.File("a\" b.rib"));
  EXPECT_EQ(Bake({"Enter"}), CommandResult::failure);
  EXPECT_EQ(messages_, "Writing " + folder_.File("a\" b_bake.rib") +
                           "\nError - failed to start BakeOrv render process.\n");
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(BakeCommand, ChangesOfFourOptionsStoreTheGroup) {
  const std::pair<std::string, std::string> options[] = {{"EdgeLength=2", "BakeEdgeLength"},
                                                         {"MeshMode=Diffuse", "BakeMeshMode"},
                                                         {"MeshNormals=No", "BakeNormals"},
                                                         {"MeshTexCoords=No", "BakeTexCoords"}};
  for (const auto& [option, key] : options) {
    plugIn_.UserStrings() = {};
    Store("RibName", folder_.File("hall.rib"));
    EXPECT_EQ(Bake({option, "Gamma=2", "TexelSize=0.5", "Enter"}), CommandResult::success);
    EXPECT_EQ(plugIn_.UserStrings().m_e.size(), 1 + BakeSettingFields().size()) << option;
    EXPECT_NE(Setting(key), "") << option;
    EXPECT_EQ(Setting("BakeGamma"), "2");
    EXPECT_EQ(Setting("BakeTexelSize"), "0.5");
  }
  EXPECT_EQ(Setting("BakeTexCoords"), "0");
  EXPECT_THAT(bench_.WaitForRuns(4), testing::SizeIs(4));
}

TEST_F(BakeCommand, OtherChangesHoldForOneRunAlone) {
  const auto before = plugIn_.UserStrings().m_e;
  EXPECT_EQ(Bake({"Gamma=2", "TexelSize=0.001", "Selected=Yes", "Selected=No", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(plugIn_.UserStrings().m_e, before);
  EXPECT_THAT(Scene(), AllOf(HasSubstr("\nExposure 1 2\n"), HasSubstr("\nFormat 256 256 1\n")));
  EXPECT_EQ(Bake({"BakeMesh", "MeshNormals=No", "MeshNormals=Yes", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(plugIn_.UserStrings().m_e, before);
  EXPECT_THAT(bench_.WaitForRuns(2), testing::SizeIs(2));
}

TEST_F(BakeCommand, CancelledChangesAreNotStored) {
  const auto before = plugIn_.UserStrings().m_e;
  EXPECT_EQ(Bake({"EdgeLength=2", "!"}), CommandResult::cancel);
  EXPECT_EQ(plugIn_.UserStrings().m_e, before);
}

TEST_F(BakeCommand, SceneHasTheSettingsOfBakingForThoseOfTheImage) {
  const std::pair<const char*, const char*> settings[] = {
      {"OrvShow", "1"},          {"Outline", "1"},
      {"AnimMode", "1"},         {"DofEnable", "1"},
      {"UseExtraChannels", "1"}, {"ExtraChannels", "Diffuse"},
      {"PixelSamples", "2"},     {"BakePixelSamples", "7"},
      {"ShadingSamples", "9"},   {"BakeShadingSamples", "2.9"},
      {"SharpFilter", "0"},      {"BakeSharpFilter", "1"},
      {"RibGamma", "1"},         {"BakeGamma", "2.5"},
      {"ImagePrecision", "0"},   {"BakePrecision", "1"},
      {"ImageWidth", "640"},     {"BakeImageWidth", "16"},
      {"ImageHeight", "480"},    {"BakeImageHeight", "8"},
      {"DisplayMode", "rgba"},   {"BakeDisplayChannels", "__constant"},
      {"TileOrder", "Spiral"},   {"BakeUseMap5", "1"},
      {"BakeSuffix5", "_e"},     {"BakeDisplayChannels5", "__bump"},
      {"BakeBorder", "3"},       {"BakeTexelSize", "0"},
  };
  for (const auto& [key, value] : settings) Store(key, value);
  EXPECT_EQ(Bake({"Enter"}), CommandResult::success);
  const std::string rib = Scene();
  EXPECT_THAT(rib, HasSubstr("PixelSamples 7 7\nShadingRate 0.5\n"));
  EXPECT_THAT(rib, HasSubstr("PixelFilter \"mitchell\" 4 4\nExposure 1 2.5\nFormat 16 8 1\n"));
  const std::string id = doc_.Objects()[0]->Attributes().m_uuid.ToString();
  EXPECT_THAT(rib, HasSubstr("Format 16 8 1\nDisplay \"" + folder_.File("map_" + id + ".png") +
                             "\" \"file\" \"__constant\" \"float[4] quantize\" [0 65535 0 65535]\n"
                             "Display \"" +
                             folder_.File("map_e_" + id + ".png") +
                             "\" \"file\" \"__bump\" \"float[4] quantize\" [0 65535 0 65535]\n"));
  EXPECT_THAT(rib, HasSubstr("Option \"bake\" \"float border\" [3]\n"
                             "Option \"bake\" \"integer borderwrap\" [1]\n"));
  for (const char* absent : {"framebuffer", "bucketorder", "MotionBegin", "DepthOfField", "toon"}) {
    EXPECT_THAT(rib, Not(HasSubstr(absent)));
  }
  EXPECT_THAT(bench_.WaitForRuns(1), testing::SizeIs(1));
}

}  // namespace
}  // namespace orv
