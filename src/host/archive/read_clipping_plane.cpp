#include "host/archive/chunk_scope.h"
#include "host/archive/read_geometry.h"
#include "host/archive/read_surface_classes.h"

namespace host {
namespace {

bool CanCut(const ON_Plane& plane) {
  const ON_3dVector& n = plane.Normal();
  return plane.Origin().IsValid() && ON_IsValid(n.x) && ON_IsValid(n.y) && ON_IsValid(n.z) &&
         n.Length() > 0;
}

// The rectangle, in a chunk of its own.
bool ReadRectangle(ON_BinaryArchive& archive, ON_PlaneSurface& surface) {
  const ChunkScope scope(archive);
  return BeginReadChunkOf(archive, TCODE_ANONYMOUS_CHUNK, "a clipping plane without a surface") &&
         ReadPlaneSurface(archive, surface);
}

bool ReadViewportIds(ON_BinaryArchive& archive, std::vector<ON_UUID>& ids) {
  const ChunkScope scope(archive);
  int major = 0;
  int minor = 0;
  std::size_t count = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("a list of viewports of an unknown version");
  if (!archive.ReadCount(sizeof(ON_UUID), &count)) return false;
  ids.resize(count);
  for (ON_UUID& id : ids) {
    if (!archive.ReadUuid(&id)) return false;
  }
  return true;
}

// What is cut, and whether. How deep it cuts and which objects it spares, as newer documents tell
// at the end, is passed over.
bool ReadClipping(ON_BinaryArchive& archive, ON_ClippingPlaneSurface& surface) {
  const ChunkScope scope(archive);
  int major = 0;
  int minor = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("a clipping plane of an unknown version");
  ON_UUID first_viewport_id;
  ON_UUID plane_id;
  // The same plane as the surface's.
  ON_Plane plane;
  if (!archive.ReadUuid(&first_viewport_id) || !archive.ReadUuid(&plane_id) ||
      !archive.ReadPlane(&plane) || !archive.ReadBool(&surface.m_bEnabled)) {
    return false;
  }
  if (minor >= 1) return ReadViewportIds(archive, surface.m_viewport_ids);
  surface.m_viewport_ids = {first_viewport_id};
  return true;
}

}  // namespace

bool ReadClippingPlane(ON_BinaryArchive& archive, ON_ClippingPlaneSurface& surface) {
  const ChunkScope scope(archive);
  int major = 0;
  int minor = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("a clipping plane of an unknown version");
  if (!ReadRectangle(archive, surface) || !ReadClipping(archive, surface)) return false;
  return CanCut(surface.m_plane) || archive.Fail("a clipping plane without a plane");
}

}  // namespace host
