#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Numbers as text, always with a decimal point and never through the locale.
namespace host {

// Room that FormatG needs at most, as in "-1.23457e-308".
inline constexpr std::size_t kMaxGLength = 16;

// Writes `value` as printf's "%g" does in the "C" locale (six significant digits, the nearest
// decimal, ties to even of the exact value) and returns the end of the text. No terminating zero.
// `out` has room for kMaxGLength bytes.
char* FormatG(double value, char* out);
std::string FormatG(double value);

// Room that FormatInt needs at most, as in "-2147483648".
inline constexpr std::size_t kMaxIntLength = 11;

// Writes `value` as printf's "%d" does and returns the end of the text. No terminating zero.
char* FormatInt(int value, char* out);

// The integer or the real at the start of `text` after blanks, as the C functions atoi and atof
// read it: 0 when there is none; whatever follows is ignored. An integer outside the range of int
// gives the nearest bound.
int ParseInt(std::string_view text);
double ParseReal(std::string_view text);

// As ParseReal, and empty when the number is out of the range of a double.
std::optional<double> ParseRealInRange(std::string_view text);

}  // namespace host
