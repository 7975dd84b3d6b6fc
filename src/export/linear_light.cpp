#include "export/linear_light.h"

namespace orv {
namespace {

void WriteSource(RibWriter& writer, const LightSource& source) {
  // The curve lies on the x axis, so the other axes say nothing.
  constexpr ON_3dVector kAnyAxis{1, 1, 1};
  WriteLightTransform(writer, source.Light.Length(), kAnyAxis, kAnyAxis, source.Light.Location());
  RibPrintf(writer, "Attribute \"light\" \"nsamples\" [%d]\n", source.ShadowSamples);
  WriteAreaLightSource(writer, "arealight", source);
  if (source.Shadow > 0) {
    WriteRaytracedShadow(writer, source);
    RibPrintf(writer, "\n");
  } else {
    RibPrintf(writer, " \"string shadowname\" \"\"\n");
  }
  WriteLightComponents(writer, source);
}

void WriteShape(RibWriter& writer) {
  RibPrintf(writer, "Surface \"constant\"\n");
  RibPrintf(writer, "Attribute \"visibility\" \"integer indirect\" 0\n");
  RibPrintf(writer, "Attribute \"visibility\" \"integer transmission\" 0\n");
  RibPrintf(writer, "Attribute \"visibility\" \"integer camera\" 0\n");
  RibPrintf(writer, "Curves \"linear\" [2] \"nonperiodic\" \"P\" [0 0 0  1 0 0]\n");
}

}  // namespace

void WriteLinearLight(RibWriter& writer, const LightSource& source) {
  RibPrintf(writer, "AttributeBegin\n");
  writer.Indent += 2;
  WriteSource(writer, source);
  WriteShape(writer);
  writer.Indent -= 2;
  RibPrintf(writer, "AttributeEnd\n");
}

}  // namespace orv
