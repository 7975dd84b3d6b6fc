#include "export/sampling.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "host/system/text.h"

namespace orv {
namespace {

// Samples in x and in y. Depth of field needs at least as many in a pixel as it has lens samples.
int PixelSamples(const RenderSettings& settings) {
  const std::int64_t samples = settings.PixelSamples;
  if (!settings.DofEnable || samples * samples >= settings.DofSamples) return settings.PixelSamples;
  const float root = std::sqrt(static_cast<float>(settings.DofSamples));
  return std::clamp(static_cast<int>(std::lround(root)), 2, 32);
}

}  // namespace

void WriteSampling(RibWriter& writer, const RenderSettings& settings) {
  const int pixelSamples = PixelSamples(settings);
  RibPrintf(writer, "PixelSamples %d %d\n", pixelSamples, pixelSamples);
  // A bake pass may have none, of which no number can be made.
  RibPrintf(writer, "ShadingRate %g\n", 1.0 / std::max(settings.ShadingSamples, 1));
  RibPrintf(writer, "GeometricApproximation \"flatness\" [%g]\n", settings.Flatness);
  if (settings.AbsoluteTolerance) {
    RibPrintf(writer, "Attribute \"render\" \"string flatnessspace\" \"object\"\n");
  }
  if (settings.SharpFilter) RibPrintf(writer, "PixelFilter \"mitchell\" 4 4\n");
}

void WriteExposure(RibWriter& writer, const RenderSettings& settings) {
  RibPrintf(writer, "Exposure 1 %g\n", settings.RibGamma);
}

void WriteTiles(RibWriter& writer, const RenderSettings& settings) {
  RibPrintf(writer, "Option \"limits\" \"bucketsize\" [%d %d]\n", settings.TileSize,
            settings.TileSize);
  if (!settings.OrvShow) return;
  // The renderer calls an order of columns "horizontal"; rows are its default.
  if (host::EqualNoCase(settings.TileOrder, "columns")) {
    RibPrintf(writer, "Option \"render\" \"bucketorder\" [\"horizontal\"]\n");
  } else if (host::EqualNoCase(settings.TileOrder, "spiral")) {
    RibPrintf(writer, "Option \"render\" \"bucketorder\" [\"spiral\"]\n");
  }
}

}  // namespace orv
