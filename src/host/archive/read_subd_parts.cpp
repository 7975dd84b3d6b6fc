#include "host/archive/read_subd_parts.h"

#include "host/archive/chunk_scope.h"

namespace host {
namespace {

// From version 7 on, a part and what it has in common with others end with additions: the size
// of each in a byte, then its bytes. Two sizes have a meaning of their own.
constexpr int kFirstWithAdditions = 70;
constexpr int kFirstWithTwoSharpnesses = 80;
constexpr std::uint8_t kAdditionIsChunk = 254;
constexpr std::uint8_t kEndOfAdditions = 255;

// A part and what it names others by: its number in the archive, and a byte of flags.
constexpr std::uint64_t kReferenceSize = sizeof(std::uint32_t) + 1;
constexpr std::uint8_t kIsReversed = 1;

bool SkipAdditions(ON_BinaryArchive& archive) {
  std::uint8_t size = 0;
  while (archive.ReadChar(&size)) {
    if (size == kEndOfAdditions) return true;
    const bool skipped = size == kAdditionIsChunk ? SkipChunk(archive) : archive.Skip(size);
    if (!skipped) return false;
  }
  return false;
}

// The end of a part; older ones have a byte there.
bool SkipEnd(ON_BinaryArchive& archive) {
  if (archive.Archive3dmVersion() >= kFirstWithAdditions) return SkipAdditions(archive);
  return archive.Skip(1);
}

// Two points, each behind a byte that tells whether it follows.
bool SkipOptionalPoints(ON_BinaryArchive& archive) {
  for (int i = 0; i < 2; ++i) {
    std::uint8_t is_present = 0;
    if (!archive.ReadChar(&is_present)) return false;
    if (is_present != 0 && !archive.Skip(sizeof(ON_3dPoint))) return false;
  }
  return true;
}

// What each part begins with. Its number is the next one of its kind.
bool ReadBase(ON_BinaryArchive& archive, std::uint32_t expected_number) {
  // The id and the level.
  constexpr std::uint64_t kUnusedSize = sizeof(std::uint32_t) + sizeof(std::uint16_t);
  std::uint32_t number = 0;
  if (!archive.ReadInt(&number) || !archive.Skip(kUnusedSize)) return false;
  if (number != expected_number) return archive.Fail("the parts of a SubD are out of order");
  if (archive.Archive3dmVersion() >= kFirstWithAdditions) return SkipAdditions(archive);
  return SkipOptionalPoints(archive);
}

bool ReadUnsignedShort(ON_BinaryArchive& archive, std::size_t* value) {
  std::int16_t stored = 0;
  if (!archive.ReadShort(&stored)) return false;
  *value = static_cast<std::uint16_t>(stored);
  return true;
}

// References to other parts that aren't needed.
bool SkipReferences(ON_BinaryArchive& archive) {
  std::size_t count = 0;
  return ReadUnsignedShort(archive, &count) && archive.Skip(count * kReferenceSize);
}

// A reference to the part numbers[kind] and on: its position.
bool ReadReference(ON_BinaryArchive& archive, const SubDNumbers& numbers, std::size_t kind,
                   std::size_t* index, std::uint8_t* flags) {
  std::uint32_t number = 0;
  if (!archive.ReadInt(&number) || !archive.ReadChar(flags)) return false;
  if (number < numbers[kind] || number >= numbers[kind + 1]) {
    return archive.Fail("a part of a SubD names another that isn't there");
  }
  *index = number - numbers[kind];
  return true;
}

// Points on the surface that the writer has computed.
bool SkipLimitPoints(ON_BinaryArchive& archive) {
  constexpr std::uint64_t kSize = 4 * sizeof(ON_3dPoint) + kReferenceSize;
  std::uint8_t is_present = 0;
  std::size_t count = 0;
  if (!archive.ReadChar(&is_present)) return false;
  if (is_present == 0) return true;
  return archive.ReadCount(kSize, &count) && archive.Skip(count * kSize);
}

bool ReadEdgeVertices(ON_BinaryArchive& archive, const SubDNumbers& numbers, ON_SubDEdge& edge) {
  std::size_t count = 0;
  if (!ReadUnsignedShort(archive, &count)) return false;
  if (count != edge.m_vi.size()) return archive.Fail("an edge of a SubD without its two vertices");
  for (int& vi : edge.m_vi) {
    std::size_t index = 0;
    std::uint8_t flags = 0;
    if (!ReadReference(archive, numbers, 0, &index, &flags)) return false;
    vi = static_cast<int>(index);
  }
  return true;
}

// The sharpness at an edge's end, and the end of the part. Before there were two, the one that
// is stored didn't count.
bool ReadSharpness(ON_BinaryArchive& archive, double first, ON_SubDEdge& edge) {
  constexpr double kSharpest = 4;
  if (archive.Archive3dmVersion() < kFirstWithTwoSharpnesses) return SkipEnd(archive);
  std::uint8_t size = 0;
  double second = 0;
  if (!archive.ReadChar(&size)) return false;
  if (size == kEndOfAdditions) return true;
  if (size != sizeof(double)) return archive.Fail("an edge of a SubD without its sharpness");
  if (!archive.ReadDouble(&second)) return false;
  const auto is_sharpness = [](double s) { return s >= 0 && s <= kSharpest; };
  if (is_sharpness(first) && is_sharpness(second)) edge.m_sharpness = {first, second};
  return SkipAdditions(archive);
}

// A face is stored as its edges, each in one direction or the other; each begins where the one
// before ends.
bool ReadFaceEdges(ON_BinaryArchive& archive, const SubDNumbers& numbers, ON_SubD& subd,
                   ON_SubDFace& face) {
  std::size_t count = 0;
  if (!ReadUnsignedShort(archive, &count)) return false;
  int expected = -1, last = -1;
  for (std::size_t i = 0; i < count; ++i) {
    std::size_t index = 0;
    std::uint8_t flags = 0;
    if (!ReadReference(archive, numbers, 1, &index, &flags)) return false;
    ON_SubDEdge& edge = subd.m_edge[index];
    const bool is_reversed = (flags & kIsReversed) != 0;
    const int from = edge.m_vi[is_reversed ? 1 : 0];
    if (i > 0 && from != last) return archive.Fail("the edges of a face of a SubD have a gap");
    if (i == 0) expected = from;
    last = edge.m_vi[is_reversed ? 0 : 1];
    ++edge.m_face_count;
    face.m_vi.push_back(from);
  }
  return last == expected || archive.Fail("the edges of a face of a SubD have a gap");
}

}  // namespace

bool ReadSubDVertex(ON_BinaryArchive& archive, std::uint32_t number, ON_SubDVertex& vertex) {
  // How many edges and faces it has, which the lists tell too.
  constexpr std::uint64_t kCountsSize = 2 * sizeof(std::uint16_t);
  constexpr auto kLastTag = static_cast<std::uint8_t>(ON_SubDVertex::Tag::dart);
  std::uint8_t tag = 0;
  if (!ReadBase(archive, number) || !archive.ReadChar(&tag) || !archive.ReadPoint(&vertex.m_P) ||
      !archive.Skip(kCountsSize) || !SkipLimitPoints(archive) || !SkipReferences(archive) ||
      !SkipReferences(archive)) {
    return false;
  }
  vertex.m_tag = static_cast<ON_SubDVertex::Tag>(tag <= kLastTag ? tag : 0);
  return SkipEnd(archive);
}

bool ReadSubDEdge(ON_BinaryArchive& archive, const SubDNumbers& numbers, std::uint32_t number,
                  ON_SubDEdge& edge) {
  constexpr std::uint64_t kSectorsSize = 2 * sizeof(double);
  constexpr std::uint8_t kCrease = 2;
  std::uint8_t tag = 0;
  double sharpness = 0;
  if (!ReadBase(archive, number) || !archive.ReadChar(&tag) ||
      !archive.Skip(sizeof(std::uint16_t)) || !archive.Skip(kSectorsSize) ||
      !archive.ReadDouble(&sharpness) || !ReadEdgeVertices(archive, numbers, edge) ||
      !SkipReferences(archive)) {
    return false;
  }
  edge.m_is_crease = tag == kCrease;
  return ReadSharpness(archive, sharpness, edge);
}

bool ReadSubDFace(ON_BinaryArchive& archive, const SubDNumbers& numbers, std::uint32_t number,
                  ON_SubD& subd, ON_SubDFace& face) {
  // The ids of two faces that it came from, and the count of edges.
  constexpr std::uint64_t kUnusedSize = 2 * sizeof(std::uint32_t) + sizeof(std::uint16_t);
  return ReadBase(archive, number) && archive.Skip(kUnusedSize) &&
         ReadFaceEdges(archive, numbers, subd, face) && SkipEnd(archive);
}

}  // namespace host
