#include "model_parts.h"

#include <gtest/gtest.h>

#include "host/geometry/on_mesh.h"

ON_UUID TestId(unsigned number) {
  ON_UUID id = "c0ffee00-0000-4000-8000-000000000000"_uuid;
  for (unsigned i = 0; i < 4; ++i) {
    id.bytes[12 + i] = static_cast<std::uint8_t>(number >> (24 - 8 * i));
  }
  return id;
}

ONX_ModelObject TriangleObject(const ON_UUID& id, ON_3fPoint corner) {
  auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_V = {corner, {corner.x + 1, corner.y, corner.z}, {corner.x, corner.y + 1, corner.z}};
  mesh->m_F = {{{0, 1, 2, 2}}};
  ONX_ModelObject object;
  object.m_attributes.m_uuid = id;
  object.m_geometry = std::move(mesh);
  object.m_object_type = static_cast<unsigned>(ON_ObjectType::mesh);
  return object;
}

ONX_ModelLight PointLight(const ON_UUID& id) {
  ONX_ModelLight light;
  light.m_light = std::make_shared<ON_Light>();
  light.m_light->m_style = ON_LightStyle::world_point;
  light.m_attributes.m_uuid = id;
  return light;
}

ON_Layer Layer(std::string_view name, const ON_UUID& id, const ON_UUID& parent_id) {
  ON_Layer layer;
  layer.m_name = name;
  layer.m_id = id;
  layer.m_parent_id = parent_id;
  return layer;
}

ON_3dmView View(std::string_view name, ON_Viewport::View projection, ON_3dPoint location) {
  ON_3dmView view;
  view.m_name = name;
  view.m_vp.m_projection = projection;
  const ON_3dPoint origin{0, 0, 0};
  const ON_3dVector direction = origin - location;
  const bool isVertical = direction.x == 0 && direction.y == 0;
  const ON_3dVector up = isVertical ? ON_3dVector{0, 1, 0} : ON_3dVector{0, 0, 1};
  EXPECT_TRUE(view.m_vp.SetCameraFrame(location, direction, up));
  view.m_vp.m_frustum = {-4, 4, -3, 3, 10, 1000};
  view.m_vp.m_port = {0, 800, 600, 0, 0, 1};
  return view;
}
