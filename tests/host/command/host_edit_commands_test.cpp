#include <gmock/gmock.h>

#include <set>
#include <sstream>

#include "command_run.h"
#include "sample_plugin.h"
#include "support/temp_folder.h"

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

class HostEditCommandsTest : public CommandRun {
 protected:
  static std::optional<std::string_view> ObjectText(std::size_t index, std::string_view key) {
    return Object(index).Attributes().GetUserString(key);
  }
};

TEST_F(HostEditCommandsTest, UndoAndRedoTellWhichCommand) {
  EXPECT_EQ(Run("SelName Roof Hide Undo"), CommandResult::success);
  EXPECT_THAT(told_, EndsWith("1 object hidden.\nUndo: Hide.\n"));
  EXPECT_TRUE(Object(2).IsVisible());
  EXPECT_EQ(Run("Redo"), CommandResult::success);
  EXPECT_EQ(told_, "Redo: Hide.\n");
  EXPECT_FALSE(Object(2).IsVisible());
}

TEST_F(HostEditCommandsTest, UndoAndRedoTellWhenThereIsNothing) {
  EXPECT_EQ(Run("Undo"), CommandResult::nothing);
  EXPECT_EQ(told_, "Nothing to undo.\n");
  EXPECT_EQ(Run("Redo"), CommandResult::nothing);
  EXPECT_EQ(told_, "Nothing to redo.\n");
}

TEST_F(HostEditCommandsTest, CommandsThatChangeNothingAreNotUndone) {
  EXPECT_EQ(Run("Show SelAll DocumentInfo What Undo"), CommandResult::success);
  EXPECT_THAT(told_, EndsWith("Undo: Show.\n"));
  EXPECT_EQ(Run("SelNone SelAll Redo"), CommandResult::success);
  EXPECT_THAT(told_, EndsWith("Redo: Show.\n"));
}

TEST_F(HostEditCommandsTest, ACommandOfAPlugInIsOneStepWhateverItDoes) {
  SampleCommand command("Repaint", [](CRhinoCommandContext& context) {
    EXPECT_EQ(context.m_doc.BeginUndoRecord("inner"), 0u);
    context.m_doc.m_material_table.AddMaterial({});
    context.m_doc.m_material_table.ModifyMaterial({}, 0);
    return CommandResult::cancel;
  });
  registry_.AddCommand(command);
  EXPECT_EQ(Run("Repaint"), CommandResult::cancel);
  EXPECT_EQ(Doc().m_material_table.Count(), 2);
  EXPECT_EQ(Run("Undo"), CommandResult::success);
  EXPECT_EQ(told_, "Undo: Repaint.\n");
  EXPECT_EQ(Doc().m_material_table.Count(), 1);
  EXPECT_EQ(Doc().m_material_table.At(0)->m_name, "brick");
  EXPECT_EQ(Run("Undo"), CommandResult::nothing);
}

TEST_F(HostEditCommandsTest, ACommandThatBreaksOffIsUndoneToo) {
  SampleCommand command("Break", [](CRhinoCommandContext& context) -> CommandResult {
    context.m_doc.m_material_table.AddMaterial({});
    throw std::runtime_error("out of luck");
  });
  registry_.AddCommand(command);
  EXPECT_EQ(Run("Break"), CommandResult::failure);
  EXPECT_EQ(Run("Undo"), CommandResult::success);
  EXPECT_EQ(told_, "Undo: Break.\n");
  EXPECT_EQ(Doc().m_material_table.Count(), 1);
}

TEST_F(HostEditCommandsTest, SetUserTextSetsOnTheSelectedObjects) {
  EXPECT_EQ(Run("SelName Wall SetUserText OrvArchive \"a b.rib\""), CommandResult::success);
  EXPECT_THAT(told_, EndsWith("OrvArchive set on 2 objects.\n"));
  EXPECT_EQ(ObjectText(0, "orvarchive"), "a b.rib");
  EXPECT_EQ(ObjectText(1, "orvarchive"), "a b.rib");
  EXPECT_EQ(ObjectText(2, "orvarchive"), std::nullopt);
  EXPECT_EQ(Run("What"), CommandResult::success);
  EXPECT_THAT(told_, HasSubstr("\n  user string: OrvArchive=a b.rib\n"));
  EXPECT_EQ(Run("Undo"), CommandResult::success);
  EXPECT_EQ(told_, "Undo: SetUserText.\n");
  EXPECT_EQ(ObjectText(0, "orvarchive"), std::nullopt);
  EXPECT_EQ(ObjectText(1, "orvarchive"), std::nullopt);
}

TEST_F(HostEditCommandsTest, SetUserTextAsksForObjectsWhenNoneIsSelected) {
  EXPECT_EQ(Run("SetUserText Roof Enter On=Object OrvBackFace No"), CommandResult::success);
  EXPECT_THAT(told_, EndsWith("OrvBackFace set on 1 object.\n"));
  EXPECT_EQ(ObjectText(2, "OrvBackFace"), "No");
}

TEST_F(HostEditCommandsTest, AnEmptyTextRemovesTheKey) {
  EXPECT_EQ(Run("SelName Wall SetUserText OrvArchive a SetUserText orvarchive \"\""),
            CommandResult::success);
  EXPECT_THAT(told_, EndsWith("orvarchive removed from 2 objects.\n"));
  EXPECT_TRUE(Object(0).Attributes().m_user_strings.IsEmpty());
  EXPECT_EQ(Run("Undo SetUserText OrvArchive Enter"), CommandResult::success);
  EXPECT_THAT(told_, EndsWith("OrvArchive removed from 2 objects.\n"));
  EXPECT_EQ(Run("SetUserText OrvArchive Enter"), CommandResult::nothing);
  EXPECT_EQ(told_, "OrvArchive removed from 0 objects.\n");
  EXPECT_EQ(Run("Undo"), CommandResult::success);
  EXPECT_EQ(ObjectText(0, "OrvArchive"), "a");
}

TEST_F(HostEditCommandsTest, AKeyThatStandsTwiceIsRemovedWhole) {
  ONX_Model model = SampleModel();
  model.m_object_table[2].m_attributes.m_user_strings.m_e = {
      {"OrvArchive", "a.rib"}, {"OrvBackFace", "No"}, {"orvarchive", "b.rib"}};
  Doc().SetModel(std::move(model), "sample.3dm");
  EXPECT_EQ(Run("SelName Roof SetUserText OrvArchive Enter"), CommandResult::success);
  EXPECT_THAT(told_, EndsWith("OrvArchive removed from 1 object.\n"));
  EXPECT_EQ(ObjectText(2, "OrvArchive"), std::nullopt);
  EXPECT_EQ(ObjectText(2, "OrvBackFace"), "No");
}

TEST_F(HostEditCommandsTest, SettingTheSameTextAgainChangesNothing) {
  EXPECT_EQ(Run("SelName Wall SetUserText OrvArchive a"), CommandResult::success);
  EXPECT_EQ(Run("SetUserText orvarchive a"), CommandResult::success);
  EXPECT_EQ(told_, "orvarchive set on 2 objects.\n");
  EXPECT_EQ(Run("SelName Roof SetUserText OrvArchive a"), CommandResult::success);
  EXPECT_THAT(told_, EndsWith("OrvArchive set on 3 objects.\n"));
  EXPECT_EQ(Run("SetUserText On=Material OrvSurface x"), CommandResult::success);
  EXPECT_EQ(Run("SetUserText On=Material OrvSurface x"), CommandResult::success);
  EXPECT_EQ(Run("Undo Undo Undo"), CommandResult::success);
  EXPECT_EQ(ObjectText(0, "OrvArchive"), std::nullopt);
  EXPECT_FALSE(Doc().UndoCaption());
}

TEST_F(HostEditCommandsTest, SetUserTextSetsOnMaterialsOnce) {
  EXPECT_EQ(Run("SelLayer House SetUserText On=Material OrvSurface \"\"\"plastic\"\" 1\""),
            CommandResult::success);
  EXPECT_THAT(told_, EndsWith("OrvSurface set on 1 material.\n"));
  EXPECT_EQ(Doc().m_material_table.At(0)->GetUserString("OrvSurface"), "\"plastic\" 1");
  EXPECT_TRUE(Object(0).Attributes().m_user_strings.IsEmpty());
  EXPECT_EQ(Run("What"), CommandResult::success);
  EXPECT_THAT(told_, HasSubstr("\n  material string: OrvSurface=\"plastic\" 1\n"));
  EXPECT_EQ(Run("SetUserText On=Material OrvSurface Enter"), CommandResult::success);
  EXPECT_EQ(told_, "OrvSurface removed from 1 material.\n");
}

TEST_F(HostEditCommandsTest, ALayerWithoutAMaterialGetsOne) {
  EXPECT_EQ(Run("SelName Mark SelLayer Inner SetUserText On=Material OrvShadingSamples 4"),
            CommandResult::success);
  EXPECT_THAT(told_, EndsWith("OrvShadingSamples set on 2 materials.\n"));
  EXPECT_EQ(Doc().m_material_table.Count(), 3);
  EXPECT_EQ(Object(1).ObjectMaterial().GetUserString("OrvShadingSamples"), "4");
  EXPECT_EQ(Object(1).ObjectMaterial().Diffuse(), ON_Color(255, 255, 255));
  EXPECT_NE(&Object(1).ObjectMaterial(), &Object(4).ObjectMaterial());
  EXPECT_EQ(Run("Undo"), CommandResult::success);
  EXPECT_EQ(Doc().m_material_table.Count(), 1);
  EXPECT_EQ(Object(1).ObjectMaterial().MaterialIndex(), -1);
  EXPECT_EQ(Run("Redo"), CommandResult::success);
  EXPECT_EQ(Object(1).ObjectMaterial().GetUserString("OrvShadingSamples"), "4");
}

TEST_F(HostEditCommandsTest, RemovingATextMakesNoMaterial) {
  EXPECT_EQ(Run("SelName Mark SetUserText On=Material OrvSurface Enter"), CommandResult::nothing);
  EXPECT_THAT(told_, EndsWith("OrvSurface removed from 0 materials.\n"));
  EXPECT_EQ(Doc().m_material_table.Count(), 1);
  EXPECT_FALSE(Doc().UndoCaption());
}

TEST_F(HostEditCommandsTest, AnObjectWithoutAMaterialOfItsOwnGetsNone) {
  CRhinoObject& mark = *Doc().Objects()[4];
  ON_3dmObjectAttributes attributes = mark.Attributes();
  attributes.m_material_source = ON_AttributeSource::object;
  EXPECT_TRUE(Doc().ModifyObjectAttributes(mark, attributes));
  EXPECT_EQ(Run("SelName Mark SelType Light SetUserText On=Material OrvSurface x"),
            CommandResult::nothing);
  EXPECT_THAT(told_, EndsWith("OrvSurface set on 0 materials.\n"));
  EXPECT_EQ(Doc().m_material_table.Count(), 1);
}

TEST_F(HostEditCommandsTest, TheTextOfALightStandsOnTheLight) {
  EXPECT_EQ(Run("SelType Light SetUserText OrvLightIntensity 2.5"), CommandResult::success);
  EXPECT_THAT(told_, EndsWith("OrvLightIntensity set on 1 object.\n"));
  const CRhinoObject& lamp = *Doc().m_light_table.At(0);
  EXPECT_EQ(lamp.Geometry()->GetUserString("OrvLightIntensity"), "2.5");
  EXPECT_TRUE(lamp.Attributes().m_user_strings.IsEmpty());
  EXPECT_EQ(Run("What"), CommandResult::success);
  EXPECT_THAT(told_, HasSubstr("\n  user string: OrvLightIntensity=2.5\n"));
  EXPECT_EQ(Run("Undo"), CommandResult::success);
  EXPECT_EQ(lamp.Geometry()->GetUserString("OrvLightIntensity"), std::nullopt);
}

TEST_F(HostEditCommandsTest, AKeyIsNotEmpty) {
  EXPECT_EQ(Run("SelAll SetUserText \"\" x"), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: A key is not empty.");
  EXPECT_EQ(Run("SelAll SetUserText On=Layer k v"), CommandResult::failure);
  EXPECT_THAT(error_, HasSubstr("On takes Object or Material, not 'Layer'."));
  EXPECT_FALSE(Doc().UndoCaption());
}

TEST_F(HostEditCommandsTest, SetUserTextTellsAPersonWhatItAsksFor) {
  const RecordedWindow window;
  Doc().Objects()[0]->Select();
  TypedInput input({"SetUserText", "On", "Material", "", "OrvSurface", "!"});
  EXPECT_EQ(CommandRunner(registry_, input).RunAll(commands_.ExitRequested()),
            CommandResult::cancel);
  EXPECT_THAT(input.Prompts(),
              ElementsAre("Command: ", "Key of the text ( On=Object ): ",
                          "On <Object> ( Object  Material ): ", "Key of the text ( On=Material ): ",
                          "Key of the text ( On=Material ): ", "Text (Enter removes the key): ",
                          "Command: "));
  EXPECT_FALSE(Doc().UndoCaption());
}

// The manual has a row for each command of the host.
TEST_F(HostEditCommandsTest, TheManualListsAllCommandsOfTheHost) {
  std::istringstream manual(FileContent(ORV_TEST_FOLDER "/../../../docs/scripting.md"));
  std::set<std::string> listed;
  for (std::string line; std::getline(manual, line);) {
    if (line != "| Command | What it does | What it asks for |") continue;
    while (std::getline(manual, line) && line.starts_with("|")) {
      const std::string names = line.substr(0, line.find('|', 1));
      for (std::size_t at = names.find('`'); at != std::string::npos;
           at = names.find('`', names.find('`', at + 1) + 1)) {
        listed.insert(names.substr(at + 1, names.find('`', at + 1) - at - 1));
      }
    }
  }
  std::set<std::string> commands;
  for (const CRhinoCommand* command : registry_.Commands()) {
    commands.emplace(command->EnglishCommandName());
  }
  EXPECT_EQ(listed, commands);
}

}  // namespace
