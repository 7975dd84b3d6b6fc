// Compares host::FormatG with the C library's "%g" for COUNT numbers, random ones and such as are
// hard to round. Tells the first differences; the exit status is 0 when there are none.

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string_view>

#include "host/system/number_text.h"

namespace {

using Random = std::mt19937_64;

std::uint64_t Below(Random& random, std::uint64_t count) {
  return random() % count;
}

// A number of `low` to `high`.
int Between(Random& random, int low, int high) {
  return low + static_cast<int>(Below(random, static_cast<std::uint64_t>(high - low + 1)));
}

// The double nearest to digits * 10^exponent.
double Nearest(std::uint64_t digits, int exponent) {
  char text[64];
  const int length = std::snprintf(text, sizeof text, "%llue%d",
                                   static_cast<unsigned long long>(digits), exponent);
  double value = 0;
  std::from_chars(text, text + length, value);
  return value;
}

// The value or one of its neighbours, at most three doubles away.
double Near(Random& random, double value) {
  const int steps = Between(random, -3, 3);
  const double towards = steps < 0 ? 0 : std::numeric_limits<double>::infinity();
  for (int i = 0; i < std::abs(steps); ++i) value = std::nextafter(value, towards);
  return value;
}

double AnyDouble(Random& random) {
  return std::bit_cast<double>(random());
}

double AnyFloat(Random& random) {
  return std::bit_cast<float>(static_cast<std::uint32_t>(random()));
}

double Coordinate(Random& random) {
  return static_cast<float>(static_cast<double>(random() >> 11) * 0x1p-43 - 512);
}

double UnitFraction(Random& random) {
  return static_cast<double>(random() >> 11) * 0x1p-53;
}

// Exactly in the middle between two numbers of six digits: (2D + 1) / (2 * 10^places) with 2D + 1
// a multiple of 5^places.
double FractionalTie(Random& random) {
  const int places = Between(random, 0, 7);
  std::uint64_t power = 1;
  for (int i = 0; i < places; ++i) power *= 5;
  const std::uint64_t doubled = 200001 + Below(random, 1799999);
  return std::ldexp(static_cast<double>((doubled / power) | 1), -places - 1);
}

// The same among whole numbers: D5 times a power of ten.
double WholeTie(Random& random) {
  double value = static_cast<double>(100000 + Below(random, 900000)) * 10 + 5;
  for (int i = Between(random, 0, 9); i > 0; --i) value *= 10;
  return value;
}

double NearMiddle(Random& random) {
  const std::uint64_t digits = (100000 + Below(random, 900000)) * 10 + 5;
  return Near(random, Nearest(digits, Between(random, -330, 301)));
}

double NearDecade(Random& random) {
  constexpr std::uint64_t kEdges[] = {9999995, 9999994, 9999996, 10000000, 99999949, 99999951};
  return Near(random,
              Nearest(kEdges[Below(random, std::size(kEdges))], Between(random, -330, 300)));
}

double NearPowerOfTwo(Random& random) {
  return Near(random, std::ldexp(1.0, Between(random, -1074, 1023)));
}

double Subnormal(Random& random) {
  return std::bit_cast<double>(random() >> Between(random, 12, 63));
}

double WholeNumber(Random& random) {
  return static_cast<double>(random() >> Between(random, 11, 63));
}

double GridCoordinate(Random& random) {
  return static_cast<double>(Below(random, 10'000'000)) / (1 << Between(random, 0, 8));
}

double SixDigits(Random& random) {
  return Nearest(Below(random, 1'000'000), Between(random, -12, 6));
}

double SpecialNumber(Random& random) {
  using Limits = std::numeric_limits<double>;
  constexpr double kNumbers[] = {0,
                                 1,
                                 Limits::min(),
                                 Limits::max(),
                                 Limits::denorm_min(),
                                 Limits::infinity(),
                                 Limits::quiet_NaN()};
  return kNumbers[Below(random, std::size(kNumbers))];
}

constexpr std::array kKinds = {
    AnyDouble,  AnyFloat,       Coordinate, UnitFraction, FractionalTie,  WholeTie,  NearMiddle,
    NearDecade, NearPowerOfTwo, Subnormal,  WholeNumber,  GridCoordinate, SixDigits, SpecialNumber};

bool Agrees(double value) {
  char expected[64];
  const int length = std::snprintf(expected, sizeof expected, "%g", value);
  char text[host::kMaxGLength];
  const std::string_view written(text, static_cast<std::size_t>(host::FormatG(value, text) - text));
  if (written == std::string_view(expected, static_cast<std::size_t>(length))) return true;
  std::printf("%a: \"%.*s\" instead of \"%s\"\n", value, static_cast<int>(written.size()), text,
              expected);
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: number_text_check COUNT SEED\n");
    return 2;
  }
  const long long count = std::atoll(argv[1]);
  Random random(static_cast<std::uint64_t>(std::atoll(argv[2])));
  constexpr int kMostTold = 20;
  int differences = 0;
  for (long long i = 0; i < count && differences < kMostTold; ++i) {
    const double value = kKinds[static_cast<std::size_t>(i) % kKinds.size()](random);
    const bool negative = random() % 2 == 0;
    if (!Agrees(negative ? -value : value)) ++differences;
  }
  std::printf("%lld numbers of %zu kinds, %d differences\n", count, kKinds.size(), differences);
  return differences == 0 ? 0 : 1;
}
