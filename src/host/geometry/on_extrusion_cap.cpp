#include "host/geometry/on_extrusion_cap.h"

#include <algorithm>

namespace {

using Iso = ON_BrepTrim::Iso;

// A size that counts as none, and one that doesn't, for a trim that runs along an axis.
constexpr double kNoSize = 2.3283064365386963e-10;
constexpr double kSomeSize = 1000 * kNoSize;

// True for the box of a trim that runs along an axis.
bool RunsAlongAxis(const ON_BoundingBox& box) {
  const double x = box.m_max.x - box.m_min.x, y = box.m_max.y - box.m_min.y;
  return (x <= kNoSize && y > kSomeSize) || (y <= kNoSize && x > kSomeSize);
}

}  // namespace

ON_BoundingBox ON_CapRectangle(std::span<const ON_BoundingBox> outer_trims) {
  constexpr double kGrowth = 0.125;
  ON_BoundingBox box;
  for (const ON_BoundingBox& trim : outer_trims) box.Include(trim);
  if (std::all_of(outer_trims.begin(), outer_trims.end(), RunsAlongAxis)) return box;
  const double x = kGrowth * (box.m_max.x - box.m_min.x);
  const double y = kGrowth * (box.m_max.y - box.m_min.y);
  return {{box.m_min.x - x, box.m_min.y - y, 0}, {box.m_max.x + x, box.m_max.y + y, 0}};
}

ON_BrepTrim::Iso ON_IsoInRectangle(const ON_BoundingBox& trim, const ON_BoundingBox& rectangle) {
  const auto are_equal = [](double a, double b) { return std::abs(a - b) <= kNoSize; };
  if (!RunsAlongAxis(trim)) return Iso::none;
  if (trim.m_max.x - trim.m_min.x <= kNoSize) {
    if (are_equal(trim.m_min.x, rectangle.m_min.x)) return Iso::west;
    return are_equal(trim.m_max.x, rectangle.m_max.x) ? Iso::east : Iso::x;
  }
  if (are_equal(trim.m_min.y, rectangle.m_min.y)) return Iso::south;
  return are_equal(trim.m_max.y, rectangle.m_max.y) ? Iso::north : Iso::y;
}
