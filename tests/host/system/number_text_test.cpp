#include "host/system/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "host/system/powers_of_ten.h"
#include "host/system/text.h"

namespace {

using host::FormatG;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

std::string Int(int value) {
  char text[host::kMaxIntLength];
  return {text, host::FormatInt(value, text)};
}

// Compares with the C library's "%g", for the value and its negative.
void ExpectAsPrintf(double value) {
  ASSERT_EQ(FormatG(value), host::Format("%g", value)) << host::Format("%a", value);
  ASSERT_EQ(FormatG(-value), host::Format("%g", -value)) << host::Format("%a", -value);
}

// Compares the value and its nearest neighbours.
void ExpectAroundAsPrintf(double value) {
  ExpectAsPrintf(value);
  ExpectAsPrintf(std::nextafter(value, 0));
  ExpectAsPrintf(std::nextafter(value, kInfinity));
}

TEST(FormatG, WritesSixSignificantDigits) {
  EXPECT_EQ(FormatG(1), "1");
  EXPECT_EQ(FormatG(-1), "-1");
  EXPECT_EQ(FormatG(0.1), "0.1");
  EXPECT_EQ(FormatG(3.14159265358979), "3.14159");
  EXPECT_EQ(FormatG(-0.000123456789), "-0.000123457");
  EXPECT_EQ(FormatG(1200), "1200");
  EXPECT_EQ(FormatG(100000), "100000");
  EXPECT_EQ(FormatG(123456), "123456");
  EXPECT_EQ(FormatG(12345.67), "12345.7");
}

TEST(FormatG, TakesTheExponentBelowTenToTheMinusFourAndFromAMillionOn) {
  EXPECT_EQ(FormatG(0.0001), "0.0001");
  EXPECT_EQ(FormatG(0.00009), "9e-05");
  EXPECT_EQ(FormatG(999999), "999999");
  EXPECT_EQ(FormatG(1e6), "1e+06");
  EXPECT_EQ(FormatG(1234567), "1.23457e+06");
  EXPECT_EQ(FormatG(1e100), "1e+100");
  EXPECT_EQ(FormatG(1.5e-100), "1.5e-100");
}

TEST(FormatG, RoundingMayCarryIntoTheNextDecade) {
  EXPECT_EQ(FormatG(0.99999949), "0.999999");
  EXPECT_EQ(FormatG(0.9999996), "1");
  EXPECT_EQ(FormatG(999999.4), "999999");
  EXPECT_EQ(FormatG(999999.5), "1e+06");
  EXPECT_EQ(FormatG(0.000099999951), "0.0001");
  EXPECT_EQ(FormatG(9.9999996e-308), "1e-307");
}

TEST(FormatG, RoundsTiesOfTheExactValueToEven) {
  EXPECT_EQ(FormatG(100000.5), "100000");
  EXPECT_EQ(FormatG(100001.5), "100002");
  EXPECT_EQ(FormatG(12.34375), "12.3438");
  EXPECT_EQ(FormatG(12.40625), "12.4062");
  EXPECT_EQ(FormatG(1000005), "1e+06");
  EXPECT_EQ(FormatG(1000015), "1.00002e+06");
  EXPECT_EQ(FormatG(std::nextafter(100000.5, 1e6)), "100001");
}

TEST(FormatG, WritesWhatIsNoOrdinaryNumberAsTheCLibraryDoes) {
  EXPECT_EQ(FormatG(0.0), "0");
  EXPECT_EQ(FormatG(-0.0), "-0");
  EXPECT_EQ(FormatG(kInfinity), "inf");
  EXPECT_EQ(FormatG(-kInfinity), "-inf");
  EXPECT_EQ(FormatG(std::copysign(kNan, 1.0)), "nan");
  EXPECT_EQ(FormatG(std::copysign(kNan, -1.0)), "-nan");
  EXPECT_EQ(FormatG(std::numeric_limits<double>::max()), "1.79769e+308");
  EXPECT_EQ(FormatG(std::numeric_limits<double>::min()), "2.22507e-308");
  EXPECT_EQ(FormatG(std::numeric_limits<double>::denorm_min()), "4.94066e-324");
}

TEST(FormatG, StaysWithinTheRoomThatItAsksFor) {
  std::string room(host::kMaxGLength + 8, '#');
  for (const double value : {-1.23457e-308, -1.23457e-5, -0.000123457, -123456.0, -4.94066e-324}) {
    FormatG(value, room.data());
    EXPECT_EQ(room.substr(host::kMaxGLength), "########") << value;
  }
}

TEST(FormatG, AgreesWithPrintfAtPowersOfTwoAndTen) {
  for (int exponent = -1074; exponent <= 1023; ++exponent) {
    ExpectAroundAsPrintf(std::ldexp(1.0, exponent));
  }
  for (int exponent = -323; exponent <= 308; ++exponent) {
    ExpectAroundAsPrintf(host::ParseReal(host::Format("1e%d", exponent)));
    ExpectAroundAsPrintf(host::ParseReal(host::Format("9.999995e%d", exponent)));
    ExpectAroundAsPrintf(host::ParseReal(host::Format("9.99999e%d", exponent)));
  }
}

TEST(FormatG, AgreesWithPrintfAtMiddlesOfTwoNumbers) {
  std::mt19937_64 random(1);
  for (int exponent = -30; exponent <= 40; ++exponent) {
    for (int i = 0; i < 300; ++i) {
      const int digits = 100000 + static_cast<int>(random() % 900000);
      ExpectAroundAsPrintf(host::ParseReal(host::Format("%d5e%d", digits, exponent)));
    }
  }
  for (int i = 0; i < 20000; ++i) {
    ExpectAroundAsPrintf(static_cast<double>(random() % 100'000'000) / 64);
  }
}

TEST(FormatG, AgreesWithPrintfForRandomNumbers) {
  std::mt19937_64 random(2);
  for (int i = 0; i < 300000; ++i) {
    ExpectAsPrintf(std::bit_cast<double>(random() >> 1));
    ExpectAsPrintf(std::bit_cast<float>(static_cast<std::uint32_t>(random() >> 33)));
    ExpectAsPrintf(static_cast<double>(random() >> 11) * 0x1p-50);
  }
}

TEST(FormatG, AgreesWithPrintfForSmallWholeNumbers) {
  for (int i = 0; i < 20000; ++i) ExpectAsPrintf(i);
}

// The first 64 bits of a power of ten, taken from the C library's exact decimal reading of it:
// its 53 bits must be those of the table, rounded.
TEST(PowersOfTen, AgreeWithTheNearestDoubles) {
  for (int power = host::PowersOfTen::kLowest; power <= 308; ++power) {
    const double nearest = host::ParseReal(host::Format("1e%d", power));
    const double mantissa = std::ldexp(nearest, 63 - host::PowersOfTen::Exponent(power));
    const auto exact = static_cast<long double>(host::kPowersOfTen.Mantissa(power));
    EXPECT_NEAR(static_cast<double>(exact - static_cast<long double>(mantissa)), 0, 1025) << power;
  }
  EXPECT_EQ(host::kPowersOfTen.Mantissa(0), std::uint64_t{1} << 63);
  EXPECT_EQ(host::kPowersOfTen.Mantissa(19), 10'000'000'000'000'000'000u);
  EXPECT_EQ(host::kPowersOfTen.Mantissa(-1), 0xCCCCCCCCCCCCCCCCu);
}

TEST(FormatInt, WritesEveryInt) {
  EXPECT_EQ(Int(0), "0");
  EXPECT_EQ(Int(7), "7");
  EXPECT_EQ(Int(-10), "-10");
  EXPECT_EQ(Int(999999), "999999");
  EXPECT_EQ(Int(1000000), "1000000");
  EXPECT_EQ(Int(-1000001), "-1000001");
  EXPECT_EQ(Int(std::numeric_limits<int>::max()), "2147483647");
  EXPECT_EQ(Int(std::numeric_limits<int>::min()), "-2147483648");
}

TEST(FormatInt, AgreesWithPrintf) {
  std::mt19937 random(3);
  for (int i = 0; i < 200000; ++i) {
    const int value = static_cast<int>(random()) >> random() % 32;
    ASSERT_EQ(Int(value), std::to_string(value));
  }
}

TEST(ParseInt, ReadsTheIntegerAtTheStart) {
  EXPECT_EQ(host::ParseInt("12"), 12);
  EXPECT_EQ(host::ParseInt(" \t\r\n\v\f-12 34"), -12);
  EXPECT_EQ(host::ParseInt("+5x"), 5);
  EXPECT_EQ(host::ParseInt("3.9"), 3);
  EXPECT_EQ(host::ParseInt("007"), 7);
}

TEST(ParseInt, GivesZeroWithoutANumber) {
  for (const char* text : {"", " ", "x", "-", "+", "+-5", "-+5", "- 5", ".5"}) {
    EXPECT_EQ(host::ParseInt(text), 0) << text;
  }
}

TEST(ParseInt, GivesTheNearestBoundOutsideTheRange) {
  EXPECT_EQ(host::ParseInt("2147483648"), std::numeric_limits<int>::max());
  EXPECT_EQ(host::ParseInt("-2147483649"), std::numeric_limits<int>::min());
  EXPECT_EQ(host::ParseInt(" +99999999999999999999"), std::numeric_limits<int>::max());
}

TEST(ParseReal, ReadsTheRealAtTheStart) {
  EXPECT_EQ(host::ParseReal("1.5"), 1.5);
  EXPECT_EQ(host::ParseReal(" \t-2.5e3,7"), -2500);
  EXPECT_EQ(host::ParseReal("+.25 1"), 0.25);
  EXPECT_EQ(host::ParseReal("5."), 5);
  EXPECT_EQ(host::ParseReal("1e"), 1);
  EXPECT_EQ(host::ParseReal("1e+x"), 1);
  EXPECT_EQ(host::ParseReal("0x1.8p1"), 3);
  EXPECT_EQ(host::ParseReal("-Infinity"), -kInfinity);
  EXPECT_TRUE(std::isnan(host::ParseReal("nan")));
}

TEST(ParseReal, TakesAPointAndNoComma) {
  EXPECT_EQ(host::ParseReal("1,5"), 1);
  EXPECT_EQ(host::ParseReal("1.5"), 1.5);
}

TEST(ParseReal, GivesZeroWithoutANumber) {
  for (const char* text : {"", " ", "x", "-", ".", "e5", "--1", "- 1"}) {
    EXPECT_EQ(host::ParseReal(text), 0) << text;
  }
}

TEST(ParseReal, EndsAtAZeroByte) {
  EXPECT_EQ(host::ParseReal(std::string_view("1\0002", 3)), 1);
}

TEST(ParseReal, GivesInfinityOrZeroOutsideTheRange) {
  EXPECT_EQ(host::ParseReal("1e999"), kInfinity);
  EXPECT_EQ(host::ParseReal("-1e999"), -kInfinity);
  EXPECT_EQ(host::ParseReal("1e-999"), 0);
  EXPECT_EQ(host::ParseReal("4.9e-324"), std::numeric_limits<double>::denorm_min());
}

TEST(ParseIntInRange, IsEmptyOutsideTheRange) {
  EXPECT_EQ(host::ParseIntInRange(" +2147483647x"), 2147483647);
  EXPECT_EQ(host::ParseIntInRange("-2147483648"), std::numeric_limits<int>::min());
  EXPECT_EQ(host::ParseIntInRange("2147483648"), std::nullopt);
  EXPECT_EQ(host::ParseIntInRange("-99999999999999999999"), std::nullopt);
  EXPECT_EQ(host::ParseIntInRange("x"), 0);
  EXPECT_EQ(host::ParseIntInRange(""), 0);
}

TEST(ParseRealInRange, IsEmptyOutsideTheRange) {
  EXPECT_EQ(host::ParseRealInRange("1.5"), 1.5);
  EXPECT_EQ(host::ParseRealInRange("x"), 0.0);
  EXPECT_EQ(host::ParseRealInRange("1e999"), std::nullopt);
  EXPECT_EQ(host::ParseRealInRange("-1e999"), std::nullopt);
  EXPECT_EQ(host::ParseRealInRange("1e-999"), std::nullopt);
  EXPECT_EQ(host::ParseRealInRange("1e-320"), 1e-320);
  EXPECT_EQ(host::ParseRealInRange("inf"), kInfinity);
}

TEST(ParseReal, ReadsBackWhatFormatGWrote) {
  for (const double value : {0.25, -1234.5, 1e-7, 6.02214e23}) {
    EXPECT_EQ(host::ParseReal(FormatG(value)), value);
  }
}

}  // namespace
