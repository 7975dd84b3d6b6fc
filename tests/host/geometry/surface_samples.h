#pragma once

#include <numbers>

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_rev_surface.h"
#include "host/geometry/on_sum_surface.h"

// Surfaces for tests.

inline constexpr double kPi = std::numbers::pi;

// `curve` turned about the z axis by the angle; the domain of the way around is the angle.
template <class T>
ON_RevSurface Turned(const T& curve, ON_Interval angle = {0, 2 * kPi}) {
  ON_RevSurface surface;
  surface.m_angle = surface.m_t = angle;
  surface.m_curve = std::make_shared<T>(curve);
  return surface;
}

// An arc over the x axis, in the plane of the x and the z axis.
inline ON_ArcCurve ArcOverX(ON_3dPoint center, double radius, ON_Interval angle) {
  return ON_ArcCurve({{center, {1, 0, 0}, {0, 0, 1}, {0, -1, 0}}, radius, angle});
}

// Around the origin, of radius 2, from the south pole to the north pole.
inline ON_RevSurface Sphere() {
  return Turned(ArcOverX({0, 0, 0}, 2, {-kPi / 2, kPi / 2}));
}

// Of radii 5 and 1 about the z axis.
inline ON_RevSurface Torus() {
  return Turned(ArcOverX({5, 0, 0}, 1, {0, 2 * kPi}));
}

// Of radius 2 about the z axis, from 0 to 3.
inline ON_RevSurface Cylinder() {
  return Turned(ON_LineCurve({2, 0, 0}, {2, 0, 3}));
}

// Its apex in the origin; its rim of radius 1 at z = 1.
inline ON_RevSurface Cone() {
  return Turned(ON_LineCurve({0, 0, 0}, {1, 0, 1}));
}

// Order 3 by 2, unevenly weighted and with a knot inside; u from 0 to 3, v from 2 to 4.
inline ON_NurbsSurface RationalPatch() {
  ON_NurbsSurface surface;
  surface.Create({3, 2}, {{{0, 0, 1, 3, 3}, {2, 4}}},
                 {{0, 0, 0, 1},
                  {0, 4, 0, 1},
                  {2, 0, 4, 2},
                  {3, 6, 3, 3},
                  {2, 0, 1, 1},
                  {2, 4, 0, 1},
                  {4, 0, 0, 1},
                  {2, 2, 1, 0.5}},
                 true);
  return surface;
}

// The point of a NURBS surface by the formula of text books: all B-splines, one by one.
inline ON_3dPoint PointByBasis(const ON_NurbsSurface& surface, double u, double v) {
  const auto basis = [](const std::vector<double>& knots, int order, int i, double t) {
    const auto at = [&](int k) { return knots[static_cast<std::size_t>(k)]; };
    std::vector<double> values(static_cast<std::size_t>(order));
    for (int k = 0; k < order; ++k) {
      const bool is_last = at(i + k + 1) == knots.back() && t == knots.back();
      const bool is_in = t >= at(i + k) && (t < at(i + k + 1) || is_last);
      values[static_cast<std::size_t>(k)] = is_in && at(i + k) < at(i + k + 1) ? 1 : 0;
    }
    for (int d = 1; d < order; ++d) {
      for (int k = 0; k + d < order; ++k) {
        const double a = at(i + k + d) - at(i + k), b = at(i + k + d + 1) - at(i + k + 1);
        const auto here = static_cast<std::size_t>(k);
        values[here] = (a > 0 ? (t - at(i + k)) / a * values[here] : 0) +
                       (b > 0 ? (at(i + k + d + 1) - t) / b * values[here + 1] : 0);
      }
    }
    return values[0];
  };
  std::array<std::vector<double>, 2> knots;
  for (const int direction : {0, 1}) {
    auto& all = knots[static_cast<std::size_t>(direction)];
    const auto& stored = surface.Knots(direction);
    all.push_back(stored.front());
    all.insert(all.end(), stored.begin(), stored.end());
    all.push_back(stored.back());
  }
  ON_4dPoint sum{0, 0, 0, 0};
  for (int i = 0; i < surface.CVCount(0); ++i) {
    for (int j = 0; j < surface.CVCount(1); ++j) {
      sum = sum + surface.CV(i, j) * (basis(knots[0], surface.Order(0), i, u) *
                                      basis(knots[1], surface.Order(1), j, v));
    }
  }
  return sum.Euclidean();
}

// Fractions of the domain, its ends included.
inline constexpr double kFractions[] = {0, 0.1, 0.25, 0.5, 0.6180339887498949, 0.9, 1};
