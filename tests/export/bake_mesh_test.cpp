#include "export/bake_mesh.h"

#include <gmock/gmock.h>

#include "export_fixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr std::string_view kMeshOption = "Option \"bake\" \"bakemesh\" [1]\n";

orv::RenderSettings MeshPass() {
  orv::RenderSettings settings;
  settings.BakeEnable = true;
  settings.BakeMesh = true;
  settings.GiMode = 4;
  settings.Surface = "\"VPlastic\"";
  return settings;
}

// What stands behind the option that begins the statements.
std::string Options(orv::RenderSettings& settings) {
  const std::string text =
      Written([&](orv::RibWriter& writer) { orv::WriteBakeMeshOptions(writer, settings); });
  EXPECT_EQ(text.substr(0, kMeshOption.size()), kMeshOption);
  return text.substr(kMeshOption.size());
}

struct Mode {
  int number;
  std::string_view statements;
  std::string_view surface = "\"VPlastic\"";
  double gamma = orv::kDefaultGamma;
  bool colors = true;
  bool useLights = true;
  int giMode = 4;
};

const Mode kModes[] = {
    {0, ""},
    {1, "Attribute \"render\" \"meshoutput\" \"float prim_occ=Ci[0]\"\n", "\"occlusionpass\"", 1},
    {2,
     "Attribute \"render\" \"meshoutput\" \"color prim_indirect=Ci\"\n"
     "Attribute \"visibility\" \"indirect\" [1]\n",
     "\"indirectpass\"", 1},
    {3, "Attribute \"render\" \"meshoutput\" \"color prim_diffuse=color __diffuse\"\n"},
    {4, "Attribute \"render\" \"meshoutput\" \"color prim_diffuse_light=color __diffuse\"\n",
     "\"matte\"", orv::kDefaultGamma, false},
    {5, "Attribute \"render\" \"meshoutput\" \"color Cs=color __constant\"\n", "\"VPlastic\"",
     orv::kDefaultGamma, true, false, 0},
    {6, ""},
    {-1, ""},
};

TEST(BakeMesh, ModesHaveTheirStatementsAndSettings) {
  for (const Mode& mode : kModes) {
    SCOPED_TRACE(mode.number);
    orv::RenderSettings settings = MeshPass();
    settings.BakeMeshMode = mode.number;
    EXPECT_EQ(Options(settings), mode.statements);
    EXPECT_EQ(settings.Surface, mode.surface);
    EXPECT_EQ(settings.RibGamma, mode.gamma);
    EXPECT_EQ(settings.Colors, mode.colors);
    EXPECT_EQ(settings.UseLights, mode.useLights);
    EXPECT_EQ(settings.GiMode, mode.giMode);
  }
}

TEST(BakeMesh, EdgesAreLimitedByALengthAboveZero) {
  orv::RenderSettings settings = MeshPass();
  settings.BakeEdgeLength = 2.5;
  settings.BakeMeshMode = 3;
  EXPECT_EQ(Options(settings),
            "GeometricApproximation \"edgelength\" [2.5]\n"
            "Attribute \"render\" \"meshoutput\" \"color prim_diffuse=color __diffuse\"\n");
  settings.BakeMeshMode = 0;
  for (const double length : {0.0, -1.0}) {
    settings.BakeEdgeLength = length;
    EXPECT_EQ(Options(settings), "");
  }
}

TEST(BakeMesh, ParametersThatAreNotKeptAreExcluded) {
  orv::RenderSettings settings = MeshPass();
  settings.BakeNormals = false;
  EXPECT_EQ(Options(settings), "Attribute \"render\" \"meshexclude\" \"N\"\n");
  settings.BakeTexCoords = false;
  EXPECT_EQ(Options(settings), "Attribute \"render\" \"meshexclude\" \"N,st\"\n");
  settings.BakeNormals = true;
  EXPECT_EQ(Options(settings), "Attribute \"render\" \"meshexclude\" \"st\"\n");
}

TEST(BakeMesh, OtherExportsHaveNoneOfIt) {
  orv::RenderSettings settings = MeshPass();
  settings.BakeMeshMode = 1;
  settings.BakeNormals = false;
  const auto options = [&] {
    return Written([&](orv::RibWriter& writer) { orv::WriteBakeMeshOptions(writer, settings); });
  };
  settings.BakeMesh = false;
  EXPECT_EQ(options(), "");
  settings.BakeMesh = true;
  settings.BakeEnable = false;
  EXPECT_EQ(options(), "");
  EXPECT_EQ(settings.Surface, "\"VPlastic\"");
}

// Scenes of mesh passes.
class BakeMeshScene : public ExportTest {
 protected:
  BakeMeshScene() {
    model_.m_object_table = {ObjectOf(SquareMesh())};
    model_.m_light_table = {PointLight()};
    settings_ = MeshPass();
    settings_.Surface.clear();
  }
};

TEST_F(BakeMeshScene, OptionsStandBetweenSamplingAndExposure) {
  Open();
  settings_.BakeEdgeLength = 2;
  EXPECT_THAT(Rib(), HasSubstr("GeometricApproximation \"flatness\" [0.5]\n"
                               "Option \"bake\" \"bakemesh\" [1]\n"
                               "GeometricApproximation \"edgelength\" [2]\n"
                               "Exposure 1 1.8\n"
                               "Display \"bakemesh.tif\" \"framebuffer\" \"rgba\"\n"
                               "Option \"limits\" \"bucketsize\" [32 32]\n"));
}

TEST_F(BakeMeshScene, OfOcclusionHasAnExposureOfOneAndASurfaceForAll) {
  Open();
  settings_.BakeMeshMode = 1;
  const std::string rib = Rib();
  EXPECT_THAT(rib, HasSubstr("\nExposure 1 1\n"));
  EXPECT_THAT(rib, HasSubstr("\nSurface \"occlusionpass\"\n"));
  EXPECT_THAT(rib, Not(HasSubstr("VRubber")));
}

TEST_F(BakeMeshScene, OfDiffuseLightHasNoColors) {
  Open();
  settings_.BakeMeshMode = 4;
  const std::string rib = Rib();
  EXPECT_THAT(rib, HasSubstr("\nSurface \"matte\"\n"));
  EXPECT_THAT(rib, Not(HasSubstr("  Color [")));
  EXPECT_THAT(rib, HasSubstr("LightSource \"pointlight\""));
}

TEST_F(BakeMeshScene, OfUnlitColorHasNoLights) {
  Open();
  EXPECT_THAT(Rib(), HasSubstr("LightSource"));
  settings_.BakeMeshMode = 5;
  const std::string rib = Rib();
  EXPECT_THAT(rib, Not(HasSubstr("LightSource")));
  EXPECT_THAT(rib, HasSubstr("\nExposure 1 1.8\n"));
  EXPECT_THAT(rib, HasSubstr("\nProjection \"perspective\""));
}

TEST_F(BakeMeshScene, CountsNoMaps) {
  Open();
  settings_.BakeUseMap1 = true;
  EXPECT_THAT(Rib(), Not(HasSubstr("\"file\"")));
  EXPECT_EQ(settings_.BakeDisplayCount, 0);
}

}  // namespace
