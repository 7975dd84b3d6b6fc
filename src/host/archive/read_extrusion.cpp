#include "host/archive/read_extrusion.h"

#include "host/archive/chunk_scope.h"
#include "host/archive/read_curve.h"
#include "host/archive/read_geometry.h"

namespace host {
namespace {

// Where a cached mesh stands that is made for rendering; others are for analysis and previews.
constexpr ON_UUID kRenderMeshId = "f5e3baa9-a7a2-49fd-b8a1-66eb274a5f91"_uuid;

bool ReadCachedMesh(ON_BinaryArchive& archive, ON_Extrusion& extrusion) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  ON_UUID id;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor) || !archive.ReadUuid(&id)) {
    return false;
  }
  if (id == kRenderMeshId) extrusion.m_render_mesh = ReadWrappedMesh(archive);
  return true;
}

// A byte in front of each mesh tells that one follows.
bool ReadMeshCache(ON_BinaryArchive& archive, ON_Extrusion& extrusion) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  std::uint8_t is_present = 0;
  while (archive.ReadChar(&is_present) && is_present != 0) {
    if (!ReadCachedMesh(archive, extrusion)) return false;
  }
  return true;
}

bool ReadPath(ON_BinaryArchive& archive, ON_Extrusion& extrusion) {
  return archive.ReadPoint(&extrusion.m_path.from) && archive.ReadPoint(&extrusion.m_path.to) &&
         archive.ReadInterval(&extrusion.m_t) && archive.ReadVector(&extrusion.m_up);
}

bool ReadEnds(ON_BinaryArchive& archive, ON_Extrusion& extrusion) {
  return archive.ReadBool(&extrusion.m_bHaveN[0]) && archive.ReadBool(&extrusion.m_bHaveN[1]) &&
         archive.ReadVector(&extrusion.m_N[0]) && archive.ReadVector(&extrusion.m_N[1]);
}

bool ReadFields(ON_BinaryArchive& archive, int minor, ON_Extrusion& extrusion) {
  extrusion.m_profile = ReadCurve(archive);
  if (extrusion.m_profile == nullptr) return archive.Fail("the profile of an extrusion is broken");
  if (!ReadPath(archive, extrusion) || !ReadEnds(archive, extrusion) ||
      !archive.ReadInterval(&extrusion.m_path_domain) ||
      !archive.ReadBool(&extrusion.m_bTransposed) || !archive.ReadInt(&extrusion.m_profile_count)) {
    return false;
  }
  if (minor >= 2 &&
      (!archive.ReadBool(&extrusion.m_bCap[0]) || !archive.ReadBool(&extrusion.m_bCap[1]))) {
    return false;
  }
  if (!extrusion.IsValid()) return archive.Fail("an extrusion that isn't valid");
  if (minor >= 3 && !ReadMeshCache(archive, extrusion)) extrusion.m_render_mesh = nullptr;
  return true;
}

}  // namespace

bool ReadExtrusion(ON_BinaryArchive& archive, ON_Extrusion& extrusion) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("an extrusion of an unknown version");
  return ReadFields(archive, minor, extrusion);
}

}  // namespace host
