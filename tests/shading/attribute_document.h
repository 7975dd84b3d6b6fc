#pragma once

#include "host/document/doc.h"

// A document with one layer, meshes on it, two materials and a rectangular light. Neither a mesh
// nor the layer has a material.
class AttributeDocument {
 public:
  explicit AttributeDocument(std::size_t meshes = 1);

  // Takes a mesh's material from the document's material at `index`.
  void SetObjectMaterial(int index, std::size_t mesh = 0);

  CRhinoObject& Mesh(std::size_t mesh = 0) { return *Doc.Objects()[mesh]; }
  CRhinoObject& LightObject() { return *Doc.Lights()[0]; }
  const ON_Light& Light() { return *ON_Light::Cast(LightObject().Geometry()); }
  const ON_Material& Material(int index) { return *Doc.m_material_table.At(index); }
  const ON_Layer& Layer() { return *Doc.m_layer_table.At(0); }

  CRhinoDoc Doc;
};
