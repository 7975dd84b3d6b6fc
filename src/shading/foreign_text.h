#pragma once

#include <string>
#include <string_view>

// Names and values from other programs' files, as UTF-8.
namespace orv {

// Bytes that aren't UTF-8 as a whole are taken as Windows-1252. Those of them that stand for no
// character are left out.
std::string TextFromBytes(std::string_view bytes);

// The same for a field of fixed size, whose text ends with a zero byte or with the field. When the
// text leaves no room in the field for more than the zero byte, it may have been cut, and the first
// bytes of a UTF-8 character at its end are left out.
std::string TextFromField(std::string_view field);

// The text such that it can stand in a shader call, which knows no escapes: without double quotes,
// closing brackets and control characters.
std::string CallTextOf(std::string_view text);

}  // namespace orv
