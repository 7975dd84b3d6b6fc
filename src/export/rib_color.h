#pragma once

#include "host/geometry/on_color.h"
#include "settings/render_settings.h"

namespace orv {

// A colour as fractions, which an intensity may have lifted above 1.
struct RibColor {
  double Red = 0;
  double Green = 0;
  double Blue = 0;
};

// The fractions of a host colour as they are, each times `factor`.
RibColor PlainColor(ON_Color color, double factor = 1);

// The fractions of a host colour, adjusted to the host's gamma.
RibColor AdjustedColor(ON_Color color, const RenderSettings& settings);

// The mixture of `part` of one colour and the rest of the other.
RibColor Mixed(const RibColor& color, double part, const RibColor& rest);

}  // namespace orv
