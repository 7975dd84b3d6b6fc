#include "jobs/orv_home.h"

#include <algorithm>

#include "host/system/environment.h"
#include "host/system/text.h"

namespace orv {

std::string ExpandOrvHome(std::string_view text) {
  constexpr std::string_view kVariable = "$ORVHOME";
  if (!host::StartsWithNoCase(text, kVariable)) return std::string(text);
  std::string path = host::EnvironmentValue(kVariable.substr(1)).value_or("");
  path += text.substr(kVariable.size());
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

}  // namespace orv
