#pragma once

#include <memory>

#include "host/archive/binary_archive.h"
#include "host/geometry/on_instance_ref.h"
#include "host/geometry/on_mesh.h"
#include "host/geometry/on_plane_surface.h"
#include "host/geometry/on_point_cloud.h"

// The data of the classes of geometry that are read, each called with the class's data chunk open.

namespace host {

inline constexpr ON_UUID kMeshClass = "4ed7d4e4-e947-11d3-bfe5-0010830122f0"_uuid;

// A mesh with all its channels. Fails when a face names a vertex that isn't there, so that what was
// read can be used without further checks.
[[nodiscard]] bool ReadMesh(ON_BinaryArchive& archive, ON_Mesh& mesh);
// What older meshes carry as user data of class `class_id`: vertices in double precision, polygons.
// Called with the payload's chunk open; other classes are left alone.
void ReadMeshUserData(ON_BinaryArchive& archive, const ON_UUID& class_id, ON_Mesh& mesh);
// The next chunk, which wraps a mesh that is a part of something else. Null when it is broken.
[[nodiscard]] std::shared_ptr<ON_Mesh> ReadWrappedMesh(ON_BinaryArchive& archive);
[[nodiscard]] bool ReadPoint(ON_BinaryArchive& archive, ON_Point& point);
[[nodiscard]] bool ReadPointCloud(ON_BinaryArchive& archive, ON_PointCloud& cloud);
// A clipping plane. Fails when it has no plane to cut with: a coordinate of the origin or the
// normal is no number, or the normal is zero.
[[nodiscard]] bool ReadClippingPlane(ON_BinaryArchive& archive, ON_ClippingPlaneSurface& surface);
// Where a block is placed. Fails when a number of the transform isn't finite.
[[nodiscard]] bool ReadInstanceRef(ON_BinaryArchive& archive, ON_InstanceRef& reference);

}  // namespace host
