#include "export/caustic_options.h"

#include "export/caustic_light.h"
#include "export/rib_text.h"

namespace orv {
namespace {

void WritePhotonFile(RibWriter& writer, const RenderSettings& settings) {
  if (settings.CausticCacheName.empty()) return;
  const std::string name = RibPath(settings.CausticCacheName);
  if (settings.CausticCacheMode == 1) {
    RibPrintf(writer, "Option \"caustic\" \"seedfile\" \"%s\"\n", name.c_str());
  } else if (settings.CausticCacheMode == 2) {
    RibPrintf(writer, "Option \"caustic\" \"savefile\" \"%s\"\n", name.c_str());
  }
}

}  // namespace

void WriteCausticOptions(RibWriter& writer, const RenderSettings& settings) {
  if (!settings.CausticsEnable) return;
  RibPrintf(writer, "LightSource \"caustic\" %d \"__channel\" [%d]\n", kCausticLight,
            kCausticChannel);
  RibPrintf(writer, "Attribute \"caustic\" \"maxpixeldist\" [%g]\n",
            settings.CausticSearchDistance);
  RibPrintf(writer, "Attribute \"caustic\" \"ngather\" [%d]\n", settings.CausticMinPhotons);
  WritePhotonFile(writer, settings);
  if (settings.CausticPhotonPass) {
    RibPrintf(writer, "Attribute \"visibility\" \"indirect\" [1]\n");
  }
}

}  // namespace orv
