#include "export_fixture.h"

#include <gmock/gmock.h>

#include <regex>
#include <utility>

#include "export/scene_export.h"
#include "host/document/app.h"
#include "host/geometry/on_light.h"
#include "support/rib_checker.h"

namespace {

constexpr double kHalfAngleTangent = 0.41421356237309503;

}  // namespace

std::string Written(const std::function<void(orv::RibWriter&)>& write, std::string_view name) {
  const TempFolder folder;
  orv::RibWriter writer(folder.File(name));
  EXPECT_TRUE(writer.IsOpen());
  write(writer);
  EXPECT_TRUE(writer.Close());
  return FileContent(folder.Path() / name);
}

ON_3dmView PerspectiveView() {
  ON_3dmView view;
  view.m_name = "Camera";
  view.m_target = {1, 0, 2};
  view.m_vp.m_projection = ON_Viewport::View::perspective;
  EXPECT_TRUE(view.m_vp.SetCameraFrame({1, -10, 2}, {0, 10, 0}, {0, 0, 1}));
  const double top = 2 * kHalfAngleTangent;
  view.m_vp.m_frustum = {.left = -top * 4 / 3,
                         .right = top * 4 / 3,
                         .bottom = -top,
                         .top = top,
                         .near = 2,
                         .far = 100};
  view.m_vp.m_port = {.left = 0, .right = 640, .bottom = 480, .top = 0};
  return view;
}

ON_3dmView ParallelView() {
  ON_3dmView view;
  view.m_name = "Plan";
  view.m_target = {2, 3, 0};
  EXPECT_TRUE(view.m_vp.SetCameraFrame({2, 3, 50}, {0, 0, -50}, {0, 1, 0}));
  view.m_vp.m_frustum = {.left = -20, .right = 20, .bottom = -10, .top = 10, .near = 1, .far = 100};
  view.m_vp.m_port = {.left = 0, .right = 800, .bottom = 400, .top = 0};
  return view;
}

std::shared_ptr<ON_Mesh> SquareMesh(float z) {
  auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_V = {{0, 0, z}, {1, 0, z}, {1, 1, z}, {0, 1, z}};
  mesh->m_F = {{{0, 1, 2, 3}}};
  return mesh;
}

ONX_ModelObject ObjectOf(std::shared_ptr<ON_Geometry> geometry) {
  ONX_ModelObject object;
  object.m_geometry = std::move(geometry);
  return object;
}

ONX_ModelObject HiddenObjectOf(std::shared_ptr<ON_Geometry> geometry) {
  ONX_ModelObject object = ObjectOf(std::move(geometry));
  object.m_attributes.m_mode = ON_ObjectMode::hidden;
  return object;
}

ONX_ModelLight PointLight() {
  ONX_ModelLight light;
  light.m_light = std::make_shared<ON_Light>();
  light.m_light->m_style = ON_LightStyle::world_point;
  return light;
}

std::string WithoutFolderAndDate(std::string rib) {
  const std::regex scene("##Scene .*/");
  const std::regex creator("##Creator RhinoOrv [A-Z][a-z]{2} [ 123][0-9] [0-9]{4}\n");
  EXPECT_TRUE(std::regex_search(rib, creator)) << rib;
  rib = std::regex_replace(rib, scene, "##Scene ");
  return std::regex_replace(rib, creator, "##Creator RhinoOrv DATE\n");
}

ExportTest::ExportTest() {
  RhinoApp().CommandWindow().SetSink([this](std::string_view text) { messages_ += text; });
  model_.m_settings.m_views = {PerspectiveView(), ParallelView()};
}

ExportTest::~ExportTest() {
  RhinoApp().CommandWindow().SetSink({});
}

int ExportTest::ExportTo(std::string_view path) {
  return orv::ExportSceneRib(path, doc_, options_, reparameterize_, "", settings_, iprSettings_,
                             textures_);
}

std::string ExportTest::Rib() {
  EXPECT_EQ(ExportTo(folder_.File("scene.rib")), 1) << messages_;
  std::string rib = FileContent(folder_.Path() / "scene.rib");
  EXPECT_THAT(CheckRib(rib).Complaints, testing::IsEmpty());
  return rib;
}
