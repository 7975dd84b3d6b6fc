#include "host/archive/read_surface_classes.h"

#include "host/archive/chunk_scope.h"
#include "host/archive/read_curve.h"

namespace host {
namespace {

constexpr std::uint64_t kBoxSize = 6 * sizeof(double);

bool ReadLine(ON_BinaryArchive& archive, ON_Line& line) {
  return archive.ReadPoint(&line.from) && archive.ReadPoint(&line.to);
}

}  // namespace

bool ReadPlaneSurface(ON_BinaryArchive& archive, ON_PlaneSurface& surface) {
  int minor = 0;
  if (!ReadVersionOf(archive, 1, "a plane surface of an unknown version", &minor) ||
      !archive.ReadPlane(&surface.m_plane) || !archive.ReadInterval(&surface.m_domain[0]) ||
      !archive.ReadInterval(&surface.m_domain[1])) {
    return false;
  }
  // In the older form the ranges of the parameters are the rectangle's sides as well.
  ON_Interval* const sides = surface.m_extents;
  sides[0] = surface.m_domain[0];
  sides[1] = surface.m_domain[1];
  return minor < 1 || (archive.ReadInterval(&sides[0]) && archive.ReadInterval(&sides[1]));
}

bool ReadRevSurface(ON_BinaryArchive& archive, ON_RevSurface& surface) {
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1 && major != 2) {
    return archive.Fail("a surface of revolution of an unknown version");
  }
  std::int32_t is_transposed = 0;
  bool has_curve = false;
  if (!ReadLine(archive, surface.m_axis) || !archive.ReadInterval(&surface.m_angle)) return false;
  // In the older form the angle is the parameter.
  surface.m_t = surface.m_angle;
  if ((major == 2 && !archive.ReadInterval(&surface.m_t)) || !archive.Skip(kBoxSize) ||
      !archive.ReadInt(&is_transposed) || !archive.ReadBool(&has_curve)) {
    return false;
  }
  if (!has_curve) return archive.Fail("a surface of revolution without a curve");
  surface.m_bTransposed = is_transposed != 0;
  surface.m_curve = ReadCurve(archive);
  if (surface.m_curve == nullptr) return false;
  return surface.IsValid() || archive.Fail("a surface of revolution that isn't valid");
}

bool ReadSumSurface(ON_BinaryArchive& archive, ON_SumSurface& surface) {
  if (!ReadVersionOf(archive, 1, "a sum surface of an unknown version") ||
      !archive.ReadVector(&surface.m_basepoint) || !archive.Skip(kBoxSize)) {
    return false;
  }
  for (auto& curve : surface.m_curve) {
    curve = ReadCurve(archive);
    if (curve == nullptr) return false;
  }
  return surface.IsValid() || archive.Fail("a sum surface that isn't valid");
}

}  // namespace host
