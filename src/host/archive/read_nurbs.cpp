#include "host/archive/read_nurbs.h"

#include <array>

#include "host/archive/chunk_scope.h"
#include "host/geometry/on_nurbs_span.h"

namespace host {
namespace {

bool Fail(ON_BinaryArchive& archive, std::string_view what, std::string_view trouble) {
  return archive.Fail(std::string(what).append(trouble));
}

}  // namespace

bool CheckPoints(ON_BinaryArchive& archive, const NurbsPoints& points, std::string_view what) {
  const bool is_known = points.dimension >= 1 && points.dimension <= 3;
  return is_known || Fail(archive, what, " of an unknown dimension");
}

bool CheckOrder(ON_BinaryArchive& archive, std::int32_t order, std::int32_t cv_count,
                std::string_view what) {
  if (order < 2 || order > kMaxNurbsOrder) {
    return Fail(archive, what, " of an order outside 2 to 32");
  }
  return cv_count >= order || Fail(archive, what, " with fewer control points than its order");
}

bool ReadKnots(ON_BinaryArchive& archive, std::int32_t order, std::int32_t cv_count,
               std::string_view what, ON_SimpleArray<double>& knots) {
  if (!ReadArray(archive, knots)) return false;
  const auto expected = static_cast<std::size_t>(order) + static_cast<std::size_t>(cv_count) - 2;
  return knots.size() == expected || Fail(archive, what, " has another number of knots");
}

bool ReadCVs(ON_BinaryArchive& archive, const NurbsPoints& points, std::size_t expected,
             std::string_view what, ON_SimpleArray<ON_4dPoint>& cvs) {
  const bool is_rational = points.is_rational != 0;
  const auto dimension = static_cast<std::size_t>(points.dimension);
  std::array<double, 4> cv{};
  const auto stored = std::span(cv).first(dimension + (is_rational ? 1 : 0));
  std::size_t count = 0;
  if (!archive.ReadCount(stored.size_bytes(), &count)) return false;
  if (count != expected) return Fail(archive, what, " has another number of control points");
  cvs.resize(count);
  for (ON_4dPoint& point : cvs) {
    if (!archive.ReadByte(std::as_writable_bytes(stored))) return false;
    const double weight = is_rational ? cv[dimension] : 1;
    point = {cv[0], dimension > 1 ? cv[1] : 0, dimension > 2 ? cv[2] : 0, weight};
  }
  return true;
}

}  // namespace host
