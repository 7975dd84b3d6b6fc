#include "export/annotation_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "line_fixture.h"
#include "support/rib_checker.h"

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using Type = ON_Annotation::Type;

constexpr const char* kHead =
    "\n"
    "AttributeBegin\n"
    "  Color 0 0 0\n"
    "  Surface \"constant\"\n"
    "  Attribute \"visibility\" \"indirect\" [0]\n"
    "  Attribute \"visibility\" \"integer transmission\" [0]\n"
    "  Attribute \"visibility\" \"trace\" [0]\n"
    "  Attribute \"toon\" \"float inkwidth\" [0]\n"
    "  Attribute \"indirect\" \"prepass\" [0]\n";

// A dimension of 30 units in a style of arrows 4 units long.
class AnnotationWriterTest : public LineTest {
 protected:
  AnnotationWriterTest() {
    settings_.CurveWidth = 0.5;
    ON_DimStyle style;
    style.m_id = "5b0d6f1e-2a43-4c89-9c15-7e60f2d1a8b4"_uuid;
    style.m_arrowsize = 4;
    model_.m_dimstyle_table = {style};
    annotation_->m_dimstyle_id = style.m_id;
    annotation_->m_type = Type::linear;
    annotation_->m_points = {{0, 0}, {30, 0}, {15, 10}};
    annotation_->m_text = "<>";
  }

  void MakeText(std::string text) {
    annotation_->m_type = Type::text;
    annotation_->m_points.clear();
    annotation_->m_text = std::move(text);
  }
  std::string Block(int reparameterize = 0) {
    return WrittenOf(annotation_, [&](const auto& stream, const auto& object) {
      stream.Writer.Reparameterize = reparameterize;
      const auto* annotation = CRhinoAnnotationObject::Cast(&object);
      ASSERT_NE(annotation, nullptr);
      orv::WriteAnnotation(stream, *annotation, attributes_);
    });
  }
  // The block, which must be RIB that a renderer takes.
  RibReport Report() {
    const std::string block = Block();
    RibReport report = CheckRib(block);
    EXPECT_THAT(report.Complaints, IsEmpty()) << block;
    return report;
  }

  std::shared_ptr<ON_Annotation> annotation_ = std::make_shared<ON_Annotation>();
};

TEST_F(AnnotationWriterTest, ABlockBeginsWithItsLook) {
  EXPECT_THAT(Block(), StartsWith(kHead));
  EXPECT_TRUE(Block().ends_with("\nAttributeEnd\n"));
}

TEST_F(AnnotationWriterTest, LinesAreRibbonsOfATwentiethOfTheArrows) {
  const std::string block = Block();
  EXPECT_THAT(block,
              StartsWith(std::string(kHead) + "  Attribute \"curve\" \"string type\" \"ribbon\"\n"
                                              "  NuCurves [2] [2] [0 0 "));
  const RibReport report = Report();
  const auto curves = report.Named("NuCurves");
  ASSERT_GE(curves.size(), 3u);
  for (const RibStatement* curve : curves) {
    EXPECT_EQ(curve->Parameter("constantwidth")->Numbers[0], 0.2);
  }
}

TEST_F(AnnotationWriterTest, ArrowheadsAndLettersAreFilled) {
  const RibReport report = Report();
  // Two arrows and 30.00, of which each 0 has a counter.
  EXPECT_EQ(report.Named("NuPatch").size(), 7u);
  const auto trims = report.Named("TrimCurve");
  EXPECT_EQ(std::count_if(
                trims.begin(), trims.end(),
                [](const RibStatement* trim) { return trim->Arguments[0].Numbers.size() == 2; }),
            3);
}

TEST_F(AnnotationWriterTest, FacesAreReparameterizedAsAllAreInAStream) {
  const RibReport report = CheckRib(Block(1));
  const auto patches = report.Named("NuPatch");
  ASSERT_FALSE(patches.empty());
  for (const RibStatement* patch : patches) {
    EXPECT_EQ(patch->Arguments[3].Numbers[0], 0);
    EXPECT_EQ(patch->Arguments[4].Numbers[0], 1);
  }
}

TEST_F(AnnotationWriterTest, TheObjectsOwnWidthCountsInThePlaceOfTheStyle) {
  attributes_.UseLineWidth = true;
  attributes_.LineWidth = 3;
  EXPECT_THAT(Block(), HasSubstr("\"constantwidth\" [1.5]\n"));
  EXPECT_THAT(Block(), Not(HasSubstr("\"constantwidth\" [0.2]\n")));
}

TEST_F(AnnotationWriterTest, WithoutAStyleLinesAreAsWideAsCurves) {
  annotation_->m_dimstyle_id = {};
  EXPECT_THAT(Block(), HasSubstr("\"constantwidth\" [0.5]\n"));
  // Two arrows and 30.00.
  EXPECT_EQ(Report().Named("NuPatch").size(), 7u);
}

TEST_F(AnnotationWriterTest, ArrowsOfNoSizeMakeNoWidth) {
  for (const double size :
       {-4.0, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    model_.m_dimstyle_table[0].m_arrowsize = size;
    EXPECT_THAT(Block(), HasSubstr("\"constantwidth\" [0.5]\n")) << size;
    EXPECT_THAT(Block(), Not(HasSubstr("nan"))) << size;
  }
}

TEST_F(AnnotationWriterTest, AWidthOfZeroMakesTheAnnotationVanish) {
  attributes_.UseLineWidth = true;
  attributes_.LineWidth = 0;
  EXPECT_THAT(Block(), IsEmpty());
}

TEST_F(AnnotationWriterTest, HasTheObjectsLineColour) {
  attributes_.UseLineColor = true;
  attributes_.LineColor = {255, 51, 0};
  EXPECT_THAT(Block(), StartsWith("\nAttributeBegin\n  Color 1 0.2 0\n"));
}

TEST_F(AnnotationWriterTest, HasNeitherAttributesNorMaterial) {
  hostAttributes_.m_name = "width";
  attributes_.CastShadow = false;
  attributes_.ShadeCurves = true;
  attributes_.Archive = "tree.rib";
  attributes_.ArchiveMode = 1;
  EXPECT_THAT(Block(), StartsWith(kHead));
}

TEST_F(AnnotationWriterTest, ATextIsFilledLettersAlone) {
  MakeText("O");
  const std::string block = Block();
  EXPECT_THAT(block, StartsWith(std::string(kHead) + "  AttributeBegin\n"
                                                     "    TextureCoordinates [ 0 1 1 1 0 0 1 0 ]\n"
                                                     "    TrimCurve [ "));
  EXPECT_THAT(block, Not(HasSubstr("NuCurves")));
  const RibReport report = Report();
  ASSERT_EQ(report.Named("TrimCurve").size(), 1u);
  EXPECT_EQ(report.Named("TrimCurve")[0]->Arguments[0].Numbers.size(), 2u);
  EXPECT_EQ(report.Named("NuPatch").size(), 1u);
}

TEST_F(AnnotationWriterTest, EachPartOfALetterIsAFace) {
  MakeText("i%");
  // The stem and the dot of the i; two rings and a stroke.
  EXPECT_EQ(Report().Named("NuPatch").size(), 5u);
}

TEST_F(AnnotationWriterTest, AnAnnotationWithoutADrawingWritesNothing) {
  annotation_->m_points.clear();
  EXPECT_THAT(Block(), IsEmpty());
}

TEST_F(AnnotationWriterTest, ATextWithoutLettersIsAnEmptyBlock) {
  MakeText("  ");
  EXPECT_EQ(Block(), std::string(kHead) + "AttributeEnd\n");
}

// Its letters' outlines are no numbers, or all in one place.
TEST_F(AnnotationWriterTest, ATextWhoseLettersMakeNoFacesIsAnEmptyBlock) {
  MakeText("lost");
  for (const double height : {1e308, 1e-300}) {
    model_.m_dimstyle_table[0].m_textheight = height;
    EXPECT_EQ(Block(), std::string(kHead) + "AttributeEnd\n") << height;
  }
}

TEST_F(AnnotationWriterTest, EachKindIsDrawn) {
  const std::pair<Type, std::vector<ON_2dPoint>> kinds[] = {
      {Type::aligned, {{0, 0}, {30, 0}, {15, 10}}},
      {Type::angular, {{0, 0}, {30, 0}, {0, 30}, {15, 15}}},
      {Type::diameter, {{0, 0}, {10, 0}, {15, 0}, {20, 0}}},
      {Type::radius, {{0, 0}, {10, 0}, {15, 0}, {20, 0}}},
      {Type::leader, {{0, 0}, {10, 10}, {20, 10}}},
      {Type::ordinate, {{0, 0}, {0, 20}, {0, 8}, {0, 12}}},
  };
  for (const auto& [type, points] : kinds) {
    annotation_->m_type = type;
    annotation_->m_points = points;
    const RibReport report = Report();
    EXPECT_FALSE(report.Named("NuCurves").empty()) << static_cast<int>(type);
    EXPECT_FALSE(report.Named("NuPatch").empty()) << static_cast<int>(type);
  }
}

}  // namespace
