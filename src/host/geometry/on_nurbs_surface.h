#pragma once

#include <array>

#include "host/geometry/on_array.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_surface.h"

// A piecewise rational or polynomial tensor product surface. In each direction it has order + CV
// count - 2 knots: one less at each end than most texts have.
class ON_NurbsSurface : public ON_Surface {
 public:
  static const ON_NurbsSurface* Cast(const ON_Object* object);

  // Makes it a surface of these. `cvs` has v fastest: the CV of u index i and v index j stands at
  // i * CVCount(1) + j.
  void Create(std::array<int, 2> order, std::array<ON_SimpleArray<double>, 2> knots,
              ON_SimpleArray<ON_4dPoint> cvs, bool is_rational);
  // Makes it a surface with the orders and knots of two curves: `make_cv` gives the control point
  // for one of each. False when that isn't valid, or would have more than a million of them.
  template <class MakeCV>
  [[nodiscard]] bool CreateProduct(const ON_NurbsCurve& u, const ON_NurbsCurve& v, bool is_rational,
                                   const MakeCV& make_cv) {
    // Thirty megabytes of points.
    constexpr std::size_t kMaxCVs = 1'000'000;
    if (u.m_cv.size() > kMaxCVs / v.m_cv.size()) return false;
    ON_SimpleArray<ON_4dPoint> cvs;
    cvs.reserve(u.m_cv.size() * v.m_cv.size());
    for (const ON_4dPoint& a : u.m_cv) {
      for (const ON_4dPoint& b : v.m_cv) cvs.push_back(make_cv(a, b));
    }
    Create({u.Order(), v.Order()}, {u.m_knot, v.m_knot}, std::move(cvs), is_rational);
    return IsValid();
  }

  int Order(int direction) const { return m_order[static_cast<std::size_t>(direction)]; }
  int Degree(int direction) const { return Order(direction) - 1; }
  int KnotCount(int direction) const { return static_cast<int>(Knots(direction).size()); }
  int CVCount(int direction) const { return KnotCount(direction) - Order(direction) + 2; }
  const ON_SimpleArray<double>& Knots(int direction) const {
    return m_knot[static_cast<std::size_t>(direction)];
  }
  // As stored: x, y and z are multiplied by the weight.
  const ON_4dPoint& CV(int i, int j) const {
    return m_cv[static_cast<std::size_t>(i) * static_cast<std::size_t>(CVCount(1)) +
                static_cast<std::size_t>(j)];
  }
  bool IsRational() const { return m_is_rat; }

  // The box of the control points.
  ON_BoundingBox BoundingBox() const override;
  bool IsValid() const override;
  ON_Interval Domain(int direction) const override;
  ON_3dPoint PointAt(double u, double v) const override;
  void Ev1Der(double u, double v, ON_3dPoint* point, ON_3dVector* du,
              ON_3dVector* dv) const override;
  bool IsClosed(int direction) const override;
  bool IsSingular(Side side) const override;
  bool GetNurbForm(ON_NurbsSurface& form) const override;
  std::unique_ptr<ON_Surface> DuplicateSurface() const override;

  // The curve in the surface along which the parameter of `direction` runs through its domain and
  // the other one is `parameter`.
  ON_NurbsCurve IsoCurve(int direction, double parameter) const;
  // Stretches the knots of a direction so that the domain is this one. Knots may fall together
  // then; see IsValid.
  void SetDomain(int direction, ON_Interval domain);

  std::array<int, 2> m_order{0, 0};
  // When false, all weights are 1.
  bool m_is_rat = false;
  std::array<ON_SimpleArray<double>, 2> m_knot;
  ON_SimpleArray<ON_4dPoint> m_cv;

 private:
  std::size_t SpanAt(int direction, double t) const;
  std::span<const double> SpanKnots(int direction, std::size_t span) const {
    return std::span(Knots(direction)).subspan(span);
  }
};
