#include <algorithm>

#include "host/geometry/on_brep.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_surface.h"

namespace {

using Iso = ON_BrepTrim::Iso;
using Side = ON_Surface::Side;

// The sides of the domain in the order of the boundary. A side leads from the corner of the same
// number to the next one; the corners are counted from the south-west.
struct SideRow {
  Side side;
  Iso iso;
  // Which parameter runs along it, and whether it increases.
  int direction;
  bool is_forward;
};
constexpr std::array<SideRow, 4> kSides{{
    {Side::south, Iso::south, 0, true},
    {Side::east, Iso::east, 1, true},
    {Side::north, Iso::north, 0, false},
    {Side::west, Iso::west, 1, false},
}};

// Makes a brep of one face of a surface.
class FaceBuilder {
 public:
  FaceBuilder(const ON_Surface& surface, const ON_NurbsSurface& form);
  std::unique_ptr<ON_Brep> Build();

 private:
  void JoinCorners();
  void AddVertices();
  bool AddTrim(std::size_t side);
  bool AddEdge(std::size_t side);
  bool IsSeam(std::size_t side) const { return is_closed_[1 - kSides[side].direction]; }
  int VertexAt(std::size_t corner) const { return vertex_[corner % 4]; }

  const ON_Surface& surface_;
  const ON_NurbsSurface& form_;
  bool is_closed_[2];
  bool is_singular_[4];
  std::array<ON_2dPoint, 4> corner_;
  // For each corner the first one that is the same point; then the vertex.
  std::array<std::size_t, 4> same_{0, 1, 2, 3};
  std::array<int, 4> vertex_{};
  std::unique_ptr<ON_Brep> brep_ = std::make_unique<ON_Brep>();
};

FaceBuilder::FaceBuilder(const ON_Surface& surface, const ON_NurbsSurface& form)
    : surface_(surface), form_(form) {
  const ON_Interval u = surface.Domain(0), v = surface.Domain(1);
  corner_ = {{{u.Min, v.Min}, {u.Max, v.Min}, {u.Max, v.Max}, {u.Min, v.Max}}};
  for (std::size_t i = 0; i < 4; ++i) is_singular_[i] = surface.IsSingular(kSides[i].side);
  for (const int direction : {0, 1}) is_closed_[direction] = surface.IsClosed(direction);
}

void FaceBuilder::JoinCorners() {
  const auto join = [this](std::size_t a, std::size_t b) {
    const std::size_t from = std::max(same_[a], same_[b]), to = std::min(same_[a], same_[b]);
    std::replace(same_.begin(), same_.end(), from, to);
  };
  for (std::size_t i = 0; i < 4; ++i) {
    if (is_singular_[i]) join(i, (i + 1) % 4);
  }
  if (is_closed_[0]) join(0, 1), join(3, 2);
  if (is_closed_[1]) join(0, 3), join(1, 2);
}

void FaceBuilder::AddVertices() {
  for (std::size_t i = 0; i < 4; ++i) {
    if (same_[i] != i) {
      vertex_[i] = vertex_[same_[i]];
      continue;
    }
    vertex_[i] = static_cast<int>(brep_->m_V.size());
    ON_BrepVertex& vertex = brep_->m_V.emplace_back();
    vertex.point = surface_.PointAt(corner_[i].x, corner_[i].y);
    vertex.m_tolerance = 0;
  }
}

// Adds the edge of a side, which runs as its trim does.
bool FaceBuilder::AddEdge(std::size_t side) {
  const auto& [unused, iso, direction, is_forward] = kSides[side];
  const ON_2dPoint& corner = corner_[side];
  auto curve = std::make_shared<ON_NurbsCurve>(
      form_.IsoCurve(direction, direction == 0 ? corner.y : corner.x));
  if (!curve->IsValid()) return false;
  if (!is_forward) curve->Reverse();
  const int index = static_cast<int>(brep_->m_E.size());
  ON_BrepEdge& edge = brep_->m_E.emplace_back();
  edge.m_c3i = static_cast<int>(brep_->m_C3.size());
  edge.m_domain = curve->Domain();
  edge.m_vi = {VertexAt(side), VertexAt(side + 1)};
  edge.m_tolerance = 0;
  for (const int vertex : edge.m_vi) {
    brep_->m_V[static_cast<std::size_t>(vertex)].m_ei.push_back(index);
  }
  brep_->m_C3.push_back(std::move(curve));
  return true;
}

bool FaceBuilder::AddTrim(std::size_t side) {
  const ON_2dPoint &from = corner_[side], &to = corner_[(side + 1) % 4];
  auto line = std::make_shared<ON_LineCurve>();
  line->m_line = {{from.x, from.y, 0}, {to.x, to.y, 0}};
  line->m_t = surface_.Domain(kSides[side].direction);
  ON_BrepTrim trim;
  trim.m_c2i = static_cast<int>(brep_->m_C2.size());
  trim.m_domain = line->m_t;
  trim.m_vi = {VertexAt(side), VertexAt(side + 1)};
  trim.m_iso = kSides[side].iso;
  trim.m_li = 0;
  trim.m_tolerance = {0, 0};
  brep_->m_C2.push_back(std::move(line));
  if (is_singular_[side]) {
    trim.m_type = ON_BrepTrim::Type::singular;
  } else {
    // The second side of a seam runs against the edge that the first one has made.
    trim.m_type = IsSeam(side) ? ON_BrepTrim::Type::seam : ON_BrepTrim::Type::boundary;
    trim.m_bRev3d = IsSeam(side) && side >= 2;
    if (!trim.m_bRev3d && !AddEdge(side)) return false;
    trim.m_ei = trim.m_bRev3d ? brep_->m_T[side - 2].m_ei : static_cast<int>(brep_->m_E.size()) - 1;
    brep_->m_E[static_cast<std::size_t>(trim.m_ei)].m_ti.push_back(static_cast<int>(side));
  }
  brep_->m_T.push_back(trim);
  return true;
}

std::unique_ptr<ON_Brep> FaceBuilder::Build() {
  JoinCorners();
  AddVertices();
  for (std::size_t side = 0; side < 4; ++side) {
    if (!AddTrim(side)) return nullptr;
  }
  ON_BrepLoop& loop = brep_->m_L.emplace_back();
  loop.m_ti = {0, 1, 2, 3};
  loop.m_type = ON_BrepLoop::Type::outer;
  loop.m_fi = 0;
  ON_BrepFace& face = brep_->m_F.emplace_back();
  face.m_li = {0};
  face.m_si = 0;
  brep_->m_S.push_back(surface_.DuplicateSurface());
  return std::move(brep_);
}

}  // namespace

std::unique_ptr<ON_Brep> ON_Surface::BrepForm() const {
  ON_NurbsSurface form;
  return IsValid() && GetNurbForm(form) ? FaceBuilder(*this, form).Build() : nullptr;
}
