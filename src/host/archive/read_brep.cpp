#include "host/archive/read_brep.h"

#include <algorithm>
#include <array>

#include "host/archive/brep_links.h"
#include "host/archive/chunk_scope.h"
#include "host/archive/read_brep_parts.h"
#include "host/archive/read_curve.h"
#include "host/archive/read_geometry.h"
#include "host/archive/read_surface.h"

namespace host {
namespace {

constexpr std::array kBrepClasses{
    "60b5dbc5-e660-11d3-bfe4-0010830122f0"_uuid, "f06fc243-a32a-4608-9dd8-a7d2c4ce2a36"_uuid,
    "0705fdef-3e2a-11d4-800e-0010830122f0"_uuid, "2d4cfedb-3e2a-11d4-800e-0010830122f0"_uuid};

template <class T>
std::shared_ptr<const T> ReadItem(ON_BinaryArchive& archive) {
  if constexpr (std::is_same_v<T, ON_Curve>) {
    return ReadCurve(archive);
  } else {
    return ReadSurface(archive);
  }
}

// A chunk of curves or surfaces. One that is broken is null.
template <class T>
bool ReadItems(ON_BinaryArchive& archive, std::vector<std::shared_ptr<const T>>& items) {
  const ChunkScope scope(archive);
  std::size_t count = 0;
  if (!BeginReadBrepTable(archive, sizeof(std::int32_t), &count)) return false;
  items.resize(count);
  for (auto& item : items) {
    std::int32_t is_present = 0;
    if (!archive.ReadInt(&is_present)) return false;
    if (is_present != 0) item = ReadItem<T>(archive);
  }
  return true;
}

bool ReadMeshChunk(ON_BinaryArchive& archive, std::vector<ON_BrepFace>& faces,
                   std::shared_ptr<const ON_Mesh> ON_BrepFace::*mesh) {
  const ChunkScope scope(archive);
  return BeginReadChunkOf(archive, TCODE_ANONYMOUS_CHUNK, "a brep without its meshes") &&
         ReadFaceMeshes(archive, faces, mesh);
}

// What came with the minor versions of version 3; the regions that a later one has aren't used.
bool ReadLaterFields(ON_BinaryArchive& archive, int minor, ON_Brep& brep) {
  constexpr int kLastSolid = 3;
  if (minor < 1) return true;
  if (!ReadMeshChunk(archive, brep.m_F, &ON_BrepFace::m_render_mesh) ||
      !ReadMeshChunk(archive, brep.m_F, &ON_BrepFace::m_analysis_mesh)) {
    return false;
  }
  if (minor < 2) return true;
  if (!archive.ReadInt(&brep.m_is_solid)) return false;
  if (brep.m_is_solid < 0 || brep.m_is_solid > kLastSolid) brep.m_is_solid = 0;
  return true;
}

bool ReadBody(ON_BinaryArchive& archive, int minor, ON_Brep& brep) {
  // Writers took it of the whole surfaces, or left it out.
  constexpr std::uint64_t kBoxSize = 6 * sizeof(double);
  return ReadItems(archive, brep.m_C2) && ReadItems(archive, brep.m_C3) &&
         ReadItems(archive, brep.m_S) && ReadBrepTables(archive, brep) && archive.Skip(kBoxSize) &&
         ReadLaterFields(archive, minor, brep);
}

}  // namespace

bool IsBrepClass(const ON_UUID& class_id) {
  return std::find(kBrepClasses.begin(), kBrepClasses.end(), class_id) != kBrepClasses.end();
}

bool ReadFaceMeshes(ON_BinaryArchive& archive, std::vector<ON_BrepFace>& faces,
                    std::shared_ptr<const ON_Mesh> ON_BrepFace::*mesh) {
  for (ON_BrepFace& face : faces) {
    std::uint8_t is_present = 0;
    if (!archive.ReadChar(&is_present)) return false;
    if (is_present != 0) face.*mesh = ReadWrappedMesh(archive);
  }
  return true;
}

bool ReadBrep(ON_BinaryArchive& archive, ON_Brep& brep) {
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 2 && major != 3) return archive.Fail("a brep of an unknown version");
  const bool read = major == 3 ? ReadBody(archive, minor, brep) : ReadOldBrep(archive, minor, brep);
  if (!read || !LinkBrep(archive, brep)) return false;
  brep.m_bbox = brep.BoundingBox();
  return true;
}

}  // namespace host
