#include "jobs/frame_camera.h"

#include "host/document/doc.h"
#include "host/document/object_iterator.h"
#include "host/geometry/on_viewport.h"
#include "host/system/text.h"

namespace orv {
namespace {

// From half an angle in radians to the whole angle in degrees, by 360 / 3.14159.
constexpr double kFullAngleInDegrees = 114.59165581759555;

// Half of the picture's height on 35 mm film.
constexpr double kHalfFilmHeight = 12;

// The host puts no camera farther away than this.
ON_3dPoint PlaceOr(ON_3dPoint point, ON_3dPoint otherwise) {
  constexpr double kFarthest = 1e100;
  const bool isPlace = std::abs(point.x) < kFarthest && std::abs(point.y) < kFarthest &&
                       std::abs(point.z) < kFarthest;
  return isPlace ? point : otherwise;
}

// The camera of a new viewport, which looks down, where there is no other: in the direction of the
// vertical, or in none.
ON_Viewport LookFrom(ON_3dPoint location, ON_3dVector direction, double lens) {
  ON_Viewport viewport;
  viewport.m_projection = ON_Viewport::View::perspective;
  viewport.m_location = location;
  static_cast<void>(viewport.SetCameraFrame(location, direction, {0, 0, 1}));
  if (lens > 0) {
    const double extent = kHalfFilmHeight * viewport.m_frustum.near / lens;
    viewport.m_frustum.left = viewport.m_frustum.bottom = -extent;
    viewport.m_frustum.right = viewport.m_frustum.top = extent;
  }
  return viewport;
}

// The host sums in this order, and the last digits show it.
double DotProduct(ON_3dVector a, ON_3dVector b) {
  return a.y * b.y + a.x * b.x + a.z * b.z;
}

std::string CameraStatements(const ON_Viewport& viewport) {
  const ON_3dVector x = viewport.CameraX();
  const ON_3dVector y = viewport.CameraY();
  const ON_3dVector back = -viewport.CameraZ();
  const ON_3dVector location = ON_FromOrigin(viewport.CameraLocation());
  return host::Format("  Projection \"perspective\" \"fov\" [%g]\n",
                      viewport.GetCameraAngle() * kFullAngleInDegrees) +
         host::Format("  Transform [ %g %g %g 0.0 %g %g %g 0.0 %g %g %g 0.0 %g %g %g 1.0 ]\n",  //
                      x.x, y.x, back.x, x.y, y.y, back.y, x.z, y.z, back.z,                     //
                      -DotProduct(x, location), -DotProduct(y, location),
                      -DotProduct(back, location));
}

}  // namespace

const ON_Curve* FindNamedCurve(CRhinoDoc& doc, std::string_view name) {
  if (name.empty()) return nullptr;
  CRhinoObjectIterator objects(doc);
  for (const CRhinoObject* object = objects.First(); object != nullptr; object = objects.Next()) {
    const ON_Curve* curve = ON_Curve::Cast(object->Geometry());
    if (curve != nullptr && host::EqualNoCase(object->Attributes().m_name, name)) return curve;
  }
  return nullptr;
}

FrameCamera::FrameCamera(const ON_Curve& path, const ON_Curve* target,
                         const RenderSettings& settings, double unitsPerMillimeter)
    : path_(path), settings_(settings), unitsPerMillimeter_(unitsPerMillimeter) {
  if (target != nullptr) target_.emplace(*target);
}

double FrameCamera::FractionBefore(int frame) const {
  return settings_.AnimFrames < 2 ? frame : static_cast<double>(frame) / settings_.AnimFrames;
}

std::string FrameCamera::DepthOfField(double focusDistance) const {
  if (!settings_.DofEnable) return {};
  return host::Format("DepthOfField %g %g %g\n", settings_.DofFstop,
                      settings_.DofCameraLens * unitsPerMillimeter_, focusDistance);
}

std::string FrameCamera::Statements(int frame) const {
  const double now = FractionBefore(frame);
  const ON_3dPoint location = PlaceOr(path_.PointAfter(now), ON_Viewport().CameraLocation());
  const ON_3dPoint aim = PlaceOr(
      target_ ? target_->PointAfter(now) : path_.PointAfter(FractionBefore(frame + 1)), location);
  const ON_3dVector direction = aim - location;
  const bool focusesOnAim = target_ && settings_.DofFocusOnTarget;
  return CameraStatements(LookFrom(location, direction, settings_.AnimCameraLens)) +
         DepthOfField(focusesOnAim ? direction.Length() : settings_.DofFocusDistance);
}

}  // namespace orv
