#pragma once

#include "export/rib_color.h"
#include "export/rib_writer.h"
#include "host/geometry/on_light.h"
#include "host/geometry/on_point.h"
#include "shading/light_attributes.h"

namespace orv {

// A light of the document, and what the statements of all kinds of lights say of it.
struct LightSource {
  const ON_Light& Light;
  LightAttributes Attributes;
  int Number = 0;
  // 0 no shadow to 1.
  double Shadow = 0;
  int ShadowSamples = 0;
  RibColor Color{};
  // Between the light's shadow colour and its own colour: a faint shadow is nearly as bright as the
  // light.
  RibColor ShadowColor{};
  bool IsInteractive = false;
};

// The light's parameters that end the statement of every kind: what it leaves out, and its channel.
void WriteLightComponents(RibWriter& writer, const LightSource& source);

// " "string shadowname" "raytrace" "color shadowcolor" [...]", which doesn't end the line.
void WriteRaytracedShadow(RibWriter& writer, const LightSource& source);

// What shadow a light with a shape casts, or that it casts none, to the end of the line.
void WriteAreaShadow(RibWriter& writer, const LightSource& source);

// " "float shadowsamples" [...] "float shadowblur" [...]" and the end of the line.
void WriteShadowSampling(RibWriter& writer, const LightSource& source);

// The statement of a light that has a shape, to the end of the line.
void WriteAreaLightSource(RibWriter& writer, const char* shader, const LightSource& source);

// Moves the unit square or the unit axis to where an area light is: the axes in rows, then the
// origin.
void WriteLightTransform(RibWriter& writer, ON_3dVector x, ON_3dVector y, ON_3dVector z,
                         ON_3dPoint origin);

}  // namespace orv
