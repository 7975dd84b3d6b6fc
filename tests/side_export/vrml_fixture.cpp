#include "vrml_fixture.h"

#include <gmock/gmock.h>

#include <utility>

#include "host/document/app.h"
#include "host/system/interrupt.h"
#include "vrml_checker.h"

std::shared_ptr<ON_Mesh> TexturedRectangle(float width, float height) {
  auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_V = {{0, 0, 0}, {width, 0, 0}, {width, height, 0}, {0, height, 0}};
  mesh->m_T = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
  mesh->m_F = {{{0, 1, 2, 3}}};
  return mesh;
}

ONX_ModelObject NamedObject(std::shared_ptr<ON_Geometry> geometry, std::uint8_t number) {
  ONX_ModelObject object;
  object.m_geometry = std::move(geometry);
  object.m_attributes.m_uuid = "00000000-0000-4000-8000-000000000000"_uuid;
  object.m_attributes.m_uuid.bytes[15] = number;
  return object;
}

ON_3dmView PerspectiveView(const std::string& name, ON_3dPoint location, ON_3dPoint target,
                           double across, double up) {
  ON_3dmView view;
  view.m_name = name;
  view.m_target = target;
  view.m_vp.m_projection = ON_Viewport::View::perspective;
  const ON_3dVector direction = target - location;
  const bool isUpright = direction.x == 0 && direction.y == 0;
  EXPECT_TRUE(view.m_vp.SetCameraFrame(location, direction,
                                       isUpright ? ON_3dVector{0, 1, 0} : ON_3dVector{0, 0, 1}));
  view.m_vp.m_frustum = {
      .left = -across, .right = across, .bottom = -up, .top = up, .near = 1, .far = 1000};
  view.m_vp.m_port = {.left = 0, .right = 400, .bottom = 200, .top = 0};
  return view;
}

VrmlTest::VrmlTest() {
  RhinoApp().CommandWindow().SetSink([this](std::string_view text) { messages_ += text; });
  ON_3dmView plan;
  plan.m_name = "Plan";
  plan.m_vp.m_port = {.left = 0, .right = 400, .bottom = 200, .top = 0};
  model_.m_settings.m_views = {plan};
}

VrmlTest::~VrmlTest() {
  RhinoApp().CommandWindow().SetSink({});
  host::ClearInterrupt();
}

std::string VrmlTest::Vrml() {
  EXPECT_EQ(ExportTo(folder_.File("scene.wrl")), CommandResult::success) << messages_;
  std::string vrml = FileContent(folder_.File("scene.wrl"));
  EXPECT_THAT(CheckVrml(vrml).complaints, testing::IsEmpty());
  return vrml;
}
