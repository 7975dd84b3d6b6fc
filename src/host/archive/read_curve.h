#pragma once

#include <memory>

#include "host/archive/binary_archive.h"
#include "host/geometry/on_curve.h"

// Curves of every class that documents hold. What was read is valid: a curve that can't be
// evaluated, with a number that isn't one or parameters that don't increase, fails.

namespace host {

// How deep polycurves may stand in each other.
inline constexpr int kMaxCurveDepth = 32;

// True for the id of a class of curves that ReadCurveData reads.
[[nodiscard]] bool IsCurveClass(const ON_UUID& class_id);

// The data of a curve of that class, called with the class's data chunk open, at `depth` inside
// other curves. Null when it is broken; the archive then holds the reason.
[[nodiscard]] std::unique_ptr<ON_Curve> ReadCurveData(ON_BinaryArchive& archive,
                                                      const ON_UUID& class_id, int depth = 0);

// The next chunk, which wraps a curve that is a part of something else.
[[nodiscard]] std::unique_ptr<ON_Curve> ReadCurve(ON_BinaryArchive& archive, int depth = 0);

}  // namespace host
