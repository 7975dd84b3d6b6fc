#include "host/command/get_point.h"

#include <gmock/gmock.h>

#include "host/command/get_rectangle.h"
#include "host/document/doc.h"
#include "host/document/view.h"
#include "support/typed_input.h"

namespace {

using testing::ElementsAre;
using Result = CRhinoGet::Result;

TEST(GetPoint, TakesTwoOrThreeCoordinates) {
  CRhinoDoc doc;
  TypedInput input({"1,2.5,-3e1", "4, 5"});
  CRhinoCommandContext context(doc, input, true);
  CRhinoGetPoint get(context);
  get.SetCommandPrompt("Pick point: ");
  EXPECT_EQ(get.GetPoint(), Result::point);
  EXPECT_EQ(get.Point(), (ON_3dPoint{1, 2.5, -30}));
  EXPECT_EQ(get.GetPoint(), Result::point);
  EXPECT_EQ(get.Point(), (ON_3dPoint{4, 5, 0}));
  EXPECT_THAT(input.Prompts(), ElementsAre("Pick point: ", "Pick point: "));
}

TEST(GetPoint, AnythingElseIsToldAndAskedForAgain) {
  for (const char* typed : {"1", "1,2,3,4", "a,b", "1,,2", "1,2,", "inf,0", "1;2"}) {
    CRhinoDoc doc;
    TypedInput input({typed, "1,2,3"});
    CRhinoCommandContext context(doc, input, true);
    CRhinoGetPoint get(context);
    EXPECT_EQ(get.GetPoint(), Result::point) << typed;
    EXPECT_THAT(input.Refusals(),
                ElementsAre("A point is typed as x,y,z or x,y, not '" + std::string(typed) + "'."));
  }
}

TEST(GetPoint, OptionsAndEnterWork) {
  CRhinoDoc doc;
  TypedInput input({"Base", "Enter"});
  CRhinoCommandContext context(doc, input, true);
  CRhinoGetPoint get(context);
  get.AcceptNothing();
  get.AddCommandOption("BasePoint");
  EXPECT_EQ(get.GetPoint(), Result::option);
  EXPECT_EQ(get.GetPoint(), Result::nothing);
}

class GetRectangleTest : public testing::Test {
 protected:
  GetRectangleTest() {
    ON_3dmView view;
    view.m_name = "Wide";
    view.m_vp.m_port.right = 640;
    view.m_vp.m_port.bottom = 480;
    view.m_vp.m_port.top = 0;
    view_ = std::make_unique<CRhinoView>(view);
    doc_.SetActiveView(view_.get());
  }

  CRhinoDoc doc_;
  std::unique_ptr<CRhinoView> view_;
};

TEST_F(GetRectangleTest, TakesTwoCornersInAnyOrder) {
  TypedInput input({"600,20", "10,400"});
  CRhinoCommandContext context(doc_, input, true);
  CRhinoGetRectangle get(context);
  get.SetCommandPrompt("Set render region rectangle in viewport");
  ASSERT_EQ(get.GetRectangle(), Result::rectangle);
  EXPECT_EQ(get.Rectangle().left, 10);
  EXPECT_EQ(get.Rectangle().right, 600);
  EXPECT_EQ(get.Rectangle().top, 20);
  EXPECT_EQ(get.Rectangle().bottom, 400);
  EXPECT_EQ(get.View(), view_.get());
  EXPECT_THAT(input.Prompts(),
              ElementsAre("Set render region rectangle in viewport (first corner): ",
                          "Set render region rectangle in viewport (other corner): "));
}

TEST_F(GetRectangleTest, CornerOutsideTheWindowIsRefused) {
  TypedInput input({"641,0", "-1,0", "x", "0,0", "640,480"});
  CRhinoCommandContext context(doc_, input, true);
  CRhinoGetRectangle get(context);
  EXPECT_EQ(get.GetRectangle(), Result::rectangle);
  EXPECT_THAT(input.Refusals(),
              ElementsAre("A corner is typed as x,y in pixels from 0,0 to 640,480, not '641,0'.",
                          "A corner is typed as x,y in pixels from 0,0 to 640,480, not '-1,0'.",
                          "A corner is typed as x,y in pixels from 0,0 to 640,480, not 'x'."));
}

TEST_F(GetRectangleTest, SecondUseStartsWithTheFirstCorner) {
  TypedInput input({"0,0", "!", "1,1", "2,2"});
  CRhinoCommandContext context(doc_, input, true);
  CRhinoGetRectangle get(context);
  EXPECT_EQ(get.GetRectangle(), Result::cancel);
  ASSERT_EQ(get.GetRectangle(), Result::rectangle);
  EXPECT_EQ(get.Rectangle().left, 1);
  EXPECT_EQ(get.Rectangle().right, 2);
}

TEST_F(GetRectangleTest, WithoutAViewThereIsNoRectangle) {
  doc_.SetActiveView(nullptr);
  TypedInput input({"0,0", "1,1"});
  CRhinoCommandContext context(doc_, input, true);
  CRhinoGetRectangle get(context);
  EXPECT_EQ(get.GetRectangle(), Result::no_result);
  EXPECT_EQ(get.CommandResult(), CommandResult::failure);
}

}  // namespace
