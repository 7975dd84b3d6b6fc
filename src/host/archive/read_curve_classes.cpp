#include "host/archive/read_curve_classes.h"

#include <array>

#include "host/archive/chunk_scope.h"
#include "host/archive/read_curve.h"
#include "host/geometry/on_parameters.h"

namespace host {
namespace {

bool ReadArc(ON_BinaryArchive& archive, ON_Arc& arc) {
  // Three points of the circle follow from the rest.
  constexpr std::uint64_t kPointsSize = 3 * sizeof(ON_3dPoint);
  return archive.ReadPlane(&arc.plane) && archive.ReadDouble(&arc.radius) &&
         archive.Skip(kPointsSize) && archive.ReadInterval(&arc.m_angle);
}

}  // namespace

bool ReadLineCurve(ON_BinaryArchive& archive, ON_LineCurve& curve) {
  if (!ReadVersionOf(archive, 1, "a line of an unknown version") ||
      !archive.ReadPoint(&curve.m_line.from) || !archive.ReadPoint(&curve.m_line.to) ||
      !archive.ReadInterval(&curve.m_t)) {
    return false;
  }
  return curve.IsValid() || archive.Fail("a line that isn't valid");
}

bool ReadArcCurve(ON_BinaryArchive& archive, ON_ArcCurve& curve) {
  if (!ReadVersionOf(archive, 1, "an arc of an unknown version") ||
      !ReadArc(archive, curve.m_arc) || !archive.ReadInterval(&curve.m_t)) {
    return false;
  }
  return curve.IsValid() || archive.Fail("an arc that isn't valid");
}

bool ReadPolylineCurve(ON_BinaryArchive& archive, ON_PolylineCurve& curve) {
  if (!ReadVersionOf(archive, 1, "a polyline of an unknown version") ||
      !ReadArray(archive, curve.m_pline) || !ReadArray(archive, curve.m_t)) {
    return false;
  }
  return curve.IsValid() || archive.Fail("a polyline that isn't valid");
}

bool ReadPolyCurve(ON_BinaryArchive& archive, int depth, ON_PolyCurve& curve) {
  // Nothing that is used, and a box.
  constexpr std::uint64_t kReservedSize = 8 + 6 * sizeof(double);
  std::size_t count = 0;
  if (!ReadVersionOf(archive, 1, "a polycurve of an unknown version") ||
      !archive.ReadCount(sizeof(double), &count) || !archive.Skip(kReservedSize) ||
      !ReadArray(archive, curve.m_t)) {
    return false;
  }
  if (count == 0) return archive.Fail("a polycurve without segments");
  if (curve.m_t.size() != count + 1 || !ON_AreIncreasing(curve.m_t)) {
    return archive.Fail("the parameters of a polycurve don't increase");
  }
  for (std::size_t i = 0; i < count; ++i) {
    std::unique_ptr<ON_Curve> segment = ReadCurve(archive, depth + 1);
    if (segment == nullptr) return archive.Fail("a segment of a polycurve is broken");
    curve.m_segment.push_back(std::move(segment));
  }
  return true;
}

}  // namespace host
