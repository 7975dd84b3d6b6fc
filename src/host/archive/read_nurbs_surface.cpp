#include "host/archive/chunk_scope.h"
#include "host/archive/read_nurbs.h"
#include "host/archive/read_surface_classes.h"

namespace host {
namespace {

constexpr std::string_view kWhat = "a NURBS surface";

struct NurbsHead {
  NurbsPoints points;
  std::array<std::int32_t, 2> order{};
  std::array<std::int32_t, 2> cv_count{};
};

bool ReadHead(ON_BinaryArchive& archive, NurbsHead& head) {
  // Nothing that is used, and a box.
  constexpr std::uint64_t kReservedSize = 8 + 6 * sizeof(double);
  return archive.ReadInt(&head.points.dimension) && archive.ReadInt(&head.points.is_rational) &&
         archive.ReadInt(&head.order[0]) && archive.ReadInt(&head.order[1]) &&
         archive.ReadInt(&head.cv_count[0]) && archive.ReadInt(&head.cv_count[1]) &&
         archive.Skip(kReservedSize) && CheckPoints(archive, head.points, kWhat) &&
         CheckOrder(archive, head.order[0], head.cv_count[0], kWhat) &&
         CheckOrder(archive, head.order[1], head.cv_count[1], kWhat);
}

}  // namespace

bool ReadNurbsSurface(ON_BinaryArchive& archive, ON_NurbsSurface& surface) {
  NurbsHead head;
  if (!ReadVersionOf(archive, 1, "a NURBS surface of an unknown version") ||
      !ReadHead(archive, head)) {
    return false;
  }
  for (const std::size_t i : {0U, 1U}) {
    if (!ReadKnots(archive, head.order[i], head.cv_count[i], kWhat, surface.m_knot[i])) {
      return false;
    }
  }
  const std::size_t count =
      static_cast<std::size_t>(head.cv_count[0]) * static_cast<std::size_t>(head.cv_count[1]);
  if (!ReadCVs(archive, head.points, count, kWhat, surface.m_cv)) return false;
  surface.m_order = head.order;
  surface.m_is_rat = head.points.is_rational != 0;
  return surface.IsValid() || archive.Fail("a NURBS surface that isn't valid");
}

}  // namespace host
