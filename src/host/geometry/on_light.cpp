#include "host/geometry/on_light.h"

#include <algorithm>
#include <cmath>
#include <numbers>

const ON_Light* ON_Light::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_Light*>(object);
}

ON_BoundingBox ON_Light::BoundingBox() const {
  ON_BoundingBox box;
  box.Include(m_location);
  if (m_style == ON_LightStyle::world_linear || m_style == ON_LightStyle::world_rectangular) {
    box.Include(m_location + m_length);
  }
  if (m_style == ON_LightStyle::world_rectangular) {
    box.Include(m_location + m_width);
    box.Include(m_location + m_length + m_width);
  }
  return box;
}

bool ON_Light::IsSpotLight() const {
  return m_style == ON_LightStyle::world_spot || m_style == ON_LightStyle::camera_spot;
}

double ON_Light::SpotAngleRadians() const {
  return m_spot_angle * std::numbers::pi / 180;
}

double ON_Light::SpotExponent() const {
  constexpr double kLeastHotSpot = 0.015;
  constexpr double kGreatestExponent = 1e30;
  if (!(m_hotspot >= 0 && m_hotspot <= 1)) return m_spot_exponent;
  if (m_hotspot >= 1 || !(m_spot_angle > 0) || m_spot_angle > 90) return 0;
  // The cosine of a narrow hot spot is too near to 1 for its logarithm, so this goes by how much it
  // is less than 1.
  const double halfSine = std::sin(std::max(m_hotspot, kLeastHotSpot) * SpotAngleRadians() / 2);
  const double missing = 2 * halfSine * halfSine;
  if (missing >= 1) return 1;
  const double exponent = std::log(std::numbers::sqrt2 / 2) / std::log1p(-missing);
  return std::min(exponent, kGreatestExponent);
}
