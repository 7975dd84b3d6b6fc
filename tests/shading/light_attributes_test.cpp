#include "shading/light_attributes.h"

#include <gmock/gmock.h>

#include "attribute_document.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Texts = std::vector<ON_UserString>;

LightAttributes ReadWith(const Texts& texts) {
  ON_Light light;
  light.m_user_strings.m_e = texts;
  return ReadLightAttributes(&light);
}

LightAttributes ReadWith(std::string key, std::string text) {
  return ReadWith({{std::move(key), std::move(text)}});
}

// Another value than the default in every field.
LightAttributes OtherValues() {
  LightAttributes attributes;
  attributes.Color = ON_Color(10, 20, 30);
  attributes.ShadowColor = ON_Color(0, 51, 255);
  attributes.Intensity = 100000;
  attributes.ShadowBlur = 0.25;
  attributes.ShadowIntensity = 0.75;
  attributes.Falloff = 2;
  attributes.ShadowSamples = 64;
  attributes.Channel = 9;
  attributes.AreaType = 2;
  attributes.Enabled = false;
  attributes.EmitDiffuse = false;
  attributes.EmitSpecular = false;
  attributes.InCamera = true;
  attributes.Reflected = true;
  attributes.UseTexture = true;
  attributes.EmitPhotons = true;
  attributes.UseArchive = true;
  attributes.Photons = 1.5;
  attributes.Texture = "lamp.ies";
  attributes.Archive = "lamp.rib";
  return attributes;
}

// A field with its key, and its text in OtherValues.
struct StoredField {
  LightField Field;
  const char* Key;
  const char* Text;
};

constexpr StoredField kStoredFields[] = {
    {LightField::Intensity, "OrvLightIntensity", "100000"},
    {LightField::Falloff, "OrvLightFalloff", "2"},
    {LightField::EmitDiffuse, "OrvLightEmitDiffuse", "No"},
    {LightField::EmitSpecular, "OrvLightEmitSpecular", "No"},
    {LightField::ShadowSamples, "OrvShadowSamples", "64"},
    {LightField::ShadowBlur, "OrvShadowBlur", "0.25"},
    {LightField::ShadowColor, "OrvShadowColor", "0,0.2,1"},
    {LightField::InCamera, "OrvRectangleLightInCamera", "Yes"},
    {LightField::Reflected, "OrvRectangleLightReflected", "Yes"},
    {LightField::AreaType, "OrvAreaLightType", "portal"},
    {LightField::UseTexture, "OrvLightUseTexture", "Yes"},
    {LightField::Texture, "OrvLightTexture", "lamp.ies"},
    {LightField::Channel, "OrvLightChannel", "9"},
    {LightField::EmitPhotons, "OrvLightEmitPhotons", "Yes"},
    {LightField::Photons, "OrvLightPhotons", "1.5"},
    {LightField::UseArchive, "OrvLightUseArchive", "Yes"},
    {LightField::Archive, "OrvLightArchive", "lamp.rib"},
};

constexpr LightField kHostFields[] = {LightField::Diffuse, LightField::Enabled,
                                      LightField::ShadowIntensity};

Texts AllStored() {
  Texts stored;
  for (const StoredField& field : kStoredFields) stored.push_back({field.Key, field.Text});
  return stored;
}

void ExpectSameValues(const LightAttributes& a, const LightAttributes& b) {
  EXPECT_EQ(a.Color, b.Color);
  EXPECT_EQ(a.ShadowColor, b.ShadowColor);
  EXPECT_EQ(a.Intensity, b.Intensity);
  EXPECT_EQ(a.ShadowBlur, b.ShadowBlur);
  EXPECT_EQ(a.ShadowIntensity, b.ShadowIntensity);
  EXPECT_EQ(a.Falloff, b.Falloff);
  EXPECT_EQ(a.ShadowSamples, b.ShadowSamples);
  EXPECT_EQ(a.Channel, b.Channel);
  EXPECT_EQ(a.AreaType, b.AreaType);
  EXPECT_EQ(a.Enabled, b.Enabled);
  EXPECT_EQ(a.EmitDiffuse, b.EmitDiffuse);
  EXPECT_EQ(a.EmitSpecular, b.EmitSpecular);
  EXPECT_EQ(a.InCamera, b.InCamera);
  EXPECT_EQ(a.Reflected, b.Reflected);
  EXPECT_EQ(a.UseTexture, b.UseTexture);
  EXPECT_EQ(a.EmitPhotons, b.EmitPhotons);
  EXPECT_EQ(a.UseArchive, b.UseArchive);
  EXPECT_EQ(a.Photons, b.Photons);
  EXPECT_EQ(a.Texture, b.Texture);
  EXPECT_EQ(a.Archive, b.Archive);
}

void ExpectDefaults(const LightAttributes& attributes) {
  EXPECT_EQ(attributes.Color, ON_Color(255, 255, 255));
  EXPECT_EQ(attributes.ShadowColor, ON_Color(0, 0, 0));
  EXPECT_EQ(attributes.Intensity, 1);
  EXPECT_EQ(attributes.ShadowBlur, 0.01);
  EXPECT_EQ(attributes.ShadowIntensity, 1);
  EXPECT_EQ(attributes.Falloff, 0);
  EXPECT_EQ(attributes.ShadowSamples, 8);
  EXPECT_EQ(attributes.Channel, 1);
  EXPECT_EQ(attributes.AreaType, 0);
  EXPECT_TRUE(attributes.Enabled && attributes.EmitDiffuse && attributes.EmitSpecular);
  EXPECT_FALSE(attributes.InCamera || attributes.Reflected || attributes.UseTexture);
  EXPECT_FALSE(attributes.EmitPhotons || attributes.UseArchive);
  EXPECT_EQ(attributes.Photons, 0.1);
  EXPECT_EQ(attributes.Texture, "");
  EXPECT_EQ(attributes.Archive, "");
}

TEST(LightAttributes, HaveDefaultsWithoutALight) {
  ExpectDefaults(ReadLightAttributes(nullptr));
}

TEST(LightAttributes, ReadDefaultsOfALightWithoutStrings) {
  const ON_Light light;
  ExpectDefaults(ReadLightAttributes(&light));
}

TEST(LightAttributes, ReadWhatTheHostKeeps) {
  ON_Light light;
  light.Enable(false);
  light.SetDiffuse(ON_Color(1, 2, 3));
  light.SetShadowIntensity(0.5);
  const LightAttributes attributes = ReadLightAttributes(&light);
  EXPECT_FALSE(attributes.Enabled);
  EXPECT_EQ(attributes.Color, ON_Color(1, 2, 3));
  EXPECT_EQ(attributes.ShadowIntensity, 0.5);
}

TEST(LightAttributes, ReadEveryKeyIntoItsField) {
  LightAttributes expected = OtherValues();
  expected.Enabled = true;
  expected.Color = ON_Color(255, 255, 255);
  expected.ShadowIntensity = 1;
  ExpectSameValues(ReadWith(AllStored()), expected);
}

struct IntegerText {
  const char* Text;
  int Value;
};

void ExpectIntegers(std::string_view key, int LightAttributes::*member,
                    std::initializer_list<IntegerText> texts) {
  for (const IntegerText& text : texts) {
    EXPECT_EQ(ReadWith(std::string(key), text.Text).*member, text.Value) << key << ' ' << text.Text;
  }
}

TEST(LightAttributes, HoldIntegers) {
  ExpectIntegers("OrvLightChannel", &LightAttributes::Channel,
                 {{"0", 1}, {"5", 5}, {"10", 9}, {"99999999999", 1}, {"", 1}});
  ExpectIntegers("OrvLightFalloff", &LightAttributes::Falloff,
                 {{"-1", 0}, {"1", 1}, {"3", 2}, {"99999999999", 0}, {"", 0}});
  ExpectIntegers("OrvShadowSamples", &LightAttributes::ShadowSamples,
                 {{"-1", 0}, {"1025", 1024}, {"-99999999999", 8}, {"many", 0}, {"", 0}});
}

struct RealText {
  const char* Text;
  double Value;
};

void ExpectReals(std::string_view key, double LightAttributes::*member,
                 std::initializer_list<RealText> texts) {
  for (const RealText& text : texts) {
    EXPECT_EQ(ReadWith(std::string(key), text.Text).*member, text.Value) << key << ' ' << text.Text;
  }
}

TEST(LightAttributes, HoldReals) {
  ExpectReals("OrvLightIntensity", &LightAttributes::Intensity,
              {{"-1", 0}, {"2e9", 1e9}, {"1e999", 1}, {"", 0}});
  ExpectReals("OrvShadowBlur", &LightAttributes::ShadowBlur,
              {{"-1", 0}, {"0.5", 0.5}, {"2", 1}, {"1e999", 0.01}, {"", 0}});
  ExpectReals("OrvLightPhotons", &LightAttributes::Photons,
              {{"-0.1", 0}, {"2e9", 1e9}, {"-1e999", 0.1}, {"", 0}});
}

TEST(LightAttributes, ReadFlagsInAnyCase) {
  EXPECT_FALSE(ReadWith("OrvLightEmitDiffuse", "NO").EmitDiffuse);
  EXPECT_TRUE(ReadWith("OrvLightEmitDiffuse", "0").EmitDiffuse);
  EXPECT_FALSE(ReadWith("OrvLightUseArchive", "no").UseArchive);
  EXPECT_TRUE(ReadWith("OrvLightUseArchive", "").UseArchive);
}

TEST(LightAttributes, ReadTheAreaTypeWords) {
  ExpectIntegers("OrvAreaLightType", &LightAttributes::AreaType,
                 {{"NORMAL", 0}, {"Fast", 1}, {"porTAL", 2}, {"sky", 0}, {"2", 0}, {"", 0}});
}

TEST(LightAttributes, ReadTheFastFlagOfEarlierDocuments) {
  ExpectIntegers("OrvRectangleLightFast", &LightAttributes::AreaType,
                 {{"yes", 1}, {"NO", 0}, {"0", 1}, {"", 1}});
}

TEST(LightAttributes, TheAreaTypeWinsOverTheFastFlag) {
  EXPECT_EQ(ReadWith({{"OrvRectangleLightFast", "yes"}, {"OrvAreaLightType", "normal"}}).AreaType,
            0);
  EXPECT_EQ(ReadWith({{"OrvAreaLightType", "portal"}, {"OrvRectangleLightFast", "yes"}}).AreaType,
            2);
  EXPECT_EQ(ReadWith({{"OrvAreaLightType", "sky"}, {"OrvRectangleLightFast", "yes"}}).AreaType, 1);
}

TEST(LightAttributes, AreStoredOneByOne) {
  for (const StoredField& field : kStoredFields) {
    AttributeDocument document;
    EXPECT_TRUE(WriteLightChange(document.Doc, document.LightObject(), field.Field, OtherValues()));
    EXPECT_THAT(document.Light().m_user_strings.m_e,
                ElementsAre(ON_UserString{field.Key, field.Text}));
    EXPECT_TRUE(document.Light().IsEnabled());
    EXPECT_EQ(document.Light().Diffuse(), ON_Color(255, 255, 255));
    EXPECT_EQ(document.Light().ShadowIntensity(), 1);
  }
}

TEST(LightAttributes, StoreWhatTheHostKeepsThere) {
  for (const LightField field : kHostFields) {
    AttributeDocument document;
    EXPECT_TRUE(WriteLightChange(document.Doc, document.LightObject(), field, OtherValues()));
    const ON_Light& light = document.Light();
    EXPECT_THAT(light.m_user_strings.m_e, IsEmpty());
    EXPECT_EQ(light.IsEnabled(), field != LightField::Enabled);
    EXPECT_EQ(light.Diffuse() == ON_Color(10, 20, 30), field == LightField::Diffuse);
    EXPECT_EQ(light.ShadowIntensity(), field == LightField::ShadowIntensity ? 0.75 : 1);
  }
}

TEST(LightAttributes, HaveTwentyFieldCodes) {
  std::vector<int> codes;
  for (const StoredField& field : kStoredFields) codes.push_back(static_cast<int>(field.Field));
  for (const LightField field : kHostFields) codes.push_back(static_cast<int>(field));
  EXPECT_THAT(codes, testing::UnorderedElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14,
                                                   15, 16, 17, 18, 19));
}

TEST(LightAttributes, StoreTheDefaultsInWords) {
  AttributeDocument document;
  CRhinoObject& light = document.LightObject();
  const LightAttributes defaults;
  EXPECT_TRUE(WriteLightChange(document.Doc, light, LightField::AreaType, defaults));
  EXPECT_TRUE(WriteLightChange(document.Doc, light, LightField::EmitDiffuse, defaults));
  EXPECT_TRUE(WriteLightChange(document.Doc, light, LightField::UseTexture, defaults));
  EXPECT_THAT(document.Light().m_user_strings.m_e,
              ElementsAre(ON_UserString{"OrvAreaLightType", "normal"},
                          ON_UserString{"OrvLightEmitDiffuse", "Yes"},
                          ON_UserString{"OrvLightUseTexture", "No"}));
}

TEST(LightAttributes, StoreABlurThatIsReadAsOne) {
  AttributeDocument document;
  LightAttributes attributes;
  attributes.ShadowBlur = 4;
  EXPECT_TRUE(
      WriteLightChange(document.Doc, document.LightObject(), LightField::ShadowBlur, attributes));
  EXPECT_EQ(document.Light().GetUserString("OrvShadowBlur"), "4");
  EXPECT_EQ(ReadLightAttributes(&document.Light()).ShadowBlur, 1);
}

TEST(LightAttributes, AreNotStoredInOtherObjects) {
  AttributeDocument document;
  EXPECT_FALSE(
      WriteLightChange(document.Doc, document.Mesh(), LightField::Intensity, OtherValues()));
  EXPECT_TRUE(document.Mesh().Attributes().m_user_strings.IsEmpty());
  EXPECT_FALSE(document.Doc.Undo());
}

TEST(LightAttributes, HaveNoOtherFields) {
  AttributeDocument document;
  for (const int code : {-1, 20}) {
    EXPECT_FALSE(WriteLightChange(document.Doc, document.LightObject(),
                                  static_cast<LightField>(code), OtherValues()));
  }
  EXPECT_FALSE(document.Doc.Undo());
}

TEST(LightAttributes, ReadBackTheSameAfterUndoAndRedo) {
  AttributeDocument document;
  const LightAttributes attributes = OtherValues();
  const unsigned record = document.Doc.BeginUndoRecord("Light Properties change");
  for (int code = 0; code < 20; ++code) {
    EXPECT_TRUE(WriteLightChange(document.Doc, document.LightObject(),
                                 static_cast<LightField>(code), attributes));
  }
  ASSERT_TRUE(document.Doc.EndUndoRecord(record));
  ExpectSameValues(ReadLightAttributes(&document.Light()), attributes);
  ASSERT_TRUE(document.Doc.Undo());
  ExpectDefaults(ReadLightAttributes(&document.Light()));
  EXPECT_TRUE(document.Light().m_user_strings.IsEmpty());
  ASSERT_TRUE(document.Doc.Redo());
  ExpectSameValues(ReadLightAttributes(&document.Light()), attributes);
}

}  // namespace
}  // namespace orv
