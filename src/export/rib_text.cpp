#include "export/rib_text.h"

#include <algorithm>
#include <cmath>

namespace orv {
namespace {

float GammaAdjusted(double fraction, double gamma) {
  const float value = static_cast<float>(fraction);
  return value > 0 && value < 1 ? static_cast<float>(std::pow(value, gamma)) : value;
}

}  // namespace

std::string ToRibPath(std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

ON_Color GammaAdjustColor(ON_Color color, double gamma) {
  color.SetFractionalRGB(GammaAdjusted(color.FractionRed(), gamma),
                         GammaAdjusted(color.FractionGreen(), gamma),
                         GammaAdjusted(color.FractionBlue(), gamma));
  return color;
}

}  // namespace orv
