#include "host/archive/brep_links.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "host/archive/brep_parts_in_use.h"
#include "host/geometry/on_table.h"

namespace host {
namespace {

// The part of a stretch that the curve has; the whole curve when that is nothing.
void CutToDomain(const ON_Curve* curve, ON_Interval& stretch) {
  if (curve == nullptr) return;
  const ON_Interval domain = curve->Domain();
  const ON_Interval part{std::max(stretch.Min, domain.Min), std::min(stretch.Max, domain.Max)};
  stretch = stretch.IsIncreasing() && part.IsIncreasing() ? part : domain;
}

void CutToDomains(ON_Brep& brep) {
  for (ON_BrepEdge& edge : brep.m_E) {
    CutToDomain(ON_At(brep.m_C3, edge.m_c3i).get(), edge.m_domain);
  }
  for (ON_BrepTrim& trim : brep.m_T) {
    CutToDomain(ON_At(brep.m_C2, trim.m_c2i).get(), trim.m_domain);
  }
}

ON_3dPoint End(const ON_Brep& brep, const ON_BrepTrim& trim, bool at_start) {
  const bool is_low = at_start != trim.m_bReversed;
  return brep.CurveOf(trim).PointAt(is_low ? trim.m_domain.Min : trim.m_domain.Max);
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
    const std::vector<int>& trims = ON_At(brep.m_L, li).m_ti;
    int last = trims.back();
    return std::all_of(trims.begin(), trims.end(), [&](int ti) {
      return Meet(brep, brep.SurfaceOf(face), ON_At(brep.m_T, std::exchange(last, ti)),
                  ON_At(brep.m_T, ti));
    });
  });
}

// A trim without an edge is singular, and no other is.
void SetSingular(ON_Brep& brep) {
  using enum ON_BrepTrim::Type;
  for (ON_BrepTrim& trim : brep.m_T) {
    if (trim.m_ei == -1) {
      trim.m_type = singular;
    } else if (trim.m_type == singular) {
      trim.m_type = unknown;
    }
  }
}

// Sets what follows from the other direction: which edges a vertex has, which trims an edge has,
// and of which loop and face the trims and loops are.
void SetOwners(ON_Brep& brep) {
  for (ON_BrepVertex& vertex : brep.m_V) vertex.m_ei.clear();
  for (ON_BrepEdge& edge : brep.m_E) edge.m_ti.clear();
  for (std::size_t i = 0; i < brep.m_E.size(); ++i) {
    for (const int vi : brep.m_E[i].m_vi) ON_At(brep.m_V, vi).m_ei.push_back(static_cast<int>(i));
  }
  for (std::size_t i = 0; i < brep.m_T.size(); ++i) {
    const int ei = brep.m_T[i].m_ei;
    if (ei != -1) ON_At(brep.m_E, ei).m_ti.push_back(static_cast<int>(i));
  }
  for (std::size_t i = 0; i < brep.m_L.size(); ++i) {
    for (const int ti : brep.m_L[i].m_ti) ON_At(brep.m_T, ti).m_li = static_cast<int>(i);
  }
  for (std::size_t i = 0; i < brep.m_F.size(); ++i) {
    for (const int li : brep.m_F[i].m_li) ON_At(brep.m_L, li).m_fi = static_cast<int>(i);
  }
}

}  // namespace

bool LinkBrep(ON_BinaryArchive& archive, ON_Brep& brep) {
  DropDeleted(brep);
  if (!BrepListsAreValid(brep)) return archive.Fail("a brep whose parts don't fit together");
  DropUnlisted(brep);
  if (!BrepNamesAreValid(brep)) return archive.Fail("a brep whose parts don't fit together");
  CutToDomains(brep);
  SetSingular(brep);
  LeaveOutUnusableFaces(brep);
  if (brep.m_F.empty()) return archive.Fail("a brep without a face that can be used");
  for (const ON_BrepFace& face : brep.m_F) {
    if (!LoopsAreClosed(brep, face)) return archive.Fail("a brep with an open loop");
  }
  SetOwners(brep);
  return true;
}

}  // namespace host
