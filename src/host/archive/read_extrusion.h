#pragma once

#include "host/archive/binary_archive.h"
#include "host/geometry/on_extrusion.h"

namespace host {

inline constexpr ON_UUID kExtrusionClass = "36f53175-72b8-4d47-bf1f-b4e6fc24f4b9"_uuid;

// An extrusion with its render mesh, called with the class's data chunk open. What was read is
// valid (ON_Extrusion::IsValid). A mesh that is broken is left out and told.
[[nodiscard]] bool ReadExtrusion(ON_BinaryArchive& archive, ON_Extrusion& extrusion);

}  // namespace host
