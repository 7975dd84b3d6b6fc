#pragma once

namespace orv {

// `value` raised to the power `exponent` when it lies strictly between 0 and 1, else as it is.
double ApplyGamma(double value, double exponent);

}  // namespace orv
