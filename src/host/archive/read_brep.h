#pragma once

#include "host/archive/binary_archive.h"
#include "host/geometry/on_brep.h"

// Breps of all versions. What was read is valid (ON_Brep::IsValid): a brep whose parts name others
// that aren't there, or whose loops are open, fails. A face whose surface or one of whose curves
// can't be used is left out and told; when none is left, the brep fails.

namespace host {

// True for the id of a class of breps that ReadBrep reads.
[[nodiscard]] bool IsBrepClass(const ON_UUID& class_id);

// Called with the class's data chunk open.
[[nodiscard]] bool ReadBrep(ON_BinaryArchive& archive, ON_Brep& brep);

}  // namespace host
