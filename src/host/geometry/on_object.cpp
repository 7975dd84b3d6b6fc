#include "host/geometry/on_object.h"

#include "host/geometry/on_brep.h"

// Here, and not in the header, so that the class has one identity in all the program's modules.
ON_Object::~ON_Object() = default;
ON_Geometry::~ON_Geometry() = default;

std::unique_ptr<ON_Brep> ON_Geometry::BrepForm() const {
  return nullptr;
}
