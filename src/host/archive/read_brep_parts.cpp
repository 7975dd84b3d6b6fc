#include "host/archive/read_brep_parts.h"

#include <algorithm>

#include "host/archive/chunk_scope.h"

namespace host {
namespace {

// Whether trims and edges tell the parameters that they have themselves beside those of their
// curves.
bool HasOwnDomains(const ON_BinaryArchive& archive) {
  constexpr unsigned kFirstWriter = 200206180;
  return archive.Archive3dmVersion() >= 3 && archive.ArchiveOpenNURBSVersion() >= kFirstWriter;
}

// A value that isn't of the enumeration becomes `unknown`, which is 0.
template <class E>
E ToEnum(std::int32_t value, E last) {
  return value < 0 || value > static_cast<std::int32_t>(last) ? E{} : static_cast<E>(value);
}

bool ReadFlag(ON_BinaryArchive& archive, bool* flag) {
  std::int32_t value = 0;
  const bool ok = archive.ReadInt(&value);
  *flag = value != 0;
  return ok;
}

bool ReadIndices(ON_BinaryArchive& archive, std::vector<int>& indices) {
  std::size_t count = 0;
  if (!archive.ReadCount(sizeof(std::int32_t), &count)) return false;
  indices.resize(count);
  return archive.ReadByte(std::as_writable_bytes(std::span(indices)));
}

// Each part begins with its own position, which follows from the order.
bool SkipPosition(ON_BinaryArchive& archive) {
  return archive.Skip(sizeof(std::int32_t));
}

bool ReadPart(ON_BinaryArchive& archive, ON_BrepVertex& vertex) {
  return SkipPosition(archive) && archive.ReadPoint(&vertex.point) &&
         ReadIndices(archive, vertex.m_ei) && archive.ReadDouble(&vertex.m_tolerance);
}

bool ReadPart(ON_BinaryArchive& archive, ON_BrepEdge& edge) {
  return SkipPosition(archive) && archive.ReadInt(&edge.m_c3i) &&
         ReadFlag(archive, &edge.m_bReversed) && archive.ReadInterval(&edge.m_domain) &&
         archive.ReadInt(&edge.m_vi[0]) && archive.ReadInt(&edge.m_vi[1]) &&
         ReadIndices(archive, edge.m_ti) && archive.ReadDouble(&edge.m_tolerance) &&
         (!HasOwnDomains(archive) || archive.Skip(2 * sizeof(double)));
}

// Whether the curve is run through backwards stands behind the trim's own domain; 7 and 24 bytes
// that nobody uses follow. Older trims have two points there.
bool ReadTrimReversal(ON_BinaryArchive& archive, ON_BrepTrim& trim) {
  constexpr std::uint64_t kUnusedSize = 7 + 24;
  constexpr std::uint64_t kPointsSize = 2 * sizeof(ON_3dPoint);
  if (!HasOwnDomains(archive)) return archive.Skip(kPointsSize);
  return archive.Skip(2 * sizeof(double)) && archive.ReadBool(&trim.m_bReversed) &&
         archive.Skip(kUnusedSize);
}

bool ReadPart(ON_BinaryArchive& archive, ON_BrepTrim& trim) {
  // Tolerances of older writers.
  constexpr std::uint64_t kOldTolerancesSize = 2 * sizeof(double);
  std::int32_t type = 0, iso = 0;
  if (!SkipPosition(archive) || !archive.ReadInt(&trim.m_c2i) ||
      !archive.ReadInterval(&trim.m_domain) || !archive.ReadInt(&trim.m_ei) ||
      !archive.ReadInt(&trim.m_vi[0]) || !archive.ReadInt(&trim.m_vi[1]) ||
      !ReadFlag(archive, &trim.m_bRev3d) || !archive.ReadInt(&type) || !archive.ReadInt(&iso) ||
      !archive.ReadInt(&trim.m_li) || !archive.ReadDouble(&trim.m_tolerance[0]) ||
      !archive.ReadDouble(&trim.m_tolerance[1])) {
    return false;
  }
  trim.m_type = ToEnum(type, ON_BrepTrim::Type::singular);
  trim.m_iso = ToEnum(iso, ON_BrepTrim::Iso::north);
  return ReadTrimReversal(archive, trim) && archive.Skip(kOldTolerancesSize);
}

bool ReadPart(ON_BinaryArchive& archive, ON_BrepLoop& loop) {
  std::int32_t type = 0;
  if (!SkipPosition(archive) || !ReadIndices(archive, loop.m_ti) || !archive.ReadInt(&type)) {
    return false;
  }
  loop.m_type = ToEnum(type, ON_BrepLoop::Type::slit);
  return archive.ReadInt(&loop.m_fi);
}

bool ReadPart(ON_BinaryArchive& archive, ON_BrepFace& face) {
  if (!SkipPosition(archive) || !ReadIndices(archive, face.m_li) || !archive.ReadInt(&face.m_si) ||
      !ReadFlag(archive, &face.m_bRev) || !archive.ReadInt(&face.m_material_channel_index)) {
    return false;
  }
  // Older writers left it unset.
  face.m_material_channel_index = std::max(face.m_material_channel_index, 0);
  return true;
}

// A chunk with the parts. Later versions have more behind them, which isn't used.
template <class Part>
bool ReadTable(ON_BinaryArchive& archive, std::size_t smallest, std::vector<Part>& parts) {
  const ChunkScope scope(archive);
  std::size_t count = 0;
  if (!BeginReadBrepTable(archive, smallest, &count)) return false;
  parts.resize(count);
  for (Part& part : parts) {
    if (!ReadPart(archive, part)) return false;
  }
  return true;
}

}  // namespace

bool BeginReadBrepTable(ON_BinaryArchive& archive, std::size_t smallest, std::size_t* count) {
  int major = 0, minor = 0;
  if (!BeginReadChunkOf(archive, TCODE_ANONYMOUS_CHUNK, "a brep without one of its tables") ||
      !archive.Read3dmChunkVersion(&major, &minor)) {
    return false;
  }
  if (major != 1) return archive.Fail("a table of a brep has an unknown version");
  return archive.ReadCount(smallest, count);
}

bool ReadBrepTables(ON_BinaryArchive& archive, ON_Brep& brep) {
  // What a part takes at least.
  constexpr std::size_t kVertexSize = 40, kEdgeSize = 48, kTrimSize = 132, kLoopSize = 16,
                        kFaceSize = 20;
  return ReadTable(archive, kVertexSize, brep.m_V) && ReadTable(archive, kEdgeSize, brep.m_E) &&
         ReadTable(archive, kTrimSize, brep.m_T) && ReadTable(archive, kLoopSize, brep.m_L) &&
         ReadTable(archive, kFaceSize, brep.m_F);
}

}  // namespace host
