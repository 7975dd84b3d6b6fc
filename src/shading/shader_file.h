#pragma once

#include <string>
#include <string_view>

// Compiled shader files (.slb), of which only kind, name and parameters are read.
//
// `callText` becomes the shader's call with each parameter at its default, `kind` a word: Surface,
// Displacement, Atmosphere, Imager, LightSource, Deformation, Procedure or Instancer. Names and
// strings are taken as TextFromField says, names as CallTextOf leaves them and strings as
// EncodeCallString encodes them.
namespace orv {

// False, and both results are empty, when the file can't be opened or makes no sense: an unknown
// kind, a count, index or length that leads outside the file, more than 1 MB of call text. True
// with empty results for a file of at most 4 bytes. A file is read up to its byte 256,236.
[[nodiscard]] bool ReadShaderFile(std::string_view path, std::string& callText, std::string& kind);

// The same for the bytes of a file.
[[nodiscard]] bool ParseShaderFile(std::string_view bytes, std::string& callText,
                                   std::string& kind);

}  // namespace orv
