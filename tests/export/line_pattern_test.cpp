#include "export/line_pattern.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

#include "host/geometry/on_line_curve.h"
#include "line_fixture.h"

namespace {

constexpr const char* kSolid = "Surface \"constant\"\n";
constexpr const char* kHitMode = "Attribute \"shade\" \"string transmissionhitmode\" \"shader\"\n";
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// A line of length 30 in a document of millimetres.
class LinePatternTest : public LineTest {
 protected:
  LinePatternTest() {
    hostAttributes_.m_linetype_source = ON_AttributeSource::object;
    hostAttributes_.m_linetype_index = 0;
  }

  // The statements for a linetype of segments of these lengths.
  std::string PatternOf(std::initializer_list<double> lengths) {
    ON_Linetype linetype;
    for (const double length : lengths) {
      linetype.m_segments.push_back({length, linetype.m_segments.size() % 2 == 1});
    }
    model_.m_linetype_table = {linetype};
    return Pattern();
  }
  std::string Pattern() {
    const auto line = std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, end_);
    return WrittenOf(line, [&](const auto& stream, const auto& object) {
      length_ = orv::WriteLinePattern(stream.Writer, object, *line, stream.Doc);
    });
  }

  ON_3dPoint end_{30, 0, 0};
  std::optional<double> length_;
};

TEST_F(LinePatternTest, OfAContinuousLinetypeIsAConstantColour) {
  EXPECT_EQ(PatternOf({}), kSolid);
  EXPECT_FALSE(length_);
  EXPECT_EQ(PatternOf({5}), kSolid);
  EXPECT_FALSE(length_);
}

TEST_F(LinePatternTest, OfALinetypeThatIsNotThereIsAConstantColour) {
  for (const int index : {-1, 1, 1000}) {
    hostAttributes_.m_linetype_index = index;
    EXPECT_EQ(PatternOf({2, 1}), kSolid);
  }
}

TEST_F(LinePatternTest, OfTwoSegmentsPassesNoGap) {
  EXPECT_EQ(PatternOf({2, 1}),
            std::string(kHitMode) +
                "Surface \"VDashes\" \"float Frequency\" [10] \"float FirstDash\" [0.666667]\n");
  EXPECT_EQ(length_, 30);
}

TEST_F(LinePatternTest, OfThreeSegmentsCountsTheFirstTwo) {
  EXPECT_EQ(PatternOf({2, 1, 50}), PatternOf({2, 1}));
}

TEST_F(LinePatternTest, OfFourSegmentsHasASecondDash) {
  EXPECT_EQ(PatternOf({4, 1, 2, 3}),
            std::string(kHitMode) +
                "Surface \"VDashes\" \"float Frequency\" [3] \"float FirstDash\" [0.4]\n"
                "  \"float FirstGap\" [0.1] \"float SecondDash\" [0.2]\n");
  EXPECT_EQ(PatternOf({4, 1, 2, 3, 50}), PatternOf({4, 1, 2, 3}));
}

TEST_F(LinePatternTest, OfSixSegmentsHasAThirdDash) {
  EXPECT_EQ(PatternOf({8, 1, 4, 2, 2, 3}),
            std::string(kHitMode) +
                "Surface \"VDashes\" \"float Frequency\" [1.5] \"float FirstDash\" [0.4]\n"
                "  \"float FirstGap\" [0.05] \"float SecondDash\" [0.2]\n"
                "  \"float SecondGap\" [0.1] \"float ThirdDash\" [0.1]\n");
  EXPECT_EQ(PatternOf({8, 1, 4, 2, 2, 3, 50}), PatternOf({8, 1, 4, 2, 2, 3}));
  EXPECT_EQ(PatternOf({8, 1, 4, 2, 2, 3, 50, 60}), PatternOf({8, 1, 4, 2, 2, 3}));
}

TEST_F(LinePatternTest, TakesALengthThatIsNoneAsOne) {
  const std::string expected = PatternOf({2, 1});
  for (const double length : {0.0, -5.0, kNaN, kInfinity, -kInfinity}) {
    EXPECT_EQ(PatternOf({2, length}), expected);
  }
  EXPECT_EQ(PatternOf({0, 0}),
            std::string(kHitMode) +
                "Surface \"VDashes\" \"float Frequency\" [15] \"float FirstDash\" [0.5]\n");
}

TEST_F(LinePatternTest, ScalesMillimetresToTheModel) {
  model_.m_settings.m_model_units.m_unit_system = ON_UnitSystem::centimeters;
  EXPECT_EQ(PatternOf({2, 1}),
            std::string(kHitMode) +
                "Surface \"VDashes\" \"float Frequency\" [100] \"float FirstDash\" [0.666667]\n");
  model_.m_settings.m_linetype_scale = 20;
  EXPECT_EQ(PatternOf({2, 1}),
            std::string(kHitMode) +
                "Surface \"VDashes\" \"float Frequency\" [5] \"float FirstDash\" [0.666667]\n");
}

TEST_F(LinePatternTest, OfAScaleThatIsNoneIsAConstantColour) {
  for (const double scale : {0.0, -1.0, kNaN, kInfinity, 1e305, 1e-305}) {
    model_.m_settings.m_linetype_scale = scale;
    EXPECT_EQ(PatternOf({2, 1}), kSolid) << scale;
    EXPECT_FALSE(length_);
  }
}

TEST_F(LinePatternTest, AShortCurveCountsAsLongerThanNothing) {
  end_ = {1e-9, 0, 0};
  EXPECT_EQ(PatternOf({2, 1}), std::string(kHitMode) +
                                   "Surface \"VDashes\" \"float Frequency\" [3.33333e-06] "
                                   "\"float FirstDash\" [0.666667]\n");
  EXPECT_EQ(length_, 1e-5);
}

// A curve whose length can't be told.
class EndlessCurve : public ON_LineCurve {
 public:
  bool GetLength(double*, double) const override { return false; }
};

TEST_F(LinePatternTest, ACurveWithoutALengthCountsAsOneUnit) {
  PatternOf({2, 2});
  const auto curve = std::make_shared<EndlessCurve>();
  EXPECT_EQ(WrittenOf(curve,
                      [&](const auto& stream, const auto& object) {
                        length_ = orv::WriteLinePattern(stream.Writer, object, *curve, stream.Doc);
                      }),
            std::string(kHitMode) +
                "Surface \"VDashes\" \"float Frequency\" [0.25] \"float FirstDash\" [0.5]\n");
  EXPECT_EQ(length_, 1);
}

TEST_F(LinePatternTest, IsThatOfTheLayerWhereTheObjectSaysSo) {
  PatternOf({2, 1});
  const std::string own = Pattern();
  ON_Linetype ofLayer;
  ofLayer.m_segments = {{5, false}, {5, true}};
  model_.m_linetype_table.push_back(ofLayer);
  model_.m_layer_table.resize(1);
  model_.m_layer_table[0].m_linetype_index = 1;
  EXPECT_EQ(Pattern(), own);
  const std::string layers =
      std::string(kHitMode) +
      "Surface \"VDashes\" \"float Frequency\" [3] \"float FirstDash\" [0.5]\n";
  hostAttributes_.m_linetype_source = ON_AttributeSource::layer;
  EXPECT_EQ(Pattern(), layers);
  hostAttributes_.m_linetype_source = ON_AttributeSource::parent;
  EXPECT_EQ(Pattern(), layers);
  hostAttributes_.m_layer_index = 3;
  EXPECT_EQ(Pattern(), kSolid);
}

}  // namespace
