#include "host/archive/read_subd.h"

#include <algorithm>

#include "host/archive/chunk_scope.h"
#include "host/archive/read_subd_parts.h"

namespace host {
namespace {

// Reads the parts of a kind, each with `read`, after a check that the open chunk can hold that
// many.
template <class Part, class Read>
bool ReadAll(ON_BinaryArchive& archive, const SubDNumbers& numbers, std::size_t kind,
             std::vector<Part>& parts, Read read) {
  // No part is smaller.
  constexpr std::uint64_t kLeastSize = 24;
  const std::uint32_t count = numbers[kind + 1] - numbers[kind];
  if (numbers[kind + 1] < numbers[kind] || count > archive.BytesLeft() / kLeastSize) {
    return archive.Fail("a SubD has more parts than its chunk can hold");
  }
  parts.resize(count);
  std::uint32_t number = numbers[kind];
  return std::all_of(parts.begin(), parts.end(), [&](Part& part) { return read(number++, part); });
}

bool ReadParts(ON_BinaryArchive& archive, const SubDNumbers& numbers, ON_SubD& subd) {
  const auto vertex = [&](std::uint32_t number, ON_SubDVertex& v) {
    return ReadSubDVertex(archive, number, v);
  };
  const auto edge = [&](std::uint32_t number, ON_SubDEdge& e) {
    return ReadSubDEdge(archive, numbers, number, e);
  };
  const auto face = [&](std::uint32_t number, ON_SubDFace& f) {
    return ReadSubDFace(archive, numbers, number, subd, f);
  };
  return ReadAll(archive, numbers, 0, subd.m_vertex, vertex) &&
         ReadAll(archive, numbers, 1, subd.m_edge, edge) &&
         ReadAll(archive, numbers, 2, subd.m_face, face) &&
         (subd.IsValid() || archive.Fail("a SubD that isn't valid"));
}

bool ReadLevel(ON_BinaryArchive& archive, ON_SubD& subd) {
  // The level's index, its kind of subdivision, a box.
  constexpr std::uint64_t kHeadSize = sizeof(std::uint16_t) + 3 + 6 * sizeof(double);
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("a level of a SubD has an unknown version");
  if (!archive.Skip(kHeadSize)) return false;
  SubDNumbers numbers{};
  for (std::uint32_t& number : numbers) {
    if (!archive.ReadInt(&number)) return false;
  }
  return ReadParts(archive, numbers, subd);
}

}  // namespace

bool ReadSubD(ON_BinaryArchive& archive, ON_SubD& subd) {
  // The highest ids, and a box.
  constexpr std::uint64_t kUnusedSize = 3 * sizeof(std::int32_t) + 6 * sizeof(double);
  std::uint8_t is_present = 0;
  if (!archive.ReadChar(&is_present)) return false;
  if (is_present == 0) return true;
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  std::int32_t levels = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("a SubD of an unknown version");
  if (!archive.ReadInt(&levels) || !archive.Skip(kUnusedSize)) return false;
  return levels <= 0 || ReadLevel(archive, subd);
}

}  // namespace host
