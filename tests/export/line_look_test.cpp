#include "export/line_look.h"

#include <gtest/gtest.h>

#include "host/geometry/on_point_cloud.h"
#include "line_fixture.h"

namespace {

using orv::ObjectAttributes;

constexpr ON_Color kRed{255, 0, 0};
constexpr ON_Color kGreen{0, 255, 0};
constexpr ON_Color kBlue{0, 0, 255};
constexpr ON_Color kGrey{128, 128, 128};
constexpr ON_Color kWhite{255, 255, 255};
constexpr ON_Color kBlack{0, 0, 0};

enum { kDisplay = 1, kPrint = 2 };

// An object that is displayed in red and printed in green, on a layer that is displayed in blue and
// printed in grey.
class LineColorTest : public LineTest {
 protected:
  LineColorTest() {
    model_.m_layer_table.resize(1);
    model_.m_layer_table[0].m_color = kBlue;
    model_.m_layer_table[0].m_plot_color = kGrey;
    hostAttributes_.m_color = kRed;
    hostAttributes_.m_plot_color = kGreen;
  }

  ON_Color Color() {
    ON_Color color = kWhite;
    WrittenOf(std::make_shared<ON_Point>(), [&](const auto& stream, const auto& object) {
      color = orv::LineColor(object, attributes_, stream.Doc, stream.Settings);
    });
    return color;
  }
  ON_Color ColorFrom(int mode, ON_AttributeSource source) {
    settings_.ColorMode = mode;
    hostAttributes_.m_color_source = mode == kDisplay ? source : ON_AttributeSource::layer;
    hostAttributes_.m_plot_color_source = mode == kPrint ? source : ON_AttributeSource::layer;
    return Color();
  }
};

TEST_F(LineColorTest, IsBlackUnlessTheSceneAsksForMore) {
  EXPECT_EQ(ColorFrom(0, ON_AttributeSource::object), kBlack);
}

TEST_F(LineColorTest, IsTheDisplayColourOfTheObjectOrItsLayer) {
  EXPECT_EQ(ColorFrom(kDisplay, ON_AttributeSource::object), kRed);
  EXPECT_EQ(ColorFrom(kDisplay, ON_AttributeSource::layer), kBlue);
  EXPECT_EQ(ColorFrom(kDisplay, ON_AttributeSource::material), kBlack);
  EXPECT_EQ(ColorFrom(kDisplay, ON_AttributeSource::parent), kBlack);
}

TEST_F(LineColorTest, IsThePrintColourOfTheObjectOrTheDisplayColourOfItsLayer) {
  EXPECT_EQ(ColorFrom(kPrint, ON_AttributeSource::object), kGreen);
  EXPECT_EQ(ColorFrom(kPrint, ON_AttributeSource::layer), kBlue);
  EXPECT_EQ(ColorFrom(kPrint, ON_AttributeSource::material), kRed);
  EXPECT_EQ(ColorFrom(kPrint, ON_AttributeSource::parent), kBlack);
}

TEST_F(LineColorTest, IsBlackOnALayerThatIsNotThere) {
  hostAttributes_.m_layer_index = 7;
  EXPECT_EQ(ColorFrom(kDisplay, ON_AttributeSource::layer), kBlack);
  EXPECT_EQ(ColorFrom(kPrint, ON_AttributeSource::layer), kBlack);
}

TEST_F(LineColorTest, OfTheObjectsOwnStringsWins) {
  attributes_.LineColor = kGrey;
  EXPECT_EQ(ColorFrom(kDisplay, ON_AttributeSource::object), kRed);
  attributes_.UseLineColor = true;
  EXPECT_EQ(ColorFrom(kDisplay, ON_AttributeSource::object), kGrey);
  EXPECT_EQ(ColorFrom(0, ON_AttributeSource::object), kGrey);
}

TEST_F(LineColorTest, IsAdjustedToTheHostsGamma) {
  settings_.RhinoGamma = 2;
  attributes_.UseLineColor = true;
  attributes_.LineColor = {255, 128, 0};
  EXPECT_EQ(Color(), ON_Color(255, 64, 0));
}

TEST(LineWidth, IsTheScenesTimesTheObjectsOwn) {
  orv::RenderSettings settings;
  settings.CurveWidth = 0.5;
  ObjectAttributes attributes;
  attributes.LineWidth = 3;
  EXPECT_EQ(orv::LineWidth(attributes, settings), 0.5);
  attributes.UseLineWidth = true;
  EXPECT_EQ(orv::LineWidth(attributes, settings), 1.5);
}

TEST(LineWidth, OfNothingSkipsTheObject) {
  ObjectAttributes attributes;
  attributes.LineWidth = 0;
  EXPECT_FALSE(orv::SkipsLines(attributes));
  attributes.UseLineWidth = true;
  EXPECT_TRUE(orv::SkipsLines(attributes));
  attributes.LineWidth = -1;
  EXPECT_TRUE(orv::SkipsLines(attributes));
  attributes.LineWidth = 0.001;
  EXPECT_FALSE(orv::SkipsLines(attributes));
}

TEST(LineLook, TakesAConstantColourOutOfEverythingElse) {
  EXPECT_EQ(Written([](orv::RibWriter& writer) {
              orv::WriteConstantLook(writer, {255, 51, 128});
            }),
            "Color 1 0.2 0.501961\n"
            "Attribute \"visibility\" \"indirect\" [0]\n"
            "Attribute \"toon\" \"float inkwidth\" [0]\n"
            "Attribute \"indirect\" \"prepass\" [0]\n"
            "Attribute \"visibility\" \"integer transmission\" [0]\n"
            "Attribute \"visibility\" \"trace\" [0]\n");
}

}  // namespace
