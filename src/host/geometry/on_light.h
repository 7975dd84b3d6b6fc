#pragma once

#include <string>

#include "host/geometry/on_color.h"
#include "host/geometry/on_object.h"
#include "host/geometry/on_uuid.h"

// Kinds of lights; the values are those of documents. A camera's light moves with the view.
enum class ON_LightStyle : int {
  unknown = 0,
  camera_directional = 4,
  camera_point = 5,
  camera_spot = 6,
  world_directional = 7,
  world_point = 8,
  world_spot = 9,
  ambient = 10,
  world_linear = 11,
  world_rectangular = 12,
};

class ON_Light : public ON_Geometry {
 public:
  static const ON_Light* Cast(const ON_Object* object);

  ON_ObjectType ObjectType() const override { return ON_ObjectType::light; }
  // The box of the location and, for a linear or rectangular light, of its far corners.
  ON_BoundingBox BoundingBox() const override;

  bool IsEnabled() const { return m_bOn; }
  void Enable(bool enable) { m_bOn = enable; }
  ON_LightStyle Style() const { return m_style; }
  bool IsSpotLight() const;
  // In world coordinates; the corner of a rectangular light.
  const ON_3dPoint& Location() const { return m_location; }
  const ON_3dVector& Direction() const { return m_direction; }
  // The edges of a rectangular light from its corner; the length is also that of a linear one.
  const ON_3dVector& Length() const { return m_length; }
  const ON_3dVector& Width() const { return m_width; }
  ON_Color Diffuse() const { return m_diffuse; }
  void SetDiffuse(ON_Color diffuse) { m_diffuse = diffuse; }
  // 0 no shadow to 1.
  double ShadowIntensity() const { return m_shadow_intensity; }
  void SetShadowIntensity(double intensity) { m_shadow_intensity = intensity; }
  // Half angle of a spot.
  double SpotAngleRadians() const;
  // How fast a spot's light fades off its axis. A light with a hot spot h (a fraction of the spot's
  // angle a) gives the exponent e for which cos(h a)^e is the square root of a half; h counts as at
  // least 0.015, and e as at most 1e30. A hot spot as wide as the spot gives 0.
  double SpotExponent() const;
  // The position in the document's light table; -1 for a light that is in none.
  int LightIndex() const { return m_light_index; }

  bool m_bOn = true;
  ON_LightStyle m_style = ON_LightStyle::unknown;
  double m_intensity = 1;
  double m_watts = 0;
  ON_Color m_ambient{0, 0, 0};
  ON_Color m_diffuse{255, 255, 255};
  ON_Color m_specular{255, 255, 255};
  // Not of unit length: a spot light's is the height of its cone.
  ON_3dVector m_direction{0, 0, -1};
  ON_3dPoint m_location{0, 0, 0};
  // Half angle of a spot in degrees; 180 for a light that is none.
  double m_spot_angle = 180;
  double m_spot_exponent = 0;
  double m_hotspot = ON_UNSET_VALUE;
  ON_3dVector m_attenuation{1, 0, 0};
  double m_shadow_intensity = 1;
  ON_3dVector m_length{1, 0, 0};
  ON_3dVector m_width{0, 1, 0};
  ON_UUID m_light_id;
  std::string m_light_name;
  // Set by the document's light table.
  int m_light_index = -1;
};
