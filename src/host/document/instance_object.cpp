#include "host/document/instance_object.h"

#include "host/document/block_contents.h"
#include "host/document/doc.h"

const CRhinoInstanceObject* CRhinoInstanceObject::Cast(const CRhinoObject* object) {
  return dynamic_cast<const CRhinoInstanceObject*>(object);
}

int CRhinoInstanceObject::DefinitionIndex() const {
  return Document().Blocks().Find(Reference().m_instance_definition_uuid);
}

const ON_InstanceDefinition* CRhinoInstanceObject::InstanceDefinition() const {
  return Document().m_instance_definition_table.At(DefinitionIndex());
}

bool CRhinoInstanceObject::Explode(std::vector<CRhinoInstanceObjectPiece>& pieces,
                                   std::string& problem) const {
  const int definition = DefinitionIndex();
  if (definition < 0) return true;
  return Document().Blocks().Explode(definition, Reference().m_xform, pieces, problem);
}

ON_BoundingBox CRhinoInstanceObject::BoundingBox() const {
  const int definition = DefinitionIndex();
  if (definition < 0) return {};
  return Document().Blocks().BoxOf(definition).Transformed(Reference().m_xform);
}

const ON_InstanceRef& CRhinoInstanceObject::Reference() const {
  return static_cast<const ON_InstanceRef&>(*Geometry());
}
