#include "host/archive/chunk_scope.h"
#include "host/archive/read_curve_classes.h"
#include "host/archive/read_nurbs.h"

namespace host {
namespace {

constexpr std::string_view kWhat = "a NURBS curve";

struct NurbsHead {
  NurbsPoints points;
  std::int32_t order = 0;
  std::int32_t cv_count = 0;
};

bool ReadHead(ON_BinaryArchive& archive, NurbsHead& head) {
  // Nothing that is used, and a box.
  constexpr std::uint64_t kReservedSize = 8 + 6 * sizeof(double);
  return archive.ReadInt(&head.points.dimension) && archive.ReadInt(&head.points.is_rational) &&
         archive.ReadInt(&head.order) && archive.ReadInt(&head.cv_count) &&
         archive.Skip(kReservedSize) && CheckPoints(archive, head.points, kWhat) &&
         CheckOrder(archive, head.order, head.cv_count, kWhat);
}

}  // namespace

bool ReadNurbsCurve(ON_BinaryArchive& archive, ON_NurbsCurve& curve) {
  NurbsHead head;
  if (!ReadVersionOf(archive, 1, "a NURBS curve of an unknown version") ||
      !ReadHead(archive, head) ||
      !ReadKnots(archive, head.order, head.cv_count, kWhat, curve.m_knot) ||
      !ReadCVs(archive, head.points, static_cast<std::size_t>(head.cv_count), kWhat, curve.m_cv)) {
    return false;
  }
  curve.m_dim = head.points.dimension;
  curve.m_order = head.order;
  curve.m_is_rat = head.points.is_rational != 0;
  return curve.IsValid() || archive.Fail("a NURBS curve that isn't valid");
}

}  // namespace host
