#include "command_run.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Commands that set attributes, and those that select by what was set.
class AttributeCommandsTest : public CommandRun {
 protected:
  // The positions of the selected objects.
  static std::vector<std::size_t> Selected() {
    std::vector<std::size_t> positions;
    for (std::size_t i = 0; i < Doc().Objects().size(); ++i) {
      if (Object(i).IsSelected()) positions.push_back(i);
    }
    return positions;
  }
};

TEST_F(AttributeCommandsTest, ObjectsAreNamed) {
  EXPECT_EQ(Run("SelName Wall SetObjectName \"Äußere Wand\""), CommandResult::success);
  EXPECT_THAT(told_, HasSubstr("Name set on 2 objects.\n"));
  EXPECT_EQ(Object(0).Attributes().m_name, "Äußere Wand");
  EXPECT_EQ(Object(1).Attributes().m_name, "Äußere Wand");
  EXPECT_EQ(Run("SelNone SetObjectName Lamp Enter Key"), CommandResult::success);
  EXPECT_EQ(Doc().m_light_table.At(0)->Attributes().m_name, "Key");
  EXPECT_EQ(Run("Undo Undo"), CommandResult::success);
  EXPECT_EQ(Object(0).Attributes().m_name, "Wall");
  EXPECT_EQ(Doc().m_light_table.At(0)->Attributes().m_name, "Lamp");
}

TEST_F(AttributeCommandsTest, EnterTakesANameAway) {
  EXPECT_EQ(Run("SetObjectName Roof Enter Enter"), CommandResult::success);
  EXPECT_EQ(told_, "Name removed from 1 object.\n");
  EXPECT_EQ(Object(2).Attributes().m_name, "");
  EXPECT_EQ(Run("SetObjectName \"\""), CommandResult::nothing);
  EXPECT_EQ(told_, "Name removed from 0 objects.\n");
  EXPECT_EQ(Run("SetObjectName Roof"), CommandResult::success);
  EXPECT_EQ(Run("SetObjectName Roof Undo"), CommandResult::success);
  EXPECT_THAT(told_, HasSubstr("Name set on 1 object.\nUndo: SetObjectName.\n"));
  EXPECT_EQ(Object(2).Attributes().m_name, "");
}

TEST_F(AttributeCommandsTest, ObjectsAreSelectedById) {
  const std::string number = std::to_string(Object(1).RuntimeSerialNumber());
  EXPECT_EQ(Run("SelId " + number), CommandResult::success);
  EXPECT_EQ(told_, "1 object added to the selection.\n");
  EXPECT_THAT(Selected(), ElementsAre(1));
  EXPECT_EQ(Run("SelId " + Object(2).Attributes().m_uuid.ToString()), CommandResult::success);
  EXPECT_THAT(Selected(), ElementsAre(1, 2));
  EXPECT_EQ(Run("SelId " + number), CommandResult::nothing);
  // The cellar is hidden.
  EXPECT_EQ(Run("SelId " + Object(3).Attributes().m_uuid.ToString()), CommandResult::nothing);
  EXPECT_EQ(told_, "0 objects added to the selection.\n");
}

TEST_F(AttributeCommandsTest, AnIdThatNoObjectHasIsRefused) {
  for (const char* text : {"Wall", "999999999", "-1", "1x", "\"\"",
                           "00000000-0000-0000-0000-0000000000ff", "99999999999999999999"}) {
    EXPECT_EQ(Run(std::string("SelId ") + text), CommandResult::failure);
    EXPECT_THAT(error_, HasSubstr("-c, line 1: There is no object with the id or serial number '"))
        << text;
  }
}

TEST_F(AttributeCommandsTest, ObjectsAreSelectedByTheirMaterial) {
  EXPECT_EQ(Run("SelMaterial BRICK"), CommandResult::success);
  EXPECT_THAT(Selected(), ElementsAre(0, 2));
  EXPECT_EQ(Run("SelNone SelName Mark SetObjectMaterial brick SelNone SelMaterial brick"),
            CommandResult::success);
  EXPECT_THAT(Selected(), ElementsAre(0, 2, 4));
  EXPECT_FALSE(Doc().m_light_table.At(0)->IsSelected());
  EXPECT_EQ(Run("SelMaterial slate"), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: There is no material 'slate'.");
  EXPECT_EQ(Run("SelMaterial \"\""), CommandResult::failure);
}

TEST_F(AttributeCommandsTest, MaterialsAreAddedAndGivenToObjects) {
  EXPECT_EQ(Run("AddMaterial Color=255,0,10 \"Red paint\" SelName Roof "
                "SetObjectMaterial \"red paint\" What"),
            CommandResult::success);
  EXPECT_THAT(told_, HasSubstr("Material 'Red paint' added.\n"));
  EXPECT_THAT(told_, HasSubstr("Material set on 1 object.\n"));
  EXPECT_THAT(told_, HasSubstr("  material: \"Red paint\", of the object\n"));
  EXPECT_EQ(Object(2).ObjectMaterial().Diffuse(), ON_Color(255, 0, 10));
  EXPECT_EQ(Run("Undo"), CommandResult::success);
  EXPECT_EQ(Object(2).ObjectMaterial().m_name, "brick");
  EXPECT_EQ(Run("Undo"), CommandResult::success);
  EXPECT_EQ(Doc().m_material_table.Count(), 1);
}

TEST_F(AttributeCommandsTest, AMaterialNeedsANameOfItsOwn) {
  EXPECT_EQ(Run("AddMaterial Brick"), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: There is a material 'Brick' already.");
  EXPECT_EQ(Run("AddMaterial \"\""), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: A name is not empty.");
  EXPECT_EQ(Run("AddMaterial Enter"), CommandResult::cancel);
  EXPECT_EQ(Run("AddMaterial Color=red slate"), CommandResult::failure);
  EXPECT_EQ(Doc().m_material_table.Count(), 1);
  EXPECT_FALSE(Doc().UndoCaption());
}

TEST_F(AttributeCommandsTest, LightsTakeNoMaterial) {
  EXPECT_EQ(Run("SetObjectMaterial Lamp"), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: 'Lamp' can't be selected here.");
  EXPECT_EQ(Run("SelAll SetObjectMaterial brick"), CommandResult::success);
  EXPECT_THAT(told_, HasSubstr("Material set on 4 objects.\n"));
}

TEST_F(AttributeCommandsTest, ObjectsArePutOnALayer) {
  EXPECT_EQ(Run("SelName Roof SetObjectLayer House::Inner"), CommandResult::success);
  EXPECT_THAT(told_, HasSubstr("Layer set on 1 object.\n"));
  EXPECT_EQ(Object(2).Attributes().m_layer_index, 2);
  EXPECT_EQ(Run("SetObjectLayer inner"), CommandResult::success);
  EXPECT_EQ(Run("SetObjectLayer Garden"), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: There is no layer 'Garden'.");
  EXPECT_EQ(Run("SetObjectLayer Enter"), CommandResult::cancel);
  EXPECT_EQ(Run("Undo"), CommandResult::success);
  EXPECT_EQ(Object(2).Attributes().m_layer_index, 1);
}

TEST_F(AttributeCommandsTest, APersonIsAskedAgain) {
  EXPECT_EQ(Type({"SetObjectLayer", "Roof", "Enter", "Garden", "House", "SelMaterial", "slate",
                  "brick", "SetObjectName", "!"}),
            CommandResult::cancel);
  EXPECT_THAT(prompts_, ElementsAre("Command: ", "Select objects: ",
                                    "Select objects (1 selected, Enter ends): ", "Layer: ",
                                    "Layer: ", "Command: ", "Material of the objects to select: ",
                                    "Material of the objects to select: ", "Command: ",
                                    "Name (Enter takes it away): ", "Command: "));
  EXPECT_THAT(refusals_,
              ElementsAre("There is no layer 'Garden'.", "There is no material 'slate'."));
}

}  // namespace
