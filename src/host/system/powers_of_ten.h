#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

// Powers of ten as 64-bit numbers, computed exactly at compile time.
namespace host {

// A power of ten is mantissa * 2^(exponent - 63) with 2^63 <= mantissa < 2^64, rounded down. That
// is exact from 10^0 to 10^27.
class PowersOfTen {
 public:
  static constexpr int kLowest = -307;
  static constexpr int kHighest = 313;
  static constexpr int kHighestExact = 27;

  constexpr PowersOfTen() {
    FillPositive();
    FillNegative();
  }

  constexpr std::uint64_t Mantissa(int power) const {
    return mantissas_[static_cast<std::size_t>(power - kLowest)];
  }

  // The largest e with 2^e <= 10^power.
  static constexpr int Exponent(int power) { return (power * 217706) >> 16; }

  static constexpr bool IsExact(int power) { return power >= 0 && power <= kHighestExact; }

 private:
  // A whole number of 1056 bits in words of 32, the lowest first.
  using Number = std::array<std::uint32_t, 33>;

  // The 64 bits from the highest set one on.
  static constexpr std::uint64_t LeadingBits(const Number& number) {
    std::size_t top = number.size() - 1;
    while (number[top] == 0) --top;
    const auto word = [&](std::size_t i) { return std::uint64_t{i <= top ? number[top - i] : 0}; };
    const int unset = std::countl_zero(number[top]);
    return (word(0) << 32 | word(1)) << unset | word(2) >> (32 - unset);
  }

  // 10^p and 5^p have the same leading bits.
  constexpr void FillPositive() {
    Number power{1};
    for (int p = 0; p <= kHighest; ++p) {
      mantissas_[static_cast<std::size_t>(p - kLowest)] = LeadingBits(power);
      std::uint64_t carry = 0;
      for (std::uint32_t& word : power) {
        carry += std::uint64_t{word} * 5;
        word = static_cast<std::uint32_t>(carry);
        carry >>= 32;
      }
    }
  }

  // Rounding down after each division by 5 gives the same as rounding the last quotient down.
  constexpr void FillNegative() {
    Number quotient{};
    quotient.back() = 1;
    for (int p = -1; p >= kLowest; --p) {
      std::uint64_t rest = 0;
      for (std::size_t i = quotient.size(); i-- > 0;) {
        rest = rest << 32 | quotient[i];
        quotient[i] = static_cast<std::uint32_t>(rest / 5);
        rest %= 5;
      }
      mantissas_[static_cast<std::size_t>(p - kLowest)] = LeadingBits(quotient);
    }
  }

  std::array<std::uint64_t, kHighest - kLowest + 1> mantissas_{};
};

inline constexpr PowersOfTen kPowersOfTen;

}  // namespace host
