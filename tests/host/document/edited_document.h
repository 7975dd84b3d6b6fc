#pragma once

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

#include "host/archive/model.h"
#include "host/document/app.h"
#include "host/geometry/on_mesh.h"
#include "model_parts.h"

// A document to edit: layers "House", "Wall" below it and "Garden", the materials "brick" and
// "oak", a triangle on each layer, five units apart, and two point lights.
class EditedDocument : public testing::Test {
 protected:
  static constexpr int kHouse = 0;
  static constexpr int kWall = 1;
  static constexpr int kGarden = 2;

  EditedDocument() { doc_.SetModel(Model(), ""); }

  static ONX_Model Model() {
    ONX_Model model;
    model.m_layer_table = {Layer("House", TestId(1)), Layer("Wall", TestId(2), TestId(1)),
                           Layer("Garden", TestId(3))};
    for (const char* name : {"brick", "oak"}) {
      ON_Material material;
      material.m_name = name;
      material.m_id = TestId(static_cast<unsigned>(10 + model.m_material_table.size()));
      model.m_material_table.push_back(material);
    }
    for (unsigned i = 0; i < 3; ++i) {
      model.m_object_table.push_back(
          TriangleObject(TestId(20 + i), {5 * static_cast<float>(i), 0, 0}));
      model.m_object_table.back().m_attributes.m_layer_index = static_cast<int>(i);
    }
    model.m_light_table = {PointLight(TestId(30)), PointLight(TestId(31))};
    return model;
  }

  CRhinoObject& Object(std::size_t index) { return *doc_.Objects()[index]; }
  const ON_Light& Light(int index) {
    return *ON_Light::Cast(doc_.m_light_table.At(index)->Geometry());
  }
  ON_Layer LayerAt(int index) { return *doc_.m_layer_table.At(index); }

  void SetVisible(int layer, bool visible) {
    ON_Layer changed = LayerAt(layer);
    changed.m_visible = visible;
    EXPECT_TRUE(doc_.m_layer_table.ModifyLayer(changed, layer));
  }
  void Rename(int material, const std::string& name) {
    ON_Material changed = *doc_.m_material_table.At(material);
    changed.m_name = name;
    EXPECT_TRUE(doc_.m_material_table.ModifyMaterial(changed, material));
  }
  void Rename(CRhinoObject& object, const std::string& name) {
    ON_3dmObjectAttributes changed = object.Attributes();
    changed.m_name = name;
    EXPECT_TRUE(doc_.ModifyObjectAttributes(object, changed));
  }
  void SetIntensity(int light, double intensity) {
    ON_Light changed = Light(light);
    changed.m_intensity = intensity;
    EXPECT_TRUE(doc_.m_light_table.ModifyLight(changed, light));
  }
  std::vector<std::string> MaterialNames() {
    std::vector<std::string> names;
    for (const ON_Material& material : doc_.m_material_table) names.push_back(material.m_name);
    return names;
  }

  CRhinoDoc doc_;
};
