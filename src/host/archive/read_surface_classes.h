#pragma once

#include "host/archive/binary_archive.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_plane_surface.h"
#include "host/geometry/on_rev_surface.h"
#include "host/geometry/on_sum_surface.h"

// The data of each class of surfaces, from its version on: called with the class's data chunk open,
// or where older breps hold it without a wrapper. A success is a valid surface.

namespace host {

[[nodiscard]] bool ReadNurbsSurface(ON_BinaryArchive& archive, ON_NurbsSurface& surface);
[[nodiscard]] bool ReadRevSurface(ON_BinaryArchive& archive, ON_RevSurface& surface);
[[nodiscard]] bool ReadSumSurface(ON_BinaryArchive& archive, ON_SumSurface& surface);
// Plane, domain and sides as they are stored. Unlike the others it may be without extent: that of a
// clipping plane doesn't count.
[[nodiscard]] bool ReadPlaneSurface(ON_BinaryArchive& archive, ON_PlaneSurface& surface);

}  // namespace host
