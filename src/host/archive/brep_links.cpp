#include "host/archive/brep_links.h"

#include <algorithm>
#include <cmath>

namespace host {
namespace {

template <class T>
bool IsIn(int index, const std::vector<T>& table) {
  return index >= 0 && static_cast<std::size_t>(index) < table.size();
}

template <class Table>
auto& At(Table& table, int index) {
  return table[static_cast<std::size_t>(index)];
}

// True when the positions that the owners list are there and each is listed at most once.
template <class Owner, class Member>
bool ListsAreValid(const std::vector<Owner>& owners, std::vector<int> Owner::*list,
                   const std::vector<Member>& members) {
  std::vector<bool> is_listed(members.size(), false);
  for (const Owner& owner : owners) {
    if ((owner.*list).empty()) return false;
    for (const int index : owner.*list) {
      if (!IsIn(index, members) || is_listed[static_cast<std::size_t>(index)]) return false;
      is_listed[static_cast<std::size_t>(index)] = true;
    }
  }
  return true;
}

bool NamesAreValid(const ON_Brep& brep) {
  const auto has_vertices = [&](const std::array<int, 2>& vi) {
    return IsIn(vi[0], brep.m_V) && IsIn(vi[1], brep.m_V);
  };
  return std::all_of(brep.m_E.begin(), brep.m_E.end(),
                     [&](const ON_BrepEdge& edge) {
                       return IsIn(edge.m_c3i, brep.m_C3) && has_vertices(edge.m_vi);
                     }) &&
         std::all_of(brep.m_T.begin(), brep.m_T.end(),
                     [&](const ON_BrepTrim& trim) {
                       return IsIn(trim.m_c2i, brep.m_C2) && has_vertices(trim.m_vi) &&
                              (trim.m_ei == -1 || IsIn(trim.m_ei, brep.m_E));
                     }) &&
         std::all_of(brep.m_F.begin(), brep.m_F.end(),
                     [&](const ON_BrepFace& face) { return IsIn(face.m_si, brep.m_S); }) &&
         ListsAreValid(brep.m_L, &ON_BrepLoop::m_ti, brep.m_T) &&
         ListsAreValid(brep.m_F, &ON_BrepFace::m_li, brep.m_L) &&
         std::all_of(brep.m_V.begin(), brep.m_V.end(),
                     [](const ON_BrepVertex& vertex) { return vertex.point.IsValid(); });
}

// The part of a stretch that the curve has; the whole curve when that is nothing.
void CutToDomain(const ON_Curve* curve, ON_Interval& stretch) {
  if (curve == nullptr) return;
  const ON_Interval domain = curve->Domain();
  const ON_Interval part{std::max(stretch.Min, domain.Min), std::min(stretch.Max, domain.Max)};
  stretch = stretch.IsIncreasing() && part.IsIncreasing() ? part : domain;
}

bool IsUsable(const ON_Brep& brep, const ON_BrepTrim& trim) {
  return At(brep.m_C2, trim.m_c2i) != nullptr &&
         (trim.m_ei == -1 || At(brep.m_C3, At(brep.m_E, trim.m_ei).m_c3i) != nullptr);
}

bool IsUsable(const ON_Brep& brep, const ON_BrepFace& face) {
  return At(brep.m_S, face.m_si) != nullptr &&
         std::all_of(face.m_li.begin(), face.m_li.end(), [&](int li) {
           const std::vector<int>& trims = At(brep.m_L, li).m_ti;
           return std::all_of(trims.begin(), trims.end(),
                              [&](int ti) { return IsUsable(brep, At(brep.m_T, ti)); });
         });
}

// Drops what isn't used and returns the new position of each, -1 for what was dropped.
template <class T>
std::vector<int> Keep(std::vector<T>& table, const std::vector<bool>& is_used) {
  std::vector<int> position(table.size(), -1);
  std::size_t count = 0;
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (!is_used[i]) continue;
    position[i] = static_cast<int>(count);
    if (i != count) table[count] = std::move(table[i]);
    ++count;
  }
  table.resize(count);
  return position;
}

// Drops the members that no owner lists.
template <class Owner, class Member>
void KeepListed(std::vector<Owner>& owners, std::vector<int> Owner::*list,
                std::vector<Member>& members) {
  std::vector<bool> is_listed(members.size(), false);
  for (const Owner& owner : owners) {
    for (const int index : owner.*list) is_listed[static_cast<std::size_t>(index)] = true;
  }
  const std::vector<int> position = Keep(members, is_listed);
  for (Owner& owner : owners) {
    for (int& index : owner.*list) index = At(position, index);
  }
}

// Drops the edges of null curves, and null curves and surfaces.
void DropNull(ON_Brep& brep) {
  std::vector<bool> has_curve;
  for (const ON_BrepEdge& edge : brep.m_E) {
    has_curve.push_back(At(brep.m_C3, edge.m_c3i) != nullptr);
  }
  const std::vector<int> position = Keep(brep.m_E, has_curve);
  for (ON_BrepTrim& trim : brep.m_T) {
    if (trim.m_ei != -1) trim.m_ei = At(position, trim.m_ei);
  }
  brep.Compact();
}

void LeaveOutUnusable(ON_Brep& brep) {
  const auto has_null = [](const auto& table) {
    return std::find(table.begin(), table.end(), nullptr) != table.end();
  };
  std::vector<bool> is_usable;
  for (const ON_BrepFace& face : brep.m_F) is_usable.push_back(IsUsable(brep, face));
  Keep(brep.m_F, is_usable);
  KeepListed(brep.m_F, &ON_BrepFace::m_li, brep.m_L);
  KeepListed(brep.m_L, &ON_BrepLoop::m_ti, brep.m_T);
  if (has_null(brep.m_C2) || has_null(brep.m_C3) || has_null(brep.m_S)) DropNull(brep);
}

ON_3dPoint End(const ON_Brep& brep, const ON_BrepTrim& trim, bool at_start) {
  return brep.CurveOf(trim).PointAt(at_start != trim.m_bReversed ? trim.m_domain.Min
                                                                 : trim.m_domain.Max);
}

// True when a trim ends where the next one starts: at the same vertex, or at least nearly at the
// same place of the surface.
bool Meet(const ON_Brep& brep, const ON_Surface& surface, const ON_BrepTrim& trim,
          const ON_BrepTrim& next) {
  constexpr double kLargestGap = 0.01;
  if (trim.m_vi[1] == next.m_vi[0]) return true;
  const ON_3dVector gap = End(brep, trim, false) - End(brep, next, true);
  return std::abs(gap.x) <= kLargestGap * surface.Domain(0).Length() &&
         std::abs(gap.y) <= kLargestGap * surface.Domain(1).Length();
}

bool LoopsAreClosed(const ON_Brep& brep, const ON_BrepFace& face) {
  return std::all_of(face.m_li.begin(), face.m_li.end(), [&](int li) {
    const std::vector<int>& trims = At(brep.m_L, li).m_ti;
    const ON_BrepTrim* last = &At(brep.m_T, trims.back());
    return std::all_of(trims.begin(), trims.end(), [&](int ti) {
      return Meet(brep, brep.SurfaceOf(face), *std::exchange(last, &At(brep.m_T, ti)),
                  At(brep.m_T, ti));
    });
  });
}

// Sets the lists and names that say the same as others the other way round. An edge keeps the
// order of its trims when it is that of the document.
void SetOwners(ON_Brep& brep) {
  for (ON_BrepVertex& vertex : brep.m_V) vertex.m_ei.clear();
  for (ON_BrepEdge& edge : brep.m_E) edge.m_ti.clear();
  for (std::size_t i = 0; i < brep.m_E.size(); ++i) {
    for (const int vi : brep.m_E[i].m_vi) At(brep.m_V, vi).m_ei.push_back(static_cast<int>(i));
  }
  for (std::size_t i = 0; i < brep.m_T.size(); ++i) {
    const int ei = brep.m_T[i].m_ei;
    if (ei != -1) At(brep.m_E, ei).m_ti.push_back(static_cast<int>(i));
  }
  for (std::size_t i = 0; i < brep.m_L.size(); ++i) {
    for (const int ti : brep.m_L[i].m_ti) At(brep.m_T, ti).m_li = static_cast<int>(i);
  }
  for (std::size_t i = 0; i < brep.m_F.size(); ++i) {
    for (const int li : brep.m_F[i].m_li) At(brep.m_L, li).m_fi = static_cast<int>(i);
  }
}

}  // namespace

bool LinkBrep(ON_BinaryArchive& archive, ON_Brep& brep) {
  if (!NamesAreValid(brep)) return archive.Fail("a brep whose parts don't fit together");
  for (ON_BrepEdge& edge : brep.m_E) {
    CutToDomain(At(brep.m_C3, edge.m_c3i).get(), edge.m_domain);
  }
  for (ON_BrepTrim& trim : brep.m_T) {
    CutToDomain(At(brep.m_C2, trim.m_c2i).get(), trim.m_domain);
  }
  LeaveOutUnusable(brep);
  if (brep.m_F.empty()) return archive.Fail("a brep without a face that can be used");
  if (!std::all_of(brep.m_F.begin(), brep.m_F.end(),
                   [&](const ON_BrepFace& face) { return LoopsAreClosed(brep, face); })) {
    return archive.Fail("a brep with an open loop");
  }
  SetOwners(brep);
  return true;
}

}  // namespace host
