#include "export/camera.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "export/attribute_scope.h"
#include "host/geometry/on_line.h"

namespace orv {
namespace {

// The view's rectangle in pixels.
struct PortSize {
  double width;
  double height;
};

PortSize GetPortSize(const ON_Viewport& viewport) {
  const ON_Viewport::ScreenPort port = viewport.GetScreenPort();
  return {static_cast<double>(port.right) - port.left, static_cast<double>(port.bottom) - port.top};
}

int Truncated(double pixels) {
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(std::clamp<double>(pixels, Limits::min(), Limits::max()));
}

bool IsPerspective(const ON_Viewport& viewport) {
  return viewport.Projection() == ON_Viewport::View::perspective;
}

bool UsesViewportSize(const RenderSettings& settings) {
  return settings.ImageWidth < 1 || settings.ImageHeight < 1;
}

bool EmitsCamera(const RenderSettings& settings) {
  return settings.WriteCamera && settings.AnimMode != 2 && settings.AnimMode != 3;
}

// A landscape image keeps the height of the view, a portrait one its width.
void WriteParallelScreenWindow(RibWriter& writer, const ON_Viewport& viewport,
                               const RenderSettings& settings) {
  const ON_Viewport::Frustum frustum = viewport.GetFrustum();
  const PortSize port = GetPortSize(viewport);
  const double half = ((frustum.right - frustum.left) / port.width) * 0.5;
  double sx = half * port.width;
  double sy = half * port.height;
  if (!UsesViewportSize(settings)) {
    const double aspect = static_cast<double>(settings.ImageWidth) / settings.ImageHeight;
    if (aspect < 1) {
      sy = sx / aspect;
    } else {
      sx = aspect * sy;
    }
  }
  RibPrintf(writer, "ScreenWindow %g %g %g %g\n", -sx, sx, -sy, sy);
}

void WriteClipping(RibWriter& writer, const CRhinoView& view, const CRhinoDoc& doc) {
  const ClippingRange range = GetViewClippingRange(view, doc);
  if (range.near != range.far) RibPrintf(writer, "Clipping %g %g\n", range.near, range.far);
}

void WriteFormat(RibWriter& writer, const ON_Viewport& viewport, RenderSettings& settings) {
  settings.FormatWidth = settings.ImageWidth;
  settings.FormatHeight = settings.ImageHeight;
  if (UsesViewportSize(settings)) {
    const PortSize port = GetPortSize(viewport);
    settings.FormatWidth = Truncated(port.width);
    settings.FormatHeight = Truncated(port.height);
  }
  RibPrintf(writer, "Format %d %d 1\n", settings.FormatWidth, settings.FormatHeight);
}

void WriteProjection(RibWriter& writer, const ON_Viewport& viewport, RenderSettings& settings) {
  settings.CameraFov = FieldOfView(viewport);
  if (IsPerspective(viewport)) {
    RibPrintf(writer, "Projection \"perspective\" \"fov\" [ %g ]\n", settings.CameraFov);
  } else {
    RibPrintf(writer, "Projection \"orthographic\"\n");
  }
}

// Grows the range low..high of a unit to `size` about its middle, and moves it into the unit.
void Grow(double& low, double& high, double size) {
  const double middle = (high + low) * 0.5;
  low = middle - size * 0.5;
  if (low >= 0) {
    high = middle + size * 0.5;
    if (high > 1) {
      high = 1;
      low = std::max(1 - size, 0.0);
    }
  } else {
    low = 0;
    high = std::min(size, 1.0);
  }
}

// The crop region fills the whole image: the region that is wider or higher than the image grows in
// its other direction, and the screen window becomes that region.
void WriteEnlargedCrop(RibWriter& writer, const ON_Viewport& viewport,
                       const RenderSettings& settings) {
  const PortSize port = GetPortSize(viewport);
  const double portAspect = port.width / port.height;
  const double right = portAspect < 1 ? 1 : portAspect;
  const double top = portAspect < 1 ? 1 / portAspect : 1;
  const double left = -right;
  const double bottom = -top;

  auto [x0, x1, y0, y1] = settings.CropWindow;
  const double formatAspect = static_cast<double>(settings.FormatWidth) / settings.FormatHeight;
  const double cropWidth = std::fabs(x1 - x0);
  const double cropHeight = std::fabs(y1 - y0);
  if (formatAspect <= cropWidth / cropHeight) {
    Grow(y0, y1, cropWidth / formatAspect);
  } else {
    Grow(x0, x1, cropHeight * formatAspect);
  }
  // The fractions of y run downward.
  RibPrintf(writer, "ScreenWindow [%g %g %g %g]\n", (right - left) * x0 + left,
            (right - left) * x1 + left, (1 - y1) * (top - bottom) + bottom,
            (1 - y0) * (top - bottom) + bottom);
}

void WriteCameraMatrix(RibWriter& writer, const std::array<double, 16>& m) {
  RibPrintf(writer, "ConcatTransform [ %g %g %g 0.0 %g %g %g 0.0 %g %g %g 0.0 %g %g %g 1.0 ]\n",
            m[0], m[1], m[2], m[4], m[5], m[6], m[8], m[9], m[10], m[12], m[13], m[14]);
}

// The main camera is the left eye of a stereo pair.
void WriteTransform(RibWriter& writer, const ON_Viewport& viewport, RenderSettings& settings) {
  settings.CameraMatrix = CameraMatrix(viewport);
  if (settings.StereoEnable) {
    RibPrintf(writer, "Translate %g 0 0\n", settings.InterocularDistance * -0.5);
  }
  WriteCameraMatrix(writer, settings.CameraMatrix);
}

void WriteRightEye(RibWriter& writer, const RenderSettings& settings) {
  BeginAttributes(writer);
  RibPrintf(writer, "Identity\n");
  RibPrintf(writer, "Translate %g 0 0\n", settings.InterocularDistance * 0.5);
  WriteCameraMatrix(writer, settings.CameraMatrix);
  RibPrintf(writer, "Camera \"right\"\n");
  EndAttributes(writer);
}

void WriteDepthOfField(RibWriter& writer, const CRhinoViewport& viewport, const CRhinoDoc& doc,
                       const RenderSettings& settings) {
  const double unitsPerMillimeter =
      doc.Properties().ModelUnitsAndTolerances().Scale(ON_UnitSystem::millimeters);
  const double focusDistance = settings.DofFocusOnTarget
                                   ? (viewport.Target() - viewport.VP().CameraLocation()).Length()
                                   : settings.DofFocusDistance;
  RibPrintf(writer, "DepthOfField %g %g %g\n", settings.DofFstop,
            settings.DofCameraLens * unitsPerMillimeter, focusDistance);
}

// The scene turns about the vertical axis through the target while the shutter is open.
void WriteTurntable(RibWriter& writer, ON_3dPoint target, const RenderSettings& settings) {
  RibPrintf(writer, "Translate %g %g %g\n", target.x, target.y, target.z);
  RibPrintf(writer, "MotionBegin [0 1]\n");
  RibPrintf(writer, "  Rotate 0  0 0 1\n");
  RibPrintf(writer, "  Rotate %g  0 0 1\n", settings.TurntableMaxAngle);
  RibPrintf(writer, "MotionEnd\n");
  RibPrintf(writer, "Translate %g %g %g\n", -target.x, -target.y, -target.z);
}

// The box of the document, seen along the viewing direction.
ClippingRange ParallelClippingRange(const ON_Viewport& viewport, const ON_BoundingBox& box) {
  if (!box.IsValid()) return {};
  const ON_3dVector direction = viewport.CameraDirection();
  const ON_Line axis{viewport.CameraLocation(), viewport.CameraLocation() + direction};
  double near = std::numeric_limits<double>::max();
  double far = std::numeric_limits<double>::lowest();
  for (const ON_3dPoint& corner : box.GetCorners()) {
    const double parameter = axis.ClosestPointTo(corner);
    near = std::min(near, parameter);
    far = std::max(far, parameter);
  }
  near *= near < 0 ? 1.05 : 0.95;
  far *= far < 0 ? 0.95 : 1.05;
  return {near * direction.Length(), far * direction.Length()};
}

ClippingRange PerspectiveClippingRange(const ON_Viewport& viewport) {
  constexpr double kLeastNear = 0.001;
  const double near = viewport.GetNearPlane().DistanceTo(viewport.CameraLocation());
  const double far = viewport.GetFarPlane().DistanceTo(viewport.CameraLocation());
  return {(near <= 0 ? kLeastNear : near) * 0.95, far * 1.05};
}

}  // namespace

ClippingRange GetViewClippingRange(const CRhinoView& view, const CRhinoDoc& doc) {
  const ON_Viewport& viewport = view.Viewport().VP();
  return IsPerspective(viewport) ? PerspectiveClippingRange(viewport)
                                 : ParallelClippingRange(viewport, doc.BoundingBox());
}

double FieldOfView(const ON_Viewport& viewport) {
  // From half an angle in radians to the whole angle in degrees.
  constexpr double kFullAngleInDegrees = 114.59155902616465;
  return IsPerspective(viewport) ? viewport.GetCameraAngle() * kFullAngleInDegrees : 0;
}

std::array<double, 16> CameraMatrix(const ON_Viewport& viewport) {
  const ON_3dVector x = viewport.CameraX();
  const ON_3dVector y = viewport.CameraY();
  const ON_3dVector z = viewport.CameraZ();
  const ON_3dVector location = ON_FromOrigin(viewport.CameraLocation());
  // clang-format off
  return {
      x.x, y.x, -z.x, 0,
      x.y, y.y, -z.y, 0,
      x.z, y.z, -z.z, 0,
      -ON_DotProduct(location, x), -ON_DotProduct(location, y), ON_DotProduct(location, z), 1};
  // clang-format on
}

void WriteCamera(RibWriter& writer, const CRhinoView& view, const CRhinoDoc& doc,
                 RenderSettings& settings) {
  const ON_Viewport& viewport = view.Viewport().VP();
  const bool emitsCamera = EmitsCamera(settings);
  if (emitsCamera) {
    if (!IsPerspective(viewport)) WriteParallelScreenWindow(writer, viewport, settings);
    WriteClipping(writer, view, doc);
  }
  WriteFormat(writer, viewport, settings);
  if (emitsCamera) {
    WriteProjection(writer, viewport, settings);
    if (settings.UseCropWindow && settings.Enlarge) WriteEnlargedCrop(writer, viewport, settings);
    WriteTransform(writer, viewport, settings);
    if (settings.StereoEnable) WriteRightEye(writer, settings);
    if (settings.DofEnable) WriteDepthOfField(writer, view.Viewport(), doc, settings);
  }
  if (settings.AnimMode == 1) WriteTurntable(writer, view.Viewport().Target(), settings);
}

}  // namespace orv
