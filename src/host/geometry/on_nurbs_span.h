#pragma once

#include <span>

#include "host/geometry/on_point.h"

// What NURBS curves and surfaces share: knots, and one polynomial piece of a curve, its span. A
// span of degree d has d + 1 control points and 2 d knots, of which the two in the middle are its
// ends. Points come from de Boor's scheme.

// Higher orders are refused, so that evaluation needs a bounded time.
inline constexpr int kMaxNurbsOrder = 32;

// True when knots and counts of one direction go together and no span at an end of the domain is
// empty.
bool ON_IsValidKnotVector(int order, int cv_count, std::span<const double> knots);
// The knots from the start of the domain to its end.
std::span<const double> ON_DomainKnots(int order, int cv_count, std::span<const double> knots);

// The polynomial of a span with another argument for each degree; at equal ones, the curve's point.
// `cvs` is room to work in and is left changed.
ON_4dPoint ON_BlossomSpan(std::span<const double> knots, std::span<ON_4dPoint> cvs,
                          std::span<const double> arguments);
// The point of a span and its derivative, both homogeneous. `cvs` is left changed.
void ON_EvSpan(std::span<const double> knots, std::span<ON_4dPoint> cvs, double t,
               ON_4dPoint* point, ON_4dPoint* derivative);
// The derivative of the point in space that a homogeneous point is.
ON_3dVector ON_EuclideanDerivative(const ON_4dPoint& point, const ON_4dPoint& derivative);
// True for four numbers.
bool ON_IsValid(const ON_4dPoint& p);
