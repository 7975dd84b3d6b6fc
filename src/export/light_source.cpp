#include "export/light_source.h"

namespace orv {

void WriteLightComponents(RibWriter& writer, const LightSource& source) {
  RibPrintf(writer, " \"float __nonspecular\" [%d] \"float __nondiffuse\" [%d]\n",
            source.Attributes.EmitSpecular ? 0 : 1, source.Attributes.EmitDiffuse ? 0 : 1);
  RibPrintf(writer, " \"float __channel\" [%d]\n", source.Attributes.Channel);
}

void WriteRaytracedShadow(RibWriter& writer, const LightSource& source) {
  RibPrintf(writer, " \"string shadowname\" \"raytrace\" \"color shadowcolor\" [%g %g %g]",
            source.ShadowColor.Red, source.ShadowColor.Green, source.ShadowColor.Blue);
}

void WriteAreaShadow(RibWriter& writer, const LightSource& source) {
  if (source.Shadow > 0) {
    WriteRaytracedShadow(writer, source);
    RibPrintf(writer, "\n");
  } else {
    RibPrintf(writer, " \"string shadowname\" \"\"\n");
  }
}

void WriteShadowSampling(RibWriter& writer, const LightSource& source) {
  RibPrintf(writer, " \"float shadowsamples\" [%d] \"float shadowblur\" [%g]\n",
            source.ShadowSamples, source.Attributes.ShadowBlur);
}

void WriteAreaLightSource(RibWriter& writer, const char* shader, const LightSource& source) {
  RibPrintf(writer,
            "AreaLightSource \"%s\" %d \"color lightcolor\" [ %g %g %g ] "
            "\"float intensity\" [%g] \"float falloff\" [%d]\n",
            shader, source.Number, source.Color.Red, source.Color.Green, source.Color.Blue,
            source.Attributes.Intensity, source.Attributes.Falloff);
}

void WriteLightTransform(RibWriter& writer, ON_3dVector x, ON_3dVector y, ON_3dVector z,
                         ON_3dPoint origin) {
  RibPrintf(writer, "ConcatTransform [ %g %g %g 0.0 %g %g %g 0.0 %g %g %g 0.0 %g %g %g 1.0 ]\n",
            x.x, x.y, x.z, y.x, y.y, y.z, z.x, z.y, z.z, origin.x, origin.y, origin.z);
}

}  // namespace orv
