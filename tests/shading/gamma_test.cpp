#include "shading/gamma.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

TEST(ApplyGamma, RaisesWhatLiesBetweenZeroAndOne) {
  EXPECT_DOUBLE_EQ(ApplyGamma(0.5, 2), 0.25);
  EXPECT_DOUBLE_EQ(ApplyGamma(0.25, 0.5), 0.5);
}

TEST(ApplyGamma, LeavesAllElse) {
  for (const double value : {0.0, 1.0, -0.5, 2.0}) EXPECT_EQ(ApplyGamma(value, 3), value);
}

}  // namespace
}  // namespace orv
