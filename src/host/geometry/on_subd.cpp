#include "host/geometry/on_subd.h"

#include <algorithm>

const ON_SubD* ON_SubD::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_SubD*>(object);
}

ON_BoundingBox ON_SubD::BoundingBox() const {
  ON_BoundingBox box;
  for (const ON_SubDVertex& vertex : m_vertex) box.Include(vertex.m_P);
  return box;
}

bool ON_SubD::IsValid() const {
  const auto is_there = [this](int vi) { return vi >= 0 && vi < VertexCount(); };
  const auto is_valid_edge = [&](const ON_SubDEdge& e) {
    return is_there(e.m_vi[0]) && is_there(e.m_vi[1]) && e.m_vi[0] != e.m_vi[1] &&
           ON_IsValid(e.m_sharpness[0]) && ON_IsValid(e.m_sharpness[1]);
  };
  const auto is_valid_face = [&](const ON_SubDFace& f) {
    return f.m_vi.size() >= 3 && std::all_of(f.m_vi.begin(), f.m_vi.end(), is_there);
  };
  return std::all_of(m_vertex.begin(), m_vertex.end(),
                     [](const ON_SubDVertex& v) { return v.m_P.IsValid(); }) &&
         std::all_of(m_edge.begin(), m_edge.end(), is_valid_edge) &&
         std::all_of(m_face.begin(), m_face.end(), is_valid_face);
}
