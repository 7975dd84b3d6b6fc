#include "shading/material_attributes.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "attribute_document.h"
#include "host/document/app.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

MaterialAttributes ReadWith(std::string_view key, std::string_view text) {
  ON_Material material;
  material.SetUserString(key, text);
  return ReadMaterialAttributes(material);
}

// Another value than the default in every field that is written.
MaterialAttributes OtherValues() {
  MaterialAttributes attributes;
  attributes.Surface = "\"VPlastic\" \"float Diffuse\" [0.5]";
  attributes.SurfaceLayout = "- +";
  attributes.Displacement = "\"VBumps\"";
  attributes.DisplacementLayout = "+";
  attributes.DisplacementMode = 3;
  attributes.Instancer = "\"VGrass\"";
  attributes.InstancerLayout = "  -";
  attributes.InstancerBound = 2.5;
  attributes.HideInstancerBase = true;
  attributes.ComplexShadow = true;
  attributes.ShadingSamples = 4;
  attributes.Diffuse = ON_Color(10, 20, 30);
  attributes.Transparency = 0.25;
  attributes.Name = "Gr\xC3\xBCn";
  return attributes;
}

// A field with its key, and its text in OtherValues; in the order in which they are stored.
struct StoredField {
  bool MaterialAttributes::*Mark;
  const char* Key;
  const char* Text;
};

constexpr StoredField kStoredFields[] = {
    {&MaterialAttributes::SurfaceChanged, "OrvSurface", "\"VPlastic\" \"float Diffuse\" [0.5]"},
    {&MaterialAttributes::SurfaceLayoutChanged, "OrvSurfaceLayout", "- +"},
    {&MaterialAttributes::DisplacementChanged, "OrvDisplacement", "\"VBumps\""},
    {&MaterialAttributes::DisplacementLayoutChanged, "OrvDisplacementLayout", "+"},
    {&MaterialAttributes::DisplacementModeChanged, "OrvDisplacementMode", "Mesh"},
    {&MaterialAttributes::InstancerChanged, "OrvInstancer", "\"VGrass\""},
    {&MaterialAttributes::InstancerLayoutChanged, "OrvInstancerLayout", "  -"},
    {&MaterialAttributes::InstancerBoundChanged, "OrvInstancerBound", "2.5"},
    {&MaterialAttributes::HideInstancerBaseChanged, "OrvHideInstancerBase", "Yes"},
    {&MaterialAttributes::ComplexShadowChanged, "OrvComplexShadow", "Yes"},
    {&MaterialAttributes::ShadingSamplesChanged, "OrvShadingSamples", "4"},
};

constexpr bool MaterialAttributes::*kHostMarks[] = {&MaterialAttributes::ColorChanged,
                                                    &MaterialAttributes::TransparencyChanged,
                                                    &MaterialAttributes::NameChanged};

void SetAllMarks(MaterialAttributes& attributes) {
  for (const StoredField& field : kStoredFields) attributes.*field.Mark = true;
  for (const auto mark : kHostMarks) attributes.*mark = true;
}

std::vector<ON_UserString> AllStored() {
  std::vector<ON_UserString> stored;
  for (const StoredField& field : kStoredFields) stored.push_back({field.Key, field.Text});
  return stored;
}

// The values that are written are the same.
void ExpectSameValues(const MaterialAttributes& a, const MaterialAttributes& b) {
  EXPECT_EQ(a.Surface, b.Surface);
  EXPECT_EQ(a.SurfaceLayout, b.SurfaceLayout);
  EXPECT_EQ(a.Displacement, b.Displacement);
  EXPECT_EQ(a.DisplacementLayout, b.DisplacementLayout);
  EXPECT_EQ(a.DisplacementMode, b.DisplacementMode);
  EXPECT_EQ(a.Instancer, b.Instancer);
  EXPECT_EQ(a.InstancerLayout, b.InstancerLayout);
  EXPECT_EQ(a.InstancerBound, b.InstancerBound);
  EXPECT_EQ(a.HideInstancerBase, b.HideInstancerBase);
  EXPECT_EQ(a.ComplexShadow, b.ComplexShadow);
  EXPECT_EQ(a.ShadingSamples, b.ShadingSamples);
  EXPECT_EQ(a.Diffuse, b.Diffuse);
  EXPECT_EQ(a.Transparency, b.Transparency);
  EXPECT_EQ(a.Name, b.Name);
}

TEST(MaterialAttributes, ReadDefaultsWithoutStrings) {
  const MaterialAttributes attributes = ReadMaterialAttributes(ON_Material());
  EXPECT_EQ(attributes.Surface, "\"Rhino\"");
  EXPECT_EQ(attributes.Displacement, "\"Rhino\"");
  EXPECT_EQ(attributes.Instancer, "");
  EXPECT_EQ(attributes.SurfaceLayout, "");
  EXPECT_EQ(attributes.DisplacementLayout, "");
  EXPECT_EQ(attributes.InstancerLayout, "");
  EXPECT_EQ(attributes.DisplacementMode, 1);
  EXPECT_EQ(attributes.InstancerBound, 1);
  EXPECT_EQ(attributes.ShadingSamples, 1);
  EXPECT_FALSE(attributes.HideInstancerBase || attributes.ComplexShadow);
  EXPECT_EQ(attributes.ColorMap + attributes.BumpMap + attributes.OpacityMap, "");
  EXPECT_EQ(attributes.BumpHeight, 0);
}

TEST(MaterialAttributes, ReadEveryKeyIntoItsField) {
  ON_Material material;
  material.m_user_strings.m_e = AllStored();
  material.SetDiffuse(ON_Color(10, 20, 30));
  material.SetTransparency(0.25);
  material.m_name = "Gr\xC3\xBCn";
  const MaterialAttributes attributes = ReadMaterialAttributes(material);
  ExpectSameValues(attributes, OtherValues());
  for (const StoredField& field : kStoredFields) EXPECT_FALSE(attributes.*field.Mark) << field.Key;
}

TEST(MaterialAttributes, AnEmptyShaderIsNone) {
  EXPECT_EQ(ReadWith("OrvSurface", "").Surface, "\"Rhino\"");
  EXPECT_EQ(ReadWith("OrvDisplacement", "").Displacement, "\"Rhino\"");
  EXPECT_EQ(ReadWith("OrvInstancer", "").Instancer, "");
  EXPECT_EQ(ReadWith("OrvSurface", " ").Surface, " ");
  EXPECT_EQ(ReadWith("OrvSurfaceLayout", "").SurfaceLayout, "");
}

TEST(MaterialAttributes, ReadTheDisplacementWords) {
  EXPECT_EQ(ReadWith("OrvDisplacementMode", "OFF").DisplacementMode, 0);
  EXPECT_EQ(ReadWith("OrvDisplacementMode", "bUmp").DisplacementMode, 1);
  EXPECT_EQ(ReadWith("OrvDisplacementMode", "reguLAR").DisplacementMode, 2);
  EXPECT_EQ(ReadWith("OrvDisplacementMode", "MESH").DisplacementMode, 3);
  for (const char* word : {"Displace", "", "3"}) {
    EXPECT_EQ(ReadWith("OrvDisplacementMode", word).DisplacementMode, 1) << word;
  }
}

TEST(MaterialAttributes, HoldTheShadingSamples) {
  EXPECT_EQ(ReadWith("OrvShadingSamples", "16").ShadingSamples, 16);
  EXPECT_EQ(ReadWith("OrvShadingSamples", "100").ShadingSamples, 32);
  EXPECT_EQ(ReadWith("OrvShadingSamples", "0").ShadingSamples, 1);
  EXPECT_EQ(ReadWith("OrvShadingSamples", "99999999999").ShadingSamples, 1);
  EXPECT_EQ(ReadWith("OrvShadingSamples", "").ShadingSamples, 1);
}

TEST(MaterialAttributes, HoldTheInstancerBound) {
  EXPECT_EQ(ReadWith("OrvInstancerBound", "-1").InstancerBound, 0);
  EXPECT_EQ(ReadWith("OrvInstancerBound", "1e6").InstancerBound, 100000);
  EXPECT_EQ(ReadWith("OrvInstancerBound", "1e999").InstancerBound, 1);
  EXPECT_EQ(ReadWith("OrvInstancerBound", "").InstancerBound, 0);
}

TEST(MaterialAttributes, ReadFlagsInAnyCase) {
  EXPECT_FALSE(ReadWith("OrvComplexShadow", "nO").ComplexShadow);
  EXPECT_TRUE(ReadWith("OrvComplexShadow", "0").ComplexShadow);
  EXPECT_FALSE(ReadWith("OrvHideInstancerBase", "NO").HideInstancerBase);
  EXPECT_TRUE(ReadWith("OrvHideInstancerBase", "").HideInstancerBase);
}

TEST(MaterialAttributes, ReadTheShine) {
  ON_Material material;
  material.m_specular = ON_Color(1, 2, 3);
  material.m_shine = 255;
  EXPECT_DOUBLE_EQ(ReadMaterialAttributes(material).SpecularRoughness, 22.0 / 255);
  EXPECT_EQ(ReadMaterialAttributes(material).Specular, ON_Color(1, 2, 3));
  material.m_shine = 51;
  EXPECT_DOUBLE_EQ(ReadMaterialAttributes(material).SpecularRoughness, 22.0 / 51);
}

TEST(MaterialAttributes, WithoutShineAreDull) {
  ON_Material material;
  material.m_specular = ON_Color(1, 2, 3);
  for (const double shine : {0.0, -1.0, std::nan("")}) {
    material.m_shine = shine;
    EXPECT_EQ(ReadMaterialAttributes(material).SpecularRoughness, 0.1);
    EXPECT_EQ(ReadMaterialAttributes(material).Specular, ON_Color(0, 0, 0));
  }
}

TEST(MaterialAttributes, AShineThatGivesNoRoughnessLeavesTheDefault) {
  ON_Material material;
  material.m_specular = ON_Color(1, 2, 3);
  for (const double shine : {1e-310, 1e308, kInfinity}) {
    material.m_shine = shine;
    EXPECT_EQ(ReadMaterialAttributes(material).SpecularRoughness, 0.1) << shine;
    EXPECT_EQ(ReadMaterialAttributes(material).Specular, ON_Color(1, 2, 3)) << shine;
  }
}

// A texture with `count` tiles and `offset` in either direction.
ON_Texture Texture(ON_Texture::Type type, std::string file, double count = 1, double offset = 0) {
  ON_Texture texture;
  texture.m_type = type;
  texture.m_image_file = std::move(file);
  for (const int direction : {0, 1}) {
    texture.m_uvw.m_xform[direction][direction] = count;
    texture.m_uvw.m_xform[direction][3] = offset;
  }
  return texture;
}

TEST(MaterialAttributes, ReadTheColourMap) {
  ON_Material material;
  material.m_textures = {Texture(ON_Texture::Type::bitmap, "C:\\maps\\oak.png", 2, 0.25)};
  const MaterialAttributes attributes = ReadMaterialAttributes(material);
  EXPECT_EQ(attributes.ColorMap, "C:\\maps\\oak.png");
  EXPECT_EQ(attributes.OpacityMap, "");
  EXPECT_EQ(attributes.BumpMap, "");
  EXPECT_THAT(attributes.MapSize, ElementsAre(0.5, 0.5));
  EXPECT_THAT(attributes.MapOrigin, ElementsAre(-0.125, 0.625));
  EXPECT_THAT(attributes.BumpSize, ElementsAre(1, 1));
  EXPECT_THAT(attributes.BumpOrigin, ElementsAre(0, 0));
}

TEST(MaterialAttributes, ReadTheBumpMap) {
  ON_Material material;
  material.m_textures = {Texture(ON_Texture::Type::bump, "bumps.png", 4, 1)};
  material.m_textures[0].m_bump_scale = {0.5, 3};
  const MaterialAttributes attributes = ReadMaterialAttributes(material);
  EXPECT_EQ(attributes.BumpMap, "bumps.png");
  EXPECT_EQ(attributes.BumpHeight, 3);
  EXPECT_THAT(attributes.BumpSize, ElementsAre(0.25, 0.25));
  EXPECT_THAT(attributes.BumpOrigin, ElementsAre(-0.25, 1));
  EXPECT_THAT(attributes.MapSize, ElementsAre(1, 1));
  EXPECT_THAT(attributes.MapOrigin, ElementsAre(0, 0));
}

TEST(MaterialAttributes, AnOpacityMapAloneGivesTheMapItsSize) {
  ON_Material material;
  material.m_textures = {Texture(ON_Texture::Type::transparency, "holes.png", 2, 0.25)};
  const MaterialAttributes attributes = ReadMaterialAttributes(material);
  EXPECT_EQ(attributes.OpacityMap, "holes.png");
  EXPECT_EQ(attributes.ColorMap, "");
  EXPECT_THAT(attributes.MapSize, ElementsAre(0.5, 0.5));
  EXPECT_THAT(attributes.MapOrigin, ElementsAre(-0.125, 0.625));
}

TEST(MaterialAttributes, AColourMapGivesTheSizeBesideAnOpacityMap) {
  ON_Material material;
  material.m_textures = {Texture(ON_Texture::Type::transparency, "holes.png", 2, 0.25),
                         Texture(ON_Texture::Type::bitmap, "oak.png", 4, 0)};
  const MaterialAttributes attributes = ReadMaterialAttributes(material);
  EXPECT_EQ(attributes.OpacityMap, "holes.png");
  EXPECT_THAT(attributes.MapSize, ElementsAre(0.25, 0.25));
  EXPECT_THAT(attributes.MapOrigin, ElementsAre(0, 0.75));
}

TEST(MaterialAttributes, ATextureThatIsOffOrHasNoFileIsNoMap) {
  for (const auto type :
       {ON_Texture::Type::bitmap, ON_Texture::Type::bump, ON_Texture::Type::transparency}) {
    ON_Material material;
    material.m_textures = {Texture(type, "a.png", 2, 0.25), Texture(type, "b.png", 2, 0.25)};
    material.m_textures[0].m_bOn = false;
    const MaterialAttributes off = ReadMaterialAttributes(material);
    EXPECT_EQ(off.ColorMap + off.BumpMap + off.OpacityMap, "");
    EXPECT_THAT(off.MapSize, ElementsAre(1, 1));
    EXPECT_THAT(off.BumpSize, ElementsAre(1, 1));
    EXPECT_EQ(off.BumpHeight, 0);
    material.m_textures[0].m_bOn = true;
    material.m_textures[0].m_image_file = "";
    const MaterialAttributes nameless = ReadMaterialAttributes(material);
    EXPECT_EQ(nameless.ColorMap + nameless.BumpMap + nameless.OpacityMap, "");
  }
}

TEST(MaterialAttributes, TheFirstTextureOfAKindCounts) {
  ON_Material material;
  material.m_textures = {Texture(ON_Texture::Type::environment, "sky.hdr"),
                         Texture(ON_Texture::Type::bitmap, "first.png"),
                         Texture(ON_Texture::Type::bitmap, "second.png")};
  EXPECT_EQ(ReadMaterialAttributes(material).ColorMap, "first.png");
}

TEST(MaterialAttributes, ADirectionThatIsNotTiledChangesNothing) {
  ON_Material material;
  material.m_textures = {Texture(ON_Texture::Type::bitmap, "a.png", 2, 0.25)};
  // x and y depend on each other in the first row only.
  material.m_textures[0].m_uvw.m_xform[0][1] = 0.5;
  const MaterialAttributes attributes = ReadMaterialAttributes(material);
  EXPECT_THAT(attributes.MapSize, ElementsAre(1, 0.5));
  EXPECT_THAT(attributes.MapOrigin, ElementsAre(0, 0.625));
}

TEST(MaterialAttributes, ACountThatIsNotAboveZeroLeavesTheSize) {
  for (const double count : {0.0, -2.0, std::nan("")}) {
    ON_Material material;
    material.m_textures = {Texture(ON_Texture::Type::bitmap, "a.png", 2, 0.25)};
    material.m_textures[0].m_uvw.m_xform[0][0] = count;
    const MaterialAttributes attributes = ReadMaterialAttributes(material);
    EXPECT_EQ(attributes.MapSize[0], 1) << count;
    EXPECT_EQ(attributes.MapOrigin[0], -0.25) << count;
  }
}

TEST(MaterialAttributes, ATilingThatGivesNoNumberLeavesTheDefaults) {
  const double nan = std::nan("");
  for (const double count : {1e-320, kInfinity, -kInfinity, nan}) {
    ON_Material material;
    material.m_textures = {Texture(ON_Texture::Type::bitmap, "a.png", count, 0.25),
                           Texture(ON_Texture::Type::bump, "b.png", count, 0.25)};
    const MaterialAttributes attributes = ReadMaterialAttributes(material);
    EXPECT_THAT(attributes.MapSize, ElementsAre(1, 1)) << count;
    EXPECT_THAT(attributes.MapOrigin, ElementsAre(-0.25, 0.25)) << count;
    EXPECT_THAT(attributes.BumpSize, ElementsAre(1, 1)) << count;
    EXPECT_THAT(attributes.BumpOrigin, ElementsAre(-0.25, 0.25)) << count;
  }
  for (const double offset : {kInfinity, -kInfinity, nan}) {
    ON_Material material;
    material.m_textures = {Texture(ON_Texture::Type::transparency, "a.png", 2, offset),
                           Texture(ON_Texture::Type::bump, "b.png", 2, offset)};
    const MaterialAttributes attributes = ReadMaterialAttributes(material);
    EXPECT_THAT(attributes.MapSize, ElementsAre(0.5, 0.5)) << offset;
    EXPECT_THAT(attributes.MapOrigin, ElementsAre(0, 0)) << offset;
    EXPECT_THAT(attributes.BumpSize, ElementsAre(0.5, 0.5)) << offset;
    EXPECT_THAT(attributes.BumpOrigin, ElementsAre(0, 0)) << offset;
  }
}

TEST(MaterialAttributes, AnOriginOutOfRangeLeavesTheDefault) {
  ON_Material material;
  material.m_textures = {Texture(ON_Texture::Type::bitmap, "a.png", 0x1p-900, 0x1p900)};
  const MaterialAttributes attributes = ReadMaterialAttributes(material);
  EXPECT_THAT(attributes.MapSize, ElementsAre(0x1p900, 0x1p900));
  EXPECT_THAT(attributes.MapOrigin, ElementsAre(0, 0));
}

TEST(MaterialAttributes, ABumpStrengthThatIsNoNumberIsNone) {
  for (const double strength : {std::nan(""), kInfinity, -kInfinity}) {
    ON_Material material;
    material.m_textures = {Texture(ON_Texture::Type::bump, "bumps.png")};
    material.m_textures[0].m_bump_scale = {0, strength};
    EXPECT_EQ(ReadMaterialAttributes(material).BumpHeight, 0) << strength;
    EXPECT_EQ(ReadMaterialAttributes(material).BumpMap, "bumps.png");
  }
}

TEST(MaterialAttributes, AreThoseOfTheObjectsMaterial) {
  AttributeDocument document;
  EXPECT_EQ(ReadMaterialAttributes(document.Mesh()).Diffuse, ON_Color(255, 255, 255));
  ON_Material material;
  material.m_name = "Oak";
  ASSERT_TRUE(document.Doc.m_material_table.ModifyMaterial(material, 1));
  document.SetObjectMaterial(1);
  EXPECT_EQ(ReadMaterialAttributes(document.Mesh()).Name, "Oak");
}

TEST(MaterialAttributes, AreStoredOneByOne) {
  for (const StoredField& field : kStoredFields) {
    AttributeDocument document;
    document.SetObjectMaterial(1);
    const ON_Material before = document.Material(1);
    MaterialAttributes attributes = OtherValues();
    attributes.*field.Mark = true;
    EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(), attributes));
    const ON_Material& material = document.Material(1);
    EXPECT_THAT(material.m_user_strings.m_e, ElementsAre(ON_UserString{field.Key, field.Text}));
    EXPECT_EQ(material.m_diffuse, before.m_diffuse);
    EXPECT_EQ(material.m_transparency, before.m_transparency);
    EXPECT_EQ(material.m_name, before.m_name);
    EXPECT_THAT(document.Material(0).m_user_strings.m_e, IsEmpty());
  }
}

TEST(MaterialAttributes, StoreWhatTheHostKeepsThere) {
  for (const auto mark : kHostMarks) {
    AttributeDocument document;
    document.SetObjectMaterial(1);
    MaterialAttributes attributes = OtherValues();
    attributes.*mark = true;
    EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(), attributes));
    const ON_Material& material = document.Material(1);
    EXPECT_THAT(material.m_user_strings.m_e, IsEmpty());
    EXPECT_EQ(material.m_diffuse == ON_Color(10, 20, 30), attributes.ColorChanged);
    EXPECT_EQ(material.m_transparency, attributes.TransparencyChanged ? 0.25 : 0);
    EXPECT_EQ(material.m_name, attributes.NameChanged ? "Gr\xC3\xBCn" : "");
  }
}

TEST(MaterialAttributes, AreStoredInOrder) {
  AttributeDocument document;
  document.SetObjectMaterial(1);
  MaterialAttributes attributes = OtherValues();
  SetAllMarks(attributes);
  EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(), attributes));
  EXPECT_EQ(document.Material(1).m_user_strings.m_e, AllStored());
}

TEST(MaterialAttributes, StoreTheDefaultsInWords) {
  AttributeDocument document;
  document.SetObjectMaterial(0);
  MaterialAttributes attributes;
  SetAllMarks(attributes);
  EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(), attributes));
  const ON_Material& material = document.Material(0);
  EXPECT_EQ(material.GetUserString("OrvSurface"), "\"Rhino\"");
  EXPECT_EQ(material.GetUserString("OrvDisplacementMode"), "Bump");
  EXPECT_EQ(material.GetUserString("OrvComplexShadow"), "No");
  EXPECT_EQ(material.GetUserString("OrvInstancer"), "");
  ExpectSameValues(ReadMaterialAttributes(document.Mesh()), attributes);
}

TEST(MaterialAttributes, StoreTheOtherDisplacementModes) {
  AttributeDocument document;
  document.SetObjectMaterial(0);
  MaterialAttributes attributes;
  attributes.DisplacementModeChanged = true;
  attributes.DisplacementMode = 0;
  EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(), attributes));
  EXPECT_EQ(document.Material(0).GetUserString("OrvDisplacementMode"), "Off");
  attributes.DisplacementMode = 2;
  EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(), attributes));
  EXPECT_EQ(document.Material(0).GetUserString("OrvDisplacementMode"), "Regular");
}

class MaterialWatcher : public CRhinoEventWatcher {
 public:
  MaterialWatcher() {
    Register();
    Enable();
  }
  void MaterialTableEvent(CRhinoTableEvent, const CRhinoMaterialTable&, int,
                          const ON_Material*) override {
    ++Count;
  }
  int Count = 0;
};

TEST(MaterialAttributes, WithoutAChangeLeaveTheMaterialAlone) {
  AttributeDocument document;
  document.SetObjectMaterial(1);
  const MaterialWatcher watcher;
  EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(), OtherValues()));
  EXPECT_EQ(watcher.Count, 0);
}

TEST(MaterialAttributes, TheSameColourIsNoChange) {
  AttributeDocument document;
  document.SetObjectMaterial(1);
  const MaterialWatcher watcher;
  MaterialAttributes attributes = ReadMaterialAttributes(document.Mesh());
  attributes.ColorChanged = true;
  EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(), attributes));
  EXPECT_EQ(watcher.Count, 0);
  attributes.NameChanged = true;
  EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(), attributes));
  EXPECT_EQ(watcher.Count, 1);
}

TEST(MaterialAttributes, WithoutAMaterialMakeOneForTheLayer) {
  AttributeDocument document;
  MaterialAttributes attributes = OtherValues();
  attributes.SurfaceChanged = true;
  EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(), attributes));
  ASSERT_EQ(document.Doc.m_material_table.Count(), 3);
  EXPECT_EQ(document.Layer().RenderMaterialIndex(), 2);
  EXPECT_EQ(document.Mesh().ObjectMaterial().MaterialIndex(), 2);
  const ON_Material& made = document.Material(2);
  EXPECT_THAT(made.m_user_strings.m_e,
              ElementsAre(ON_UserString{"OrvSurface", attributes.Surface}));
  EXPECT_EQ(made.m_diffuse, RhinoApp().AppSettings().DefaultMaterial().m_diffuse);
  EXPECT_THAT(RhinoApp().AppSettings().DefaultMaterial().m_user_strings.m_e, IsEmpty());
}

TEST(MaterialAttributes, WithoutAMaterialMakeOneEvenWithoutAChange) {
  AttributeDocument document;
  EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(), OtherValues()));
  EXPECT_EQ(document.Doc.m_material_table.Count(), 3);
  EXPECT_EQ(document.Layer().RenderMaterialIndex(), 2);
}

TEST(MaterialAttributes, AreStoredInTheMaterialThatTheLayerHas) {
  AttributeDocument document;
  ON_Layer layer = document.Layer();
  layer.SetRenderMaterialIndex(1);
  ASSERT_TRUE(document.Doc.m_layer_table.ModifyLayer(layer, 0));
  MaterialAttributes attributes = OtherValues();
  attributes.NameChanged = true;
  EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(), attributes));
  EXPECT_EQ(document.Doc.m_material_table.Count(), 2);
  EXPECT_EQ(document.Material(1).m_name, attributes.Name);
}

TEST(MaterialAttributes, ALayerWhoseMaterialIsNotInTheTableGetsOne) {
  for (const int index : {2, 99, -7, std::numeric_limits<int>::max()}) {
    AttributeDocument document;
    ON_Layer layer = document.Layer();
    layer.SetRenderMaterialIndex(index);
    ASSERT_TRUE(document.Doc.m_layer_table.ModifyLayer(layer, 0));
    EXPECT_EQ(ReadMaterialAttributes(document.Mesh()).Name, "");
    MaterialAttributes attributes = OtherValues();
    attributes.NameChanged = true;
    EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(), attributes));
    EXPECT_EQ(document.Doc.m_material_table.Count(), 3);
    EXPECT_EQ(document.Layer().RenderMaterialIndex(), 2);
    EXPECT_EQ(document.Material(2).m_name, attributes.Name);
  }
}

TEST(MaterialAttributes, SeveralObjectsOnOneLayerShareItsNewMaterial) {
  AttributeDocument document(2);
  const MaterialWatcher watcher;
  MaterialAttributes attributes = OtherValues();
  attributes.NameChanged = true;
  EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(0), attributes));
  EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(1), attributes));
  EXPECT_EQ(document.Doc.m_material_table.Count(), 3);
  EXPECT_EQ(document.Mesh(1).ObjectMaterial().MaterialIndex(), 2);
  EXPECT_EQ(ReadMaterialAttributes(document.Mesh(1)).Name, attributes.Name);
  // It was made, and each of the objects has written it.
  EXPECT_EQ(watcher.Count, 3);
}

TEST(MaterialAttributes, SeveralObjectsOnOneMaterialWriteItOneAfterTheOther) {
  AttributeDocument document(3);
  for (const std::size_t object : {0u, 1u, 2u}) document.SetObjectMaterial(1, object);
  const MaterialWatcher watcher;
  MaterialAttributes attributes = OtherValues();
  attributes.SurfaceChanged = true;
  attributes.TransparencyChanged = true;
  for (const std::size_t object : {0u, 1u, 2u}) {
    attributes.Transparency = 0.25 * static_cast<double>(object);
    EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(object), attributes));
  }
  EXPECT_EQ(watcher.Count, 3);
  EXPECT_EQ(document.Doc.m_material_table.Count(), 2);
  // The last one counts, for all of them.
  EXPECT_EQ(ReadMaterialAttributes(document.Mesh(0)).Transparency, 0.5);
  EXPECT_THAT(document.Material(1).m_user_strings.m_e,
              ElementsAre(ON_UserString{"OrvSurface", attributes.Surface}));
}

TEST(MaterialAttributes, AnObjectOfItsOwnWithoutAMaterialTakesNone) {
  for (const auto source : {ON_AttributeSource::object, ON_AttributeSource::parent}) {
    AttributeDocument document;
    ON_3dmObjectAttributes without = document.Mesh().Attributes();
    without.m_material_source = source;
    ASSERT_TRUE(document.Doc.ModifyObjectAttributes(document.Mesh(), without));
    MaterialAttributes attributes = OtherValues();
    SetAllMarks(attributes);
    EXPECT_FALSE(WriteMaterialAttributes(document.Doc, document.Mesh(), attributes));
    EXPECT_EQ(document.Doc.m_material_table.Count(), 2);
    EXPECT_EQ(document.Layer().RenderMaterialIndex(), -1);
  }
}

TEST(MaterialAttributes, AnObjectWithoutALayerTakesNone) {
  AttributeDocument document;
  ON_3dmObjectAttributes without = document.Mesh().Attributes();
  without.m_layer_index = 7;
  ASSERT_TRUE(document.Doc.ModifyObjectAttributes(document.Mesh(), without));
  EXPECT_FALSE(WriteMaterialAttributes(document.Doc, document.Mesh(), OtherValues()));
  EXPECT_EQ(document.Doc.m_material_table.Count(), 2);
}

TEST(MaterialAttributes, ALightTakesNone) {
  AttributeDocument document;
  EXPECT_FALSE(WriteMaterialAttributes(document.Doc, document.LightObject(), OtherValues()));
  EXPECT_EQ(document.Doc.m_material_table.Count(), 2);
}

TEST(MaterialAttributes, ReadBackTheSameAfterUndoAndRedo) {
  AttributeDocument document;
  document.SetObjectMaterial(1);
  const MaterialAttributes before = ReadMaterialAttributes(document.Mesh());
  MaterialAttributes attributes = OtherValues();
  SetAllMarks(attributes);
  const unsigned record = document.Doc.BeginUndoRecord("Orv Material change");
  EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(), attributes));
  ASSERT_TRUE(document.Doc.EndUndoRecord(record));
  ASSERT_TRUE(document.Doc.Undo());
  ExpectSameValues(ReadMaterialAttributes(document.Mesh()), before);
  EXPECT_THAT(document.Material(1).m_user_strings.m_e, IsEmpty());
  ASSERT_TRUE(document.Doc.Redo());
  ExpectSameValues(ReadMaterialAttributes(document.Mesh()), attributes);
}

TEST(MaterialAttributes, TheLayersNewMaterialIsUndoneAndRedone) {
  AttributeDocument document;
  const MaterialAttributes before = ReadMaterialAttributes(document.Mesh());
  MaterialAttributes attributes = OtherValues();
  SetAllMarks(attributes);
  const unsigned record = document.Doc.BeginUndoRecord("Orv Material change");
  EXPECT_TRUE(WriteMaterialAttributes(document.Doc, document.Mesh(), attributes));
  ASSERT_TRUE(document.Doc.EndUndoRecord(record));
  ASSERT_TRUE(document.Doc.Undo());
  EXPECT_EQ(document.Layer().RenderMaterialIndex(), -1);
  EXPECT_EQ(document.Mesh().ObjectMaterial().MaterialIndex(), -1);
  ExpectSameValues(ReadMaterialAttributes(document.Mesh()), before);
  ASSERT_TRUE(document.Doc.Redo());
  EXPECT_EQ(document.Mesh().ObjectMaterial().MaterialIndex(), 2);
  ExpectSameValues(ReadMaterialAttributes(document.Mesh()), attributes);
}

}  // namespace
}  // namespace orv
