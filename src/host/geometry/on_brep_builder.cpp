#include "host/geometry/on_brep_builder.h"

int ON_BrepBuilder::AddVertex(ON_3dPoint p) {
  ON_BrepVertex& vertex = brep_->m_V.emplace_back();
  vertex.point = p;
  vertex.m_tolerance = 0;
  return static_cast<int>(brep_->m_V.size()) - 1;
}

int ON_BrepBuilder::AddEdge(std::shared_ptr<const ON_Curve> curve, int from, int to) {
  const int index = static_cast<int>(brep_->m_E.size());
  ON_BrepEdge& edge = brep_->m_E.emplace_back();
  edge.m_c3i = static_cast<int>(brep_->m_C3.size());
  edge.m_domain = curve->Domain();
  edge.m_vi = {from, to};
  edge.m_tolerance = 0;
  for (const int vertex : edge.m_vi) {
    brep_->m_V[static_cast<std::size_t>(vertex)].m_ei.push_back(index);
  }
  brep_->m_C3.push_back(std::move(curve));
  return index;
}

void ON_BrepBuilder::AddFace(std::shared_ptr<const ON_Surface> surface, bool is_reversed) {
  ON_BrepFace& face = brep_->m_F.emplace_back();
  face.m_si = static_cast<int>(brep_->m_S.size());
  face.m_bRev = is_reversed;
  brep_->m_S.push_back(std::move(surface));
}

void ON_BrepBuilder::AddLoop(ON_BrepLoop::Type type) {
  brep_->m_F.back().m_li.push_back(static_cast<int>(brep_->m_L.size()));
  ON_BrepLoop& loop = brep_->m_L.emplace_back();
  loop.m_type = type;
  loop.m_fi = static_cast<int>(brep_->m_F.size()) - 1;
}

void ON_BrepBuilder::AddTrim(std::shared_ptr<const ON_Curve> curve, int edge, bool is_reversed,
                             ON_BrepTrim::Iso iso) {
  const int index = static_cast<int>(brep_->m_T.size());
  ON_BrepEdge& its_edge = brep_->m_E[static_cast<std::size_t>(edge)];
  ON_BrepTrim& trim = brep_->m_T.emplace_back();
  trim.m_c2i = static_cast<int>(brep_->m_C2.size());
  trim.m_domain = curve->Domain();
  trim.m_ei = edge;
  trim.m_vi = its_edge.m_vi;
  if (is_reversed) std::swap(trim.m_vi[0], trim.m_vi[1]);
  trim.m_bRev3d = is_reversed;
  trim.m_iso = iso;
  trim.m_li = static_cast<int>(brep_->m_L.size()) - 1;
  trim.m_tolerance = {0, 0};
  its_edge.m_ti.push_back(index);
  brep_->m_L.back().m_ti.push_back(index);
  brep_->m_C2.push_back(std::move(curve));
}

std::unique_ptr<ON_Brep> ON_BrepBuilder::Finish() {
  const auto loop_of = [this](int trim) { return brep_->m_T[static_cast<std::size_t>(trim)].m_li; };
  for (ON_BrepTrim& trim : brep_->m_T) {
    const std::vector<int>& trims = brep_->m_E[static_cast<std::size_t>(trim.m_ei)].m_ti;
    const bool is_seam = trims.size() == 2 && loop_of(trims[0]) == loop_of(trims[1]);
    trim.m_type = is_seam             ? ON_BrepTrim::Type::seam
                  : trims.size() == 1 ? ON_BrepTrim::Type::boundary
                                      : ON_BrepTrim::Type::mated;
  }
  return std::move(brep_);
}
