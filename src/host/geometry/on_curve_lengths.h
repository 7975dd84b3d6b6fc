#pragma once

#include <cstddef>
#include <vector>

#include "host/geometry/on_curve.h"

// The way along a valid curve: how long it is, and where a fraction of its length has been passed.
// Kinks and uneven speed, as NURBS curves have, don't matter.
class ON_CurveLengths {
 public:
  // Measures the curve, at most wrong by `fractional_tolerance` times its length. The curve
  // outlives this.
  explicit ON_CurveLengths(const ON_Curve& curve, double fractional_tolerance = 1e-8);

  // Not finite when coordinates are too large to be measured.
  double Total() const { return total_; }
  // The parameter at which the fraction `s` of the length, 0 to 1, has been passed: the host's
  // GetNormalizedArcLengthPoint. The same fraction of the domain when the length is 0 or isn't
  // finite.
  double NormalizedArcLengthPoint(double s) const;

 private:
  // A piece of the domain, the length of the curve there and up to its end.
  struct Piece {
    ON_Interval interval;
    double length;
    double end;
  };

  double Speed(double t) const;
  double Estimate(ON_Interval piece) const;
  void Refine(ON_Interval piece, double estimate, int depth);
  void Add(ON_Interval piece, double length);
  double ParameterIn(const Piece& piece, double length) const;

  const ON_Curve& curve_;
  std::vector<Piece> pieces_;
  double total_ = 0;
  // By how much the halves of a piece may differ from it.
  double tolerance_ = 0;
  // How many pieces may still be halved. Only curves that are made to be slow need more.
  std::size_t halvings_left_ = 0;
};
