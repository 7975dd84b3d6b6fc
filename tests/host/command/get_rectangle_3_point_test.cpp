#include "host/command/get_rectangle_3_point.h"

#include <gmock/gmock.h>

#include "host/document/doc.h"
#include "support/typed_input.h"

namespace {

using testing::ElementsAre;
using Result = CRhinoGet::Result;
using Corners = std::array<ON_3dPoint, 4>;

class GetRectangle3Point : public testing::Test {
 protected:
  Result Get(ON_3dPoint corner0, ON_3dPoint corner1, std::vector<std::string> answers) {
    TypedInput input(std::move(answers));
    CRhinoCommandContext context(doc_, input, true);
    CRhinoGetRectangle3Point get(context);
    get.SetCommandPrompt("End rectangle");
    get.SetBase(corner0, corner1);
    const Result result = get.GetRectangle();
    prompts_ = input.Prompts();
    refusals_ = input.Refusals();
    corners_ = get.Rectangle();
    return result;
  }

  CRhinoDoc doc_;
  Corners corners_{};
  std::vector<std::string> prompts_, refusals_;
};

TEST_F(GetRectangle3Point, TheOppositeSideGoesThroughThePoint) {
  ASSERT_EQ(Get({1, 1, 0}, {4, 1, 0}, {"4,-1,0"}), Result::rectangle);
  EXPECT_EQ(corners_, (Corners{{{1, 1, 0}, {4, 1, 0}, {4, -1, 0}, {1, -1, 0}}}));
  EXPECT_THAT(prompts_, ElementsAre("End rectangle: "));
}

TEST_F(GetRectangle3Point, OnlyWhatIsAcrossTheBaseCounts) {
  ASSERT_EQ(Get({0, 0, 0}, {2, 0, 0}, {"99,3,4"}), Result::rectangle);
  EXPECT_EQ(corners_, (Corners{{{0, 0, 0}, {2, 0, 0}, {2, 3, 4}, {0, 3, 4}}}));
  ASSERT_EQ(Get({0, 0, 0}, {2, 0, 0}, {"-7,-5"}), Result::rectangle);
  EXPECT_EQ(corners_[2], (ON_3dPoint{2, -5, 0}));
}

TEST_F(GetRectangle3Point, APointOnTheBaseGivesARectangleWithoutHeight) {
  ASSERT_EQ(Get({0, 0, 0}, {2, 0, 0}, {"1,0,0"}), Result::rectangle);
  EXPECT_EQ(corners_[2], corners_[1]);
}

TEST_F(GetRectangle3Point, ABaseWithoutLengthLeavesThePoint) {
  ASSERT_EQ(Get({1, 1, 1}, {1, 1, 1}, {"1,2,3"}), Result::rectangle);
  EXPECT_EQ(corners_, (Corners{{{1, 1, 1}, {1, 1, 1}, {1, 2, 3}, {1, 2, 3}}}));
}

TEST_F(GetRectangle3Point, AnythingElseIsToldAndAskedForAgain) {
  EXPECT_EQ(Get({0, 0, 0}, {1, 0, 0}, {"1", "!"}), Result::cancel);
  EXPECT_THAT(refusals_, ElementsAre("A point is typed as x,y,z or x,y, not '1'."));
  EXPECT_EQ(Get({0, 0, 0}, {1, 0, 0}, {"Enter"}), Result::cancel);
}

}  // namespace
