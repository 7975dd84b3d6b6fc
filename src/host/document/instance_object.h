#pragma once

#include <string>
#include <vector>

#include "host/document/object.h"
#include "host/geometry/on_instance_ref.h"
#include "host/geometry/on_xform.h"

// One object of a block where a placement shows it.
struct CRhinoInstanceObjectPiece {
  const CRhinoObject* m_object = nullptr;
  // From the place in the definition to the place in the document.
  ON_Xform m_xform;
};

// A placement of a block. Its geometry is an ON_InstanceRef.
class CRhinoInstanceObject : public CRhinoObject {
 public:
  using CRhinoObject::CRhinoObject;

  static const CRhinoInstanceObject* Cast(const CRhinoObject* object);

  // Null when the document doesn't have it.
  const ON_InstanceDefinition* InstanceDefinition() const;
  // Appends the objects that the placement shows, those of nested blocks with the whole transform:
  // hidden members and those on layers that are off are left out. False, with nothing appended,
  // when a block contains itself or nests too deep, or when the placement would show too many
  // objects; `problem` then says so in words.
  [[nodiscard]] bool Explode(std::vector<CRhinoInstanceObjectPiece>& pieces,
                             std::string& problem) const;
  // The box of what it shows, whatever box is stored.
  ON_BoundingBox BoundingBox() const override;

 private:
  const ON_InstanceRef& Reference() const;
  // The position of its definition; -1 when the document doesn't have it.
  int DefinitionIndex() const;
};
