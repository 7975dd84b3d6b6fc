#include "export/scene_options.h"

#include <gtest/gtest.h>

#include "export_fixture.h"
#include "host/geometry/on_plane_surface.h"
#include "rib_fragment.h"

namespace {

constexpr const char* kBackground =
    "TransformBegin\n"
    "  Rotate 0 0 0 1\n"
    "  CoordinateSystem \"bgspace\"\n"
    "TransformEnd\n";
constexpr const char* kGi =
    "TransformBegin\n"
    "  Rotate 0 1 0 0\n"
    "  Rotate 0 0 1 0\n"
    "  Rotate 0 0 0 1\n"
    "  CoordinateSystem \"gispace\"\n"
    "TransformEnd\n";
constexpr const char* kReflection =
    "Option \"trace\" \"integer maxdepth\" 6\n"
    "TransformBegin\n"
    "  Rotate 0 1 0 0\n"
    "  Rotate 0 0 1 0\n"
    "  Rotate 0 0 0 1\n"
    "  CoordinateSystem \"reflectionspace\"\n"
    "TransformEnd\n"
    "Option \"reflection\" \"color background\" [0.2 0.2 0.2]\n"
    "Attribute \"trace\" \"float bias\" [0.01]\n";
constexpr const char* kUnits =
    "Option \"user\" \"float sceneunitsize\" [0.001]\n"
    "Option \"user\" \"float illuminanceunity\" [500]\n";

class SceneOptions : public testing::Test {
 protected:
  SceneOptions() {
    model_.m_settings.m_views = {PerspectiveView()};
    settings_.ImageBgMode = 0;
    settings_.ClampToAlpha = false;
  }

  std::string Rib(const orv::IprSettings* iprSettings = nullptr) {
    CRhinoDoc doc;
    doc.SetModel(model_, "");
    const orv::ObjectList objects = orv::GatherObjects(doc, false, settings_);
    orv::TextureConverter textures;
    return WrittenRib([&](orv::RibWriter& writer) {
      orv::WriteSceneOptions(writer, doc, *doc.ActiveView(), objects, settings_, iprSettings,
                             textures);
    });
  }
  // What stands between the reflection options and the units.
  std::string Middle() {
    const std::string rib = Rib();
    const std::string head = std::string(kBackground) + kGi + kReflection;
    EXPECT_TRUE(rib.starts_with(head)) << rib;
    EXPECT_TRUE(rib.ends_with(kUnits)) << rib;
    return rib.substr(head.size(), rib.size() - head.size() - std::string_view(kUnits).size());
  }

  ONX_Model model_;
  orv::RenderSettings settings_;
};

TEST_F(SceneOptions, OfAFreshDocument) {
  EXPECT_EQ(Rib(), std::string(kBackground) + kGi + kReflection + kUnits);
}

TEST_F(SceneOptions, TheDefaultSurfaceIsWrittenAsItStands) {
  settings_.Surface = "\"VPlastic\" \"float Diffuse\" [0.5] \"string Map\" [\"a\\\\b.tif\"]";
  EXPECT_EQ(Middle(),
            "Surface \"VPlastic\" \"float Diffuse\" [0.5] \"string Map\" [\"a\\\\b.tif\"]\n");
}

TEST_F(SceneOptions, ADefaultSurfaceLongerThanALineKeepsItsParameters) {
  settings_.Surface = "\"VPlastic\"";
  std::string parameters;
  for (int i = 0; i < 400; ++i) parameters += " \"float p" + std::to_string(i) + "\" [0.5]";
  settings_.Surface += parameters;
  const std::string rib = Middle();
  EXPECT_TRUE(rib.starts_with("Surface \"VPlastic\" \"float p0\" [0.5] ")) << rib;
  EXPECT_NE(rib.find(" \"float p399\" [0.5]"), std::string::npos) << rib;
}

TEST_F(SceneOptions, TheOptionsArchiveIsRead) {
  settings_.OptionsArchive = "C:\\opt\\my \"own\".rib";
  EXPECT_EQ(Middle(), "");
  settings_.UseOptionsArchive = true;
  EXPECT_EQ(Middle(), "ReadArchive \"C:/opt/my \\\"own\\\".rib\"\n");
  settings_.OptionsArchive = "";
  EXPECT_EQ(Middle(), "");
}

TEST_F(SceneOptions, ACropWindowUnlessItIsEnlarged) {
  EXPECT_EQ(Middle(), "");
  settings_.UseCropWindow = true;
  settings_.CropWindow = {0.1, 0.9, 0.2, 0.75};
  EXPECT_EQ(Middle(), "CropWindow 0.1 0.9 0.2 0.75\n");
  settings_.Enlarge = true;
  EXPECT_EQ(Middle(), "");
}

TEST_F(SceneOptions, OfPixels) {
  settings_.ClampToAlpha = true;
  EXPECT_EQ(Middle(), "Option \"render\" \"prefilterclamptoalpha\" [1]\n");
  settings_.ClampToAlpha = false;
  settings_.EdgeMask = true;
  EXPECT_EQ(Middle(), "Option \"render\" \"integer edgemask\" [1]\n");
}

TEST_F(SceneOptions, AllInTheirOrder) {
  auto surface = std::make_shared<ON_ClippingPlaneSurface>();
  surface->m_plane.zaxis = {1, 1, 1};
  surface->m_viewport_ids = {"6f9619ff-8b86-d011-b42d-00cf4fc964ff"_uuid};
  model_.m_settings.m_views[0].m_vp.m_id = surface->m_viewport_ids[0];
  model_.m_object_table.push_back(ObjectOf(surface));
  settings_.ImageBgMode = 1;
  settings_.ImageBgColor = {255, 255, 255};
  settings_.GiMode = 5;
  settings_.Outline = true;
  settings_.FrontBack = true;
  settings_.Surface = "\"VPlastic\"";
  settings_.UseOptionsArchive = true;
  settings_.OptionsArchive = "options.rib";
  settings_.UseCropWindow = true;
  settings_.ClampToAlpha = true;
  settings_.EdgeMask = true;
  settings_.CausticsEnable = true;
  const orv::IprSettings iprSettings;
  EXPECT_EQ(Rib(&iprSettings), std::string(kBackground) +
                                   "Imager \"background\" \"color background\" [ 1 1 1 ]\n" + kGi +
                                   "Option \"occlusion\" \"integer prepass\" [1]\n"
                                   "Option \"toon\" \"float maxinkwidth\" 1\n"
                                   "Option \"toon\" \"float fadethreshold\" 0\n"
                                   "Option \"toon\" \"float mininkwidth\" 0\n"
                                   "Attribute \"toon\" \"float inkwidth\" 1\n"
                                   "Attribute \"toon\" \"color ink\" [0 0 0]\n"
                                   "Attribute \"toon\" \"integer frontback\" 1\n"
                                   "Attribute \"toon\" \"float silhouette\" 0.5\n"
                                   "Attribute \"toon\" \"float id\" -1\n" +
                                   kReflection +
                                   "Surface \"VPlastic\"\n"
                                   "ReadArchive \"options.rib\"\n"
                                   "CropWindow 0.25 0.75 0.25 0.75\n"
                                   "Option \"render\" \"prefilterclamptoalpha\" [1]\n"
                                   "Option \"render\" \"integer edgemask\" [1]\n" +
                                   kUnits +
                                   "ClippingPlane 0 0 0  -1 -1 -1\n"
                                   "Attribute \"ipr\" \"shading\" \"relight\"\n"
                                   "Option \"ipr\" \"retrace\" [1]\n"
                                   "Option \"trace\" \"maxshadowsamples\" [1]\n"
                                   "Option \"trace\" \"maxtracesamples\" [1]\n"
                                   "LightSource \"caustic\" 999 \"__channel\" [9]\n"
                                   "Attribute \"caustic\" \"maxpixeldist\" [10]\n"
                                   "Attribute \"caustic\" \"ngather\" [75]\n");
}

}  // namespace
