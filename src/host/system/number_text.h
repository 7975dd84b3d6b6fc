#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Numbers as text, always with a decimal point and never through the locale.
namespace host {

// Room that FormatG and FormatInt need. Some bytes more than the longest text, which is
// "-1.23457e-308": they write whole words and may leave bytes of no meaning behind the text.
inline constexpr std::size_t kMaxGLength = 16;
inline constexpr std::size_t kMaxIntLength = 16;

// Writes `value` as printf's "%g" does in the "C" locale (six significant digits, the nearest
// decimal, ties to even of the exact value) and returns the end of the text. No terminating zero.
// `out` has room for kMaxGLength bytes.
char* FormatG(double value, char* out);
std::string FormatG(double value);

// Writes `value` as printf's "%d" does and returns the end of the text. No terminating zero.
// `out` has room for kMaxIntLength bytes.
char* FormatInt(int value, char* out);

// The integer or the real at the start of `text` after blanks, as the C functions atoi and atof
// read it: 0 when there is none; whatever follows is ignored. An integer outside the range of int
// gives the nearest bound. A real may be hexadecimal, "inf" or "nan"; one too large for a double
// gives an infinity, one too small gives 0, both with the sign.
int ParseInt(std::string_view text);
double ParseReal(std::string_view text);

// As ParseInt, and empty when the integer is outside the range of int.
std::optional<int> ParseIntInRange(std::string_view text);
// As ParseReal, and empty when the number is too large or too small for a double.
std::optional<double> ParseRealInRange(std::string_view text);

}  // namespace host
