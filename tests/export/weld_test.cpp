#include "export/weld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace orv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The same by comparing each vertex with each.
WeldedVertices WeldByScan(const std::vector<ON_3fPoint>& vertices) {
  WeldedVertices welded;
  for (int old = 0; old < static_cast<int>(vertices.size()); ++old) {
    int match = 0;
    while (match < static_cast<int>(welded.unique.size()) &&
           vertices[welded.unique[match]] != vertices[old]) {
      ++match;
    }
    if (match == static_cast<int>(welded.unique.size())) welded.unique.push_back(old);
    welded.remap.push_back(match);
  }
  return welded;
}

void ExpectAsByScan(const std::vector<ON_3fPoint>& vertices) {
  const WeldedVertices welded = WeldVertices(vertices);
  const WeldedVertices expected = WeldByScan(vertices);
  EXPECT_EQ(welded.remap, expected.remap);
  EXPECT_EQ(welded.unique, expected.unique);
}

TEST(Weld, LowestIndexStandsForItsPosition) {
  const std::vector<ON_3fPoint> vertices{{1, 2, 3}, {0, 0, 0}, {1, 2, 3}, {4, 5, 6}, {0, 0, 0}};
  const WeldedVertices welded = WeldVertices(vertices);
  EXPECT_THAT(welded.remap, ElementsAre(0, 1, 0, 2, 1));
  EXPECT_THAT(welded.unique, ElementsAre(0, 1, 3));
}

TEST(Weld, LastBitKeepsVerticesApart) {
  const std::vector<ON_3fPoint> vertices{{1, 1, 1}, {1, 1, std::nextafter(1.0f, 2.0f)}};
  EXPECT_THAT(WeldVertices(vertices).remap, ElementsAre(0, 1));
}

TEST(Weld, ZeroEqualsMinusZero) {
  const std::vector<ON_3fPoint> vertices{{-0.0f, 0, -0.0f}, {0, -0.0f, 0}, {0, 0, 0}};
  EXPECT_THAT(WeldVertices(vertices).remap, ElementsAre(0, 0, 0));
}

TEST(Weld, NanEqualsNothing) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const std::vector<ON_3fPoint> vertices{{nan, 0, 0}, {nan, 0, 0}, {0, 0, nan}, {0, 0, 0}};
  EXPECT_THAT(WeldVertices(vertices).remap, ElementsAre(0, 1, 2, 3));
}

TEST(Weld, InfinitiesEqualEachOther) {
  const float infinity = std::numeric_limits<float>::infinity();
  const std::vector<ON_3fPoint> vertices{{infinity, 0, 0}, {infinity, 0, 0}, {-infinity, 0, 0}};
  EXPECT_THAT(WeldVertices(vertices).remap, ElementsAre(0, 0, 1));
}

TEST(Weld, NothingGivesNothing) {
  EXPECT_THAT(WeldVertices({}).remap, IsEmpty());
  EXPECT_THAT(WeldVertices({}).unique, IsEmpty());
}

TEST(Weld, AgreesWithTheScanForRandomVertices) {
  std::mt19937 random(1);
  constexpr float kValues[] = {0.0f,
                               -0.0f,
                               1.0f,
                               -1.0f,
                               0.5f,
                               1e-40f,
                               -1e30f,
                               std::numeric_limits<float>::quiet_NaN(),
                               std::numeric_limits<float>::infinity()};
  for (int round = 0; round < 200; ++round) {
    std::vector<ON_3fPoint> vertices(random() % 300);
    const auto kinds = 1 + random() % 9;
    for (ON_3fPoint& p : vertices) {
      p = {kValues[random() % kinds], kValues[random() % kinds], kValues[random() % kinds]};
    }
    ExpectAsByScan(vertices);
  }
}

TEST(Weld, ManyVerticesOfOnePositionOrOfNoneTakeNoLonger) {
  constexpr std::size_t kCount = 300000;
  const std::vector<ON_3fPoint> same(kCount, ON_3fPoint{1, 2, 3});
  EXPECT_EQ(WeldVertices(same).unique.size(), 1u);
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const std::vector<ON_3fPoint> none(kCount, ON_3fPoint{nan, nan, nan});
  EXPECT_EQ(WeldVertices(none).unique.size(), kCount);
}

}  // namespace
}  // namespace orv
