#include "jobs/cube_map_rib.h"

#include <array>
#include <string>

#include "export/rib_text.h"
#include "host/system/text.h"
#include "jobs/job_files.h"

namespace orv {
namespace {

struct CubeFace {
  const char* Suffix;
  const char* Transform;
};

constexpr std::array<CubeFace, 6> kCubeFaces{{
    {"_px", "ConcatTransform [0 0 1 0 0 1 0 0 -1 0 0 0 0 0 0 1]\n"},
    {"_nx", "ConcatTransform [0 0 -1 0 -0 1 0 0 1 0 0 0 0 0 0 1]\n"},
    {"_py", "ConcatTransform [1 0 0 0 -0 0 1 0 0 -1 0 0 0 0 0 1]\n"},
    {"_ny", "ConcatTransform [1 0 0 0 0 0 -1 0 -0 1 0 0 0 0 0 1]\n"},
    {"_pz", "ConcatTransform [1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1]\n"},
    {"_nz", "ConcatTransform [-1 0 0 0 0 1 0 0 0 0 -1 0 0 0 0 1]\n"},
}};

std::string Quoted(std::string_view path) {
  return '"' + RibPath(path) + '"';
}

}  // namespace

int CubeFaceSize(int imageHeight) {
  constexpr int kDefault = 128;
  if (imageHeight < 1) return kDefault;
  if (imageHeight <= kDefault) return kDefault / 2;
  int size = kDefault;
  while (size < imageHeight - size) size *= 2;
  return size;
}

// One degree more than a quarter of a turn, so that the faces overlap at their seams.
bool WriteCubeMapRib(const RenderSettings& settings, ON_3dPoint center,
                     std::string_view worldFile) {
  constexpr std::size_t kMostMapCharacters = 512;
  if (settings.ImageName.empty()) return false;
  const std::string_view map = host::FirstCodePoints(settings.ImageName, kMostMapCharacters);
  std::string text;
  std::string mapStatement = "MakeCubeFaceEnvironment";
  for (const auto& [suffix, transform] : kCubeFaces) {
    const std::string face = Quoted(AppendToBaseName(settings.ImageName, suffix));
    mapStatement += ' ' + face;
    text += "Display " + face + " \"file\" \"rgb\"\n" + "Projection \"perspective\" \"fov\" 91\n" +
            transform + host::Format("Translate %g %g %g\n", -center.x, -center.y, -center.z) +
            "ReadArchive " + Quoted(worldFile) + "\n\n";
  }
  text += mapStatement + ' ' + Quoted(map) + " 91 \"box\" 1 1\n";
  return WriteTextFile(settings.RibName, text);
}

}  // namespace orv
