#pragma once

#include <memory>

#include "host/archive/binary_archive.h"
#include "host/geometry/on_surface.h"

// Surfaces of every class that documents hold. What was read is valid: a surface that can't be
// evaluated, with a number that isn't one or knots that don't increase, fails.

namespace host {

// True for the id of a class of surfaces that ReadSurfaceData reads.
[[nodiscard]] bool IsSurfaceClass(const ON_UUID& class_id);

// The data of a surface of that class, called with the class's data chunk open. Null when it is
// broken; the archive then holds the reason.
[[nodiscard]] std::unique_ptr<ON_Surface> ReadSurfaceData(ON_BinaryArchive& archive,
                                                          const ON_UUID& class_id);

// The next chunk, which wraps a surface that is a part of something else.
[[nodiscard]] std::unique_ptr<ON_Surface> ReadSurface(ON_BinaryArchive& archive);

}  // namespace host
