#pragma once

#include <span>

#include "host/geometry/on_array.h"
#include "host/geometry/on_curve.h"
#include "host/geometry/on_nurbs_span.h"
#include "host/geometry/on_xform.h"

// A piecewise rational or polynomial curve. It has order + CV count - 2 knots: one less at each end
// than most texts have.
class ON_NurbsCurve : public ON_Curve {
 public:
  static constexpr int kMaxOrder = kMaxNurbsOrder;

  static const ON_NurbsCurve* Cast(const ON_Object* object);
  // A control point of weight 1.
  static ON_4dPoint Unweighted(ON_3dPoint p) { return {p.x, p.y, p.z, 1}; }

  // Makes it a curve of these.
  void Create(int order, ON_SimpleArray<double> knots, ON_SimpleArray<ON_4dPoint> cvs,
              bool is_rational = false);

  int Order() const { return m_order; }
  int Degree() const { return m_order - 1; }
  int CVCount() const { return static_cast<int>(m_cv.size()); }
  int KnotCount() const { return static_cast<int>(m_knot.size()); }
  bool IsRational() const { return m_is_rat; }

  // The box of the control points.
  ON_BoundingBox BoundingBox() const override;
  bool IsValid() const override;
  ON_Interval Domain() const override;
  ON_3dPoint PointAt(double t) const override;
  void Ev1Der(double t, ON_3dPoint* point, ON_3dVector* derivative) const override;
  // A polyline when the order is 2.
  int IsPolyline(std::vector<ON_3dPoint>* points = nullptr) const override;
  bool GetLength(double* length, double fractional_tolerance = 1e-8) const override;
  bool GetNurbForm(ON_NurbsCurve& form) const override;

  // Stretches the knots so that the domain is this one. Knots may fall together then; see IsValid.
  void SetDomain(ON_Interval domain);
  // The same curve in an order that is as high as its own or higher, with its end points as first
  // and last control point. Outside the domain nothing is left of it.
  void ClampAndRaise(int order);
  // Adds a curve behind it. Both are clamped and of the same order, and the other one's domain
  // begins where this one's ends. So should the points: of the two that meet, the first is kept.
  void Append(const ON_NurbsCurve& next);
  // Leaves of the curve what lies in `interval`, clamped; parts outside the domain don't count.
  // False when nothing would be left; the curve is then unchanged.
  [[nodiscard]] bool Trim(ON_Interval interval);
  // Runs through the curve in the other direction, in the same domain.
  void Reverse();
  // Moves the control points by an affine map: the fourth row of `xform` is taken as 0 0 0 1.
  void Transform(const ON_Xform& xform);

  // The number of coordinates that the document stores: 1 to 3. Those that are missing are 0.
  int m_dim = 3;
  int m_order = 0;
  // When false, all weights are 1.
  bool m_is_rat = false;
  ON_SimpleArray<double> m_knot;
  ON_SimpleArray<ON_4dPoint> m_cv;

 private:
  std::size_t SpanAt(double t) const;
  ON_4dPoint Blossom(std::size_t span, std::span<const double> arguments) const;
  bool IsClamped() const;
  ON_SimpleArray<double> RaisedKnots(int order, ON_Interval interval) const;
  void Rebuild(int order, ON_Interval interval);
  void GetBezier(std::size_t span, std::span<ON_4dPoint> bezier) const;
};
