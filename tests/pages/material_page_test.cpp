#include <gmock/gmock.h>

#include <filesystem>

#include "host/document/object.h"
#include "host/geometry/on_tables.h"
#include "material_fixture.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

TEST_F(MaterialPageTest, HasTheseControls) {
  EXPECT_EQ(page_.Title(), "OrvMaterial");
  EXPECT_THAT(
      Described(page_.Controls()),
      ElementsAre(
          "MaterialSource: , text", "Name: Name:, edit", "New: New, button", "Copy: Copy, button",
          "Paste: Paste, button", "Load: Load, button", "Save: Save, button",
          "ForceBasicMaterial: Force basic material, check",
          "SelectMatching: Select matching, button", "Color: Color, colour",
          "Transparency: Transparency, combo: 0.0|0.1|0.2|0.3|0.4|0.5|0.6|0.7|0.8|0.9|1.0",
          "ShadingSamples: Shading samples, combo: 1|2|4|8|16", "Preview: Preview, check",
          "Picture: Picture, text",
          "ActiveSlot: Active slot:, list: Surface|Displacement|Instancer",
          "Surface: Surface:, list: Rhino|2 Sided|Brick|Car paint|Cartoon|Ceramic|Clay|Constant|"
          "Constant, shadowed|DarkTree|Decal 2D|Decal 3D|Glass|Glass, thin|Granite|Lines|Marble|"
          "Metal|Metal, brushed|Planks|Plastic|Plastic, brushed|Rubber|Screen|Tile|Tone|"
          "Translucent|Velvet|Weave|Wood",
          "ChooseSurface: .., button",
          "Displacement: Displacement:, list: Rhino|Bump map|Bump regions|Cracks|DarkTree|Dents|"
          "Dimples|Hammered|Nicks|Pillows|Ripples|Stucco",
          "ChooseDisplacement: .., button",
          "Instancer: Instancer:, list: None|Array along curve|Array on surface|Instance archive|"
          "Instance tree",
          "ChooseInstancer: .., button",
          "DisplacementMode: Displace mode:, combo: Off|Bump only|Regular displacement|Mesh "
          "displacement",
          "ComplexShadow: Surface modifies transparency, check",
          "InstancerBound: Extent:, combo: 0.1|0.2|0.5|1|2|5|10|20|50|100|500|1000",
          "HideInstancerBase: Hide base, check"));
}

TEST_F(MaterialPageTest, ShowsTheMaterialOfTheFirstObject) {
  SetMaterialText(0, "OrvInstancer", "\"VOwn\"");
  Open(page_);
  for (const auto& [id, value] :
       std::vector<std::pair<std::string, std::string>>{{"MaterialSource", "Basic material"},
                                                        {"Name", "Oak"},
                                                        {"ForceBasicMaterial", "Yes"},
                                                        {"Color", "0,0,255"},
                                                        {"Transparency", "0.3"},
                                                        {"ShadingSamples", "1"},
                                                        {"Preview", "No"},
                                                        {"ActiveSlot", "Surface"},
                                                        {"Surface", "Rhino"},
                                                        {"Displacement", "Rhino"},
                                                        {"Instancer", "VOwn"},
                                                        {"DisplacementMode", "Bump only"},
                                                        {"ComplexShadow", "No"},
                                                        {"InstancerBound", "1"},
                                                        {"HideInstancerBase", "No"}}) {
    EXPECT_EQ(Shown(id), value) << id;
  }
}

TEST_F(MaterialPageTest, TellsWhereTheMaterialComesFrom) {
  for (const auto& [source, caption] : std::vector<std::pair<ON_AttributeSource, std::string>>{
           {ON_AttributeSource::layer, "Layer material"},
           {ON_AttributeSource::object, "Basic material"},
           {ON_AttributeSource::parent, "Parent material"},
           {ON_AttributeSource::material, " "}}) {
    ON_3dmObjectAttributes attributes = Object(0).Attributes();
    attributes.m_material_source = source;
    EXPECT_TRUE(doc_.ModifyObjectAttributes(Object(0), attributes));
    Open(page_);
    EXPECT_EQ(Shown("MaterialSource"), caption);
  }
}

TEST_F(MaterialPageTest, IsOfferedForObjectsThatAreNoLights) {
  EXPECT_TRUE(page_.IsOffered(doc_));
  Select({});
  EXPECT_FALSE(page_.IsOffered(doc_));
  MakeLights();
  EXPECT_TRUE(Light(0).Select());
  EXPECT_FALSE(page_.IsOffered(doc_));
}

TEST_F(MaterialPageTest, WithoutObjectsTheMaterialStays) {
  Show({});
  EXPECT_EQ(Shown("Name"), "Oak");
  EXPECT_EQ(Change("Name", "Elm"), "");
  EXPECT_EQ(Material(0).m_name, "Oak");
  EXPECT_EQ(UndoCaption(), "");
}

TEST_F(MaterialPageTest, EachFieldIsStoredInItsKeyAlone) {
  struct Case {
    std::string_view control, value, key;
    std::string stored;
  };
  for (const Case& one : std::vector<Case>{
           {"Shading samples", "8", "OrvShadingSamples", "8"},
           {"Shading samples", "0", "OrvShadingSamples", "1"},
           {"Shading samples", "100", "OrvShadingSamples", "32"},
           {"Displace mode:", "Off", "OrvDisplacementMode", "Off"},
           {"Displace mode:", "Bump only", "OrvDisplacementMode", "Bump"},
           {"Displace mode:", "Regular displacement", "OrvDisplacementMode", "Regular"},
           {"Displace mode:", "Mesh displacement", "OrvDisplacementMode", "Mesh"},
           {"Surface modifies transparency", "Yes", "OrvComplexShadow", "Yes"},
           {"Extent:", "20", "OrvInstancerBound", "20"},
           {"Extent:", "-1", "OrvInstancerBound", "0"},
           {"Hide base", "Yes", "OrvHideInstancerBase", "Yes"}}) {
    EXPECT_EQ(Change(one.control, one.value), "") << one.control;
    EXPECT_EQ(Text(0, one.key), one.stored) << one.control;
    EXPECT_EQ(Material(0).m_user_strings.m_e.size(), 1U);
    EXPECT_EQ(UndoCaption(), "Orv Material change");
    EXPECT_TRUE(doc_.Undo());
    EXPECT_TRUE(Material(0).m_user_strings.IsEmpty());
    Open(page_);
  }
}

TEST_F(MaterialPageTest, TheHostsFieldsAreStoredInTheMaterial) {
  EXPECT_EQ(Change("Name:", "Old Elm"), "");
  EXPECT_EQ(Change("Color", "255,128,0"), "");
  EXPECT_EQ(Change("Transparency", "0.5"), "");
  EXPECT_EQ(Material(0).m_name, "Old Elm");
  EXPECT_EQ(Material(0).m_diffuse, (ON_Color{255, 128, 0}));
  EXPECT_EQ(Material(0).Transparency(), 0.5);
  EXPECT_TRUE(Material(0).m_user_strings.IsEmpty());
  EXPECT_EQ(Change("Transparency", "2"), "");
  EXPECT_EQ(Material(0).Transparency(), 1);
  EXPECT_EQ(Change("Transparency", "-2"), "");
  EXPECT_EQ(Material(0).Transparency(), 0);
}

TEST_F(MaterialPageTest, AnExtentMayBeLargerThanIsRead) {
  EXPECT_EQ(Change("Extent:", "2000000"), "");
  EXPECT_EQ(Text(0, "OrvInstancerBound"), "1e+06");
  EXPECT_EQ(Shown("InstancerBound"), "1e+06");
  Open(page_);
  EXPECT_EQ(Shown("InstancerBound"), "100000");
}

TEST_F(MaterialPageTest, WhatCantBeReadIsRefused) {
  EXPECT_EQ(Change("Transparency", "1e999"), "Transparency takes a number, not '1e999'.");
  EXPECT_EQ(Change("ShadingSamples", "99999999999"),
            "ShadingSamples takes a number, not '99999999999'.");
  EXPECT_THAT(Change("DisplacementMode", "Up"), HasSubstr("Bump only"));
  EXPECT_THAT(Change("Color", "blue"), HasSubstr("255,128,0"));
  EXPECT_THAT(Change("Preview", "maybe"), HasSubstr("Yes"));
  EXPECT_THAT(Change("ActiveSlot", "Light"), HasSubstr("Instancer"));
  EXPECT_EQ(Change("Surface", "Gold"), "Surface has no 'Gold' in its list.");
  EXPECT_EQ(Change("MaterialSource", "x"), "'MaterialSource' can't be changed now.");
  EXPECT_EQ(Change("Gloss", "x"), "There is no 'Gloss' on this page.");
  EXPECT_TRUE(Material(0).m_user_strings.IsEmpty());
  EXPECT_EQ(UndoCaption(), "");
}

TEST_F(MaterialPageTest, ObjectsOfDifferentMaterialsKeepTheirOtherFields) {
  Show({2});
  EXPECT_EQ(Change("New", ""), "");
  EXPECT_EQ(Change("Name", "Ash"), "");
  EXPECT_EQ(Change("Color", "1,2,3"), "");
  Show({0, 2});
  EXPECT_EQ(Change("ShadingSamples", "4"), "");
  EXPECT_EQ(Material(0).m_name, "Oak");
  EXPECT_EQ(Material(2).m_name, "Ash");
  EXPECT_EQ(Material(0).m_diffuse, (ON_Color{0, 0, 255}));
  EXPECT_EQ(Material(2).m_diffuse, (ON_Color{1, 2, 3}));
  for (const std::size_t i : {0U, 2U}) EXPECT_EQ(Text(i, "OrvShadingSamples"), "4");
  EXPECT_TRUE(doc_.Undo());
  for (const std::size_t i : {0U, 2U}) EXPECT_EQ(Text(i, "OrvShadingSamples"), "none");
}

TEST_F(MaterialPageTest, LightsInTheSelectionStay) {
  MakeLights();
  EXPECT_TRUE(Light(0).Select());
  EXPECT_TRUE(Object(0).Select());
  Open(page_);
  EXPECT_EQ(Change("Color", "1,2,3"), "");
  EXPECT_EQ(Material(0).m_diffuse, (ON_Color{1, 2, 3}));
  EXPECT_EQ(Light(0).Attributes().m_material_source, ON_AttributeSource::layer);
  EXPECT_EQ(doc_.m_material_table.Count(), 1);
}

// A renderer that makes a picture and notes each run in the folder of temporary files.
class MaterialPagePreviewTest : public MaterialPageTest {
 protected:
  MaterialPagePreviewTest() {
    std::filesystem::create_directory(folder_.File("bin"));
    const std::string path = folder_.File("bin/orv.exe");
    WriteFileContent(path, "#!/bin/sh\necho run >>\"$TEMP/runs\"\n: >\"$8\"\n");
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
  }
  std::size_t Runs() const {
    const std::string file = folder_.File("runs");
    return std::filesystem::exists(file) ? FileContent(file).size() / 4 : 0;
  }

  const ScopedEnvironment temp_{"TEMP", folder_.Path().string()};
  const ScopedEnvironment path_{"PATH", folder_.File("bin") + ":/usr/bin:/bin"};
};

TEST_F(MaterialPagePreviewTest, IsRenderedAsLongAsItIsTicked) {
  EXPECT_EQ(Change("Color", "1,2,3"), "");
  EXPECT_EQ(Runs(), 0U);
  EXPECT_EQ(Shown("Picture"), "");
  EXPECT_EQ(Change("Preview", "Yes"), "");
  EXPECT_EQ(Runs(), 1U);
  const std::string picture = folder_.File("RhinoOrvPreview.bmp");
  EXPECT_EQ(Shown("Picture"), picture);
  EXPECT_THAT(messages_, EndsWith("Preview: " + picture + "\n"));
  EXPECT_EQ(Change("Color", "4,5,6"), "");
  EXPECT_EQ(Runs(), 2U);
  // It would look the same.
  EXPECT_EQ(Change("Name", "Elm"), "");
  Open(page_);
  EXPECT_EQ(Runs(), 2U);
  Show({2});
  EXPECT_EQ(Runs(), 3U);
  EXPECT_EQ(Change("Preview", "No"), "");
  Show({0});
  EXPECT_EQ(Runs(), 3U);
}

}  // namespace
}  // namespace orv
