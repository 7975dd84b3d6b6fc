#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "export_fixture.h"
#include "light_fixture.h"

// What lights whole scenes: how the global light, the document's lights, the default one and the
// channels of the image go together.

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kDefaultLight = "  LightSource \"distantlight\" 1 \"intensity\" [ 1 ] ";
constexpr const char* kPointLight = "  LightSource \"pointlight\" ";
constexpr const char* kReflectedRays = "  Attribute \"visibility\" \"integer trace\" [1]\n";

class SceneLighting : public ExportTest {
 protected:
  void AddLight(UserStrings strings = {}) {
    model_.m_light_table.push_back(WithStrings(PointLight(), strings));
  }
  // A light that is off, with channel 7.
  void AddLightThatIsOff() {
    AddLight({{"OrvLightChannel", "7"}});
    model_.m_light_table.back().m_light->m_bOn = false;
  }
  void SetLightChannels() {
    settings_.UseExtraChannels = true;
    settings_.ExtraChannels = "Lights";
  }
};

TEST_F(SceneLighting, WithoutAnyLightThereIsTheDefaultOne) {
  Open();
  EXPECT_THAT(Rib(), HasSubstr(kDefaultLight));
}

TEST_F(SceneLighting, IndirectLightStandsForTheDefaultOne) {
  Open();
  settings_.GiMode = 2;
  const std::string rib = Rib();
  EXPECT_THAT(rib, HasSubstr("  LightSource \"indirect\" 0\n"));
  EXPECT_THAT(rib, Not(HasSubstr("distantlight")));
}

TEST_F(SceneLighting, AnAmbientColorLeavesTheDefaultLight) {
  Open();
  settings_.GiMode = 1;
  const std::string rib = Rib();
  EXPECT_THAT(rib, HasSubstr("  LightSource \"ambientlight\" 0 "));
  EXPECT_THAT(rib, HasSubstr(kDefaultLight));
}

TEST_F(SceneLighting, ABlackAmbientColorIsNotWritten) {
  Open();
  settings_.GiMode = 1;
  settings_.GiBgColor = {0, 0, 0};
  const std::string rib = Rib();
  EXPECT_THAT(rib, Not(HasSubstr("ambientlight")));
  EXPECT_THAT(rib, HasSubstr(kDefaultLight));
}

TEST_F(SceneLighting, LightsAreNumberedBehindIndirectLight) {
  AddLight();
  Open();
  settings_.GiMode = 2;
  EXPECT_THAT(Rib(), HasSubstr("  LightSource \"pointlight\" 2 "));
}

TEST_F(SceneLighting, WithoutUseLightsWhatRaysSeeIsStillSaid) {
  AddLight();
  Open();
  settings_.UseLights = false;
  settings_.GiMode = 4;
  const std::string rib = Rib();
  EXPECT_THAT(rib, Not(HasSubstr(kPointLight)));
  EXPECT_THAT(rib, Not(HasSubstr("distantlight")));
  EXPECT_THAT(rib, Not(HasSubstr("Illuminate")));
  EXPECT_THAT(rib, HasSubstr(std::string("  Attribute \"visibility\" \"integer shadow\" [1]\n") +
                             kReflectedRays));
}

TEST_F(SceneLighting, WithoutUseLightsNoLightCastsAShadow) {
  AddLight();
  Open();
  settings_.UseLights = false;
  const std::string rib = Rib();
  EXPECT_THAT(rib, HasSubstr(kReflectedRays));
  EXPECT_THAT(rib, Not(HasSubstr("\"integer shadow\"")));
  EXPECT_THAT(rib, Not(HasSubstr("LightSource")));
}

TEST_F(SceneLighting, ALightThatIsOffHasNoChannel) {
  AddLightThatIsOff();
  AddLight({{"OrvLightChannel", "3"}});
  Open();
  SetLightChannels();
  const std::string rib = Rib();
  EXPECT_THAT(rib, HasSubstr("__lights[3]"));
  EXPECT_THAT(rib, Not(HasSubstr("__lights[7]")));
  EXPECT_THAT(rib, Not(HasSubstr("\"float __channel\" [7]")));
}

TEST_F(SceneLighting, ALightThatIsOffHasNoChannelInASessionEither) {
  AddLightThatIsOff();
  AddLight({{"OrvLightChannel", "3"}});
  Open();
  SetLightChannels();
  const orv::IprSettings iprSettings;
  iprSettings_ = &iprSettings;
  const std::string rib = Rib();
  EXPECT_THAT(rib, HasSubstr("__lights[3]"));
  EXPECT_THAT(rib, Not(HasSubstr("__lights[7]")));
  EXPECT_THAT(rib, HasSubstr("   \"float __channel\" [7]\n"));
}

TEST_F(SceneLighting, ALightOnALayerThatIsOffIsNoLight) {
  ON_Layer top;
  top.m_id = "7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4"_uuid;
  top.m_visible = false;
  ON_Layer below;
  below.m_parent_id = top.m_id;
  model_.m_layer_table = {top, below};
  AddLight({{"OrvLightChannel", "7"}});
  AddLight({{"OrvLightChannel", "7"}});
  model_.m_light_table[0].m_attributes.m_layer_index = 0;
  model_.m_light_table[1].m_attributes.m_layer_index = 1;
  Open();
  SetLightChannels();
  const orv::IprSettings iprSettings;
  for (const orv::IprSettings* session :
       {static_cast<const orv::IprSettings*>(nullptr), &iprSettings}) {
    iprSettings_ = session;
    const std::string rib = Rib();
    EXPECT_THAT(rib, Not(HasSubstr(kPointLight)));
    EXPECT_THAT(rib, Not(HasSubstr("Illuminate")));
    EXPECT_THAT(rib, Not(HasSubstr("__lights[7]")));
    EXPECT_THAT(rib, HasSubstr(kDefaultLight));
  }
}

}  // namespace
