#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "host/system/powers_of_ten.h"

// The six significant digits of a double by one multiplication of 64 by 64 bits.
//
// A number is scaled by a power of ten to six digits before the point. The factor stands ready for
// each binade (the numbers of one binary exponent), shifted so that the point of the product is at
// the same bit for all of them. The factor is rounded down, so the product's upper half is less
// than two units too small: where that could change the rounding, the caller is told.
namespace host::six_digits {

__extension__ using Wide = unsigned __int128;

inline constexpr int kDigits = 6;
inline constexpr std::uint32_t kLimit = 1'000'000;  // the first number with more digits

inline constexpr int kMantissaBits = 52;
inline constexpr int kExponentBias = 1023;
inline constexpr std::size_t kBinades = 2048;  // by the biased exponent

// Bits behind the point in the product's upper half.
inline constexpr int kFractionBits = 43;

// A binade reaches over one or two decades.
struct Binade {
  // Mantissas from here on belong to the upper decade.
  std::uint64_t upperDecade = ~std::uint64_t{0};
  // The factors of the two decades.
  std::uint64_t lowerFactor = ~std::uint64_t{0};
  std::uint64_t upperFactor = ~std::uint64_t{0};
  // The decimal exponent of the lower decade.
  int exponent = 0;
  // Whether the factors are exact.
  bool isExact = false;
};

// The largest e with 10^e <= 2^binary.
constexpr int DecimalExponent(int binary) {
  return (binary * 1262611) >> 22;
}

// How far a power's mantissa is shifted to the right to be the factor of a binade.
constexpr int FactorShift(int power, int binary) {
  return 62 - binary - PowersOfTen::Exponent(power) - kFractionBits;
}

constexpr bool IsExactFactor(int power, int shift) {
  const std::uint64_t lost = (std::uint64_t{1} << shift) - 1;
  return PowersOfTen::IsExact(power) && (kPowersOfTen.Mantissa(power) & lost) == 0;
}

constexpr Binade MakeBinade(int binary) {
  Binade binade;
  binade.exponent = DecimalExponent(binary);
  const int power = kDigits - 1 - binade.exponent;
  const int shift = FactorShift(power, binary);
  binade.lowerFactor = kPowersOfTen.Mantissa(power) >> shift;
  binade.isExact = IsExactFactor(power, shift);
  if (PowersOfTen::Exponent(binade.exponent + 1) != binary) return binade;
  const int upperShift = FactorShift(power - 1, binary);
  binade.upperDecade = kPowersOfTen.Mantissa(binade.exponent + 1);
  binade.upperFactor = kPowersOfTen.Mantissa(power - 1) >> upperShift;
  binade.isExact = binade.isExact && IsExactFactor(power - 1, upperShift);
  return binade;
}

// The two binades of unusual numbers have factors that fit their use: with a zero mantissa the
// lowest holds 0, whose digits are 0 by the factor 0. The largest factor takes the product beyond
// all numbers of six digits, which marks subnormals, infinities and what is no number.
static constexpr auto kBinadeTable = [] {
  std::array<Binade, kBinades> table{};
  for (std::size_t biased = 1; biased + 1 < kBinades; ++biased) {
    table[biased] = MakeBinade(static_cast<int>(biased) - kExponentBias);
  }
  table.front().upperDecade = (std::uint64_t{1} << 63) + 1;
  table.front().lowerFactor = 0;
  return table;
}();

// What a number is rounded to: number * 10^(exponent - 5).
struct Rounded {
  // At least kTenth, or 0. kUndecided when the rounding is not decided.
  std::uint32_t number;
  int exponent;
};

inline constexpr std::uint32_t kTenth = kLimit / 10;
inline constexpr std::uint32_t kUndecided = kLimit;

// Rounds a double, given by its bits, to the nearest number of six digits, and one in the middle
// between two to the even one. The sign is left out.
inline Rounded Round(std::uint64_t bits) {
  const Binade& binade = kBinadeTable[(bits >> kMantissaBits) % kBinades];
  const std::uint64_t mantissa = bits << (63 - kMantissaBits) | std::uint64_t{1} << 63;
  const bool isUpper = mantissa >= binade.upperDecade;
  const Wide product = Wide{mantissa} * (isUpper ? binade.upperFactor : binade.lowerFactor);
  const auto high = static_cast<std::uint64_t>(product >> 64);
  auto number = static_cast<std::uint32_t>(((high >> (kFractionBits - 1)) + 1) >> 1);
  const int exponent = binade.exponent + (isUpper ? 1 : 0);

  // The fraction with its first bit in front; undecided are one half and what is a unit below it.
  constexpr std::uint64_t kHalf = std::uint64_t{1} << 63;
  constexpr std::uint64_t kUnit = std::uint64_t{1} << (64 - kFractionBits);
  const std::uint64_t fraction = high << (64 - kFractionBits);
  if (fraction - (kHalf - kUnit) <= kUnit) [[unlikely]] {
    if (!binade.isExact) return {kUndecided, 0};
    const bool isTie = fraction == kHalf && static_cast<std::uint64_t>(product) == 0;
    if (isTie) number &= ~std::uint32_t{1};
  }
  if (number >= kLimit) [[unlikely]] {
    if (number > kLimit) return {kUndecided, 0};
    return {kTenth, exponent + 1};
  }
  return {number, exponent};
}

}  // namespace host::six_digits
