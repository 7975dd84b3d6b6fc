#include "export/rib_color.h"

#include "export/rib_text.h"

namespace orv {

RibColor PlainColor(ON_Color color, double factor) {
  return {color.FractionRed() * factor, color.FractionGreen() * factor,
          color.FractionBlue() * factor};
}

RibColor AdjustedColor(ON_Color color, const RenderSettings& settings) {
  return PlainColor(GammaAdjustColor(color, settings.RhinoGamma));
}

RibColor Mixed(const RibColor& color, double part, const RibColor& rest) {
  return {color.Red * part + rest.Red * (1 - part), color.Green * part + rest.Green * (1 - part),
          color.Blue * part + rest.Blue * (1 - part)};
}

}  // namespace orv
