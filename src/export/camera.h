#pragma once

#include <array>

#include "export/rib_writer.h"
#include "host/document/doc.h"
#include "settings/render_settings.h"

namespace orv {

// Distances from the camera, in model units.
struct ClippingRange {
  double near = 0;
  double far = 0;
};

// What the view sees between, with a margin: the document's box in a parallel view, the frustum in
// a perspective one. Both are 0 when a parallel view has nothing to see.
ClippingRange GetViewClippingRange(const CRhinoView& view, const CRhinoDoc& doc);

// The angle of a perspective view in degrees; 0 for a parallel one.
double FieldOfView(const ON_Viewport& viewport);

// World to camera, row after row. The host's camera looks down its negative z axis, the renderer's
// down its positive one.
std::array<double, 16> CameraMatrix(const ON_Viewport& viewport);

// The camera: screen window, clipping, format, projection, camera transform, stereo, depth of field
// and the turntable's motion. FormatWidth, FormatHeight, CameraMatrix and CameraFov of the settings
// become what was written.
void WriteCamera(RibWriter& writer, const CRhinoView& view, const CRhinoDoc& doc,
                 RenderSettings& settings);

}  // namespace orv
