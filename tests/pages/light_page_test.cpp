#include "pages/light_page.h"

#include <gmock/gmock.h>

#include "host/document/object.h"
#include "host/geometry/on_light.h"
#include "property_fixture.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Optional;

class LightPageTest : public PropertyPageTest {
 protected:
  LightPageTest() {
    MakeLights();
    SelectLights({0, 1});
    Open(page_);
  }

  void SelectLights(std::initializer_list<std::size_t> indices) {
    for (const auto& light : doc_.Lights()) light->Select(false);
    for (const std::size_t index : indices) EXPECT_TRUE(Light(index).Select());
  }
  const ON_Light& Geometry(std::size_t index) { return *ON_Light::Cast(Light(index).Geometry()); }
  std::string Change(std::string_view control, std::string_view value) {
    return PropertyPageTest::Change(page_, control, value);
  }
  std::string Shown(std::string_view id) const { return Value(page_, id); }

  CLightPropPageDlg page_{plugIn_};
};

TEST_F(LightPageTest, HasTheseControls) {
  EXPECT_EQ(page_.Title(), "Orv Light");
  EXPECT_THAT(
      Described(page_.Controls()),
      ElementsAre(
          "Enabled: On, check", "Channel: Channel:, list: 1|2|3|4|5|6|7|8|9",
          "Color: Color:, colour",
          "Intensity: Intensity:, combo: "
          "0.1|0.2|0.3|0.4|0.5|0.6|0.7|0.8|0.9|1.0|10|100|1000|10000|100000",
          "Falloff: Falloff:, list: None|Linear|Squared", "EmitDiffuse: Emit diffuse, check",
          "EmitSpecular: Emit specular, check", "EmitPhotons: Emit photons, check",
          "Photons: million, combo: 0.1|0.2|0.5|1.0|1.5|2|3|4|5",
          "ShadowColor: Shadow Color:, colour",
          "ShadowIntensity: Shadow Intensity:, combo: 0.0|0.1|0.2|0.3|0.4|0.5|0.6|0.7|0.8|0.9|1.0",
          "ShadowSamples: Rays:, combo: 0|1|4|8|16|32|64|128|256",
          "ShadowBlur: Blur:, combo: 0.0|0.005|0.01|0.02|0.04|0.1|0.2",
          "AreaType: Mode:, list: Normal|Fast|Portal", "InCamera: Visible to camera, check",
          "Reflected: Visible in reflections, check", "UseTexture: Texture or IES file, check",
          "Texture: Texture or IES file, path", "UseArchive: Use Archive Shape, check",
          "Archive: Use Archive Shape, path"));
}

TEST_F(LightPageTest, IsOfferedForLights) {
  EXPECT_TRUE(page_.IsOffered(doc_));
  SelectLights({});
  EXPECT_TRUE(Object(0).Select());
  EXPECT_FALSE(page_.IsOffered(doc_));
}

TEST_F(LightPageTest, ShowsTheFirstLight) {
  for (const auto& [id, value] : std::vector<std::pair<std::string, std::string>>{
           {"Enabled", "Yes"},       {"Channel", "1"},         {"Color", "255,255,255"},
           {"Intensity", "1"},       {"Falloff", "None"},      {"EmitDiffuse", "Yes"},
           {"EmitSpecular", "Yes"},  {"EmitPhotons", "No"},    {"Photons", "0.1"},
           {"ShadowColor", "0,0,0"}, {"ShadowIntensity", "1"}, {"ShadowSamples", "8"},
           {"ShadowBlur", "0.01"},   {"AreaType", "Normal"},   {"InCamera", "No"},
           {"Reflected", "No"},      {"UseTexture", "No"},     {"Texture", ""},
           {"UseArchive", "No"},     {"Archive", ""}}) {
    EXPECT_EQ(Shown(id), value) << id;
  }
  SelectLights({1});
  Open(page_);
  EXPECT_EQ(Shown("Color"), "0,0,255");
}

TEST_F(LightPageTest, EachFieldIsStoredInItsKey) {
  struct Case {
    std::string_view control, value, key;
    std::string stored;
  };
  for (const Case& one :
       std::vector<Case>{{"Channel:", "9", "OrvLightChannel", "9"},
                         {"Intensity:", "2.5", "OrvLightIntensity", "2.5"},
                         {"Falloff:", "Squared", "OrvLightFalloff", "2"},
                         {"Emit diffuse", "No", "OrvLightEmitDiffuse", "No"},
                         {"Emit specular", "no", "OrvLightEmitSpecular", "No"},
                         {"Emit photons", "Yes", "OrvLightEmitPhotons", "Yes"},
                         {"million", "3", "OrvLightPhotons", "3"},
                         {"Shadow Color:", "255,0,51", "OrvShadowColor", "1,0,0.2"},
                         {"Rays:", "16", "OrvShadowSamples", "16"},
                         {"Blur:", "0.2", "OrvShadowBlur", "0.2"},
                         {"Mode:", "Portal", "OrvAreaLightType", "portal"},
                         {"Visible to camera", "Yes", "OrvRectangleLightInCamera", "Yes"},
                         {"Visible in reflections", "Yes", "OrvRectangleLightReflected", "Yes"},
                         {"UseTexture", "Yes", "OrvLightUseTexture", "Yes"},
                         {"Texture", "a/b.tx", "OrvLightTexture", "a/b.tx"},
                         {"UseArchive", "Yes", "OrvLightUseArchive", "Yes"},
                         {"Archive", "c.rib", "OrvLightArchive", "c.rib"}}) {
    EXPECT_EQ(Change(one.control, one.value), "") << one.control;
    EXPECT_THAT(LightText(0, one.key), Optional(one.stored)) << one.control;
    EXPECT_THAT(LightText(1, one.key), Optional(one.stored)) << one.control;
    EXPECT_EQ(LightText(2, one.key), std::nullopt) << one.control;
    EXPECT_EQ(UndoCaption(), "Light Properties change") << one.control;
  }
}

TEST_F(LightPageTest, TheHostsFieldsAreStoredInTheLight) {
  EXPECT_EQ(Change("On", "No"), "");
  EXPECT_EQ(Change("Color:", "#ff8000"), "");
  EXPECT_EQ(Change("Shadow Intensity:", "0.4"), "");
  for (const std::size_t i : {0U, 1U}) {
    EXPECT_FALSE(Geometry(i).IsEnabled());
    EXPECT_EQ(Geometry(i).Diffuse(), (ON_Color{255, 128, 0}));
    EXPECT_EQ(Geometry(i).ShadowIntensity(), 0.4);
    EXPECT_TRUE(Geometry(i).m_user_strings.IsEmpty());
  }
  EXPECT_TRUE(Geometry(2).IsEnabled());
}

TEST_F(LightPageTest, TypedNumbersAreHeldToTheirLimits) {
  struct Case {
    std::string_view control, value, key;
    std::string stored;
  };
  for (const Case& one : std::vector<Case>{{"Intensity", "-1", "OrvLightIntensity", "0"},
                                           {"Intensity", "2e9", "OrvLightIntensity", "1e+09"},
                                           {"Photons", "-0.5", "OrvLightPhotons", "0"},
                                           {"Photons", "2e9", "OrvLightPhotons", "1e+09"},
                                           {"ShadowSamples", "2000", "OrvShadowSamples", "1024"},
                                           {"ShadowSamples", "-4", "OrvShadowSamples", "0"},
                                           {"ShadowBlur", "-4", "OrvShadowBlur", "0"},
                                           {"ShadowBlur", "2e9", "OrvShadowBlur", "1e+09"}}) {
    EXPECT_EQ(Change(one.control, one.value), "") << one.value;
    EXPECT_THAT(LightText(0, one.key), Optional(one.stored)) << one.value;
    EXPECT_EQ(Shown(one.control), one.stored);
  }
  EXPECT_EQ(Change("ShadowIntensity", "-1"), "");
  EXPECT_EQ(Geometry(0).ShadowIntensity(), 0);
  EXPECT_EQ(Change("ShadowIntensity", "7"), "");
  EXPECT_EQ(Geometry(0).ShadowIntensity(), 7);
}

TEST_F(LightPageTest, ABlurAboveOneIsOneWhenItIsReadAgain) {
  EXPECT_EQ(Change("ShadowBlur", "5"), "");
  EXPECT_EQ(Shown("ShadowBlur"), "5");
  Open(page_);
  EXPECT_EQ(Shown("ShadowBlur"), "1");
}

TEST_F(LightPageTest, ANumberOutOfRangeIsShownButNotStored) {
  for (const auto& [id, text] : std::vector<std::pair<std::string, std::string>>{
           {"Intensity", "1e999"}, {"ShadowSamples", "99999999999"}, {"Photons", "nan"}}) {
    EXPECT_EQ(Change(id, text), id + " takes a number, not '" + text + "'.");
    EXPECT_EQ(Shown(id), text);
  }
  EXPECT_TRUE(Geometry(0).m_user_strings.IsEmpty());
  EXPECT_EQ(UndoCaption(), "");
  Open(page_);
  EXPECT_EQ(Shown("Intensity"), "1");
}

TEST_F(LightPageTest, ANumberThatIsThereAlreadyIsNotStored) {
  EXPECT_EQ(Change("Intensity", "1.0"), "");
  EXPECT_EQ(Change("ShadowSamples", "8"), "");
  EXPECT_EQ(UndoCaption(), "");
  // A check or a list is always stored.
  EXPECT_EQ(Change("EmitDiffuse", "Yes"), "");
  EXPECT_THAT(LightText(1, "OrvLightEmitDiffuse"), Optional(std::string("Yes")));
}

TEST_F(LightPageTest, WhatIsNoneOfTheChoicesIsRefused) {
  EXPECT_THAT(Change("Falloff", "Cubic"), HasSubstr("None, Linear or Squared"));
  EXPECT_THAT(Change("Channel", "10"), HasSubstr("Channel"));
  EXPECT_THAT(Change("Enabled", "maybe"), HasSubstr("No or Yes"));
  EXPECT_THAT(Change("Color", "red"), HasSubstr("255,128,0"));
  EXPECT_EQ(Change("Nothing", "1"), "There is no 'Nothing' on this page.");
  EXPECT_TRUE(Geometry(0).m_user_strings.IsEmpty());
  EXPECT_EQ(UndoCaption(), "");
}

TEST_F(LightPageTest, AChangeOfOneFieldLeavesAllOthers) {
  EXPECT_EQ(Change("Intensity", "3"), "");
  EXPECT_EQ(Geometry(0).Diffuse(), (ON_Color{255, 255, 255}));
  EXPECT_EQ(Geometry(1).Diffuse(), (ON_Color{0, 0, 255}));
  for (const std::size_t i : {0U, 1U}) EXPECT_EQ(Geometry(i).m_user_strings.m_e.size(), 1U);
}

TEST_F(LightPageTest, OneUndoTakesBackAllLights) {
  EXPECT_EQ(Change("Intensity", "3"), "");
  EXPECT_TRUE(doc_.Undo());
  EXPECT_EQ(LightText(0, "OrvLightIntensity"), std::nullopt);
  EXPECT_EQ(LightText(1, "OrvLightIntensity"), std::nullopt);
  EXPECT_FALSE(doc_.Undo());
}

TEST_F(LightPageTest, ObjectsInTheSelectionStay) {
  EXPECT_TRUE(Object(0).Select());
  EXPECT_EQ(Change("Emit diffuse", "No"), "");
  EXPECT_TRUE(Object(0).Attributes().m_user_strings.IsEmpty());
}

TEST_F(LightPageTest, AChosenFileIsUsed) {
  for (const auto& [id, title, key, use] : std::vector<std::array<std::string, 4>>{
           {"Texture", "Choose Texture for Area Light", "OrvLightTexture", "OrvLightUseTexture"},
           {"Archive", "Choose Archive for Area Light", "OrvLightArchive", "OrvLightUseArchive"}}) {
    const std::string file = folder_.File(id + ".rib");
    WriteFileContent(file, "");
    EXPECT_EQ(PropertyPageTest::Change(page_, id, "...", {file}), "");
    EXPECT_THAT(prompts_, ElementsAre(title + ": "));
    EXPECT_THAT(LightText(0, key), Optional(file));
    EXPECT_THAT(LightText(1, use), Optional(std::string("Yes")));
    EXPECT_EQ(Shown("Use" + id), "Yes");
    // Two changes.
    EXPECT_TRUE(doc_.Undo());
    EXPECT_EQ(LightText(0, use), std::nullopt);
    EXPECT_THAT(LightText(0, key), Optional(file));
  }
  EXPECT_EQ(plugIn_.User().TextureDir, folder_.File(""));
  EXPECT_EQ(plugIn_.User().ArchiveDir, folder_.File(""));
}

TEST_F(LightPageTest, AFileMayBeTyped) {
  EXPECT_EQ(Change("Texture", "maps/lamp.ies"), "");
  EXPECT_THAT(LightText(0, "OrvLightTexture"), Optional(std::string("maps/lamp.ies")));
  EXPECT_THAT(LightText(0, "OrvLightUseTexture"), Optional(std::string("Yes")));
  EXPECT_EQ(Change("UseTexture", "No"), "");
  EXPECT_EQ(Change("Texture", ""), "");
  EXPECT_THAT(LightText(0, "OrvLightTexture"), Optional(std::string()));
  EXPECT_THAT(LightText(0, "OrvLightUseTexture"), Optional(std::string("No")));
  EXPECT_EQ(PropertyPageTest::Change(page_, "Archive", "...", {"a.rib"}, Form::scripted), "");
  EXPECT_THAT(LightText(0, "OrvLightArchive"), Optional(std::string("a.rib")));
}

TEST_F(LightPageTest, ACancelledDialogChangesNothing) {
  EXPECT_EQ(PropertyPageTest::Change(page_, "Texture", "...", {"!"}), "");
  EXPECT_TRUE(Geometry(0).m_user_strings.IsEmpty());
  EXPECT_EQ(UndoCaption(), "");
}

}  // namespace
}  // namespace orv
