#pragma once

#include <string>
#include <string_view>

// File names inside the quoted strings of shader calls. Whoever reads a call knows no escapes: a
// string ends at the next double quote, and its brackets at the next "]". So that no name can end
// either, these two and control characters are written as a backslash and three octal digits
// ("\042", "\135", "\012"), which the renderer reads.
namespace orv {

// The name as a call holds it. Where the result has an escape, or would be read as if it had one,
// or would end in a backslash, the name's own backslashes become forward slashes; any other name
// stays byte for byte.
std::string EncodeCallString(std::string_view name);

// The name that a call's string stands for. A string in which each backslash begins an escape is
// decoded; any other is a name as a user has typed it ("C:\maps\012.jpg") and stays.
std::string DecodeCallString(std::string_view text);

// The same for a name in the quotes of a material file, where only a quote ends it: "]" stays, and
// each name comes back from DecodeQuotedName as it was. Where the result has an escape, or would be
// read as if it had one, or would end in a backslash, the name's own backslashes are escapes, too
// ("\134").
std::string EncodeQuotedName(std::string_view name);
std::string DecodeQuotedName(std::string_view text);

}  // namespace orv
