#include "shading/gamma.h"

#include <cmath>

namespace orv {

double ApplyGamma(double value, double exponent) {
  return value > 0 && value < 1 ? std::pow(value, exponent) : value;
}

}  // namespace orv
