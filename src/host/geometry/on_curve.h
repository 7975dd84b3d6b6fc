#pragma once

#include <memory>
#include <vector>

#include "host/geometry/on_object.h"

class ON_NurbsCurve;

// The base of all curves: a point in space for each parameter of a domain. What is asked of a curve
// holds for valid curves only; documents give no others.
class ON_Curve : public ON_Geometry {
 public:
  static const ON_Curve* Cast(const ON_Object* object);

  ON_ObjectType ObjectType() const override { return ON_ObjectType::curve; }

  // True when the curve can be evaluated: enough points, parameters that increase, no number that
  // isn't one.
  virtual bool IsValid() const = 0;
  virtual ON_Interval Domain() const = 0;
  // Outside the domain the curve goes on as it begins or ends.
  virtual ON_3dPoint PointAt(double t) const = 0;
  // Point and first derivative.
  virtual void Ev1Der(double t, ON_3dPoint* point, ON_3dVector* derivative) const = 0;
  ON_3dPoint PointAtStart() const { return PointAt(Domain().Min); }
  ON_3dPoint PointAtEnd() const { return PointAt(Domain().Max); }
  // True when the curve ends where it begins and has been elsewhere.
  virtual bool IsClosed() const;
  // The number of points when the curve is a sequence of straight lines, 0 otherwise. The points
  // replace those in `points` unless that is null. A closed polyline has its first point last
  // again.
  virtual int IsPolyline(std::vector<ON_3dPoint>* points = nullptr) const;
  // The length, at most wrong by `fractional_tolerance` times the length. False when it isn't
  // finite; `length` is then unchanged.
  virtual bool GetLength(double* length, double fractional_tolerance = 1e-8) const = 0;
  // The same curve as a NURBS curve with the same domain. Points agree, their parameters inside the
  // domain may not: an arc goes round with another speed. False when there is none.
  virtual bool GetNurbForm(ON_NurbsCurve& form) const = 0;
  // The NURBS form; null when there is none.
  std::unique_ptr<ON_NurbsCurve> NurbsCurve() const;
};
