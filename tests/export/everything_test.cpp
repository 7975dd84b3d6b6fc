#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>

#include "export_fixture.h"
#include "host/geometry/on_plane_surface.h"
#include "light_fixture.h"
#include "support/rib_checker.h"
#include "tools/tool_bench.h"

// Whole files with all that can be switched on at once. Two of them, as modes exclude each other:
// a final image, and what an interactive session starts with.

namespace {

void SetStrings(ON_Object& carrier, UserStrings strings) {
  for (const auto& [key, value] : strings) carrier.SetUserString(key, value);
}

ON_Texture Texture(ON_Texture::Type type, std::string file) {
  ON_Texture texture;
  texture.m_type = type;
  texture.m_image_file = std::move(file);
  return texture;
}

ONX_ModelLight Light(ON_LightStyle style, std::string_view name, UserStrings strings) {
  ONX_ModelLight light = WithStrings(LightOf(style), strings);
  light.m_attributes.m_name = name;
  light.m_light->m_shadow_intensity = 0.5;
  return light;
}

constexpr ON_UUID kViewport = "7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4"_uuid;

class EverythingTest : public ExportTest {
 protected:
  EverythingTest() {
    model_.m_settings.m_views[0].m_vp.m_id = kViewport;
    model_.m_settings.m_model_units.m_unit_system = ON_UnitSystem::feet;
    model_.m_group_table = {{.m_id = {}, .m_name = "Chairs", .m_index = 0},
                            {.m_id = {}, .m_name = "Ground \"floor\"", .m_index = 1}};
    for (const std::string_view name : {"wood.jpg", "holes.png", "grain.tif", "sky.hdr"}) {
      WriteFileContent(folder_.File(name), "image");
    }
    AddMaterials();
    AddObjects();
    AddLights();
    Open();
    SetSampling();
    SetLighting();
    SetOutlines();
  }

  void AddMaterials() {
    model_.m_material_table.resize(5);
    ON_Material& host = model_.m_material_table[0];
    host.m_diffuse = {128, 64, 32};
    host.m_shine = 128;
    host.m_transparency = 0.25;
    host.m_textures = {Texture(ON_Texture::Type::bitmap, folder_.File("wood.jpg")),
                       Texture(ON_Texture::Type::transparency, folder_.File("holes.png")),
                       Texture(ON_Texture::Type::bump, folder_.File("grain.tif"))};
    host.m_textures[0].m_uvw.m_xform[0] = {2, 0, 0, 0.25};
    host.m_textures[0].m_uvw.m_xform[1] = {0, 4, 0, 0.5};
    SetStrings(model_.m_material_table[1],
               {{"OrvSurface", "\"VMetal\" \"float Specular\" [0.5]"},
                {"OrvDisplacement", "\"VDents\" \"float BumpMax\" [0.5] \"float BumpMin\" [-1]"},
                {"OrvDisplacementMode", "Mesh"},
                {"OrvShadingSamples", "4"}});
    SetStrings(model_.m_material_table[2],
               {{"OrvSurface",
                 "\"VGlass\" \"color SpecularColor\" [1 1 1] \"color TransmissionColor\" [0 1 0] "
                 "\"float Transmission\" [0.5] \"float IndexOfRefraction\" [1.5]"},
                {"OrvDisplacement", "\"null\""},
                {"OrvInstancer", "\"VArrayOnCurve\" \"float N\" [3]"},
                {"OrvInstancerBound", "2"},
                {"OrvHideInstancerBase", "Yes"}});
    SetStrings(
        model_.m_material_table[3],
        {{"OrvSurface", "\"VSkin\""}, {"OrvDisplacementMode", "Off"}, {"OrvComplexShadow", "Yes"}});
    model_.m_material_table[4].m_name = "host's, plain";
  }

  void AddObject(int material, std::string_view name, std::vector<int> groups,
                 UserStrings strings) {
    ONX_ModelObject& object =
        model_.m_object_table.emplace_back(ObjectOf(SquareMesh(static_cast<float>(material))));
    object.m_attributes.m_name = name;
    object.m_attributes.m_material_source = ON_AttributeSource::object;
    object.m_attributes.m_material_index = material;
    object.m_attributes.m_group = std::move(groups);
    SetStrings(object.m_attributes, strings);
  }

  void AddObjects() {
    AddObject(0, "seat", {0}, {{"OrvUseLineWidth", "Yes"}, {"OrvLineWidth", "3"}});
    AddObject(1, "Tür \"links\"", {1, 0},
              {{"OrvVisibleToCamera", "No"},
               {"OrvReflected", "No"},
               {"OrvCastShadow", "No"},
               {"OrvBackFace", "No"},
               {"OrvUseLineWidth", "Yes"},
               {"OrvUseLineColor", "Yes"},
               {"OrvLineColor", "1,0.5,0"},
               {"OrvUseFlatness", "Yes"},
               {"OrvFlatness", "0.25"},
               {"OrvCurveType", "ribbon"},
               {"OrvArchive", "C:\\ribs\\hinge.rib"},
               {"OrvArchiveMode", "insert"},
               {"OrvMeshFile", "door.obj"},
               {"OrvUseMeshFile", "Yes"}});
    AddObject(2, "", {}, {});
    AddObject(3, "tree", {}, {{"OrvArchive", "tree.rib"}, {"OrvArchiveMode", "replace"}});
    AddObject(4, "", {}, {});
    auto plane = std::make_shared<ON_ClippingPlaneSurface>();
    plane->m_plane.origin = {0, 0, 3};
    plane->m_viewport_ids = {kViewport};
    model_.m_object_table.push_back(ObjectOf(plane));
  }

  void AddLights() {
    model_.m_light_table = {
        Light(ON_LightStyle::world_spot, "spot",
              {{"OrvLightIntensity", "2"}, {"OrvLightEmitPhotons", "Yes"}}),
        Light(ON_LightStyle::world_point, "point", {{"OrvLightChannel", "3"}}),
        Light(ON_LightStyle::world_directional, "sun", {{"OrvShadowSamples", "0"}}),
        Light(ON_LightStyle::world_rectangular, "window",
              {{"OrvLightUseTexture", "Yes"}, {"OrvLightTexture", "C:\\maps\\window.tx"}}),
        Light(ON_LightStyle::world_rectangular, "fast", {{"OrvAreaLightType", "fast"}}),
        Light(ON_LightStyle::world_rectangular, "door", {{"OrvAreaLightType", "portal"}}),
        Light(ON_LightStyle::world_rectangular, "measured",
              {{"OrvLightUseTexture", "Yes"}, {"OrvLightTexture", "lamp.IES"}}),
        Light(ON_LightStyle::world_rectangular, "shape",
              {{"OrvLightUseArchive", "Yes"}, {"OrvLightArchive", "bulb.rib"}}),
        Light(ON_LightStyle::world_linear, "tube", {{"OrvLightFalloff", "2"}}),
        Light(ON_LightStyle::ambient, "ambient", {}),
        Light(ON_LightStyle::world_point, "off", {{"OrvLightChannel", "7"}}),
    };
    model_.m_light_table.back().m_light->m_bOn = false;
  }

  void SetSampling() {
    settings_.FrameNumber = 7;
    settings_.RhinoGamma = 2;
    settings_.TextureGamma = 2.2;
    settings_.AbsoluteTolerance = true;
    settings_.SharpFilter = true;
    settings_.UseExtraChannels = true;
    settings_.ExtraChannels = "Diffuse Lights";
    settings_.BounceChannels = true;
    settings_.TileOrder = "Columns";
    settings_.UseCropWindow = true;
    settings_.EdgeMask = true;
    settings_.UseOptionsArchive = true;
    settings_.OptionsArchive = "C:\\ribs\\options.rib";
    textures_.TextureCacheDir = folder_.File("textures");
    std::filesystem::create_directory(folder_.File("textures"));
  }

  void SetLighting() {
    settings_.ImageBgMode = 4;
    settings_.ImageBgMap = folder_.File("sky.hdr");
    settings_.GiMode = 3;
    settings_.GiBgMode = 1;
    settings_.GiBgMap = "C:\\maps\\gi.tx";
    settings_.GiAdaptive = true;
    settings_.GiReadCache = true;
    settings_.GiWriteCache = true;
    settings_.ReflectionBgMode = 2;
    settings_.ReflectionBgMap = "C:\\maps\\reflection.tx";
    settings_.CausticsEnable = true;
    settings_.CausticPhotonPass = true;
    settings_.CausticCacheMode = 2;
  }

  void SetOutlines() {
    settings_.Outline = true;
    settings_.FrontBack = true;
    settings_.UseMinEdgeAngle = true;
    settings_.MinEdgeAngle = 30;
    settings_.IncludeNakedEdges = true;
    settings_.ExportVectors = true;
    settings_.VectorExportName = "C:\\out\\lines.ai";
  }

  // Without the numbers that objects have as long as the program runs. In a plain file only a light
  // of a kind that isn't written has one.
  std::string WithoutSerialNumbers(std::string text) const {
    for (const auto& object : doc_.Objects()) {
      const std::regex name("\"Object_" + std::to_string(object->RuntimeSerialNumber()) + "\"");
      text = std::regex_replace(text, name, "\"Object_<of " + object->Attributes().m_name + ">\"");
    }
    for (const auto& light : doc_.Lights()) {
      const std::string& lightName = light->Attributes().m_name;
      if (iprSettings_ == nullptr && lightName != "ambient") continue;
      const std::string number = std::to_string(light->RuntimeSerialNumber());
      const std::regex statement("(LightSource \"[a-z_0-9]+\"|Illuminate) " + number + " ");
      text = std::regex_replace(text, statement, "$1 <" + lightName + "> ");
    }
    return text;
  }

  void ExpectGolden(std::string_view name) {
    const ToolBench bench;
    ASSERT_EQ(ExportTo(folder_.File("all.rib")), 1) << messages_;
    const std::string rib = FileContent(folder_.File("all_0007.rib"));
    EXPECT_THAT(CheckRib(rib).Complaints, testing::IsEmpty());
    EXPECT_EQ(bench.Runs().size(), 4U) << messages_;
    std::string text = WithoutSerialNumbers(WithoutFolderAndDate(rib));
    for (std::size_t at; (at = text.find(folder_.Path().string())) != std::string::npos;) {
      text.replace(at, folder_.Path().string().size(), "FOLDER");
    }
    const std::filesystem::path golden =
        std::filesystem::path(ORV_TEST_FOLDER) / "golden" / std::string(name);
    if (std::getenv("ORV_UPDATE_GOLDEN") != nullptr) WriteFileContent(golden, text);
    EXPECT_EQ(text, FileContent(golden));
  }
};

TEST_F(EverythingTest, OfAFinalImage) {
  ExpectGolden("everything.rib");
}

TEST_F(EverythingTest, OfAnInteractiveSession) {
  const orv::IprSettings ipr{.IprAutoReflect = true, .IprSmoothEdges = true};
  iprSettings_ = &ipr;
  settings_.GiMode = 5;
  settings_.GiBgMode = 0;
  settings_.ReflectionBgMode = 1;
  settings_.Colors = false;
  settings_.Draft = true;
  settings_.CausticCacheMode = 1;
  settings_.CausticPhotonPass = false;
  settings_.ToonId = 4;
  ExpectGolden("interactive.rib");
}

}  // namespace
