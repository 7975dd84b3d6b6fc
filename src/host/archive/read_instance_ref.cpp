#include <algorithm>
#include <array>

#include "host/archive/read_geometry.h"

namespace host {
namespace {

bool IsFinite(const ON_Xform& xform) {
  return std::all_of(xform.m_xform.begin(), xform.m_xform.end(), [](const auto& row) {
    return std::all_of(row.begin(), row.end(), ON_IsValid);
  });
}

}  // namespace

bool ReadInstanceRef(ON_BinaryArchive& archive, ON_InstanceRef& reference) {
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1) return archive.Fail("a block reference of an unknown version");
  if (!archive.ReadUuid(&reference.m_instance_definition_uuid) ||
      !archive.ReadXform(&reference.m_xform) || !archive.ReadBoundingBox(&reference.m_bbox)) {
    return false;
  }
  return IsFinite(reference.m_xform) ||
         archive.Fail("the transform of a block reference isn't finite");
}

}  // namespace host
