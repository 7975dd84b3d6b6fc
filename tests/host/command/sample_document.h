#pragma once

#include "host/archive/model.h"
#include "host/geometry/on_mesh.h"
#include "host/geometry/on_point_cloud.h"

// A document for the tests of commands: meshes "Wall" (twice), "Roof" and a hidden "Cellar", a
// point "Mark", on the layers "Default", "House" and "House::Inner".
inline ONX_Model SampleModel() {
  ONX_Model model;
  model.m_3dm_file_version = 60;
  for (const char* name : {"Default", "House", "Inner"}) {
    ON_Layer layer;
    layer.m_name = name;
    layer.m_id.bytes[0] = static_cast<std::uint8_t>(model.m_layer_table.size() + 1);
    if (layer.m_name == "Inner") layer.m_parent_id = model.m_layer_table[1].m_id;
    model.m_layer_table.push_back(layer);
  }
  const auto add = [&model](const char* name, int layer, std::shared_ptr<ON_Geometry> geometry) {
    ONX_ModelObject object;
    object.m_attributes.m_name = name;
    object.m_attributes.m_layer_index = layer;
    object.m_attributes.m_uuid.bytes[15] =
        static_cast<std::uint8_t>(model.m_object_table.size() + 1);
    object.m_object_type = static_cast<unsigned>(geometry->ObjectType());
    object.m_geometry = std::move(geometry);
    model.m_object_table.push_back(std::move(object));
  };
  const auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_V.push_back({0, 0, 0});
  mesh->m_V.push_back({2, 0, 0});
  mesh->m_V.push_back({0, 3, 0});
  mesh->m_F.push_back({{0, 1, 2, 2}});
  add("Wall", 1, mesh);
  add("Wall", 2, mesh);
  add("Roof", 1, mesh);
  add("Cellar", 0, mesh);
  model.m_object_table.back().m_attributes.m_mode = ON_ObjectMode::hidden;
  add("Mark", 0, std::make_shared<ON_Point>());
  ON_3dmView named;
  named.m_name = "From the garden";
  model.m_settings.m_named_views.push_back(named);
  return model;
}
