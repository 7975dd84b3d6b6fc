#include "host/system/number_text.h"

#include <locale.h>
#include <stdlib.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <system_error>

#include "host/system/six_digits.h"

namespace host {
namespace {

using six_digits::kDigits;
using six_digits::kLimit;

// The three digits of each number below 1000 as text, the first in the lowest byte.
constexpr auto kTriples = [] {
  std::array<std::uint32_t, 1000> triples{};
  for (std::uint32_t i = 0; i < 1000; ++i) {
    triples[i] = 0x303030u + i / 100 + (i / 10 % 10) * 0x100u + i % 10 * 0x10000u;
  }
  return triples;
}();

// A number below kLimit as six digits, the first in the lowest byte.
std::uint64_t DigitText(std::uint32_t number) {
  return kTriples[number / 1000] | std::uint64_t{kTriples[number % 1000]} << 24;
}

// The values of the digits.
std::uint64_t DigitValues(std::uint64_t digits) {
  return digits & 0x0F0F0F0F0F0Fu;
}

// The place of the last digit that is not 0; 0 when there is none.
int LastPlace(std::uint64_t digits) {
  return (63 - std::countl_zero(DigitValues(digits) | 1)) / 8;
}

// How a number is laid out whose exponent calls for the fixed notation: `kept` marks the digits
// before the point, `point` is the point in its place. Numbers below 1 have neither but begin with
// `lead` bytes of "0.000".
struct FixedLayout {
  std::uint64_t kept = ~std::uint64_t{0};
  std::uint64_t point = 0;
  int lead = 0;
  std::array<std::uint8_t, kDigits> length{};  // by the place of the last digit that is not 0
};

constexpr int kLowestFixed = -4;
constexpr int kHighestFixed = kDigits - 1;

constexpr auto kFixedLayouts = [] {
  std::array<FixedLayout, kHighestFixed - kLowestFixed + 1> layouts{};
  for (int exponent = kLowestFixed; exponent <= kHighestFixed; ++exponent) {
    FixedLayout& layout = layouts[static_cast<std::size_t>(exponent - kLowestFixed)];
    const int whole = exponent + 1;
    if (exponent < 0) {
      layout.lead = 1 - exponent;
    } else {
      layout.kept = (std::uint64_t{1} << 8 * whole) - 1;
      layout.point = std::uint64_t{'.'} << 8 * whole;
    }
    for (int place = 0; place < kDigits; ++place) {
      const int count = place + 1;
      const int length = exponent < 0 ? layout.lead + count : count > whole ? count + 1 : whole;
      layout.length[static_cast<std::size_t>(place)] = static_cast<std::uint8_t>(length);
    }
  }
  return layouts;
}();

static_assert(std::endian::native == std::endian::little, "digits are stored as whole words");

template <class Word>
void Store(char* out, Word text) {
  std::memcpy(out, &text, sizeof text);
}

// `digits` are those of a number d.ddddd * 10^exponent.
char* WriteFixed(std::uint64_t digits, int exponent, char* out) {
  const FixedLayout& layout = kFixedLayouts[static_cast<std::size_t>(exponent - kLowestFixed)];
  constexpr std::uint64_t kLead = 0x3030303030302E30;  // "0.000000"
  const std::uint64_t kept = digits & layout.kept;
  Store(out, kLead);
  Store(out + layout.lead, kept | layout.point | (digits & ~layout.kept) << 8);
  return out + layout.length[static_cast<std::size_t>(LastPlace(digits))];
}

char* WriteExponential(std::uint64_t digits, int exponent, char* out) {
  const std::uint64_t first = digits & 0xFF;
  Store(out, first | '.' << 8 | (digits ^ first) << 8);
  const int last = LastPlace(digits);
  out += last == 0 ? 1 : last + 2;
  *out++ = 'e';
  *out++ = exponent < 0 ? '-' : '+';
  const int magnitude = std::abs(exponent);
  const int skipped = magnitude < 100 ? 1 : 0;
  Store(out, kTriples[static_cast<std::size_t>(magnitude)] >> 8 * skipped);
  return out + 3 - skipped;
}

// For what is no ordinary number and for a rounding that is not decided. `bits` are those of a
// double; the sign is left out.
[[gnu::noinline]] char* WriteExactly(std::uint64_t bits, char* out) {
  const double magnitude = std::bit_cast<double>(bits << 1 >> 1);
  return std::to_chars(out, out + kMaxGLength - 1, magnitude, std::chars_format::general, kDigits)
      .ptr;
}

char* WriteWithoutLeadingZeros(std::uint32_t number, char* out) {
  const std::uint64_t digits = DigitText(number);
  constexpr std::uint64_t kLastDigit = std::uint64_t{1} << 8 * (kDigits - 1);
  const int zeros = std::countr_zero(DigitValues(digits) | kLastDigit) / 8;
  Store(out, digits >> 8 * zeros);
  return out + kDigits - zeros;
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
  return text;
}

// The start of `text` that can belong to a number.
std::string_view NumberStart(std::string_view text) {
  constexpr std::string_view kNumberBytes =
      "+-.0123456789_()abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  return text.substr(0, text.find_first_not_of(kNumberBytes));
}

struct Real {
  double value = 0;
  bool inRange = true;
};

Real ReadReal(std::string_view text) {
  static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
  const std::string number(NumberStart(WithoutLeadingBlanks(text)));
  errno = 0;
  const double value = strtod_l(number.c_str(), nullptr, locale);
  // A subnormal is told as an error too, but it is in range.
  return {value, errno != ERANGE || (value != 0 && std::isfinite(value))};
}

}  // namespace

char* FormatG(double value, char* out) {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  *out = '-';
  out += bits >> 63;
  const six_digits::Rounded rounded = six_digits::Round(bits);
  if (rounded.number >= kLimit) [[unlikely]]
    return WriteExactly(bits, out);
  const std::uint64_t digits = DigitText(rounded.number);
  const bool isFixed = rounded.exponent >= kLowestFixed && rounded.exponent <= kHighestFixed;
  return isFixed ? WriteFixed(digits, rounded.exponent, out)
                 : WriteExponential(digits, rounded.exponent, out);
}

std::string FormatG(double value) {
  char text[kMaxGLength];
  return {text, FormatG(value, text)};
}

char* FormatInt(int value, char* out) {
  *out = '-';
  out += value < 0 ? 1 : 0;
  const std::uint32_t magnitude = value < 0 ? 0u - static_cast<std::uint32_t>(value) : value;
  if (magnitude < kLimit) return WriteWithoutLeadingZeros(magnitude, out);
  out = WriteWithoutLeadingZeros(magnitude / kLimit, out);
  Store(out, DigitText(magnitude % kLimit));
  return out + kDigits;
}

std::optional<int> ParseIntInRange(std::string_view text) {
  text = WithoutLeadingBlanks(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  int value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec == std::errc::result_out_of_range) return std::nullopt;
  return value;
}

int ParseInt(std::string_view text) {
  if (const auto value = ParseIntInRange(text)) return *value;
  return WithoutLeadingBlanks(text).starts_with('-') ? std::numeric_limits<int>::min()
                                                     : std::numeric_limits<int>::max();
}

double ParseReal(std::string_view text) {
  return ReadReal(text).value;
}

std::optional<double> ParseRealInRange(std::string_view text) {
  const Real real = ReadReal(text);
  if (!real.inRange) return std::nullopt;
  return real.value;
}

}  // namespace host
