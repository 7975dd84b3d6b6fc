#include "host/geometry/on_uuid.h"

#include <gtest/gtest.h>

namespace {

constexpr ON_UUID kId = "7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4"_uuid;

TEST(Uuid, TextIsInTheOrderOfTheBytes) {
  EXPECT_EQ(kId.bytes[0], 0x7d);
  EXPECT_EQ(kId.bytes[15], 0xf4);
  EXPECT_EQ(kId.ToString(), "7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4");
  EXPECT_EQ(ON_UUID().ToString(), "00000000-0000-0000-0000-000000000000");
}

TEST(Uuid, ReadsAnyCaseWithOrWithoutBraces) {
  EXPECT_EQ(ON_UuidFromString("7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4"), kId);
  EXPECT_EQ(ON_UuidFromString("7D1F42A6-35C8-4B9E-9C07-5E2A1D60B3F4"), kId);
  EXPECT_EQ(ON_UuidFromString("{7d1f42a6-35c8-4B9E-9c07-5e2a1d60b3f4}"), kId);
}

TEST(Uuid, RefusesAnyOtherText) {
  for (const char* text :
       {"", "{}", "7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f", "7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f41",
        "7d1f42a635c8-4b9e-9c07-5e2a1d60b3f4-", "7d1f42a6x35c8x4b9ex9c07x5e2a1d60b3f4",
        "7d1f42a6035c804b9e09c0705e2a1d60b3f4", "gd1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4",
        "{7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4", "(7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4)",
        "-d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4"}) {
    EXPECT_EQ(ON_UuidFromString(text), std::nullopt) << text;
  }
}

TEST(Uuid, OnlyAllZeroIsNil) {
  EXPECT_TRUE(ON_UUID().IsNil());
  EXPECT_FALSE(kId.IsNil());
  EXPECT_FALSE("00000000-0000-0000-0000-000000000001"_uuid.IsNil());
}

}  // namespace
