#include "export/object_material.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "export_fixture.h"

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// What the first object of a document writes of its material and name. The material's image files
// stay as they are.
class ObjectMaterialTest : public ExportTest {
 protected:
  ObjectMaterialTest() {
    settings_.ConvertTextures = false;
    settings_.Colors = false;
    settings_.RhinoGamma = 1;
    object_ = ObjectOf(SquareMesh());
    object_.m_attributes.m_material_source = ON_AttributeSource::object;
    object_.m_attributes.m_material_index = 0;
    material_.SetUserString("OrvSurface", "\"matte\"");
    material_.SetUserString("OrvDisplacementMode", "Off");
  }

  std::string Text() {
    model_.m_material_table = {material_};
    model_.m_object_table = {object_};
    Open();
    return Written([this](orv::RibWriter& writer) { Write(writer, *doc_.Objects()[0]); });
  }

  void Write(orv::RibWriter& writer, const CRhinoObject& object) {
    orv::SceneMaterials materials(settings_, textures_);
    wantsRenderMesh_ = orv::WriteObjectMaterial(writer, object, materials, useObjectNumber_);
  }

  // The same with a surface shader in place of the material's, without what follows it.
  std::string WithSurface(std::string_view call) {
    material_.SetUserString("OrvSurface", call);
    std::string text = Text();
    const std::size_t end = text.find("Opacity [ 1 1 1 ]\n");
    EXPECT_NE(end, std::string::npos) << text;
    tail_ = text.substr(end + 18);
    return text.substr(0, end);
  }
  // The same with a displacement shader, without the surface.
  std::string WithDisplacement(std::string_view mode, std::string_view call) {
    material_.SetUserString("OrvDisplacementMode", mode);
    material_.SetUserString("OrvDisplacement", call);
    const std::string text = WithSurface("\"matte\"");
    EXPECT_TRUE(text.starts_with("Surface \"matte\"\n"));
    return text.substr(16);
  }
  bool NeedsMesh(std::string_view call) {
    WithSurface(call);
    return wantsRenderMesh_;
  }

  ON_Material material_;
  ONX_ModelObject object_;
  bool useObjectNumber_ = false;
  bool wantsRenderMesh_ = false;
  // What follows the opacity.
  std::string tail_;
};

ON_Texture Texture(ON_Texture::Type type, std::string file) {
  ON_Texture texture;
  texture.m_type = type;
  texture.m_image_file = std::move(file);
  return texture;
}

TEST_F(ObjectMaterialTest, HasShadersColorAndOpacity) {
  settings_.Colors = true;
  settings_.RhinoGamma = 2;
  material_.m_diffuse = {255, 128, 0};
  material_.m_transparency = 0.25;
  material_.SetUserString("OrvDisplacementMode", "Bump");
  material_.SetUserString("OrvDisplacement", "\"VDents\" \"float Size\" [2]");
  EXPECT_EQ(Text(),
            "Surface \"matte\"\n"
            "Displacement \"VDents\" \"float Size\" [2]\n"
            "Color [ 1 0.25098 0 ]\n"
            "Opacity [ 0.75 0.75 0.75 ]\n");
  EXPECT_FALSE(wantsRenderMesh_);
}

TEST_F(ObjectMaterialTest, WithoutAttributesIsMadeOfTheHostsMaterial) {
  object_.m_attributes.m_material_index = -1;
  settings_.Colors = true;
  EXPECT_EQ(Text(),
            "Surface \"VRubber\" \"float Diffuse\" [1] \"float DiffuseRoughness\" [0] "
            "\"float SpecularRoughness\" [0.1] \"color SpecularColor\" [0 0 0] "
            "\"string ColorMapName\" [\"\"] \"string OpacityMapName\" [\"\"]\n"
            "Displacement \"null\"\n"
            "Color [ 1 1 1 ]\n"
            "Opacity [ 1 1 1 ]\n");
}

TEST_F(ObjectMaterialTest, AnImageOfTheHostTakesThePlaceOfItsColor) {
  material_ = ON_Material();
  material_.m_diffuse = {10, 20, 30};
  material_.m_textures = {Texture(ON_Texture::Type::bitmap, "maps\\wood.jpg"),
                          Texture(ON_Texture::Type::bump, "maps\\grain.jpg")};
  settings_.Colors = true;
  const std::string text = Text();
  EXPECT_THAT(text, HasSubstr("\"string ColorMapName\" [\"maps/wood.jpg\"]"));
  EXPECT_THAT(text, HasSubstr("\nDisplacement \"VTexturedBump\" \"float BumpMax\" ["));
  EXPECT_THAT(text, HasSubstr("\"string TextureName\" [\"maps/grain.jpg\"]"));
  EXPECT_THAT(text, HasSubstr("Color [ 1 1 1 ]\n"));
  EXPECT_TRUE(wantsRenderMesh_);
}

TEST_F(ObjectMaterialTest, AnOpacityMapMakesShadowsRunTheShader) {
  material_ = ON_Material();
  material_.m_textures = {Texture(ON_Texture::Type::transparency, "holes.jpg")};
  EXPECT_THAT(Text(), HasSubstr("Attribute \"shade\" \"string transmissionhitmode\" \"shader\"\n"));
}

TEST_F(ObjectMaterialTest, WithoutMaterialsThereIsNoStatement) {
  settings_.WriteMaterials = false;
  object_.m_attributes.m_name = "box";
  EXPECT_THAT(Text(), IsEmpty());
  EXPECT_TRUE(wantsRenderMesh_);
}

TEST_F(ObjectMaterialTest, ALightHasNoStatement) {
  model_.m_light_table = {PointLight()};
  model_.m_light_table[0].m_attributes.m_name = "lamp";
  Open();
  EXPECT_THAT(Written([this](orv::RibWriter& w) { Write(w, *doc_.Lights()[0]); }), IsEmpty());
}

TEST_F(ObjectMaterialTest, ABakeOfMapsWantsRenderMeshes) {
  settings_.BakeEnable = true;
  EXPECT_TRUE(NeedsMesh("\"matte\""));
  settings_.BakeMesh = true;
  EXPECT_FALSE(NeedsMesh("\"matte\""));
}

TEST_F(ObjectMaterialTest, IsIdentifiedByItsName) {
  EXPECT_THAT(Text(), Not(HasSubstr("identifier")));
  object_.m_attributes.m_name = "Büchse 50% \"groß\"";
  EXPECT_THAT(Text(), testing::StartsWith("Attribute \"identifier\" \"name\" "
                                          "[\"Büchse 50% \\\"groß\\\"\"]\nSurface"));
}

TEST_F(ObjectMaterialTest, IsIdentifiedByItsNumber) {
  object_.m_attributes.m_name = "box";
  useObjectNumber_ = true;
  const std::string text = Text();
  const std::string number = std::to_string(doc_.Objects()[0]->RuntimeSerialNumber());
  EXPECT_THAT(text, testing::StartsWith("Attribute \"identifier\" \"name\" [\"Object_" + number +
                                        "\"]\nSurface"));
}

TEST_F(ObjectMaterialTest, ASurfaceOfTheSceneStandsForAll) {
  settings_.Surface = "\"matte\"";
  EXPECT_THAT(WithSurface("\"VGlass\""), IsEmpty());
  EXPECT_THAT(tail_, IsEmpty());
  EXPECT_FALSE(wantsRenderMesh_);
  settings_.Surface = "\"VShowTexCoord\" \"float Size\" [1]";
  EXPECT_TRUE(NeedsMesh("\"matte\""));
}

TEST_F(ObjectMaterialTest, ADraftHasOneRayForManyInTheSurface) {
  constexpr std::string_view kCall =
      "\"VMetal2\" \"float ReflectionSamples\" [16] \"float TransmissionSamples\" [8]";
  EXPECT_EQ(WithSurface(kCall), "Surface " + std::string(kCall) + "\n");
  settings_.Draft = true;
  EXPECT_EQ(WithSurface(kCall),
            "Surface \"VMetal2\" \"float ReflectionSamples\" [1] "
            "\"float TransmissionSamples\" [1]\n");
  EXPECT_EQ(WithSurface("\"V\" \"float ReflectionSamples\" [0]"),
            "Surface \"V\" \"float ReflectionSamples\" [0]\n");
}

TEST_F(ObjectMaterialTest, ShadersChangeWhatFollows) {
  constexpr std::string_view kHitMode =
      "Attribute \"shade\" \"string transmissionhitmode\" \"shader\"\n";
  constexpr std::string_view kNoPrepass =
      "Attribute \"indirect\" \"integer prepass\" 0\nIlluminate 0 0\n";
  constexpr std::string_view kReflective = "Attribute \"indirect\" \"integer reflective\" 1\n";
  constexpr std::string_view kNoCaustics = "Illuminate 999 0\n";
  struct Row {
    std::string_view Name;
    bool HitMode, NoPrepass, Reflective, NoCaustics;
  };
  for (const Row& row :
       {Row{"VScreen", true, false, false, false}, Row{"VWEAVE", true, false, false, false},
        Row{"VGlass", true, true, false, true}, Row{"vthinglass", true, true, false, true},
        Row{"VMetal", false, true, true, true}, Row{"VBrushedMetal", false, true, true, true},
        Row{"VTexturedConstant", false, true, false, false},
        Row{"VPlastic", false, false, false, false}}) {
    SCOPED_TRACE(row.Name);
    const std::string call = '"' + std::string(row.Name) + '"';
    std::string surface = "Surface " + call + "\n";
    if (row.NoCaustics) surface += kNoCaustics;
    std::string tail;
    if (row.HitMode) tail += kHitMode;
    if (row.NoPrepass) tail += kNoPrepass;
    if (row.Reflective) tail += kReflective;
    EXPECT_EQ(WithSurface(call), surface);
    EXPECT_EQ(tail_, tail);
  }
}

TEST_F(ObjectMaterialTest, TexturesNeedTheCoordinatesOfAMesh) {
  EXPECT_FALSE(NeedsMesh("\"matte\" \"string ColorMapName\" [\"\"]"));
  EXPECT_TRUE(NeedsMesh("\"matte\" \"string ColorMapName\" [\"a.tx\"]"));
  EXPECT_TRUE(
      NeedsMesh("\"matte\" \"string ColorMapName\" [\"a.tx\"] \"string Projection\" "
                "[\"st\"]"));
  EXPECT_FALSE(
      NeedsMesh("\"matte\" \"string ColorMapName\" [\"a.tx\"] \"string Projection\" "
                "[\"planar\"]"));
  for (const std::string name : {"VScreen", "VBrick2D", "vplanks", "VShinyTile2D", "VGrid2D"}) {
    EXPECT_TRUE(NeedsMesh('"' + name + '"')) << name;
    EXPECT_FALSE(NeedsMesh('"' + name + "\" \"string Projection\" [\"box\"]")) << name;
  }
  EXPECT_FALSE(NeedsMesh("\"VBrick3D\""));
}

TEST_F(ObjectMaterialTest, SomeShadersNeedAMeshWithoutATexture) {
  EXPECT_TRUE(NeedsMesh("\"VWeave\" \"string Projection\" [\"box\"]"));
  EXPECT_TRUE(NeedsMesh("\"DarkTreeSurface\" \"float Use2DCoordinates\" [1]"));
  EXPECT_FALSE(NeedsMesh("\"DarkTreeSurface\" \"float Use2DCoordinates\" [0]"));
  EXPECT_FALSE(NeedsMesh("\"DarkTreeSurface\""));
}

TEST_F(ObjectMaterialTest, ASurfaceWithSubsurfaceLightHasAPointSetOfItsOwn) {
  model_.m_material_table = {material_, material_};
  model_.m_material_table[0].SetUserString("OrvSurface", "\"VSkin\"");
  model_.m_material_table[1].SetUserString("OrvSurface", "\"vtranslucentmarble\"");
  model_.m_object_table = {object_, object_, object_};
  model_.m_object_table[2].m_attributes.m_material_index = 1;
  Open();
  EXPECT_EQ(Written([this](orv::RibWriter& writer) {
              for (const auto& object : doc_.Objects()) Write(writer, *object);
              EXPECT_EQ(writer.PointSetCount, 3);
            }),
            "Attribute \"pointset\" \"handle\" [\"PointSet0\"]\n"
            "Surface \"VSkin\"\n"
            "Opacity [ 1 1 1 ]\n"
            "Attribute \"pointset\" \"handle\" [\"PointSet1\"]\n"
            "Surface \"VSkin\"\n"
            "Opacity [ 1 1 1 ]\n"
            "Attribute \"pointset\" \"handle\" [\"PointSet2\"]\n"
            "Surface \"vtranslucentmarble\"\n"
            "Opacity [ 1 1 1 ]\n");
}

class CausticMaterialTest : public ObjectMaterialTest {
 protected:
  CausticMaterialTest() { settings_.CausticPhotonPass = true; }

  // What the surface writes of caustics.
  std::string Caustics(std::string_view call) {
    const std::string text = WithSurface(call);
    const std::string surface = "Surface " + std::string(call) + "\n";
    EXPECT_TRUE(text.starts_with(surface)) << text;
    return text.substr(surface.size());
  }
};

TEST_F(CausticMaterialTest, AMetalWithoutAColorMirrorsInTheMaterialsColor) {
  settings_.RhinoGamma = 2;
  material_.m_diffuse = {255, 128, 0};
  EXPECT_EQ(Caustics("\"VMetal\""),
            "Attribute \"caustic\" \"specularcolor\" [1 0.25098 0]\nIlluminate 999 0\n");
  EXPECT_EQ(Caustics("\"VPlastic\""), "");
}

TEST_F(CausticMaterialTest, AStrengthStandsForTheColorOrScalesIt) {
  EXPECT_EQ(Caustics("\"V\" \"float Specular\" [0.5]"),
            "Attribute \"caustic\" \"specularcolor\" [0.5 0.5 0.5]\n");
  EXPECT_EQ(Caustics("\"V\" \"float Specular\" [0]"), "");
  EXPECT_EQ(Caustics("\"V\" \"float Ks\" [0.25]"),
            "Attribute \"caustic\" \"specularcolor\" [0.25 0.25 0.25]\n");
  EXPECT_EQ(Caustics("\"V\" \"float Ks\" [9] \"float Specular\" [0.5] "
                     "\"color SpecularColor\" [1 0.5 0]"),
            "Attribute \"caustic\" \"specularcolor\" [0.5 0.25 0]\n");
  EXPECT_EQ(Caustics("\"V\" \"color specularcolor\" [0 0 0.5]"),
            "Attribute \"caustic\" \"specularcolor\" [0 0 0.5]\n");
  EXPECT_EQ(Caustics("\"V\" \"color SpecularColor\" [0 0 0] \"color specularcolor\" [1 1 1]"), "");
}

TEST_F(CausticMaterialTest, TransmissionAndIndexOfRefraction) {
  EXPECT_EQ(Caustics("\"V\" \"color TransmissionColor\" [1 0.5 0]"),
            "Attribute \"caustic\" \"refractioncolor\" [1 0.5 0]\n");
  EXPECT_EQ(Caustics("\"V\" \"color TransmissionColor\" [1 0.5 0] \"float Transmission\" [0.5]"),
            "Attribute \"caustic\" \"refractioncolor\" [0.5 0.25 0]\n");
  EXPECT_EQ(Caustics("\"V\" \"float Transmission\" [0.5]"), "");
  EXPECT_EQ(Caustics("\"V\" \"float IndexOfRefraction\" [1.5] \"float ior\" [1.3]"),
            "Attribute \"caustic\" \"indexofrefraction\" [1.3]\n");
  EXPECT_EQ(Caustics("\"V\" \"float IOR\" [1.4] \"float IndexOfRefraction\" [1.5]"),
            "Attribute \"caustic\" \"indexofrefraction\" [1.4]\n");
  EXPECT_EQ(Caustics("\"V\" \"float IOR\" [0]"), "");
}

TEST_F(CausticMaterialTest, WithoutAPhotonPassThereIsNothing) {
  settings_.CausticPhotonPass = false;
  EXPECT_EQ(Caustics("\"V\" \"float Specular\" [0.5] \"float IOR\" [1.4]"), "");
}

class DisplacementTest : public ObjectMaterialTest {};

TEST_F(DisplacementTest, ABumpHasNoBound) {
  EXPECT_EQ(WithDisplacement("Bump", "\"VDents\" \"float BumpMax\" [2]"),
            "Displacement \"VDents\" \"float BumpMax\" [2]\n");
}

TEST_F(DisplacementTest, ARegularOneHasABound) {
  EXPECT_EQ(WithDisplacement("Regular", "\"V\" \"float BumpMax\" [-2] \"float BumpMin\" [1]"),
            "Attribute \"render\" \"integer truedisplacement\" [1]\n"
            "Attribute \"displacementbound\" \"float sphere\" [2]\n"
            "Displacement \"V\" \"float BumpMax\" [-2] \"float BumpMin\" [1]\n");
  EXPECT_THAT(WithDisplacement("Regular", "\"V\" \"float BumpMax\" [1] \"float BumpMin\" [-3]"),
              HasSubstr("\"float sphere\" [3]\n"));
  EXPECT_THAT(WithDisplacement("Regular", "\"V\" \"float BumpMin\" [-3]"),
              HasSubstr("\"float sphere\" [1]\n"));
}

TEST_F(DisplacementTest, OfAMeshSaysSo) {
  EXPECT_EQ(WithDisplacement("Mesh", "\"V\""),
            "Attribute \"render\" \"integer truedisplacement\" [1]\n"
            "Attribute \"displacementbound\" \"float sphere\" [1]\n"
            "Attribute \"render\" \"integer meshdisplacement\" [1]\n"
            "Displacement \"V\"\n");
}

TEST_F(DisplacementTest, WhereNothingIsDisplacedTheShaderStandsAlone) {
  settings_.Displacable = false;
  EXPECT_EQ(WithDisplacement("Regular", "\"V\""), "Displacement \"V\"\n");
  EXPECT_EQ(WithDisplacement("Mesh", "\"V\""), "Displacement \"V\"\n");
}

TEST_F(DisplacementTest, SwitchedOffThereIsNoInstancerEither) {
  material_.SetUserString("OrvInstancer", "\"VArrayOnCurve\"");
  EXPECT_EQ(WithDisplacement("Off", "\"V\""), "");
}

TEST_F(DisplacementTest, AnInstancerHasItsBound) {
  material_.SetUserString("OrvInstancer", "\"VArrayOnCurve\" \"float N\" [3]");
  material_.SetUserString("OrvInstancerBound", "2.5");
  EXPECT_EQ(WithDisplacement("Bump", "\"V\""),
            "Displacement \"V\"\n"
            "Attribute \"displacementbound\" \"float sphere\" [2.5]\n"
            "Instancer \"VArrayOnCurve\" \"float N\" [3]\n");
  material_.SetUserString("OrvHideInstancerBase", "Yes");
  EXPECT_EQ(WithDisplacement("Bump", "\"V\""),
            "Displacement \"V\"\n"
            "Attribute \"displacementbound\" \"float sphere\" [2.5]\n"
            "Attribute \"visibility\" \"integer instancerbase\" [0]\n"
            "Instancer \"VArrayOnCurve\" \"float N\" [3]\n");
}

TEST_F(DisplacementTest, ATexturedOneNeedsAMesh) {
  WithDisplacement("Bump", "\"V\" \"string TextureName\" [\"a.tx\"]");
  EXPECT_FALSE(wantsRenderMesh_);
  WithDisplacement("Bump", "\"DarkTreeDisplacement\" \"float Use2DCoordinates\" [1]");
  EXPECT_TRUE(wantsRenderMesh_);
  WithDisplacement("Bump", "\"DarkTreeDisplacement\" \"float Use2DCoordinates\" [0]");
  EXPECT_FALSE(wantsRenderMesh_);
  // The surface uses a texture, too, but not with the mesh's coordinates.
  material_.SetUserString("OrvDisplacement", "\"V\" \"string Projection\" [\"st\"]");
  material_.SetUserString("OrvDisplacementMode", "Bump");
  EXPECT_TRUE(
      NeedsMesh("\"V\" \"string ColorMapName\" [\"a.tx\"] \"string Projection\" "
                "[\"box\"]"));
  EXPECT_FALSE(NeedsMesh("\"V\""));
}

TEST_F(ObjectMaterialTest, AShadingRateIsFinerThanTheScenesOnly) {
  material_.SetUserString("OrvShadingSamples", "4");
  settings_.ShadingSamples = 4;
  WithSurface("\"matte\"");
  EXPECT_EQ(tail_, "");
  settings_.ShadingSamples = 3;
  WithSurface("\"matte\"");
  EXPECT_EQ(tail_, "ShadingRate 0.25\n");
}

TEST_F(ObjectMaterialTest, ComplexShadowsRunTheShader) {
  material_.SetUserString("OrvComplexShadow", "Yes");
  WithSurface("\"matte\"");
  EXPECT_EQ(tail_, "Attribute \"shade\" \"string transmissionhitmode\" \"shader\"\n");
}

TEST_F(ObjectMaterialTest, ABrokenCallDoesNotTakeTheRestOfTheFileWithIt) {
  EXPECT_EQ(WithSurface("\"V\" \"string A\" [\"abc"), "Surface \"V\" \"string A\" [\"abc\"]\n");
}

TEST_F(ObjectMaterialTest, EachImageIsLookedAtOnce) {
  settings_.ConvertTextures = true;
  model_.m_material_table = {material_};
  model_.m_material_table[0].SetUserString("OrvSurface",
                                           "\"V\" \"string ColorMapName\" [\"no such.jpg\"]");
  model_.m_object_table = {object_, object_, object_};
  Open();
  Rib();
  const std::size_t told = messages_.find("Texture file not found: no such.jpg\n");
  ASSERT_NE(told, std::string::npos) << messages_;
  EXPECT_EQ(messages_.find("Texture file not found", told + 1), std::string::npos);
  messages_.clear();
  Rib();
  EXPECT_THAT(messages_, HasSubstr("Texture file not found: no such.jpg\n"));
}

}  // namespace
