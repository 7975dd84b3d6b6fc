#pragma once

#include <string>
#include <string_view>

#include "host/system/file.h"
#include "shading/material_attributes.h"

// Material files (.omf): one material as text, a statement or a shader's parameter a line. Text is
// UTF-8. `gamma` is that of host colours; a file holds linear ones.
namespace orv {

// Writes a material into a file, behind what is there; the preview's scene holds one, too. The
// group's name is the material's or, when that is empty, the base name of `path`. Always true: the
// file tells its own errors when it is closed.
bool WriteMaterialFile(host::FileWriter& file, std::string_view path, double gamma,
                       const MaterialAttributes& attributes);

// Replaces `attributes` by the material in a file, with the defaults for what it doesn't tell.
// False, with `attributes` left alone, when the file can't be read or is larger than any.
[[nodiscard]] bool ReadMaterialFile(std::string_view path, double gamma,
                                    MaterialAttributes& attributes);

// What WriteMaterialFile writes. Names are cut at 512 bytes, declarations and values at 1,000, and
// what is still longer than a line for the reader at the end of that line, always between two
// characters. Names and declarations have the escapes of EncodeQuotedName. In brackets, where the
// reader knows no escapes, "]" is left out, a control character becomes a blank, and a string that
// is left open is closed.
std::string TextFromMaterial(std::string_view path, double gamma,
                             const MaterialAttributes& attributes);

// The material in the content of a file. What can't be read is passed over.
MaterialAttributes MaterialFromText(std::string_view text, double gamma);

}  // namespace orv
