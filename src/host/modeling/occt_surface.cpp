#include <Geom_BSplineSurface.hxx>
#include <Geom_Plane.hxx>
#include <TColStd_Array2OfReal.hxx>
#include <TColgp_Array2OfPnt.hxx>
#include <algorithm>
#include <cmath>
#include <gp_Ax3.hxx>
#include <optional>

#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_plane_surface.h"
#include "host/modeling/evaluated_surface.h"
#include "host/modeling/occt_geometry.h"
#include "host/modeling/occt_knots.h"

// Surfaces for Open CASCADE: planes, NURBS surfaces, and all others as they evaluate themselves.

namespace host {
namespace {

constexpr double kGreatestCoordinate = 1e12;

bool IsTame(const gp_Pnt& p) {
  return std::abs(p.X()) < kGreatestCoordinate && std::abs(p.Y()) < kGreatestCoordinate &&
         std::abs(p.Z()) < kGreatestCoordinate;
}

// How long the surface is in a direction: the greatest of a few lines of constant parameter.
double LengthOf(const ON_Surface& surface, int direction) {
  constexpr int kLines = 3;
  constexpr int kSteps = 8;
  const ON_Interval along = surface.Domain(direction);
  const ON_Interval across = surface.Domain(1 - direction);
  double greatest = 0;
  for (int line = 0; line < kLines; ++line) {
    const double c = across.ParameterAt(line / (kLines - 1.0));
    double length = 0;
    ON_3dPoint before{};
    for (int i = 0; i <= kSteps; ++i) {
      const double t = along.ParameterAt(i / double{kSteps});
      const ON_3dPoint p = direction == 0 ? surface.PointAt(t, c) : surface.PointAt(c, t);
      if (i > 0) length += before.DistanceTo(p);
      before = p;
    }
    greatest = std::max(greatest, length);
  }
  return greatest;
}

// Parameters from 0 on that are about as long as the surface is.
std::optional<FrameSurface> MakeChart(const ON_Surface& surface, const ModelFrame& frame) {
  constexpr double kLeastLength = 1e-2;
  FrameSurface chart;
  for (const int direction : {0, 1}) {
    const auto d = static_cast<std::size_t>(direction);
    const ON_Interval domain = surface.Domain(direction);
    const double length = std::max(LengthOf(surface, direction) * frame.scale, kLeastLength);
    chart.origin[d] = domain.Min;
    chart.scale[d] = length / domain.Length();
    if (!domain.IsIncreasing() || !(length < kGreatestCoordinate) ||
        !std::isnormal(chart.scale[d])) {
      return std::nullopt;
    }
  }
  return chart;
}

// The plane of a flat rectangle, whose parameters are lengths.
Handle(Geom_Surface)
    MakePlane(const ON_NurbsSurface& form, const ModelFrame& frame, const FrameSurface& chart) {
  constexpr double kFlat = 1e-9;
  if (form.Order(0) != 2 || form.Order(1) != 2 || form.CVCount(0) != 2 || form.CVCount(1) != 2 ||
      form.IsRational()) {
    return {};
  }
  const gp_Pnt corner = frame.ToFrame(form.CV(0, 0).Euclidean());
  const gp_Vec u(corner, frame.ToFrame(form.CV(1, 0).Euclidean()));
  const gp_Vec v(corner, frame.ToFrame(form.CV(0, 1).Euclidean()));
  const gp_Vec diagonal(corner, frame.ToFrame(form.CV(1, 1).Euclidean()));
  const double u_length = form.Domain(0).Length() * chart.scale[0];
  const double v_length = form.Domain(1).Length() * chart.scale[1];
  const double size = u_length + v_length;
  if ((u + v - diagonal).Magnitude() > kFlat * size ||
      std::abs(u.Dot(v)) > kFlat * u_length * v_length ||
      std::abs(u.Magnitude() - u_length) > kFlat * u_length ||
      std::abs(v.Magnitude() - v_length) > kFlat * v_length) {
    return {};
  }
  return new Geom_Plane(gp_Ax3(corner, gp_Dir(u.Crossed(v)), gp_Dir(u)));
}

std::optional<Knots> DirectionKnots(const ON_NurbsSurface& form, int direction,
                                    const FrameSurface& chart) {
  const auto d = static_cast<std::size_t>(direction);
  ON_SimpleArray<double> knots = form.Knots(direction);
  for (double& knot : knots) knot = (knot - chart.origin[d]) * chart.scale[d];
  return MakeKnots(knots, form.Degree(direction));
}

// Null for one that has weights or points which Open CASCADE refuses.
Handle(Geom_Surface) MakeSplineSurface(const ON_NurbsSurface& form, const ModelFrame& frame,
                                       const FrameSurface& chart) {
  const std::optional<Knots> u = DirectionKnots(form, 0, chart);
  const std::optional<Knots> v = DirectionKnots(form, 1, chart);
  if (!u || !v) return {};
  TColgp_Array2OfPnt poles(1, form.CVCount(0), 1, form.CVCount(1));
  TColStd_Array2OfReal weights(1, form.CVCount(0), 1, form.CVCount(1));
  const double sign = form.CV(0, 0).w < 0 ? -1 : 1;
  for (int i = 0; i < form.CVCount(0); ++i) {
    for (int j = 0; j < form.CVCount(1); ++j) {
      const double weight = form.CV(i, j).w * sign;
      const gp_Pnt pole = frame.ToFrame(form.CV(i, j).Euclidean());
      if (!(weight > kLeastWeight) || !IsTame(pole)) return {};
      poles(i + 1, j + 1) = pole;
      weights(i + 1, j + 1) = weight;
    }
  }
  if (!form.IsRational()) {
    return new Geom_BSplineSurface(poles, u->values, v->values, u->multiplicities,
                                   v->multiplicities, form.Degree(0), form.Degree(1));
  }
  return new Geom_BSplineSurface(poles, weights, u->values, v->values, u->multiplicities,
                                 v->multiplicities, form.Degree(0), form.Degree(1));
}

// True when the first and last control points are the ends of the domain.
bool IsClamped(const ON_NurbsSurface& form, int direction) {
  const auto& knots = form.Knots(direction);
  const auto degree = static_cast<std::size_t>(form.Degree(direction));
  return knots.front() == knots[degree - 1] && knots[knots.size() - degree] == knots.back();
}

}  // namespace

FrameSurface MakeFrameSurface(const std::shared_ptr<const ON_Surface>& surface,
                              const ModelFrame& frame) {
  if (surface == nullptr || !surface->IsValid()) return {};
  std::optional<FrameSurface> chart = MakeChart(*surface, frame);
  if (!chart) return {};
  const ON_NurbsSurface* nurbs = ON_NurbsSurface::Cast(surface.get());
  ON_NurbsSurface form;
  const auto* plane = dynamic_cast<const ON_PlaneSurface*>(surface.get());
  if (plane != nullptr && plane->GetNurbForm(form)) nurbs = &form;
  if (nurbs != nullptr && IsClamped(*nurbs, 0) && IsClamped(*nurbs, 1)) {
    chart->surface = MakePlane(*nurbs, frame, *chart);
    if (chart->surface.IsNull()) chart->surface = MakeSplineSurface(*nurbs, frame, *chart);
  }
  if (chart->surface.IsNull()) chart->surface = new EvaluatedSurface(surface, frame, *chart);
  return *chart;
}

}  // namespace host
