#include "shading/preview_scene.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <vector>

#include "shading/material_file.h"
#include "support/temp_folder.h"

namespace orv {
namespace {

constexpr char kHead[] = R"(Format 112 112 1
Projection "perspective" "fov" [25]
Translate 0 0 5
Rotate -20  1 0 0
Rotate 90 1 0 0
Scale 1 1 -1
WorldBegin
  LightSource "spotlight" 2 "intensity" 130 "from" [5 -4 11] "coneangle" 0.66
  LightSource "distantlight" 3 "intensity" 0.2 "from" [-3 -4 1] "__nonspecular" 1
  Surface "matte"
  Attribute "visibility" "trace" [1]
  AttributeBegin
    Surface "checker" "Kd" 1
    Translate 0 0 -1
    Polygon "P" [-100 -100 0  -100 100 0  100 100 0  100 -100 0] "st" [20 0 0 0 0 20 20 20 ]
  AttributeEnd
)";
constexpr char kTail[] = R"(Attribute "pointset" "string handle" "test.pts"
ShadingRate 1
Sphere 1 -1 1 360
WorldEnd
)";

class PreviewScene : public testing::Test {
 protected:
  // What stands between the fixed beginning and end.
  std::string Middle(const MaterialAttributes& attributes) {
    const std::string path = folder_.File("Ball.rib");
    EXPECT_TRUE(WritePreviewScene(path, attributes, {}, false, textures_));
    const std::string text = FileContent(path);
    EXPECT_TRUE(text.starts_with(kHead)) << text;
    EXPECT_TRUE(text.ends_with(kTail)) << text;
    if (!text.starts_with(kHead) || !text.ends_with(kTail)) return {};
    return text.substr(sizeof(kHead) - 1, text.size() - sizeof(kHead) - sizeof(kTail) + 2);
  }

  TempFolder folder_;
  TextureConverter textures_;
};

TEST_F(PreviewScene, ADefaultMaterialIsTheHostsRubber) {
  const std::string middle = Middle({});
  EXPECT_NE(middle.find("Surface \"VRubber\""), std::string::npos) << middle;
  EXPECT_NE(middle.find("\"Ball\""), std::string::npos) << middle;
}

TEST_F(PreviewScene, HoldsTheMaterialAsItsFile) {
  MaterialAttributes attributes;
  attributes.Surface = "\"VPlastic\" \"float Ks\" 0.5";
  attributes.Displacement = "\"VDents\" \"float BumpMax\" 2";
  const std::string middle = Middle(attributes);
  EXPECT_EQ(middle, TextFromMaterial(folder_.File("Ball.rib"), 1, attributes));
}

TEST_F(PreviewScene, HasTheNameOfItsFileWhateverTheMaterialIsCalled) {
  MaterialAttributes attributes;
  attributes.Name = "Orange";
  const std::string middle = Middle(attributes);
  EXPECT_NE(middle.find("\"Ball\""), std::string::npos) << middle;
  EXPECT_EQ(middle.find("Orange"), std::string::npos) << middle;
}

TEST_F(PreviewScene, ShowsNoInstances) {
  MaterialAttributes attributes;
  attributes.Instancer = "\"VInstanceTree\"";
  EXPECT_EQ(Middle(attributes).find("VInstanceTree"), std::string::npos);
}

TEST_F(PreviewScene, ASwitchedOffDisplacementIsNone) {
  MaterialAttributes attributes;
  attributes.DisplacementMode = kNoDisplacement;
  attributes.Displacement = "\"VDents\" \"float BumpMax\" 2";
  EXPECT_TRUE(Middle(attributes).ends_with("Displacement \"null\"\n"));
}

TEST_F(PreviewScene, MovedSurfacesHaveABoundWithItsSign) {
  MaterialAttributes attributes;
  attributes.Displacement = "\"VDents\" \"float BumpMax\" -3";
  for (const int mode : {kRegularDisplacement, kMeshDisplacement}) {
    attributes.DisplacementMode = mode;
    EXPECT_TRUE(
        Middle(attributes).ends_with("  Attribute \"displacementbound\" \"float sphere\" [-3]\n"));
  }
  attributes.DisplacementMode = kBumpDisplacement;
  EXPECT_EQ(Middle(attributes).find("displacementbound"), std::string::npos);
  attributes.DisplacementMode = kRegularDisplacement;
  attributes.Displacement = "\"VDents\"";
  EXPECT_EQ(Middle(attributes).find("displacementbound"), std::string::npos);
}

TEST_F(PreviewScene, NeedsAFile) {
  EXPECT_FALSE(WritePreviewScene(folder_.File("no/Ball.rib"), {}, {}, false, textures_));
}

using Change = std::function<void(MaterialAttributes&)>;

// Whether a change of a material with these shaders is seen in the preview.
bool IsSeen(const std::string& surface, const std::string& displacement, const Change& change,
            bool withNames = false) {
  MaterialAttributes before;
  before.Surface = surface;
  before.Displacement = displacement;
  MaterialAttributes after = before;
  EXPECT_TRUE(SameForPreview(before, after, withNames));
  change(after);
  return !SameForPreview(before, after, withNames);
}

TEST(SameForPreview, ShadersTransparencyAndModeAlwaysCount) {
  const std::vector<Change> changes = {
      [](auto& a) { a.Surface += " "; }, [](auto& a) { a.Displacement += " "; },
      [](auto& a) { a.Transparency = 0.5; }, [](auto& a) { a.DisplacementMode = 0; }};
  for (const Change& change : changes) EXPECT_TRUE(IsSeen("\"VPlastic\"", "\"VDents\"", change));
}

TEST(SameForPreview, ValuesOfTheHostsSurfaceCountWhereItIsShown) {
  const std::vector<Change> changes = {
      [](auto& a) { a.SpecularRoughness = 0.5; }, [](auto& a) { a.Specular = ON_Color(1, 2, 3); },
      [](auto& a) { a.ColorMap = "a.png"; },      [](auto& a) { a.OpacityMap = "a.png"; },
      [](auto& a) { a.MapOrigin[1] = 2; },        [](auto& a) { a.MapSize[0] = 2; }};
  for (const Change& change : changes) {
    EXPECT_TRUE(IsSeen("\"Rhino\"", "\"VDents\"", change));
    EXPECT_FALSE(IsSeen("\"VPlastic\"", "\"Rhino\"", change));
  }
}

TEST(SameForPreview, ValuesOfTheHostsBumpsCountWhereTheyAreShown) {
  const std::vector<Change> changes = {
      [](auto& a) { a.BumpHeight = 0.5; }, [](auto& a) { a.BumpMap = "a.png"; },
      [](auto& a) { a.BumpOrigin[1] = 2; }, [](auto& a) { a.BumpSize[0] = 2; }};
  for (const Change& change : changes) {
    EXPECT_TRUE(IsSeen("\"VPlastic\"", "\"Rhino\"", change));
    EXPECT_FALSE(IsSeen("\"Rhino\"", "\"VDents\"", change));
  }
}

TEST(SameForPreview, MapsAreComparedWithoutCase) {
  MaterialAttributes a;
  MaterialAttributes b;
  a.ColorMap = a.OpacityMap = a.BumpMap = "Map.PNG";
  b.ColorMap = b.OpacityMap = b.BumpMap = "mAP.png";
  EXPECT_TRUE(SameForPreview(a, b, false));
}

TEST(SameForPreview, NamesCountWhenAsked) {
  const Change rename = [](auto& a) { a.Name = "other"; };
  EXPECT_FALSE(IsSeen("\"Rhino\"", "\"Rhino\"", rename));
  EXPECT_TRUE(IsSeen("\"Rhino\"", "\"Rhino\"", rename, true));
}

TEST(SameForPreview, OtherValuesDontCount) {
  EXPECT_FALSE(IsSeen("\"Rhino\"", "\"Rhino\"", [](auto& a) {
    a.Diffuse = ON_Color(1, 2, 3);
    a.ShadingSamples = 7;
    a.Instancer = "\"x\"";
    a.SurfaceLayout = "+";
  }));
}

TEST(SameForPreview, ANumberThatIsNoneIsNeverTheSame) {
  MaterialAttributes a;
  a.Transparency = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(SameForPreview(a, a, false));
}

}  // namespace
}  // namespace orv
