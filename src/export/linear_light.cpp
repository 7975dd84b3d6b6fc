#include "export/linear_light.h"

#include "export/attribute_scope.h"

namespace orv {
namespace {

void WriteSource(RibWriter& writer, const LightSource& source) {
  // The curve lies on the x axis, so the other axes say nothing.
  constexpr ON_3dVector kAnyAxis{1, 1, 1};
  WriteLightTransform(writer, source.Light.Length(), kAnyAxis, kAnyAxis, source.Light.Location());
  RibPrintf(writer, "Attribute \"light\" \"nsamples\" [%d]\n", source.ShadowSamples);
  WriteAreaLightSource(writer, "arealight", source);
  WriteAreaShadow(writer, source);
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
  BeginAttributes(writer);
  WriteSource(writer, source);
  WriteShape(writer);
  EndAttributes(writer);
}

}  // namespace orv
