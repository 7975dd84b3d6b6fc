#pragma once

#include <array>

#include "host/archive/binary_archive.h"
#include "host/geometry/on_subd.h"

// The parts of a level of a SubD, each with its number and all that follows it.

namespace host {

// Parts are numbered through: those of the vertices begin at the first of these numbers, those of
// the edges and the faces at the next ones. The last one ends the faces.
using SubDNumbers = std::array<std::uint32_t, 4>;

// Fails when the number isn't the one that is expected.
[[nodiscard]] bool ReadSubDVertex(ON_BinaryArchive& archive, std::uint32_t number,
                                  ON_SubDVertex& vertex);
[[nodiscard]] bool ReadSubDEdge(ON_BinaryArchive& archive, const SubDNumbers& numbers,
                                std::uint32_t number, ON_SubDEdge& edge);
// Counts the face among those of its edges, which have been read. Fails when they aren't a ring.
[[nodiscard]] bool ReadSubDFace(ON_BinaryArchive& archive, const SubDNumbers& numbers,
                                std::uint32_t number, ON_SubD& subd, ON_SubDFace& face);

}  // namespace host
