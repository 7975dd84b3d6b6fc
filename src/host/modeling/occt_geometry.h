#pragma once

#include <Geom2d_Curve.hxx>
#include <Geom_Curve.hxx>
#include <Geom_Surface.hxx>
#include <array>
#include <gp_Pnt.hxx>

#include "host/geometry/on_curve.h"
#include "host/geometry/on_surface.h"

// Curves and surfaces as Open CASCADE takes them. Its tolerances are absolute lengths, in space and
// in parameters, so all that it gets has the size of a few hundred and parameters of about the same
// length as what they stand for.

namespace host {

// Where the model is put for Open CASCADE: moved to the origin and scaled by a power of two.
struct ModelFrame {
  ON_3dPoint center{0, 0, 0};
  double scale = 1;

  // Of a box that is not a point.
  static ModelFrame Of(const ON_BoundingBox& box);
  gp_Pnt ToFrame(ON_3dPoint p) const {
    return {(p.x - center.x) * scale, (p.y - center.y) * scale, (p.z - center.z) * scale};
  }
  ON_3dPoint FromFrame(const gp_Pnt& p) const {
    return {center.x + p.X() / scale, center.y + p.Y() / scale, center.z + p.Z() / scale};
  }
};

// A surface and what became of its parameters.
struct FrameSurface {
  Handle(Geom_Surface) surface;
  // (u, v) is ((u - origin[0]) * scale[0], (v - origin[1]) * scale[1]) there.
  std::array<double, 2> origin{0, 0};
  std::array<double, 2> scale{1, 1};

  ON_2dPoint ToFrame(double u, double v) const {
    return {(u - origin[0]) * scale[0], (v - origin[1]) * scale[1]};
  }
  ON_2dPoint FromFrame(double u, double v) const {
    return {origin[0] + u / scale[0], origin[1] + v / scale[1]};
  }
};

// A piece of a curve of the model.
struct CurveStretch {
  const ON_Curve& curve;
  ON_Interval domain;
  bool reversed = false;

  ON_3dPoint Start() const { return curve.PointAt(reversed ? domain.Max : domain.Min); }
  ON_3dPoint End() const { return curve.PointAt(reversed ? domain.Min : domain.Max); }
};

// Null when the surface isn't valid, or too wild to be put into the frame.
[[nodiscard]] FrameSurface MakeFrameSurface(const std::shared_ptr<const ON_Surface>& surface,
                                            const ModelFrame& frame);
// The length of a stretch in the frame; at least a small positive number, and that as well when it
// has none.
[[nodiscard]] double FrameLength(const CurveStretch& stretch, const ModelFrame& frame);
// The stretch, in its own direction, is that from 0 to `length` of the result. Null when there is
// none.
[[nodiscard]] Handle(Geom_Curve)
    MakeSpaceCurve(const CurveStretch& stretch, const ModelFrame& frame, double length);
// The same in the parameters of a surface.
[[nodiscard]] Handle(Geom2d_Curve)
    MakeParameterCurve(const CurveStretch& stretch, const FrameSurface& surface, double length);

}  // namespace host
