#include "export/point_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "line_fixture.h"

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class PointWriterTest : public LineTest {
 protected:
  std::string Block() {
    const auto point = std::make_shared<ON_Point>();
    point->point = at_;
    return WrittenOf(point, [&](const auto& stream, const auto& object) {
      orv::WritePointObject(stream, object, *point, attributes_);
    });
  }

  ON_3dPoint at_{1, 2, 3};
};

TEST_F(PointWriterTest, WritesABlock) {
  settings_.CurveWidth = 0.5;
  EXPECT_EQ(Block(),
            "\n"
            "AttributeBegin\n"
            "  Color 0 0 0\n"
            "  Attribute \"visibility\" \"indirect\" [0]\n"
            "  Attribute \"toon\" \"float inkwidth\" [0]\n"
            "  Attribute \"indirect\" \"prepass\" [0]\n"
            "  Attribute \"visibility\" \"integer transmission\" [0]\n"
            "  Attribute \"visibility\" \"trace\" [0]\n"
            "  Surface \"constant\"\n"
            "  Attribute \"render\" \"string pointtype\" \"sphere\"\n"
            "  Points \"P\" [1 2 3] \"constantwidth\" [0.5]\n"
            "AttributeEnd\n");
}

TEST_F(PointWriterTest, IsASphereUnlessItIsAPatch) {
  for (const int type : {0, 2, 3, 4}) {
    attributes_.PointType = type;
    EXPECT_THAT(Block(), HasSubstr("  Attribute \"render\" \"string pointtype\" \"sphere\"\n"));
  }
  attributes_.PointType = 1;
  EXPECT_THAT(Block(), HasSubstr("  Attribute \"render\" \"string pointtype\" \"patch\"\n"));
}

TEST_F(PointWriterTest, AShadedPointHasItsMaterial) {
  attributes_.ShadeCurves = true;
  hostAttributes_.m_name = "dot";
  EXPECT_THAT(Block(), HasSubstr("\nAttributeBegin\n"
                                 "  Attribute \"identifier\" \"name\" [\"dot\"]\n"
                                 "  Surface \"VRubber\""));
  EXPECT_THAT(Block(), Not(HasSubstr("Surface \"constant\"")));
}

TEST_F(PointWriterTest, TheAttributesStandFirst) {
  attributes_.CastShadow = false;
  attributes_.UseLineWidth = true;
  attributes_.LineWidth = 4;
  const std::string block = Block();
  EXPECT_THAT(block, testing::StartsWith("\nAttributeBegin\n"
                                         "  Attribute \"visibility\" \"integer transmission\" [0]\n"
                                         "  Color 0 0 0\n"));
  EXPECT_THAT(block, HasSubstr("\"constantwidth\" [4]\n"));
}

TEST_F(PointWriterTest, AWidthOfZeroMakesThePointVanish) {
  attributes_.UseLineWidth = true;
  attributes_.LineWidth = 0;
  EXPECT_THAT(Block(), IsEmpty());
}

TEST_F(PointWriterTest, APointWithoutCoordinatesIsLeftOut) {
  at_.y = std::numeric_limits<double>::quiet_NaN();
  EXPECT_THAT(Block(), IsEmpty());
  at_.y = ON_UNSET_VALUE;
  EXPECT_THAT(Block(), IsEmpty());
}

}  // namespace
