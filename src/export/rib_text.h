#pragma once

#include <string>

#include "host/geometry/on_color.h"

namespace orv {

// A file name as RIB wants it: every backslash becomes a forward slash.
std::string ToRibPath(std::string path);

// A host colour as the renderer wants it: each fraction strictly between 0 and 1 is raised to the
// power `gamma` (not its inverse). The result has 8 bits a channel again.
ON_Color GammaAdjustColor(ON_Color color, double gamma);

}  // namespace orv
