#include "export/light_channels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "export_fixture.h"
#include "light_fixture.h"

namespace {

using testing::ElementsAre;

class LightChannels : public testing::Test {
 protected:
  LightChannels() {
    settings_.UseExtraChannels = true;
    settings_.ExtraChannels = "Diffuse Lights";
  }

  void AddLight(std::string_view channel) {
    model_.m_light_table.push_back(WithStrings(PointLight(), {{"OrvLightChannel", channel}}));
  }

  orv::LightChannelCounts Counts() {
    CRhinoDoc doc;
    doc.SetModel(model_, "");
    return orv::CountLightChannels(settings_, orv::GatherObjects(doc, false, settings_));
  }

  ONX_Model model_;
  orv::RenderSettings settings_;
};

TEST_F(LightChannels, AreCountedByTheLightsChannels) {
  for (const char* channel : {"1", "3", "3", "9", "99", "0"}) AddLight(channel);
  model_.m_light_table.push_back(PointLight());
  model_.m_object_table.push_back(ObjectOf(SquareMesh()));
  EXPECT_THAT(Counts(), ElementsAre(0, 3, 0, 2, 0, 0, 0, 0, 0, 2));
}

TEST_F(LightChannels, LightsThatAreOffOrHiddenDontCount) {
  AddLight("2");
  AddLight("3");
  model_.m_light_table[0].m_light->m_bOn = false;
  model_.m_light_table[1].m_attributes.m_mode = ON_ObjectMode::hidden;
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
}

TEST_F(LightChannels, LightsThatAreNotExportedCountAllTheSame) {
  AddLight("2");
  settings_.UseLights = false;
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 1, 0, 0, 0, 0, 0, 0, 0));
}

TEST_F(LightChannels, TheEnvironmentHasTheFirstSlot) {
  const int withoutBounces[] = {0, 0, 0, 0, 1, 1};
  const int withBounces[] = {0, 0, 1, 1, 1, 1};
  for (int mode = 0; mode <= 5; ++mode) {
    settings_.GiMode = mode;
    settings_.BounceChannels = false;
    EXPECT_EQ(Counts()[0], withoutBounces[mode]) << mode;
    settings_.BounceChannels = true;
    EXPECT_EQ(Counts()[0], withBounces[mode]) << mode;
  }
}

TEST_F(LightChannels, CausticsTakeTheLastSlot) {
  AddLight("9");
  AddLight("9");
  settings_.CausticsEnable = true;
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 0, 1));
}

TEST_F(LightChannels, AreNotCountedUnlessTheImageHasThem) {
  AddLight("1");
  settings_.GiMode = 4;
  settings_.CausticsEnable = true;
  for (const char* channels : {"", "Diffuse", "lights"}) {
    settings_.ExtraChannels = channels;
    EXPECT_THAT(Counts(), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 0, 0)) << channels;
  }
  settings_.ExtraChannels = "Lights";
  settings_.UseExtraChannels = false;
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
}

}  // namespace
