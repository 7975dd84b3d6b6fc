#pragma once

#include <vector>

#include "host/geometry/on_nurbs_curve.h"

namespace host {

// A closed curve in the xy plane, and how it lies to others. Curves may cross others or themselves;
// the inside is then what an even-odd rule takes for it.
class PlaneLoop {
 public:
  // Close when it takes a closer look to tell.
  enum class Place { outside, inside, same, close };

  explicit PlaneLoop(ON_NurbsCurve curve);

  // What is enclosed, without sign.
  [[nodiscard]] double Area() const { return area_; }
  // The curve lies inside, but may stray from it by Stray().
  [[nodiscard]] const ON_BoundingBox& Box() const { return box_; }
  [[nodiscard]] double Stray() const { return stray_; }
  // Where this loop lies to another one that isn't smaller: outside when a part of it is.
  [[nodiscard]] Place PlaceIn(const PlaneLoop& other) const;
  // The same for loops that are close to each other, at the cost of a hundred such comparisons.
  [[nodiscard]] Place ClosePlaceIn(const PlaneLoop& other) const;

 private:
  [[nodiscard]] bool IsCopyOf(const PlaneLoop& other) const;
  [[nodiscard]] Place PlaceOfPoints(std::size_t count, const std::vector<ON_3dPoint>& polygon,
                                    double near) const;

  ON_NurbsCurve curve_;
  // Points of the curve, and how far straight lines between them stray from it.
  std::vector<ON_3dPoint> polygon_;
  double stray_ = 0;
  double area_ = 0;
  ON_BoundingBox box_;
};

}  // namespace host
