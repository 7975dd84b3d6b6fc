#include "bake_fixture.h"

#include <utility>

std::shared_ptr<ON_Mesh> TexturedRectangle(float width, float height) {
  auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_V = {{0, 0, 0}, {width, 0, 0}, {width, height, 0}, {0, height, 0}};
  mesh->m_T = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
  mesh->m_F = {{{0, 1, 2, 3}}};
  return mesh;
}

ONX_ModelObject NumberedObject(std::shared_ptr<ON_Geometry> geometry, std::uint8_t number) {
  ONX_ModelObject object = ObjectOf(std::move(geometry));
  object.m_attributes.m_uuid = "00000000-0000-4000-8000-000000000000"_uuid;
  object.m_attributes.m_uuid.bytes[15] = number;
  return object;
}

std::string IdOf(std::uint8_t number) {
  return NumberedObject(nullptr, number).m_attributes.m_uuid.ToString();
}
