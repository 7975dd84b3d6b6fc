#include "export/ipr_options.h"

namespace orv {

void WriteIprOptions(RibWriter& writer, const IprSettings& iprSettings) {
  if (iprSettings.IprShadeMode == 0) {
    RibPrintf(writer, "Attribute \"ipr\" \"shading\" \"matte\"\n");
  } else if (iprSettings.IprShadeMode == 1) {
    RibPrintf(writer, "Attribute \"ipr\" \"shading\" \"relight\"\n");
  }
  if (iprSettings.IprAutoReflect) RibPrintf(writer, "Option \"ipr\" \"retrace\" [1]\n");
  if (iprSettings.IprSmoothEdges) RibPrintf(writer, "Option \"ipr\" \"pixelsamples\" [4 4]\n");
  RibPrintf(writer, "Option \"trace\" \"maxshadowsamples\" [%d]\n", iprSettings.IprMaxShadowRays);
  RibPrintf(writer, "Option \"trace\" \"maxtracesamples\" [%d]\n",
            iprSettings.IprMaxReflectionRays);
}

}  // namespace orv
