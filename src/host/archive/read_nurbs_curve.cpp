#include <algorithm>
#include <array>

#include "host/archive/chunk_scope.h"
#include "host/archive/read_curve_classes.h"

namespace host {
namespace {

struct NurbsHead {
  std::int32_t dimension = 0;
  std::int32_t is_rational = 0;
  std::int32_t order = 0;
  std::int32_t cv_count = 0;
};

bool ReadHead(ON_BinaryArchive& archive, NurbsHead& head) {
  // Nothing that is used, and a box.
  constexpr std::uint64_t kReservedSize = 8 + 6 * sizeof(double);
  if (!archive.ReadInt(&head.dimension) || !archive.ReadInt(&head.is_rational) ||
      !archive.ReadInt(&head.order) || !archive.ReadInt(&head.cv_count) ||
      !archive.Skip(kReservedSize)) {
    return false;
  }
  if (head.dimension < 1 || head.dimension > 3) {
    return archive.Fail("a NURBS curve of an unknown dimension");
  }
  if (head.order < 2 || head.order > ON_NurbsCurve::kMaxOrder) {
    return archive.Fail("a NURBS curve of an order outside 2 to 32");
  }
  return head.cv_count >= head.order ||
         archive.Fail("a NURBS curve with fewer control points than its order");
}

bool ReadKnots(ON_BinaryArchive& archive, const NurbsHead& head, ON_SimpleArray<double>& knots) {
  if (!ReadArray(archive, knots)) return false;
  const auto expected =
      static_cast<std::size_t>(head.order) + static_cast<std::size_t>(head.cv_count) - 2;
  return knots.size() == expected || archive.Fail("a NURBS curve has another number of knots");
}

bool ReadCVs(ON_BinaryArchive& archive, const NurbsHead& head, ON_SimpleArray<ON_4dPoint>& cvs) {
  const bool is_rational = head.is_rational != 0;
  const auto dimension = static_cast<std::size_t>(head.dimension);
  std::array<double, 4> cv{};
  const auto stored = std::span(cv).first(dimension + (is_rational ? 1 : 0));
  std::size_t count = 0;
  if (!archive.ReadCount(stored.size_bytes(), &count)) return false;
  if (count != static_cast<std::size_t>(head.cv_count)) {
    return archive.Fail("a NURBS curve has another number of control points");
  }
  cvs.resize(count);
  for (ON_4dPoint& point : cvs) {
    if (!archive.ReadByte(std::as_writable_bytes(stored))) return false;
    const double weight = is_rational ? cv[dimension] : 1;
    point = {cv[0], dimension > 1 ? cv[1] : 0, dimension > 2 ? cv[2] : 0, weight};
  }
  return true;
}

}  // namespace

bool ReadNurbsCurve(ON_BinaryArchive& archive, ON_NurbsCurve& curve) {
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1) return archive.Fail("a NURBS curve of an unknown version");
  NurbsHead head;
  if (!ReadHead(archive, head) || !ReadKnots(archive, head, curve.m_knot) ||
      !ReadCVs(archive, head, curve.m_cv)) {
    return false;
  }
  curve.m_dim = head.dimension;
  curve.m_order = head.order;
  curve.m_is_rat = head.is_rational != 0;
  return curve.IsValid() || archive.Fail("a NURBS curve that isn't valid");
}

}  // namespace host
