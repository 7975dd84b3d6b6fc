#include <algorithm>

#include "host/geometry/on_brep.h"
#include "host/geometry/on_table.h"

// Whether the parts of a brep name each other rightly.

namespace {

template <class T>
bool HasNull(const std::vector<T>& table) {
  return std::find(table.begin(), table.end(), nullptr) != table.end();
}

// A stretch of a curve must lie in the curve's domain.
bool IsStretchOf(ON_Interval stretch, const ON_Curve& curve) {
  const ON_Interval domain = curve.Domain();
  return stretch.IsIncreasing() && domain.Min <= stretch.Min && stretch.Max <= domain.Max;
}

bool NamesAreValid(const ON_Brep& brep, const ON_BrepEdge& edge) {
  return ON_IsIn(edge.m_c3i, brep.m_C3) && ON_IsIn(edge.m_vi[0], brep.m_V) &&
         ON_IsIn(edge.m_vi[1], brep.m_V) && IsStretchOf(edge.m_domain, brep.CurveOf(edge));
}

bool NamesAreValid(const ON_Brep& brep, const ON_BrepTrim& trim) {
  const bool has_edge =
      trim.m_type == ON_BrepTrim::Type::singular ? trim.m_ei == -1 : ON_IsIn(trim.m_ei, brep.m_E);
  return has_edge && ON_IsIn(trim.m_c2i, brep.m_C2) && ON_IsIn(trim.m_li, brep.m_L) &&
         ON_IsIn(trim.m_vi[0], brep.m_V) && ON_IsIn(trim.m_vi[1], brep.m_V) &&
         IsStretchOf(trim.m_domain, brep.CurveOf(trim));
}

bool NamesAreValid(const ON_Brep& brep, const ON_BrepLoop& loop) {
  return ON_IsIn(loop.m_fi, brep.m_F) && !loop.m_ti.empty();
}

bool NamesAreValid(const ON_Brep& brep, const ON_BrepFace& face) {
  return ON_IsIn(face.m_si, brep.m_S) && !face.m_li.empty();
}

template <class Part>
bool AllNamesAreValid(const ON_Brep& brep, const std::vector<Part>& parts) {
  return std::all_of(parts.begin(), parts.end(),
                     [&](const Part& part) { return NamesAreValid(brep, part); });
}

// True when each member is listed once, by the owner that it names itself, and each that names an
// owner is listed. The lists are those of all owners.
template <class Owner, class Member>
bool ListsAgree(const std::vector<Owner>& owners, std::vector<int> Owner::*list,
                const std::vector<Member>& members, int Member::*owner_of) {
  std::vector<bool> is_listed(members.size(), false);
  for (std::size_t i = 0; i < owners.size(); ++i) {
    for (const int index : owners[i].*list) {
      if (!ON_IsIn(index, members) || is_listed[static_cast<std::size_t>(index)]) return false;
      if (ON_At(members, index).*owner_of != static_cast<int>(i)) return false;
      is_listed[static_cast<std::size_t>(index)] = true;
    }
  }
  for (std::size_t i = 0; i < members.size(); ++i) {
    if (!is_listed[i] && members[i].*owner_of != -1) return false;
  }
  return true;
}

// True when each edge is listed by the vertices at its two ends, twice when that is one.
bool VerticesAgree(const ON_Brep& brep) {
  std::vector<std::array<bool, 2>> is_listed(brep.m_E.size(), {false, false});
  for (std::size_t i = 0; i < brep.m_V.size(); ++i) {
    for (const int index : brep.m_V[i].m_ei) {
      if (!ON_IsIn(index, brep.m_E)) return false;
      auto& ends = is_listed[static_cast<std::size_t>(index)];
      const std::array<int, 2>& vertices = ON_At(brep.m_E, index).m_vi;
      const bool is_start = vertices[0] == static_cast<int>(i) && !ends[0];
      if (!is_start && (vertices[1] != static_cast<int>(i) || ends[1])) return false;
      ends[is_start ? 0 : 1] = true;
    }
  }
  return std::all_of(is_listed.begin(), is_listed.end(),
                     [](const auto& ends) { return ends[0] && ends[1]; });
}

}  // namespace

bool ON_Brep::IsValid() const {
  if (m_F.empty() || HasNull(m_C2) || HasNull(m_C3) || HasNull(m_S)) return false;
  if (!AllNamesAreValid(*this, m_E) || !AllNamesAreValid(*this, m_T) ||
      !AllNamesAreValid(*this, m_L) || !AllNamesAreValid(*this, m_F)) {
    return false;
  }
  if (!VerticesAgree(*this) || !ListsAgree(m_E, &ON_BrepEdge::m_ti, m_T, &ON_BrepTrim::m_ei) ||
      !ListsAgree(m_L, &ON_BrepLoop::m_ti, m_T, &ON_BrepTrim::m_li) ||
      !ListsAgree(m_F, &ON_BrepFace::m_li, m_L, &ON_BrepLoop::m_fi)) {
    return false;
  }
  return std::all_of(m_V.begin(), m_V.end(),
                     [](const ON_BrepVertex& vertex) { return vertex.point.IsValid(); });
}
