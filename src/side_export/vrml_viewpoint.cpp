#include "side_export/vrml_viewpoint.h"

#include <algorithm>
#include <cmath>

namespace orv {
namespace {

// How a camera that looks along -z is turned: about an axis of unit length, by an angle in radians.
struct Orientation {
  ON_3dVector axis;
  double angle;
};

// A vector of length 1; `otherwise` for one that has no direction.
ON_3dVector Unit(ON_3dVector vector, ON_3dVector otherwise) {
  const double length = vector.Length();
  return length > 0 && std::isfinite(length) ? vector * (1 / length) : otherwise;
}

// From the camera to its target; the way it looks when that is in the same place or nowhere.
ON_3dVector Direction(const CRhinoViewport& viewport) {
  const ON_3dVector toTarget = viewport.Target() - viewport.VP().CameraLocation();
  return ToVrml(Unit(toTarget, -viewport.VP().CameraZ()));
}

Orientation OrientationOf(ON_3dVector direction) {
  constexpr ON_3dVector kAhead{0, 0, -1};
  constexpr ON_3dVector kUp{0, 1, 0};
  return {Unit(ON_CrossProduct(kAhead, direction), kUp),
          std::acos(std::clamp(ON_DotProduct(direction, kAhead), -1.0, 1.0))};
}

}  // namespace

void WriteViewpoint(VrmlStream& stream, const CRhinoViewport& viewport) {
  const ON_Viewport& vp = viewport.VP();
  if (vp.Projection() != ON_Viewport::View::perspective) return;
  const ON_3dPoint location = ToVrml(vp.CameraLocation());
  const ON_Viewport::Angles half = vp.GetHalfAngles();
  const auto [axis, angle] = OrientationOf(Direction(viewport));
  stream.Write("Viewpoint {\n  position ");
  stream.WriteNumbers(location.x, location.y, location.z);
  // A quarter of the larger angle.
  stream.Write("  fieldOfView ");
  stream.WriteNumbers(std::max(half.vertical, half.horizontal) * 0.5);
  stream.Write("  orientation ");
  stream.WriteNumbers(axis.x, axis.y, axis.z, angle);
  stream.Write("  description \"" + VrmlString(viewport.Name()) + "\"\n}\n");
}

}  // namespace orv
