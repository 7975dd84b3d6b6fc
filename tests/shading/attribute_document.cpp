#include "attribute_document.h"

#include <gtest/gtest.h>

#include "host/geometry/on_mesh.h"

AttributeDocument::AttributeDocument(std::size_t meshes) {
  ONX_Model model;
  model.m_layer_table.resize(1);
  model.m_material_table.resize(2);
  auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_V = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
  mesh->m_F = {{{0, 1, 2, 2}}};
  model.m_object_table.resize(meshes);
  for (ONX_ModelObject& object : model.m_object_table) object.m_geometry = mesh;
  model.m_light_table.resize(1);
  model.m_light_table[0].m_light = std::make_shared<ON_Light>();
  model.m_light_table[0].m_light->m_style = ON_LightStyle::world_rectangular;
  Doc.SetModel(std::move(model), "");
}

void AttributeDocument::SetObjectMaterial(int index, std::size_t mesh) {
  ON_3dmObjectAttributes attributes = Mesh(mesh).Attributes();
  attributes.m_material_source = ON_AttributeSource::object;
  attributes.m_material_index = index;
  ASSERT_TRUE(Doc.ModifyObjectAttributes(Mesh(mesh), attributes));
}
