#pragma once

#include <string>
#include <string_view>

namespace orv {

// The text of a name or value from another program's file, such that it can stand in a shader
// call, which knows no escapes: without double quotes, closing brackets and control characters.
// Bytes that aren't UTF-8 as a whole are taken as Latin-1.
std::string CallTextFromBytes(std::string_view bytes);

}  // namespace orv
