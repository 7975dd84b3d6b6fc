#pragma once

#include "export/object_stream.h"
#include "host/geometry/on_point_cloud.h"
#include "shading/object_attributes.h"

class CRhinoObject;

namespace orv {

// Writes the block of a point cloud object, with a blank line before it: attributes, look and, as
// OrvPointType says, Points, a Blobby or a Volume. Nothing when SkipsLines.
void WritePointCloud(const ObjectStream& stream, const CRhinoObject& object,
                     const ON_PointCloud& cloud, const ObjectAttributes& attributes);

}  // namespace orv
