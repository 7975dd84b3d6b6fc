#include "host/modeling/occt_geometry.h"

#include <Geom2d_BSplineCurve.hxx>
#include <Geom_BSplineCurve.hxx>
#include <Geom_Line.hxx>
#include <TColStd_Array1OfInteger.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <TColgp_Array1OfPnt.hxx>
#include <TColgp_Array1OfPnt2d.hxx>
#include <algorithm>
#include <cmath>
#include <optional>

#include "host/geometry/on_nurbs_curve.h"
#include "host/modeling/occt_knots.h"

namespace host {
namespace {

// What the model's box measures in the frame, at most.
constexpr double kFrameSize = 512;
constexpr double kLeastLength = 1e-3;
constexpr double kGreatestCoordinate = 1e12;

// The parameter of the NURBS form at which it has the point that the curve has at `t`. Both have
// the same domain but may run through it with another speed.
double FormParameter(const ON_Curve& curve, const ON_NurbsCurve& form, double t) {
  constexpr int kSteps = 20;
  const ON_Interval domain = form.Domain();
  if (t <= domain.Min || t >= domain.Max) return std::clamp(t, domain.Min, domain.Max);
  const ON_3dPoint goal = curve.PointAt(t);
  double found = t;
  for (int i = 0; i < kSteps; ++i) {
    ON_3dPoint point;
    ON_3dVector slope;
    form.Ev1Der(found, &point, &slope);
    const double square = ON_DotProduct(slope, slope);
    const double step = ON_DotProduct(goal - point, slope) / square;
    if (!std::isfinite(step) || std::abs(step) < domain.Length() * 1e-15) break;
    found = std::clamp(found + step, domain.Min, domain.Max);
  }
  return found;
}

// A stretch in NURBS form, from 0 to `length`: what goes on before and behind it stays.
std::optional<ON_NurbsCurve> StretchForm(const CurveStretch& stretch, double length) {
  ON_NurbsCurve form;
  if (!stretch.domain.IsIncreasing() || !stretch.curve.IsValid() ||
      !stretch.curve.GetNurbForm(form)) {
    return std::nullopt;
  }
  form.ClampAndRaise(form.Order());
  const double from = FormParameter(stretch.curve, form, stretch.domain.Min);
  const double to = FormParameter(stretch.curve, form, stretch.domain.Max);
  const double scale = length / (to - from);
  if (!(to > from) || !std::isfinite(scale)) return std::nullopt;
  for (double& knot : form.m_knot) knot = (stretch.reversed ? to - knot : knot - from) * scale;
  if (stretch.reversed) {
    std::reverse(form.m_knot.begin(), form.m_knot.end());
    std::reverse(form.m_cv.begin(), form.m_cv.end());
  }
  return form;
}

bool IsLine(const ON_NurbsCurve& form) {
  return form.Order() == 2 && form.CVCount() == 2 && form.m_cv[0].w == form.m_cv[1].w;
}

bool IsTame(double x, double y, double z) {
  return std::abs(x) < kGreatestCoordinate && std::abs(y) < kGreatestCoordinate &&
         std::abs(z) < kGreatestCoordinate;
}

// Poles, weights, knots; `put` has a place for each pole, and says whether it can be used.
template <class Curve, class Poles, class Put>
opencascade::handle<Curve> MakeSpline(const ON_NurbsCurve& form, Put put) {
  const std::optional<Knots> knots = MakeKnots(form.m_knot, form.Degree());
  if (!knots) return {};
  Poles poles(1, form.CVCount());
  TColStd_Array1OfReal weights(1, form.CVCount());
  const double sign = form.m_cv[0].w < 0 ? -1 : 1;
  for (int i = 1; i <= form.CVCount(); ++i) {
    const ON_4dPoint& cv = form.m_cv[static_cast<std::size_t>(i) - 1];
    weights(i) = cv.w * sign;
    if (!(weights(i) > kLeastWeight) || !put(cv.Euclidean(), poles(i))) return {};
  }
  if (!form.IsRational()) {
    return new Curve(poles, knots->values, knots->multiplicities, form.Degree());
  }
  return new Curve(poles, weights, knots->values, knots->multiplicities, form.Degree());
}

}  // namespace

ModelFrame ModelFrame::Of(const ON_BoundingBox& box) {
  const double size = box.m_min.DistanceTo(box.m_max);
  return {ON_3dPoint{box.m_min.x / 2 + box.m_max.x / 2, box.m_min.y / 2 + box.m_max.y / 2,
                     box.m_min.z / 2 + box.m_max.z / 2},
          std::exp2(std::floor(std::log2(kFrameSize / size)))};
}

double FrameLength(const CurveStretch& stretch, const ModelFrame& frame) {
  constexpr int kSamples = 16;
  const ON_NurbsCurve* nurbs = ON_NurbsCurve::Cast(&stretch.curve);
  const int samples = nurbs != nullptr && IsLine(*nurbs) ? 1 : kSamples;
  double length = 0;
  ON_3dPoint before = stretch.curve.PointAt(stretch.domain.Min);
  for (int i = 1; i <= samples; ++i) {
    const double fraction = static_cast<double>(i) / samples;
    const ON_3dPoint point = stretch.curve.PointAt(stretch.domain.ParameterAt(fraction));
    length += before.DistanceTo(point) * frame.scale;
    before = point;
  }
  return length > kLeastLength && length < kGreatestCoordinate ? length : kLeastLength;
}

Handle(Geom_Curve)
    MakeSpaceCurve(const CurveStretch& stretch, const ModelFrame& frame, double length) {
  const std::optional<ON_NurbsCurve> form = StretchForm(stretch, length);
  if (!form) return {};
  if (IsLine(*form)) {
    const gp_Pnt start = frame.ToFrame(stretch.Start());
    const gp_Vec way(start, frame.ToFrame(stretch.End()));
    if (std::abs(way.Magnitude() - length) < length * 1e-9) return new Geom_Line(start, way);
  }
  return MakeSpline<Geom_BSplineCurve, TColgp_Array1OfPnt>(
      *form, [&](const ON_3dPoint& p, gp_Pnt& pole) {
        pole = frame.ToFrame(p);
        return IsTame(pole.X(), pole.Y(), pole.Z());
      });
}

Handle(Geom2d_Curve)
    MakeParameterCurve(const CurveStretch& stretch, const FrameSurface& surface, double length) {
  const std::optional<ON_NurbsCurve> form = StretchForm(stretch, length);
  if (!form) return {};
  return MakeSpline<Geom2d_BSplineCurve, TColgp_Array1OfPnt2d>(
      *form, [&](const ON_3dPoint& p, gp_Pnt2d& pole) {
        const ON_2dPoint uv = surface.ToFrame(p.x, p.y);
        pole = gp_Pnt2d(uv.x, uv.y);
        return IsTame(uv.x, uv.y, 0);
      });
}

}  // namespace host
