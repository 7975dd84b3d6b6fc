#include "host/geometry/on_brep.h"

#include <algorithm>

const ON_Brep* ON_Brep::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_Brep*>(object);
}

std::unique_ptr<ON_Brep> ON_Brep::BrepForm() const {
  return std::make_unique<ON_Brep>(*this);
}

const ON_BrepFace* ON_Brep::Face(int face_index) const {
  const auto index = static_cast<std::size_t>(face_index);
  return face_index >= 0 && index < m_F.size() ? &m_F[index] : nullptr;
}

bool ON_Brep::IsSurface() const {
  return m_F.size() == 1 && FaceIsSurface(0);
}

bool ON_Brep::FaceIsSurface(int face_index) const {
  const ON_BrepFace* face = Face(face_index);
  if (face == nullptr || face->m_li.size() != 1) return false;
  const std::vector<int>& trims = m_L[static_cast<std::size_t>(face->m_li[0])].m_ti;
  const auto is_side = [this](int index) {
    return m_T[static_cast<std::size_t>(index)].m_iso >= ON_BrepTrim::Iso::west;
  };
  return !trims.empty() && std::all_of(trims.begin(), trims.end(), is_side);
}

int ON_Brep::GetMesh(MeshType type, std::vector<std::shared_ptr<const ON_Mesh>>& meshes) const {
  int count = 0;
  for (const ON_BrepFace& face : m_F) {
    const auto& mesh = type == MeshType::render ? face.m_render_mesh : face.m_analysis_mesh;
    if (mesh == nullptr) continue;
    meshes.push_back(mesh);
    ++count;
  }
  return count;
}
