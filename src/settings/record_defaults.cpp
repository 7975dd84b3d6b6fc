#include "host/system/environment.h"
#include "settings/bake_settings.h"
#include "settings/render_settings.h"

namespace orv {
namespace {

// The value of TEMP; empty when the environment has none.
std::string TempFolder() {
  return host::EnvironmentValue("TEMP").value_or("");
}

}  // namespace

std::string DefaultRibName() {
  return TempFolder() + "\\RhinoOrv.rib";
}

std::string DefaultBakeImageName() {
  const auto folder = host::EnvironmentValue("TEMP");
  return folder ? *folder + "\\baked.png" : "baked.png";
}

}  // namespace orv
