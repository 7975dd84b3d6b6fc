#pragma once

#include <string_view>

#include "export/rib_writer.h"

namespace orv {

// Writes `keyword` ("Surface", "Displacement", "Instancer") and a shader call.
//
// The call goes out as it stands when a line can hold it and RIB can read it. Else it is written
// parameter by parameter, as the call's own rules read it: what isn't closed is closed, and what
// would end a string early is escaped. A parameter that is too long for a line is left out.
void WriteShaderStatement(RibWriter& writer, const char* keyword, std::string_view call);

}  // namespace orv
