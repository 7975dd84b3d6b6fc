#include "jobs/pick_decal_matrix.h"

#include <gmock/gmock.h>

#include "host/document/doc.h"
#include "support/typed_input.h"

namespace orv {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;

using Matrix = std::array<double, 16>;

// The image of a point by a matrix of row vectors.
ON_3dPoint Image(const Matrix& m, ON_3dPoint p) {
  return {p.x * m[0] + p.y * m[4] + p.z * m[8] + m[12],
          p.x * m[1] + p.y * m[5] + p.z * m[9] + m[13],
          p.x * m[2] + p.y * m[6] + p.z * m[10] + m[14]};
}

TEST(DecalMatrix, MapsTheRectangleToTheUnitSquare) {
  // Three wide and two high, in a slanted plane.
  const ON_3dPoint corner0{1, 2, 3};
  const ON_3dVector across{2, 1, 2}, down{-0.8, -0.8, 1.2};
  const Matrix m = DecalMatrix({corner0, corner0 + across, corner0 + across + down});
  const auto expect = [&](ON_3dPoint p, double x, double y) {
    EXPECT_NEAR(Image(m, p).x, x, 1e-12);
    EXPECT_NEAR(Image(m, p).y, y, 1e-12);
    EXPECT_NEAR(Image(m, p).z, 0, 1e-12);
  };
  expect(corner0, 0, 0);
  expect(corner0 + across, 1, 0);
  expect(corner0 + across + down, 1, 1);
  expect(corner0 + across * 0.5 + down * 0.25, 0.5, 0.25);
  EXPECT_EQ(m[3], 0);
  EXPECT_EQ(m[7], 0);
  EXPECT_EQ(m[11], 0);
  EXPECT_EQ(m[15], 1);
}

TEST(DecalMatrix, TheThirdAxisIsMeasuredByTheHeight) {
  const Matrix m = DecalMatrix({{{0, 0, 0}, {2, 0, 0}, {2, -4, 0}}});
  EXPECT_THAT(m, ElementsAre(0.5, 0, 0, 0, 0, -0.25, 0, 0, 0, 0, -0.25, 0, 0, 0, 0, 1));
}

TEST(DecalMatrix, OfAnAxisWithoutLengthIsZero) {
  const Matrix line = DecalMatrix({{{0, 0, 0}, {2, 0, 0}, {2, 0, 0}}});
  EXPECT_THAT(line, ElementsAre(0.5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1));
  const Matrix point = DecalMatrix({{{1, 1, 1}, {1, 1, 1}, {1, 1, 1}}});
  EXPECT_THAT(point, ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1));
}

TEST(DecalMatrix, AVerySmallSideCountsAsSomewhatLonger) {
  const Matrix m = DecalMatrix({{{0, 0, 0}, {1e-9, 0, 0}, {1e-9, 2e-8, 0}}});
  EXPECT_THAT(
      m, Pointwise(DoubleNear(1e-3), Matrix{1e7, 0, 0, 0, 0, 1e7, 0, 0, 0, 0, 1e7, 0, 0, 0, 0, 1}));
}

class PickDecalMatrixTest : public testing::Test {
 protected:
  std::optional<Matrix> Pick(std::vector<std::string> answers) {
    TypedInput input(std::move(answers));
    CRhinoCommandContext context(doc_, input, true);
    const auto matrix = PickDecalMatrix(context);
    prompts_ = input.Prompts();
    return matrix;
  }

  CRhinoDoc doc_;
  std::vector<std::string> prompts_;
};

TEST_F(PickDecalMatrixTest, AsksForThreeCorners) {
  const auto matrix = Pick({"1,1,5", "3,1,5", "99,-3,5"});
  ASSERT_TRUE(matrix);
  EXPECT_THAT(*matrix,
              ElementsAre(0.5, 0, 0, 0, 0, -0.25, 0, 0, 0, 0, -0.25, 0, -0.5, 0.25, 1.25, 1));
  EXPECT_THAT(
      prompts_,
      ElementsAre("Pick top, left corner: ", "Pick top, right corner: ", "End rectangle: "));
}

TEST_F(PickDecalMatrixTest, WithoutACornerThereIsNone) {
  EXPECT_FALSE(Pick({"!"}));
  EXPECT_FALSE(Pick({"Enter"}));
  EXPECT_FALSE(Pick({"0,0,0", "!"}));
  EXPECT_FALSE(Pick({"0,0,0", "1,0,0", "!"}));
  EXPECT_FALSE(Pick({"0,0,0", "1,0,0"}));
}

}  // namespace
}  // namespace orv
