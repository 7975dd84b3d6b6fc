#include <gmock/gmock.h>

#include "host/command/get_point.h"
#include "host/document/doc.h"
#include "host/geometry/on_brep.h"
#include "support/brep_shapes.h"
#include "support/typed_input.h"
#include "support/typed_numbers.h"

namespace {

using testing::ElementsAre;
using Result = CRhinoGet::Result;

class GetPointOnBrep : public testing::Test {
 protected:
  // What the last answer of a person gives; the others are refused.
  Result Get(const ON_Brep& brep, std::vector<std::string> answers) {
    TypedInput input(std::move(answers));
    CRhinoCommandContext context(doc_, input, true);
    CRhinoGetPoint get(context);
    get.Constrain(brep);
    const Result result = get.GetPoint();
    EXPECT_TRUE(input.IsUsedUp());
    refusals_ = input.Refusals();
    point_ = get.Point();
    face_ = get.PointOnBrep(&u_, &v_);
    return result;
  }

  // A square with a hole of radius 2, and a box.
  std::unique_ptr<ON_Brep> plate_ = MakePlateBrep(5, 2);
  std::unique_ptr<ON_Brep> box_ = MakeBoxBrep({{0, 0, 0}, {1, 2, 3}});
  CRhinoDoc doc_;
  ON_3dPoint point_{0, 0, 0};
  const ON_BrepFace* face_ = nullptr;
  double u_ = -99, v_ = -99;
  std::vector<std::string> refusals_;
};

TEST_F(GetPointOnBrep, ThreeNumbersAreAPointToWhichTheClosestIsTaken) {
  ASSERT_EQ(Get(*box_, {"0.5,0.5,9"}), Result::point);
  EXPECT_NEAR(point_.DistanceTo({0.5, 0.5, 3}), 0, 1e-9);
  ASSERT_NE(face_, nullptr);
  EXPECT_EQ(box_->SurfaceOf(*face_).PointAt(u_, v_), point_);
  ASSERT_EQ(Get(*plate_, {"0, 1, 4"}), Result::point);
  EXPECT_NEAR(point_.DistanceTo({0, 2, 0}), 0, 1e-7);
}

TEST_F(GetPointOnBrep, TwoNumbersAreParametersOfTheOneFace) {
  const ON_Surface& surface = plate_->SurfaceOf(*plate_->Face(0));
  const double u = surface.Domain(0).ParameterAt(0.125), v = surface.Domain(1).Min;
  ASSERT_EQ(Get(*plate_, {Typed(u, v)}), Result::point);
  EXPECT_EQ(face_, plate_->Face(0));
  EXPECT_EQ(u_, u);
  EXPECT_EQ(v_, v);
  EXPECT_EQ(point_, surface.PointAt(u, v));
}

TEST_F(GetPointOnBrep, OfSeveralFacesOneIsNamed) {
  ASSERT_EQ(Get(*box_, {"0.5,0.5", "4:0.5,0.25"}), Result::point);
  EXPECT_EQ(face_, box_->Face(4));
  EXPECT_EQ(u_, 0.5);
  EXPECT_EQ(v_, 0.25);
  EXPECT_THAT(refusals_, ElementsAre("The object has several faces: type face:u,v with a face from "
                                     "0 to 5."));
  EXPECT_EQ(Get(*plate_, {"0:4,9"}), Result::point);
}

TEST_F(GetPointOnBrep, WhatIsNotThereIsToldAndAskedForAgain) {
  const ON_Surface& surface = box_->SurfaceOf(*box_->Face(2));
  const auto end = [&surface](int direction) {
    return std::to_string(static_cast<int>(surface.Domain(direction).Max));
  };
  EXPECT_EQ(Get(*box_, {"6:0,0", "-1:0,0", "2:0,77", "!"}), Result::cancel);
  EXPECT_EQ(face_, nullptr);
  EXPECT_EQ(u_, -99);
  EXPECT_THAT(refusals_,
              ElementsAre("The object has the faces 0 to 5.", "The object has the faces 0 to 5.",
                          "Face 2 has no point there; its surface has u from 0 to " + end(0) +
                              " and v from 0 to " + end(1) + "."));
  // In the hole.
  EXPECT_EQ(Get(*plate_, {"5,6", "Enter"}), Result::cancel);
  EXPECT_THAT(
      refusals_,
      ElementsAre("Face 0 has no point there; its surface has u from 0 to 10 and v from 0 to 10."));
}

TEST_F(GetPointOnBrep, AnythingElseIsToldAndAskedForAgain) {
  for (const char* typed : {"1", "1,2,3,4", "a:1,2", "0:1,2,3", ":1,2", "0:", "0,1:2", "1.5:0,0"}) {
    EXPECT_EQ(Get(*box_, {typed, "0:0.5,0.5"}), Result::point) << typed;
    EXPECT_THAT(refusals_, ElementsAre("A point on a surface is typed as x,y,z, u,v or face:u,v, "
                                       "not '" +
                                       std::string(typed) + "'."));
  }
}

TEST_F(GetPointOnBrep, ThereIsNoPointWithoutAFace) {
  EXPECT_EQ(Get(ON_Brep(), {"1,2,3", "0:1,2", "!"}), Result::cancel);
  EXPECT_THAT(refusals_, ElementsAre("The object has no surface to pick on.",
                                     "The object has no surface to pick on."));
}

TEST_F(GetPointOnBrep, AnotherUseForgetsTheFace) {
  TypedInput input({"0:0.5,0.5", "!"});
  CRhinoCommandContext context(doc_, input, true);
  CRhinoGetPoint get(context);
  get.Constrain(*box_);
  EXPECT_EQ(get.GetPoint(), Result::point);
  EXPECT_NE(get.PointOnBrep(&u_, &v_), nullptr);
  EXPECT_EQ(get.GetPoint(), Result::cancel);
  EXPECT_EQ(get.PointOnBrep(&u_, &v_), nullptr);
}

TEST_F(GetPointOnBrep, WithoutABrepThereIsNoFace) {
  TypedInput input({"1,2,3"});
  CRhinoCommandContext context(doc_, input, true);
  CRhinoGetPoint get(context);
  EXPECT_EQ(get.GetPoint(), Result::point);
  EXPECT_EQ(get.PointOnBrep(&u_, &v_), nullptr);
}

}  // namespace
