#include "host/geometry/on_light.h"

const ON_Light* ON_Light::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_Light*>(object);
}

ON_BoundingBox ON_Light::BoundingBox() const {
  ON_BoundingBox box;
  box.Include(m_location);
  if (m_style == Style::world_linear || m_style == Style::world_rectangular) {
    box.Include(m_location + m_length);
  }
  if (m_style == Style::world_rectangular) {
    box.Include(m_location + m_width);
    box.Include(m_location + m_length + m_width);
  }
  return box;
}
