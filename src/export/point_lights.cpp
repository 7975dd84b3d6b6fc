#include "export/point_lights.h"

namespace orv {
namespace {

// The width of a spot's soft rim as a part of its angle.
constexpr double kConeDelta = 0.25;

// The end of the statement.
void WriteTail(RibWriter& writer, const LightSource& source) {
  if (source.Shadow > 0) {
    WriteRaytracedShadow(writer, source);
    WriteShadowSampling(writer, source);
  }
  WriteLightComponents(writer, source);
}

}  // namespace

void WriteSpotLight(RibWriter& writer, const LightSource& source) {
  const ON_3dPoint from = source.Light.Location();
  const ON_3dPoint to = from + source.Light.Direction();
  const double angle = source.Light.SpotAngleRadians();
  RibPrintf(writer,
            "LightSource \"spotlight\" %d \"intensity\" [ %g ] \"lightcolor\" [ %g %g %g ] "
            "\"float falloff\" [%d]",
            source.Number, source.Attributes.Intensity, source.Color.Red, source.Color.Green,
            source.Color.Blue, source.Attributes.Falloff);
  RibPrintf(writer, " \"from\" [ %g %g %g ] \"to\" [ %g %g %g ]", from.x, from.y, from.z, to.x,
            to.y, to.z);
  RibPrintf(writer, " \"coneangle\" [ %g ] \"conedeltaangle\" [ %g ] \"beamdistribution\" [ %g ]\n",
            angle, angle * kConeDelta, source.Light.SpotExponent());
  WriteTail(writer, source);
}

void WritePointLight(RibWriter& writer, const LightSource& source) {
  const ON_3dPoint from = source.Light.Location();
  RibPrintf(writer,
            "LightSource \"pointlight\" %d \"lightcolor\" [ %g %g %g ] \"from\" [ %g %g %g ] "
            "\"float falloff\" [%d] \"float intensity\" [%g]\n",
            source.Number, source.Color.Red, source.Color.Green, source.Color.Blue, from.x, from.y,
            from.z, source.Attributes.Falloff, source.Attributes.Intensity);
  WriteTail(writer, source);
}

void WriteDirectionalLight(RibWriter& writer, const LightSource& source) {
  const ON_3dPoint from = source.Light.Location();
  const ON_3dPoint to = from + source.Light.Direction();
  RibPrintf(writer,
            "LightSource \"distantlight\" %d \"lightcolor\" [ %g %g %g ] \"from\" [ %g %g %g ] "
            "\"to\" [ %g %g %g ] \"float intensity\" [%g]\n",
            source.Number, source.Color.Red, source.Color.Green, source.Color.Blue, from.x, from.y,
            from.z, to.x, to.y, to.z, source.Attributes.Intensity);
  WriteTail(writer, source);
}

}  // namespace orv
