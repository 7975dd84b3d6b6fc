#include "host/geometry/on_bounding_box.h"

#include <algorithm>
#include <cmath>

namespace {

bool IsFinite(ON_3dPoint p) {
  return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

}  // namespace

bool ON_BoundingBox::IsValid() const {
  return m_min.x <= m_max.x && m_min.y <= m_max.y && m_min.z <= m_max.z && IsFinite(m_min) &&
         IsFinite(m_max);
}

std::array<ON_3dPoint, 8> ON_BoundingBox::GetCorners() const {
  std::array<ON_3dPoint, 8> corners{};
  for (std::size_t i = 0; i < corners.size(); ++i) {
    corners[i] = {(i & 1) != 0 ? m_max.x : m_min.x, (i & 2) != 0 ? m_max.y : m_min.y,
                  (i & 4) != 0 ? m_max.z : m_min.z};
  }
  return corners;
}

void ON_BoundingBox::Include(ON_3dPoint p) {
  if (!IsFinite(p)) return;
  if (!IsValid()) {
    m_min = m_max = p;
    return;
  }
  m_min = {std::min(m_min.x, p.x), std::min(m_min.y, p.y), std::min(m_min.z, p.z)};
  m_max = {std::max(m_max.x, p.x), std::max(m_max.y, p.y), std::max(m_max.z, p.z)};
}

void ON_BoundingBox::Include(const ON_BoundingBox& box) {
  if (!box.IsValid()) return;
  Include(box.m_min);
  Include(box.m_max);
}

ON_BoundingBox ON_BoundingBox::Transformed(const ON_Xform& xform) const {
  ON_BoundingBox box;
  if (!IsValid()) return box;
  for (const ON_3dPoint& corner : GetCorners()) box.Include(xform * corner);
  return box;
}
