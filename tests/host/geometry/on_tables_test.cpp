#include "host/geometry/on_tables.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <numbers>
#include <optional>
#include <utility>

namespace {

using Tiling = std::optional<std::pair<double, double>>;

// Count and offset; nothing when the texture isn't tiled along `dir`.
Tiling TilingOf(const ON_Texture& texture, int dir) {
  double count = 99;
  double offset = 99;
  if (texture.IsTiled(dir, &count, &offset)) return std::pair(count, offset);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(offset, 0);
  return std::nullopt;
}

// Turned about the w axis, then `count` tiles and moved by `offset`.
ON_Texture Turned(double degrees, double count, double offset) {
  ON_Texture texture;
  const double angle = degrees * std::numbers::pi / 180;
  auto& m = texture.m_uvw.m_xform;
  m[0][0] = count * std::cos(angle);
  m[0][1] = -count * std::sin(angle);
  m[1][0] = count * std::sin(angle);
  m[1][1] = count * std::cos(angle);
  m[0][3] = offset;
  m[1][3] = 2 * offset;
  return texture;
}

TEST(Texture, ByDefaultItIsOneTile) {
  EXPECT_EQ(TilingOf(ON_Texture(), 0), Tiling({1, 0}));
  EXPECT_EQ(TilingOf(ON_Texture(), 1), Tiling({1, 0}));
}

TEST(Texture, TilesAndOffsetAreThoseOfEachDirection) {
  ON_Texture texture;
  texture.m_uvw.m_xform[0][0] = 4;
  texture.m_uvw.m_xform[0][3] = 0.5;
  texture.m_uvw.m_xform[1][1] = -3;
  texture.m_uvw.m_xform[1][3] = 0.125;
  EXPECT_EQ(TilingOf(texture, 0), Tiling({4, 0.5}));
  EXPECT_EQ(TilingOf(texture, 1), Tiling({-3, 0.125}));
}

TEST(Texture, OneThatIsTurnedIsTiledInNoDirection) {
  for (const double degrees : {10, 45, 135}) {
    EXPECT_EQ(TilingOf(Turned(degrees, 2, 0.5), 0), std::nullopt) << degrees;
    EXPECT_EQ(TilingOf(Turned(degrees, 2, 0.5), 1), std::nullopt) << degrees;
  }
}

TEST(Texture, AQuarterTurnSwapsTheDirections) {
  ON_Texture texture;
  auto& m = texture.m_uvw.m_xform;
  m[0][0] = m[1][1] = 0;
  m[0][1] = -2;
  m[0][3] = 0.5;
  m[1][0] = 3;
  m[1][3] = 0.25;
  EXPECT_EQ(TilingOf(texture, 0), Tiling({3, 0.25}));
  EXPECT_EQ(TilingOf(texture, 1), Tiling({-2, 0.5}));
}

TEST(Texture, ADirectionThatReachesNoRowOrTwoIsNotTiled) {
  ON_Texture texture;
  texture.m_uvw.m_xform[1][1] = 0;
  // Now the second row depends on nothing, which counts for both directions.
  EXPECT_EQ(TilingOf(texture, 0), std::nullopt);
  EXPECT_EQ(TilingOf(texture, 1), Tiling({0, 0}));
}

TEST(Texture, OtherDirectionsAreNotTiled) {
  for (const int dir : {-1, 3, INT_MIN, INT_MAX}) {
    EXPECT_EQ(TilingOf(ON_Texture(), dir), std::nullopt) << dir;
  }
}

class FindTextureTest : public testing::Test {
 protected:
  FindTextureTest() {
    using enum ON_Texture::Type;
    Add(bitmap, "wood.png");
    Add(bump, "bump.png");
    Add(bitmap, "brick.png");
    Add(bitmap, "wood.png");
  }
  void Add(ON_Texture::Type type, const char* file) {
    ON_Texture& texture = material_.m_textures.emplace_back();
    texture.m_type = type;
    texture.m_image_file = file;
  }

  ON_Material material_;
};

TEST_F(FindTextureTest, FindsOneAfterTheOther) {
  using enum ON_Texture::Type;
  EXPECT_EQ(material_.FindTexture(nullptr, bitmap), 0);
  EXPECT_EQ(material_.FindTexture(nullptr, bitmap, 0), 2);
  EXPECT_EQ(material_.FindTexture(nullptr, bitmap, 2), 3);
  EXPECT_EQ(material_.FindTexture(nullptr, bitmap, 3), -1);
  EXPECT_EQ(material_.FindTexture(nullptr, bump), 1);
  EXPECT_EQ(material_.FindTexture(nullptr, transparency), -1);
  EXPECT_EQ(ON_Material().FindTexture(nullptr, bitmap), -1);
}

TEST_F(FindTextureTest, AFileNameCountsWhenThereIsOne) {
  using enum ON_Texture::Type;
  EXPECT_EQ(material_.FindTexture("brick.png", bitmap), 2);
  EXPECT_EQ(material_.FindTexture("wood.png", bitmap, 0), 3);
  EXPECT_EQ(material_.FindTexture("bump.png", bitmap), -1);
}

TEST_F(FindTextureTest, AnyPlaceMayBeGiven) {
  EXPECT_EQ(material_.FindTexture(nullptr, ON_Texture::Type::bitmap, INT_MIN), 0);
  EXPECT_EQ(material_.FindTexture(nullptr, ON_Texture::Type::bitmap, INT_MAX), -1);
}

}  // namespace
