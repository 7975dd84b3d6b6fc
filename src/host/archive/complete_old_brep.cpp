#include <algorithm>
#include <numeric>

#include "host/archive/read_brep_parts.h"
#include "host/geometry/on_table.h"

// What the form of version 2 leaves out: the vertices, the kinds of the trims, and how they run
// over their surfaces.

namespace host {
namespace {

using Iso = ON_BrepTrim::Iso;

// Marks the trims whose edge has another trim in the same loop.
std::vector<bool> FindSeams(const ON_Brep& brep) {
  std::vector<bool> is_seam(brep.m_T.size(), false);
  const auto loop_of = [&brep](int trim) { return ON_At(brep.m_T, trim).m_li; };
  for (const ON_BrepEdge& edge : brep.m_E) {
    std::vector<int> sides = edge.m_ti;
    std::sort(sides.begin(), sides.end(), [&](int a, int b) { return loop_of(a) < loop_of(b); });
    for (std::size_t i = 1; i < sides.size(); ++i) {
      if (loop_of(sides[i - 1]) != loop_of(sides[i])) continue;
      is_seam[static_cast<std::size_t>(sides[i - 1])] = true;
      is_seam[static_cast<std::size_t>(sides[i])] = true;
    }
  }
  return is_seam;
}

ON_BrepTrim::Type TypeOf(const ON_Brep& brep, const ON_BrepTrim& trim, bool is_seam) {
  using enum ON_BrepTrim::Type;
  if (trim.m_ei == -1) return singular;
  if (ON_At(brep.m_E, trim.m_ei).m_ti.size() == 1) return boundary;
  return is_seam ? seam : mated;
}

// Along which side of the domain, or else along which parameter, a curve runs.
Iso IsoOf(const ON_Surface& surface, const ON_Curve& curve) {
  constexpr double kRounding = 1e-9;
  const ON_BoundingBox box = curve.BoundingBox();
  const ON_Interval u = surface.Domain(0), v = surface.Domain(1);
  const auto is_at = [&](double low, double high, double t, const ON_Interval& domain) {
    return std::max(std::abs(low - t), std::abs(high - t)) <= kRounding * domain.Length();
  };
  if (is_at(box.m_min.x, box.m_max.x, u.Min, u)) return Iso::west;
  if (is_at(box.m_min.x, box.m_max.x, u.Max, u)) return Iso::east;
  if (is_at(box.m_min.y, box.m_max.y, v.Min, v)) return Iso::south;
  if (is_at(box.m_min.y, box.m_max.y, v.Max, v)) return Iso::north;
  if (is_at(box.m_min.x, box.m_max.x, box.m_min.x, u)) return Iso::x;
  return is_at(box.m_min.y, box.m_max.y, box.m_min.y, v) ? Iso::y : Iso::none;
}

void SetTypesAndIsos(ON_Brep& brep) {
  const std::vector<bool> is_seam = FindSeams(brep);
  for (const ON_BrepFace& face : brep.m_F) {
    for (const int li : face.m_li) {
      for (const int ti : ON_At(brep.m_L, li).m_ti) {
        ON_BrepTrim& trim = ON_At(brep.m_T, ti);
        trim.m_type = TypeOf(brep, trim, is_seam[static_cast<std::size_t>(ti)]);
        trim.m_iso = IsoOf(brep.SurfaceOf(face), brep.CurveOf(trim));
      }
    }
  }
}

// Finds out which ends of edges are one vertex: those that meet where a trim of a loop follows
// another.
class VertexFinder {
 public:
  explicit VertexFinder(ON_Brep& brep);
  void JoinEnds();
  void AddVertices();

 private:
  // An end of an edge, or a singular trim, which is a point.
  std::size_t EndOf(int trim_index, bool at_start) const;
  std::size_t First(std::size_t end);

  ON_Brep& brep_;
  // Another end of the same vertex, or itself.
  std::vector<std::size_t> other_;
};

VertexFinder::VertexFinder(ON_Brep& brep)
    : brep_(brep), other_(2 * brep.m_E.size() + brep.m_T.size()) {
  std::iota(other_.begin(), other_.end(), std::size_t{0});
}

std::size_t VertexFinder::EndOf(int trim_index, bool at_start) const {
  const ON_BrepTrim& trim = ON_At(brep_.m_T, trim_index);
  if (trim.m_ei == -1) return 2 * brep_.m_E.size() + static_cast<std::size_t>(trim_index);
  return 2 * static_cast<std::size_t>(trim.m_ei) + (at_start != trim.m_bRev3d ? 0 : 1);
}

std::size_t VertexFinder::First(std::size_t end) {
  while (other_[end] != end) end = other_[end] = other_[other_[end]];
  return end;
}

void VertexFinder::JoinEnds() {
  for (const ON_BrepLoop& loop : brep_.m_L) {
    if (loop.m_ti.empty()) continue;
    int last = loop.m_ti.back();
    for (const int index : loop.m_ti) {
      const std::size_t a = First(EndOf(last, false)), b = First(EndOf(index, true));
      // The lowest one leads, so that it is the end of an edge where there is one.
      other_[std::max(a, b)] = std::min(a, b);
      last = index;
    }
  }
}

void VertexFinder::AddVertices() {
  std::vector<int> vertex(other_.size(), -1);
  const auto vertex_at = [&](std::size_t end) { return vertex[First(end)]; };
  for (std::size_t end = 0; end < 2 * brep_.m_E.size(); ++end) {
    if (First(end) != end) continue;
    vertex[end] = static_cast<int>(brep_.m_V.size());
    const ON_Curve& curve = *brep_.m_C3[end / 2];
    brep_.m_V.emplace_back().point = end % 2 == 0 ? curve.PointAtStart() : curve.PointAtEnd();
  }
  for (std::size_t i = 0; i < brep_.m_E.size(); ++i) {
    brep_.m_E[i].m_vi = {vertex_at(2 * i), vertex_at(2 * i + 1)};
  }
  for (std::size_t i = 0; i < brep_.m_T.size(); ++i) {
    const int index = static_cast<int>(i);
    brep_.m_T[i].m_vi = {vertex_at(EndOf(index, true)), vertex_at(EndOf(index, false))};
  }
}

}  // namespace

void CompleteOldBrep(ON_Brep& brep) {
  SetTypesAndIsos(brep);
  VertexFinder vertices(brep);
  vertices.JoinEnds();
  vertices.AddVertices();
}

}  // namespace host
