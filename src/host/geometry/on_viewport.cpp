#include "host/geometry/on_viewport.h"

#include <algorithm>
#include <cmath>

namespace {

// Half the width and height of the frustum at the near plane. Of an off-centre frustum the larger
// side counts.
struct HalfExtents {
  double width, height;
};

HalfExtents ExtentsOf(const ON_Viewport::Frustum& frustum) {
  return {std::max(-frustum.left, frustum.right), std::max(-frustum.bottom, frustum.top)};
}

// 0 where there is no distance to see an angle from.
double AngleOf(double extent, double distance) {
  return distance > 0 ? std::atan(extent / distance) : 0;
}

}  // namespace

double ON_Viewport::GetCameraAngle() const {
  const auto [width, height] = ExtentsOf(m_frustum);
  return AngleOf(std::min(width, height), m_frustum.near);
}

ON_Viewport::Angles ON_Viewport::GetHalfAngles() const {
  const auto [width, height] = ExtentsOf(m_frustum);
  const double near = m_frustum.near;
  return {AngleOf(std::hypot(width, height), near), AngleOf(height, near), AngleOf(width, near)};
}

// A picture on 35 mm film is 36 mm wide and 24 mm high: half of its smaller side, 12 mm, is to the
// lens length as the smaller half extent of the frustum is to the near distance. A two-point
// perspective, which the host measures across the wider side, is not told apart.
double ON_Viewport::Camera35mmLensLength() const {
  constexpr double kHalfFilmHeight = 12;
  const auto [width, height] = ExtentsOf(m_frustum);
  const double extent = std::min(width, height);
  return extent > 0 ? kHalfFilmHeight * m_frustum.near / extent : 0;
}

ON_Plane ON_Viewport::GetNearPlane() const {
  return {m_location + m_z * -m_frustum.near, m_x, m_y, m_z};
}

ON_Plane ON_Viewport::GetFarPlane() const {
  return {m_location + m_z * -m_frustum.far, m_x, m_y, m_z};
}

bool ON_Viewport::SetCameraFrame(ON_3dPoint location, ON_3dVector direction, ON_3dVector up) {
  constexpr double kParallel = 1e-10;
  const double directionLength = direction.Length();
  const double upLength = up.Length();
  if (!(directionLength > 0 && upLength > 0) || !std::isfinite(directionLength + upLength)) {
    return false;
  }
  const ON_3dVector z = direction * (-1 / directionLength);
  const ON_3dVector unitUp = up * (1 / upLength);
  const ON_3dVector above = unitUp - z * ON_DotProduct(unitUp, z);
  const double aboveLength = above.Length();
  if (!(aboveLength > kParallel)) return false;
  m_location = location;
  m_direction = direction;
  m_up = up;
  m_y = above * (1 / aboveLength);
  m_x = ON_CrossProduct(m_y, z);
  m_z = z;
  return true;
}
