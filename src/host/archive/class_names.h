#pragma once

#include <string>

#include "host/geometry/on_uuid.h"

namespace host {

// What a class of a document is in words: "NURBS curve", "brep". The older ids of a class have the
// name of the newer ones. The text of the id for a class that isn't known.
std::string ClassName(const ON_UUID& class_id);

}  // namespace host
