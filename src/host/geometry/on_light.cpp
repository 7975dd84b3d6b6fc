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

bool ON_Light::IsDirectionalLight() const {
  return m_style == ON_LightStyle::world_directional ||
         m_style == ON_LightStyle::camera_directional;
}

bool ON_Light::IsPointLight() const {
  return m_style == ON_LightStyle::world_point || m_style == ON_LightStyle::camera_point;
}

bool ON_Light::IsSpotLight() const {
  return m_style == ON_LightStyle::world_spot || m_style == ON_LightStyle::camera_spot;
}

double ON_Light::SpotAngleRadians() const {
  return m_spot_angle * std::numbers::pi / 180;
}

double ON_Light::SpotExponent() const {
  constexpr double kLeastHotSpot = 0.015;
  if (!(m_hotspot >= 0 && m_hotspot <= 1)) return m_spot_exponent;
  if (m_hotspot >= 1 || !(m_spot_angle > 0) || m_spot_angle > 90) return 0;
  const double cosine = std::cos(std::max(m_hotspot, kLeastHotSpot) * SpotAngleRadians());
  if (cosine <= 0) return 1;
  return std::max(0.0, std::log(std::numbers::sqrt2 / 2) / std::log(cosine));
}
