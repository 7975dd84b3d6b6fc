#pragma once

#include "host/geometry/on_object.h"
#include "host/geometry/on_uuid.h"
#include "host/geometry/on_xform.h"

// Where a block is placed.
class ON_InstanceRef : public ON_Geometry {
 public:
  static const ON_InstanceRef* Cast(const ON_Object* object);

  ON_ObjectType ObjectType() const override { return ON_ObjectType::instance_reference; }
  // As stored; often missing or wrong.
  ON_BoundingBox BoundingBox() const override { return m_bbox; }

  ON_UUID m_instance_definition_uuid;
  // From the definition's coordinates to those of the document or of the block around it.
  ON_Xform m_xform;
  ON_BoundingBox m_bbox;
};
