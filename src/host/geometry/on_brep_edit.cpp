#include "host/geometry/on_brep.h"
#include "host/geometry/on_curve_part.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_table.h"

namespace {

// What a trim stands for, in its own direction. Null when it has no NURBS form.
std::shared_ptr<ON_NurbsCurve> WholeCurve(const ON_Brep& brep, const ON_BrepTrim& trim) {
  auto curve = std::make_shared<ON_NurbsCurve>();
  if (!ON_GetCurvePart(brep.CurveOf(trim), trim.m_domain, *curve)) return nullptr;
  if (trim.m_bReversed) curve->Reverse();
  return curve;
}

void SetWholeCurve(ON_BrepTrim& trim, const ON_Curve& curve, std::size_t index) {
  trim.m_c2i = static_cast<int>(index);
  trim.m_bReversed = false;
  trim.m_domain = curve.Domain();
}

// Moves a curve in a rectangle of parameters to the same place in another one.
void Stretch(ON_NurbsCurve& curve, const std::array<ON_Interval, 2>& from,
             const std::array<ON_Interval, 2>& to) {
  const auto stretched = [&](double x, double weight, std::size_t direction) {
    const ON_Interval &old = from[direction], &now = to[direction];
    return (x - old.Min * weight) / old.Length() * now.Length() + now.Min * weight;
  };
  for (ON_4dPoint& cv : curve.m_cv) {
    cv.x = stretched(cv.x, cv.w, 0);
    cv.y = stretched(cv.y, cv.w, 1);
  }
}

template <class T, class Part>
void CompactTable(std::vector<T>& table, std::vector<Part>& parts, int Part::*index) {
  std::vector<bool> is_used(table.size(), false);
  for (const Part& part : parts) is_used[static_cast<std::size_t>(part.*index)] = true;
  const std::vector<int> position = ON_Keep(table, is_used);
  for (Part& part : parts) part.*index = position[static_cast<std::size_t>(part.*index)];
}

}  // namespace

bool ON_Brep::SetFaceDomain(int face_index, ON_Interval u, ON_Interval v) {
  if (Face(face_index) == nullptr || !u.IsIncreasing() || !v.IsIncreasing()) return false;
  ON_BrepFace& face = m_F[static_cast<std::size_t>(face_index)];
  const auto surface = std::make_shared<ON_NurbsSurface>();
  if (!SurfaceOf(face).GetNurbForm(*surface)) return false;
  const std::array<ON_Interval, 2> from{surface->Domain(0), surface->Domain(1)};
  surface->SetDomain(0, u);
  surface->SetDomain(1, v);
  if (!surface->IsValid()) return false;

  std::vector<std::pair<ON_BrepTrim*, std::shared_ptr<ON_NurbsCurve>>> curves;
  for (const int li : face.m_li) {
    for (const int ti : m_L[static_cast<std::size_t>(li)].m_ti) {
      ON_BrepTrim& trim = m_T[static_cast<std::size_t>(ti)];
      curves.emplace_back(&trim, WholeCurve(*this, trim));
      if (curves.back().second == nullptr) return false;
      Stretch(*curves.back().second, from, {u, v});
    }
  }
  // Who else uses the old ones isn't known, unless there is nobody else.
  if (m_F.size() == 1) {
    m_S[static_cast<std::size_t>(face.m_si)] = surface;
  } else {
    face.m_si = static_cast<int>(m_S.size());
    m_S.push_back(surface);
  }
  for (auto& [trim, curve] : curves) {
    SetWholeCurve(*trim, *curve, m_C2.size());
    m_C2.push_back(std::move(curve));
  }
  return true;
}

void ON_Brep::Compact() {
  CompactTable(m_C2, m_T, &ON_BrepTrim::m_c2i);
  CompactTable(m_C3, m_E, &ON_BrepEdge::m_c3i);
  CompactTable(m_S, m_F, &ON_BrepFace::m_si);
}

bool ON_Brep::MakeValidForV2() {
  bool all_are_whole = true;
  std::vector<std::shared_ptr<const ON_Curve>> curves;
  for (ON_BrepTrim& trim : m_T) {
    if (auto curve = WholeCurve(*this, trim)) {
      SetWholeCurve(trim, *curve, curves.size());
      curves.push_back(std::move(curve));
    } else {
      all_are_whole = false;
      curves.push_back(m_C2[static_cast<std::size_t>(trim.m_c2i)]);
      trim.m_c2i = static_cast<int>(curves.size()) - 1;
    }
  }
  m_C2 = std::move(curves);
  return all_are_whole;
}
