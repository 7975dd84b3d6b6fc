#include "host/archive/brep_parts_in_use.h"

#include <algorithm>

#include "host/geometry/on_table.h"

namespace host {
namespace {

using Flags = std::vector<bool>;

// A name of what was dropped or never was there: like no other it is wrong.
constexpr int kNowhere = -2;

// Gives a name the new position of what it names.
void Rename(int& index, const std::vector<int>& position) {
  const int moved = ON_IsIn(index, position) ? ON_At(position, index) : -1;
  index = moved == -1 ? kNowhere : moved;
}

void KeepEdges(ON_Brep& brep, const Flags& is_kept) {
  const std::vector<int> position = ON_Keep(brep.m_E, is_kept);
  for (ON_BrepTrim& trim : brep.m_T) {
    if (trim.m_ei != -1) Rename(trim.m_ei, position);
  }
}

void KeepVertices(ON_Brep& brep, const Flags& is_kept) {
  const std::vector<int> position = ON_Keep(brep.m_V, is_kept);
  for (ON_BrepEdge& edge : brep.m_E) {
    for (int& vertex : edge.m_vi) Rename(vertex, position);
  }
  for (ON_BrepTrim& trim : brep.m_T) {
    for (int& vertex : trim.m_vi) Rename(vertex, position);
  }
}

template <class Part, class Condition>
Flags FlagsOf(const std::vector<Part>& parts, Condition condition) {
  Flags flags;
  flags.reserve(parts.size());
  for (const Part& part : parts) flags.push_back(condition(part));
  return flags;
}

bool HasAll(const Flags& flags) {
  return std::find(flags.begin(), flags.end(), false) == flags.end();
}

// Marks what the lists hold. False when that isn't there, is listed already, or a list is empty.
template <class Owner>
bool MarkListed(const Owner& owner, std::vector<int> Owner::*list, Flags& is_listed) {
  for (const int index : owner.*list) {
    if (!ON_IsIn(index, is_listed) || is_listed[static_cast<std::size_t>(index)]) return false;
    is_listed[static_cast<std::size_t>(index)] = true;
  }
  return !(owner.*list).empty();
}

// Drops the members that no owner lists. The lists must be valid.
template <class Owner, class Member>
void KeepListed(std::vector<Owner>& owners, std::vector<int> Owner::*list,
                std::vector<Member>& members) {
  Flags is_listed(members.size(), false);
  for (const Owner& owner : owners) MarkListed(owner, list, is_listed);
  if (HasAll(is_listed)) return;
  const std::vector<int> position = ON_Keep(members, is_listed);
  for (Owner& owner : owners) {
    for (int& index : owner.*list) Rename(index, position);
  }
}

bool IsUsable(const ON_Brep& brep, const ON_BrepTrim& trim) {
  return ON_At(brep.m_C2, trim.m_c2i) != nullptr &&
         (trim.m_ei == -1 || ON_At(brep.m_C3, ON_At(brep.m_E, trim.m_ei).m_c3i) != nullptr);
}

bool IsUsable(const ON_Brep& brep, const ON_BrepFace& face) {
  return ON_At(brep.m_S, face.m_si) != nullptr &&
         std::all_of(face.m_li.begin(), face.m_li.end(), [&](int li) {
           const std::vector<int>& trims = ON_At(brep.m_L, li).m_ti;
           return std::all_of(trims.begin(), trims.end(),
                              [&](int ti) { return IsUsable(brep, ON_At(brep.m_T, ti)); });
         });
}

void KeepUsedEdgesAndVertices(ON_Brep& brep) {
  Flags is_used(brep.m_E.size(), false);
  for (const ON_BrepTrim& trim : brep.m_T) {
    if (trim.m_ei != -1) is_used[static_cast<std::size_t>(trim.m_ei)] = true;
  }
  KeepEdges(brep, is_used);
  is_used.assign(brep.m_V.size(), false);
  const auto mark = [&](const auto& part) {
    for (const int vertex : part.m_vi) is_used[static_cast<std::size_t>(vertex)] = true;
  };
  for (const ON_BrepEdge& edge : brep.m_E) mark(edge);
  for (const ON_BrepTrim& trim : brep.m_T) mark(trim);
  KeepVertices(brep, is_used);
}

template <class T>
bool HasNull(const std::vector<T>& table) {
  return std::find(table.begin(), table.end(), nullptr) != table.end();
}

}  // namespace

void DropDeleted(ON_Brep& brep) {
  const Flags faces = FlagsOf(
      brep.m_F, [](const ON_BrepFace& face) { return face.m_si != -1 || !face.m_li.empty(); });
  const Flags edges = FlagsOf(
      brep.m_E, [](const ON_BrepEdge& edge) { return edge.m_c3i != -1 || !edge.m_ti.empty(); });
  const Flags vertices = FlagsOf(brep.m_V, [](const ON_BrepVertex& vertex) {
    return vertex.point.IsValid() || !vertex.m_ei.empty();
  });
  if (!HasAll(faces)) ON_Keep(brep.m_F, faces);
  if (!HasAll(edges)) KeepEdges(brep, edges);
  if (!HasAll(vertices)) KeepVertices(brep, vertices);
}

bool BrepListsAreValid(const ON_Brep& brep) {
  Flags loops(brep.m_L.size(), false), trims(brep.m_T.size(), false);
  return std::all_of(brep.m_F.begin(), brep.m_F.end(), [&](const ON_BrepFace& face) {
    return MarkListed(face, &ON_BrepFace::m_li, loops) &&
           std::all_of(face.m_li.begin(), face.m_li.end(), [&](int li) {
             return MarkListed(ON_At(brep.m_L, li), &ON_BrepLoop::m_ti, trims);
           });
  });
}

void DropUnlisted(ON_Brep& brep) {
  KeepListed(brep.m_F, &ON_BrepFace::m_li, brep.m_L);
  KeepListed(brep.m_L, &ON_BrepLoop::m_ti, brep.m_T);
}

bool BrepNamesAreValid(const ON_Brep& brep) {
  const auto all = [](const auto& parts, auto condition) {
    return std::all_of(parts.begin(), parts.end(), condition);
  };
  const auto has_vertices = [&](const auto& part) {
    return ON_IsIn(part.m_vi[0], brep.m_V) && ON_IsIn(part.m_vi[1], brep.m_V);
  };
  return all(brep.m_V, [](const ON_BrepVertex& vertex) { return vertex.point.IsValid(); }) &&
         all(brep.m_E,
             [&](const ON_BrepEdge& edge) {
               return ON_IsIn(edge.m_c3i, brep.m_C3) && has_vertices(edge);
             }) &&
         all(brep.m_T,
             [&](const ON_BrepTrim& trim) {
               return ON_IsIn(trim.m_c2i, brep.m_C2) && has_vertices(trim) &&
                      (trim.m_ei == -1 || ON_IsIn(trim.m_ei, brep.m_E));
             }) &&
         all(brep.m_F, [&](const ON_BrepFace& face) { return ON_IsIn(face.m_si, brep.m_S); });
}

void LeaveOutUnusableFaces(ON_Brep& brep) {
  if (!HasNull(brep.m_C2) && !HasNull(brep.m_C3) && !HasNull(brep.m_S)) return;
  ON_Keep(brep.m_F,
          FlagsOf(brep.m_F, [&](const ON_BrepFace& face) { return IsUsable(brep, face); }));
  DropUnlisted(brep);
  KeepUsedEdgesAndVertices(brep);
  brep.Compact();
}

}  // namespace host
