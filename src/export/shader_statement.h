#pragma once

#include <string_view>

#include "export/rib_writer.h"

namespace orv {

// Writes `keyword` ("Surface", "Displacement", "Instancer") and a shader call as it stands. A call
// that is too long for a line is written parameter by parameter, and a parameter that is too long
// itself is left out.
void WriteShaderStatement(RibWriter& writer, const char* keyword, std::string_view call);

}  // namespace orv
