#include "host/geometry/on_line.h"

double ON_Line::ClosestPointTo(ON_3dPoint p) const {
  const ON_3dVector direction = to - from;
  const double squaredLength = ON_DotProduct(direction, direction);
  return squaredLength > 0 ? ON_DotProduct(p - from, direction) / squaredLength : 0;
}
