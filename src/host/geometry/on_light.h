#pragma once

#include <string>

#include "host/geometry/on_color.h"
#include "host/geometry/on_object.h"
#include "host/geometry/on_uuid.h"

class ON_Light : public ON_Geometry {
 public:
  // The values are those of documents.
  enum class Style : int {
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

  static const ON_Light* Cast(const ON_Object* object);

  ON_ObjectType ObjectType() const override { return ON_ObjectType::light; }
  // The box of the location and, for a linear or rectangular light, of its far corners.
  ON_BoundingBox BoundingBox() const override;

  bool m_bOn = true;
  Style m_style = Style::unknown;
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
};
