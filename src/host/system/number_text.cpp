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

#include "host/system/powers_of_ten.h"

namespace host {
namespace {

__extension__ using Wide = unsigned __int128;

constexpr int kDigits = 6;
constexpr std::uint64_t kLimit = 1'000'000;  // the first number with more than kDigits digits

constexpr int kMantissaBits = 52;
constexpr int kExponentBias = 1023;
constexpr std::uint64_t kExponentMask = 0x7FF;

// The three digits of each number below 1000 as text, the first in the lowest byte.
constexpr auto kTriples = [] {
  std::array<std::uint32_t, 1000> triples{};
  for (std::uint32_t i = 0; i < 1000; ++i) {
    triples[i] = 0x303030u + i / 100 + (i / 10 % 10) * 0x100u + i % 10 * 0x10000u;
  }
  return triples;
}();

// A number with its six digits as text, the first in the lowest byte: d.ddddd times 10^exponent.
struct Decimal {
  std::uint64_t digits;
  int exponent;
};

std::uint64_t DigitText(std::uint64_t number) {
  return kTriples[number / 1000] | std::uint64_t{kTriples[number % 1000]} << 24;
}

// How many of the six digits are left without the trailing zeros; 1 at least.
int SignificantDigits(std::uint64_t digits) {
  const std::uint64_t values = digits & 0x0F0F0F0F0F0Fu;
  return static_cast<int>(std::bit_width(values | 1) + 7) / 8;
}

// How a number is laid out whose exponent calls for the fixed notation: `kept` marks the digits
// before the point, `point` is the point in its place. Numbers below 1 have neither but begin with
// `lead` bytes of "0.000".
struct FixedLayout {
  std::uint64_t kept = ~std::uint64_t{0};
  std::uint64_t point = 0;
  int lead = 0;
  std::array<std::uint8_t, 8> length{};  // by the count of significant digits
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
    for (int count = 0; count < 8; ++count) {
      const int length =
          exponent < 0 ? layout.lead + count : std::max(count + (count > whole), whole);
      layout.length[static_cast<std::size_t>(count)] = static_cast<std::uint8_t>(length);
    }
  }
  return layouts;
}();

static_assert(std::endian::native == std::endian::little, "digits are stored as whole words");

template <class Word>
void Store(char* out, Word text) {
  std::memcpy(out, &text, sizeof text);
}

char* WriteFixed(const Decimal& decimal, char* out) {
  const FixedLayout& layout =
      kFixedLayouts[static_cast<std::size_t>(decimal.exponent - kLowestFixed)];
  constexpr std::uint64_t kLead = 0x3030303030302E30;  // "0.000000"
  const std::uint64_t kept = decimal.digits & layout.kept;
  Store(out, kLead);
  Store(out + layout.lead, kept | layout.point | (decimal.digits & ~layout.kept) << 8);
  return out + layout.length[static_cast<std::size_t>(SignificantDigits(decimal.digits))];
}

char* WriteExponential(const Decimal& decimal, char* out) {
  const int count = SignificantDigits(decimal.digits);
  Store(out, (decimal.digits & 0xFF) | '.' << 8 | (decimal.digits & ~std::uint64_t{0xFF}) << 8);
  out += count > 1 ? count + 1 : 1;
  *out++ = 'e';
  *out++ = decimal.exponent < 0 ? '-' : '+';
  const std::uint32_t exponent = kTriples[static_cast<std::size_t>(std::abs(decimal.exponent))];
  const int skipped = std::abs(decimal.exponent) < 100 ? 1 : 0;
  Store(out, exponent >> 8 * skipped);
  return out + 3 - skipped;
}

char* WriteDecimal(const Decimal& decimal, char* out) {
  const bool fixed = decimal.exponent >= kLowestFixed && decimal.exponent <= kHighestFixed;
  return fixed ? WriteFixed(decimal, out) : WriteExponential(decimal, out);
}

// Infinities, numbers that are none, subnormals, and what the quick way leaves undecided.
// `magnitude` has no sign.
[[gnu::noinline]] char* WriteExactly(std::uint64_t magnitude, char* out) {
  return std::to_chars(out, out + kMaxGLength - 1, std::bit_cast<double>(magnitude),
                       std::chars_format::general, kDigits)
      .ptr;
}

// The largest e with 10^e <= 2^binary.
constexpr int DecimalExponent(int binary) {
  return (binary * 1262611) >> 22;
}

// Scales mantissa * 2^(binary - 63), mantissa >= 2^63, by a power of ten to six digits before the
// point and rounds there. False when the product, whose error is below two units of its upper half,
// is too close to the middle between two numbers.
bool RoundToDigits(std::uint64_t mantissa, int binary, std::uint64_t& number, int& exponent) {
  exponent = DecimalExponent(binary);
  const int next = exponent + 1;
  exponent += static_cast<int>(PowersOfTen::Exponent(next) == binary) &
              static_cast<int>(mantissa >= kPowersOfTen.Mantissa(next));
  const int power = kDigits - 1 - exponent;
  const Wide product = Wide{mantissa} * kPowersOfTen.Mantissa(power);
  const auto high = static_cast<std::uint64_t>(product >> 64);
  const int shift = 62 - binary - PowersOfTen::Exponent(power);
  const std::uint64_t half = std::uint64_t{1} << (shift - 1);
  const std::uint64_t fraction = high & (2 * half - 1);
  number = ((high >> (shift - 1)) + 1) >> 1;
  if (fraction - (half - 1) <= 1) [[unlikely]] {
    if (!PowersOfTen::IsExact(power)) return false;
    const bool tie = fraction == half && static_cast<std::uint64_t>(product) == 0;
    if (tie) number &= ~std::uint64_t{1};
  }
  if (number == kLimit) [[unlikely]] {
    number /= 10;
    ++exponent;
  }
  return true;
}

char* WriteWithoutLeadingZeros(std::uint64_t number, char* out) {
  const std::uint64_t digits = DigitText(number);
  constexpr std::uint64_t kLastDigit = std::uint64_t{0x10} << 8 * (kDigits - 1);
  const std::uint64_t values = (digits & 0x0F0F0F0F0F0Fu) | kLastDigit;
  const int zeros = std::countr_zero(values) / 8;
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
  const std::uint64_t magnitude = bits << 1 >> 1;
  // Zero goes the way of 1 up to its digits, which spares a branch that would often go wrong.
  const bool isZero = magnitude == 0;
  const std::uint64_t taken = isZero ? std::bit_cast<std::uint64_t>(1.0) : magnitude;
  const std::uint64_t biased = taken >> kMantissaBits;
  if (biased - 1 >= kExponentMask - 1) [[unlikely]]
    return WriteExactly(magnitude, out);
  const std::uint64_t mantissa = taken << (63 - kMantissaBits) | std::uint64_t{1} << 63;
  std::uint64_t number = 0;
  int exponent = 0;
  if (!RoundToDigits(mantissa, static_cast<int>(biased) - kExponentBias, number, exponent)) {
    return WriteExactly(magnitude, out);
  }
  return WriteDecimal({DigitText(number) - (isZero ? 1 : 0), exponent}, out);
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

int ParseInt(std::string_view text) {
  text = WithoutLeadingBlanks(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  int value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  return text.starts_with('-') ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
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
