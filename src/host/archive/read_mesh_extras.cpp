#include "host/archive/read_mesh_extras.h"

#include <algorithm>
#include <cmath>

#include "host/archive/chunk_scope.h"
#include "host/archive/read_geometry.h"

namespace host {
namespace {

bool ReadIndices(ON_BinaryArchive& archive, std::size_t count, std::size_t limit,
                 std::vector<std::uint32_t>& indices) {
  if (count > archive.BytesLeft() / sizeof(std::uint32_t)) {
    return archive.Fail("a polygon is longer than its chunk");
  }
  indices.resize(count);
  if (!archive.ReadByte(std::as_writable_bytes(std::span(indices)))) return false;
  const bool inside = std::all_of(indices.begin(), indices.end(),
                                  [limit](std::uint32_t index) { return index < limit; });
  return inside || archive.Fail("a polygon names a vertex or face that isn't there");
}

bool ReadNgonList(ON_BinaryArchive& archive, const ON_Mesh& mesh, std::vector<ON_MeshNgon>& ngons) {
  std::uint32_t count = 0;
  if (!archive.ReadInt(&count)) return false;
  for (std::uint32_t i = 0; i < count; ++i) {
    ON_MeshNgon ngon;
    std::uint32_t vertices = 0, faces = 0;
    if (!archive.ReadInt(&vertices)) return false;
    // A place that was left empty.
    if (vertices == 0) continue;
    if (!archive.ReadInt(&faces) || !ReadIndices(archive, vertices, mesh.m_V.size(), ngon.m_vi) ||
        !ReadIndices(archive, faces, mesh.m_F.size(), ngon.m_fi)) {
      return false;
    }
    ngons.push_back(std::move(ngon));
  }
  return true;
}

// True when each double is its float but for rounding.
bool AgreesWithFloats(std::span<const ON_3dPoint> points, std::span<const ON_3fPoint> floats) {
  constexpr double kTolerance = 1e-6;
  // Below, floats have no more digits.
  constexpr double kSmallest = 1e-37;
  const auto agrees = [](const ON_3dPoint& d, const ON_3fPoint& f) {
    const double size = std::max({std::abs(d.x), std::abs(d.y), std::abs(d.z), kSmallest});
    const double difference =
        std::max({std::abs(d.x - f.x), std::abs(d.y - f.y), std::abs(d.z - f.z)});
    const bool finite = std::isfinite(d.x) && std::isfinite(d.y) && std::isfinite(d.z);
    return finite && difference <= kTolerance * size;
  };
  return std::equal(points.begin(), points.end(), floats.begin(), floats.end(), agrees);
}

void TakeDoublePoints(ON_SimpleArray<ON_3dPoint>& points, ON_Mesh& mesh) {
  if (!points.empty() && AgreesWithFloats(points, mesh.m_V)) mesh.m_dV = std::move(points);
}

void ReadDoublePointsItem(ON_BinaryArchive& archive, ON_Mesh& mesh) {
  // Counts and sums of both kinds of vertices.
  constexpr std::uint64_t kCheckSize = 4 * sizeof(std::uint32_t);
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  ON_SimpleArray<ON_3dPoint> points;
  const bool read = archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor) &&
                    major == 1 && archive.Skip(kCheckSize) && ReadArray(archive, points);
  if (read) TakeDoublePoints(points, mesh);
}

// The indices of one polygon of the old list: as many faces as vertices, the rest of them -1.
bool ReadOldNgon(ON_BinaryArchive& archive, const ON_Mesh& mesh, std::size_t count,
                 ON_MeshNgon& ngon) {
  constexpr std::uint32_t kNone = 0xffffffff;
  if (!ReadIndices(archive, count, mesh.m_V.size(), ngon.m_vi)) return false;
  std::uint32_t face = 0;
  for (std::size_t i = 0; i < count; ++i) {
    if (!archive.ReadInt(&face)) return false;
    if (face == kNone) continue;
    if (face >= mesh.m_F.size()) return archive.Fail("a polygon names a face that isn't there");
    ngon.m_fi.push_back(face);
  }
  return true;
}

bool ReadOldNgonList(ON_BinaryArchive& archive, const ON_Mesh& mesh,
                     std::vector<ON_MeshNgon>& ngons) {
  std::size_t count = 0, vertices = 0;
  if (!archive.ReadCount(sizeof(std::int32_t), &count)) return false;
  for (std::size_t i = 0; i < count; ++i) {
    if (!archive.ReadCount(2 * sizeof(std::int32_t), &vertices)) return false;
    if (vertices == 0) continue;
    ON_MeshNgon ngon;
    if (!ReadOldNgon(archive, mesh, vertices, ngon)) return false;
    ngons.push_back(std::move(ngon));
  }
  return true;
}

void ReadOldNgonsItem(ON_BinaryArchive& archive, ON_Mesh& mesh) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  std::vector<ON_MeshNgon> ngons;
  const bool read = archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor) &&
                    major == 1 && ReadOldNgonList(archive, mesh, ngons);
  if (read && mesh.m_Ngon.empty()) mesh.m_Ngon = std::move(ngons);
}

}  // namespace

bool ReadNgons(ON_BinaryArchive& archive, ON_Mesh& mesh) {
  bool present = false;
  if (!archive.ReadBool(&present)) return false;
  if (!present) return true;
  int major = 0, minor = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  std::vector<ON_MeshNgon> ngons;
  const bool read = major == 1 && ReadNgonList(archive, mesh, ngons);
  archive.EndRead3dmChunk();
  if (read) mesh.m_Ngon = std::move(ngons);
  return true;
}

bool ReadDoublePoints(ON_BinaryArchive& archive, ON_Mesh& mesh) {
  bool present = false;
  if (!archive.ReadBool(&present)) return false;
  if (!present) return true;
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  std::uint32_t count = 0;
  ON_SimpleArray<ON_3dPoint> points;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("double precision vertices of an unknown version");
  if (!archive.ReadInt(&count)) return false;
  if (count != 0 && !archive.ReadCompressedArray(count, &points)) return false;
  TakeDoublePoints(points, mesh);
  return true;
}

void ReadMeshUserData(ON_BinaryArchive& archive, const ON_UUID& class_id, ON_Mesh& mesh) {
  constexpr ON_UUID kDoublePointsId = "17f24e75-21be-4a7b-9f3d-7f85225247e3"_uuid;
  constexpr ON_UUID kNgonsId = "31f55aa3-71fb-49f5-a975-757584d937ff"_uuid;
  if (class_id == kDoublePointsId) ReadDoublePointsItem(archive, mesh);
  if (class_id == kNgonsId) ReadOldNgonsItem(archive, mesh);
}

}  // namespace host
