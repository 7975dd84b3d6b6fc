#pragma once

#include "host/archive/binary_archive.h"
#include "host/geometry/on_object_attributes.h"

namespace host {

// The attributes of an object or a light, called with their chunk open. Both forms: fixed fields
// (up to version 4) and tagged items.
[[nodiscard]] bool ReadAttributes(ON_BinaryArchive& archive, ON_3dmObjectAttributes& attributes);

}  // namespace host
