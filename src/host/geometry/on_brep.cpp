#include "host/geometry/on_brep.h"

const ON_Brep* ON_Brep::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_Brep*>(object);
}

std::unique_ptr<ON_Brep> ON_Brep::BrepForm() const {
  return std::make_unique<ON_Brep>(*this);
}

ON_BoundingBox ON_Brep::BoundingBox() const {
  ON_BoundingBox box;
  for (const ON_BrepVertex& vertex : m_V) box.Include(vertex.point);
  for (const auto& curve : m_C3) box.Include(curve->BoundingBox());
  for (const auto& surface : m_S) box.Include(surface->BoundingBox());
  return box;
}

const ON_BrepFace* ON_Brep::Face(int face_index) const {
  const auto index = static_cast<std::size_t>(face_index);
  return face_index >= 0 && index < m_F.size() ? &m_F[index] : nullptr;
}
