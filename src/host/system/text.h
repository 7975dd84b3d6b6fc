#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Text is UTF-8 in a std::string everywhere. Malformed input never fails: each bad unit becomes
// U+FFFD.
namespace host {

// UTF-16 (as documents store it) to UTF-8 and back.
std::string Utf8FromUtf16(std::u16string_view text);
std::u16string Utf16FromUtf8(std::string_view text);

// The number of code points; a malformed byte counts as one.
std::size_t CodePointCount(std::string_view text);

// The longest prefix of at most `count` code points; never cuts one in half.
std::string_view FirstCodePoints(std::string_view text, std::size_t count);

// The longest prefix of at most `count` bytes that does not end inside a code point.
std::string_view FirstBytes(std::string_view text, std::size_t count);

// Compare and search without regard to case, by Unicode's simple case folding.
bool EqualNoCase(std::string_view a, std::string_view b);
bool StartsWithNoCase(std::string_view text, std::string_view prefix);
// What EqualNoCase compares: the folded forms of two texts are equal when the texts are. Malformed
// bytes stay as they are.
std::string FoldedCase(std::string_view text);

bool Contains(std::string_view text, std::string_view part);

// The control characters of ASCII: those before the blank, and the delete.
bool IsControl(char c);

// `text` without blanks, tabs and line ends at both ends.
std::string_view Trimmed(std::string_view text);

// `format` with printf-style placeholders, independent of the locale's decimal point.
[[gnu::format(printf, 1, 2)]] std::string Format(const char* format, ...);

}  // namespace host
