#include "command_run.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::MatchesRegex;

class LightCommandsTest : public CommandRun {};

TEST_F(LightCommandsTest, EachKindAsksForItsPoints) {
  EXPECT_EQ(Run("AddLight Point 1,2,3"), CommandResult::success);
  EXPECT_THAT(told_, MatchesRegex("Point light added, serial number [0-9]+\\.\n"));
  EXPECT_EQ(Light(1).Style(), ON_LightStyle::world_point);
  EXPECT_EQ(Light(1).Location(), (ON_3dPoint{1, 2, 3}));
  EXPECT_EQ(Run("AddLight Spot 0,0,10 0,1,0"), CommandResult::success);
  EXPECT_EQ(Light(2).Style(), ON_LightStyle::world_spot);
  EXPECT_EQ(Light(2).Location(), (ON_3dPoint{0, 0, 10}));
  EXPECT_EQ(Light(2).Direction(), (ON_3dVector{0, 1, -10}));
  EXPECT_EQ(Light(2).m_spot_angle, 45);
  EXPECT_EQ(Run("AddLight Directional 5,0,5 4,0,4"), CommandResult::success);
  EXPECT_EQ(Light(3).Style(), ON_LightStyle::world_directional);
  EXPECT_EQ(Light(3).Direction(), (ON_3dVector{-1, 0, -1}));
  EXPECT_EQ(Light(3).m_spot_angle, 180);
  EXPECT_EQ(Run("AddLight Rectangular 1,0,0 3,0,0 1,3,0"), CommandResult::success);
  EXPECT_EQ(Light(4).Style(), ON_LightStyle::world_rectangular);
  EXPECT_EQ(Light(4).Location(), (ON_3dPoint{1, 0, 0}));
  EXPECT_EQ(Light(4).Length(), (ON_3dVector{2, 0, 0}));
  EXPECT_EQ(Light(4).Width(), (ON_3dVector{0, 3, 0}));
  EXPECT_EQ(Light(4).Direction(), (ON_3dVector{0, 0, 6}));
  EXPECT_EQ(Run("AddLight Linear 1,1,1 1,1,5"), CommandResult::success);
  EXPECT_EQ(Light(5).Style(), ON_LightStyle::world_linear);
  EXPECT_EQ(Light(5).Location(), (ON_3dPoint{1, 1, 1}));
  EXPECT_EQ(Light(5).Length(), (ON_3dVector{0, 0, 4}));
  EXPECT_EQ(Run("AddLight Ambient"), CommandResult::success);
  EXPECT_EQ(Light(6).Style(), ON_LightStyle::ambient);
}

TEST_F(LightCommandsTest, ANewLightIsOnAndWhiteAndNotSelected) {
  EXPECT_EQ(Run("AddLight Point 0,0,1"), CommandResult::success);
  EXPECT_TRUE(Light(1).IsEnabled());
  EXPECT_EQ(Light(1).Diffuse(), ON_Color(255, 255, 255));
  EXPECT_EQ(Light(1).ShadowIntensity(), 1);
  EXPECT_EQ(Doc().m_light_table.At(1)->Attributes().m_name, "");
  EXPECT_EQ(Doc().m_light_table.At(1)->Attributes().m_layer_index, 0);
  EXPECT_EQ(Doc().SelectedCount(), 0);
}

TEST_F(LightCommandsTest, OptionsStandBeforeTheKind) {
  EXPECT_EQ(Run("AddLight Name \"Key light\" Color=#ff8000 SpotAngle=30 Spot 0,0,5 0,0,0 "
                "SelName \"Key light\""),
            CommandResult::success);
  EXPECT_THAT(told_, HasSubstr("1 object added to the selection.\n"));
  EXPECT_EQ(Light(1).m_light_name, "Key light");
  EXPECT_EQ(Light(1).Diffuse(), ON_Color(255, 128, 0));
  EXPECT_EQ(Light(1).m_spot_angle, 30);
  EXPECT_EQ(Run("AddLight SpotAngle=90 Spot"), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: SpotAngle takes a number from 1 to 89, not '90'.");
}

TEST_F(LightCommandsTest, ANewLightStandsOnTheCurrentLayer) {
  ONX_Model model = SampleModel();
  model.m_settings.m_current_layer_index = 2;
  Doc().SetModel(std::move(model), "");
  EXPECT_EQ(Run("AddLight Point 0,0,1"), CommandResult::success);
  EXPECT_EQ(Doc().m_light_table.At(0)->Attributes().m_layer_index, 2);
  model = SampleModel();
  model.m_settings.m_current_layer_index = 7;
  Doc().SetModel(std::move(model), "");
  EXPECT_EQ(Run("AddLight Point 0,0,1"), CommandResult::success);
  EXPECT_EQ(Doc().m_light_table.At(0)->Attributes().m_layer_index, 0);
}

TEST_F(LightCommandsTest, APersonIsAskedAgainForWrongPoints) {
  EXPECT_EQ(Type({"AddLight", "Name", "Key", "rect", "0,0,0", "0,0,0", "1,0,0", "2,0,0", "1e308,0",
                  "0,1,0"}),
            CommandResult::success);
  EXPECT_THAT(
      prompts_,
      ElementsAre("Command: ",
                  "Kind of the light ( Point  Spot  Directional  Rectangular  Linear  "
                  "Ambient  Name  Color=255,255,255  SpotAngle=45 ): ",
                  "Name of the light: ",
                  "Kind of the light ( Point  Spot  Directional  Rectangular  Linear  "
                  "Ambient  Name=Key  Color=255,255,255  SpotAngle=45 ): ",
                  "Corner: ", "End of the length: ", "End of the length: ", "End of the width: ",
                  "End of the width: ", "End of the width: ", "Command: "));
  EXPECT_THAT(refusals_, ElementsAre("It must stand apart from the first point.",
                                     "It must not stand in line with the first two points.",
                                     "It must not stand in line with the first two points."));
}

TEST_F(LightCommandsTest, WrongPointsOfAScriptAddNothing) {
  for (const char* script :
       {"AddLight Spot 1,1,1 1,1,1", "AddLight Linear 0,0,0 0,0",
        "AddLight Rectangular 0,0 1,0 2,0",
        "AddLight Directional -1e308,-1e308,-1e308 1e308,1e308,1e308", "AddLight Point here",
        "AddLight Sun", "AddLight Enter", "AddLight Point !", "AddLight Name !"}) {
    EXPECT_NE(Run(script), CommandResult::success) << script;
    EXPECT_EQ(Doc().m_light_table.Count(), 1) << script;
    EXPECT_FALSE(Doc().UndoCaption()) << script;
  }
}

TEST_F(LightCommandsTest, LightsAreDeletedAndComeBack) {
  EXPECT_EQ(Run("AddLight Name=Key Point 0,0,1 SelAll DeleteLight"), CommandResult::success);
  EXPECT_THAT(told_, HasSubstr("2 lights deleted.\n"));
  EXPECT_EQ(Doc().m_light_table.At(0), nullptr);
  EXPECT_EQ(Doc().m_light_table.At(1), nullptr);
  EXPECT_EQ(Run("SelName Key"), CommandResult::nothing);
  EXPECT_EQ(Run("Undo SelNone SelName Key"), CommandResult::success);
  EXPECT_EQ(Run("DeleteLight"), CommandResult::success);
  EXPECT_EQ(told_, "1 light deleted.\n");
  EXPECT_EQ(Run("DeleteLight Key"), CommandResult::failure);
  EXPECT_THAT(error_, HasSubstr("There is no object with the name, id or serial number 'Key'."));
  EXPECT_EQ(Run("SelNone DeleteLight Wall"), CommandResult::failure);
  EXPECT_THAT(error_, HasSubstr("'Wall' can't be selected here."));
}

TEST_F(LightCommandsTest, DeletedLightsAreNotCounted) {
  EXPECT_EQ(Run("DocumentInfo"), CommandResult::success);
  EXPECT_THAT(told_, HasSubstr("1 light, 4 meshes, 1 point\n"));
  EXPECT_EQ(Run("DeleteLight Lamp Enter DocumentInfo"), CommandResult::success);
  EXPECT_THAT(told_, HasSubstr("Objects: 4 meshes, 1 point\n"));
}

TEST_F(LightCommandsTest, AddingAndDeletingAreOneStepEach) {
  EXPECT_EQ(Run("AddLight Point 0,0,1 Undo"), CommandResult::success);
  EXPECT_THAT(told_, HasSubstr("Undo: AddLight.\n"));
  EXPECT_EQ(Doc().m_light_table.At(1), nullptr);
  EXPECT_EQ(Run("Redo DeleteLight Lamp Enter Undo"), CommandResult::success);
  EXPECT_THAT(told_, HasSubstr("Undo: DeleteLight.\n"));
  EXPECT_NE(Doc().m_light_table.At(0), nullptr);
  EXPECT_NE(Doc().m_light_table.At(1), nullptr);
}

}  // namespace
