#pragma once

#include "host/document/doc.h"

// A document with one layer, a mesh on it, two materials and a rectangular light. Neither the mesh
// nor the layer has a material.
class AttributeDocument {
 public:
  AttributeDocument();

  // Takes the mesh's material from the document's material at `index`.
  void SetObjectMaterial(int index);

  CRhinoObject& Mesh() { return *Doc.Objects()[0]; }
  CRhinoObject& LightObject() { return *Doc.Lights()[0]; }
  const ON_Light& Light() { return *ON_Light::Cast(LightObject().Geometry()); }
  const ON_Material& Material(int index) { return *Doc.m_material_table.At(index); }
  const ON_Layer& Layer() { return *Doc.m_layer_table.At(0); }

  CRhinoDoc Doc;
};
