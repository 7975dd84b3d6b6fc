#include "host/archive/chunk_scope.h"
#include "host/archive/read_geometry.h"

namespace host {

bool ReadPoint(ON_BinaryArchive& archive, ON_Point& point) {
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1) return archive.Fail("a point of an unknown version");
  return archive.ReadPoint(&point.point);
}

// An optional channel that doesn't fit the points is of no use.
template <class T>
static void DropMisfit(ON_SimpleArray<T>& channel, std::size_t count) {
  if (channel.size() != count) channel.clear();
}

bool ReadPointCloud(ON_BinaryArchive& archive, ON_PointCloud& cloud) {
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1) return archive.Fail("a point cloud of an unknown version");
  ON_BoundingBox box;
  if (!ReadArray(archive, cloud.m_P) || !archive.ReadPlane(&cloud.m_plane) ||
      !archive.ReadBoundingBox(&box) || !archive.ReadInt(&cloud.m_flags)) {
    return false;
  }
  if (minor >= 1 && !(ReadArray(archive, cloud.m_N) && ReadArray(archive, cloud.m_C))) {
    return false;
  }
  if (minor >= 2 && !ReadArray(archive, cloud.m_V)) return false;
  DropMisfit(cloud.m_N, cloud.m_P.size());
  DropMisfit(cloud.m_C, cloud.m_P.size());
  DropMisfit(cloud.m_V, cloud.m_P.size());
  return true;
}

}  // namespace host
