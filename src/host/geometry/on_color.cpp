#include "host/geometry/on_color.h"

#include <cmath>

namespace {

int StepOf(double fraction) {
  if (!(fraction > 0)) return 0;
  if (fraction >= 1) return 255;
  return static_cast<int>(std::lround(fraction * 255));
}

}  // namespace

void ON_Color::SetFractionalRGB(double red, double green, double blue) {
  *this = ON_Color(StepOf(red), StepOf(green), StepOf(blue));
}
