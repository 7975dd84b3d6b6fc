#include "surface_checks.h"

#include <gtest/gtest.h>

#include "host/geometry/on_nurbs_surface.h"

void ExpectPointsAgree(const ON_3dPoint& expected, const ON_3dPoint& found, double tolerance) {
  EXPECT_NEAR(expected.x, found.x, tolerance);
  EXPECT_NEAR(expected.y, found.y, tolerance);
  EXPECT_NEAR(expected.z, found.z, tolerance);
}

void ExpectDerivativesAreLimits(const ON_Surface& surface) {
  constexpr double kStep = 1e-6;
  for (const double s : {0.15, 0.4, 0.71, 0.93}) {
    const double u = surface.Domain(0).ParameterAt(s);
    const double v = surface.Domain(1).ParameterAt(1 - s);
    ON_3dPoint point;
    ON_3dVector du, dv;
    surface.Ev1Der(u, v, &point, &du, &dv);
    ExpectPointsAgree(surface.PointAt(u, v), point);
    const auto slope = [](const ON_3dPoint& a, const ON_3dPoint& b) {
      return ON_3dPoint{0, 0, 0} + (b - a) * (0.5 / kStep);
    };
    const ON_3dPoint origin{0, 0, 0};
    ExpectPointsAgree(slope(surface.PointAt(u - kStep, v), surface.PointAt(u + kStep, v)),
                      origin + du, 1e-7);
    ExpectPointsAgree(slope(surface.PointAt(u, v - kStep), surface.PointAt(u, v + kStep)),
                      origin + dv, 1e-7);
  }
}

void ExpectFormAgrees(const ON_Surface& surface) {
  ON_NurbsSurface form;
  ASSERT_TRUE(surface.GetNurbForm(form));
  ASSERT_TRUE(form.IsValid());
  EXPECT_EQ(surface.Domain(0), form.Domain(0));
  EXPECT_EQ(surface.Domain(1), form.Domain(1));
  const auto places = [&](int direction) {
    const auto knots =
        ON_DomainKnots(form.Order(direction), form.CVCount(direction), form.Knots(direction));
    std::vector<double> found{knots.front()};
    for (std::size_t i = 1; i < knots.size(); ++i) {
      found.push_back((knots[i - 1] + knots[i]) / 2);
      found.push_back(knots[i]);
    }
    return found;
  };
  for (const double u : places(0)) {
    for (const double v : places(1)) {
      ExpectPointsAgree(surface.PointAt(u, v), form.PointAt(u, v));
    }
  }
}
