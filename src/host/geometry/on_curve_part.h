#pragma once

#include "host/geometry/on_nurbs_curve.h"

class ON_PolyCurve;

// A stretch of a curve in NURBS form, whose domain is that stretch. It ends where the curve is at
// the ends of the stretch, also where the form of the whole curve has other parameters inside.
// False when there is no form; the stretch must lie in the curve's domain.
[[nodiscard]] bool ON_GetCurvePart(const ON_Curve& curve, ON_Interval part, ON_NurbsCurve& form);
// The same of a polycurve: in the order of the highest segment; where segments meet, as many knots
// as that needs.
[[nodiscard]] bool ON_GetPolyCurvePart(const ON_PolyCurve& curve, ON_Interval part,
                                       ON_NurbsCurve& form);
