#include "host/modeling/text_outlines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <thread>

#include "host/geometry/on_nurbs_curve.h"
#include "host/system/text.h"

namespace {

using H = ON_Annotation::HorizontalAlignment;
using V = ON_Annotation::VerticalAlignment;
using Outlines = std::vector<std::shared_ptr<const ON_Curve>>;

ON_TextEntity2 Text(std::string letters, double height = 1) {
  ON_TextEntity2 text;
  text.m_text = std::move(letters);
  text.m_height = height;
  text.m_font = "Liberation Sans";
  return text;
}

ON_BoundingBox BoxOf(const Outlines& outlines) {
  ON_BoundingBox box;
  for (const auto& outline : outlines) box.Include(outline->BoundingBox());
  return box;
}

ON_BoundingBox BoxOf(const ON_TextEntity2& text) {
  return BoxOf(host::TextOutlines(text));
}

// Of the curve seen against the z axis, positive when it runs counterclockwise.
double Area(const ON_Curve& curve) {
  constexpr int kSteps = 2000;
  double sum = 0;
  ON_3dPoint last = curve.PointAtStart();
  for (int i = 1; i <= kSteps; ++i) {
    const ON_3dPoint p = curve.PointAt(curve.Domain().ParameterAt(double{1} * i / kSteps));
    sum += (last.x * p.y - p.x * last.y) / 2;
    last = p;
  }
  return sum;
}

TEST(TextOutlines, ACapitalIsAsHighAsTheTextSays) {
  for (const char* font : {"Liberation Sans", "DejaVu Serif", "Liberation Mono"}) {
    for (const double height : {1.0, 2.5, 1e-3, 1e6}) {
      ON_TextEntity2 text = Text("H", height);
      text.m_font = font;
      const ON_BoundingBox box = BoxOf(text);
      EXPECT_NEAR(box.m_min.y, 0, 1e-15 * height);
      EXPECT_NEAR(box.m_max.y, height, 1e-15 * height) << font;
    }
  }
  // Letters may reach beyond it.
  EXPECT_LT(BoxOf(Text("g")).m_min.y, -0.1);
}

TEST(TextOutlines, AreClosedCurvesOneForEachContour) {
  const std::vector<std::pair<std::string, std::size_t>> letters{
      {"O", 2}, {"i", 2}, {"%", 5}, {"8", 3}, {"B", 3}, {"l", 1}, {"\xc3\x84", 4}};
  for (const auto& [letter, count] : letters) {
    const Outlines outlines = host::TextOutlines(Text(letter));
    EXPECT_EQ(outlines.size(), count) << letter;
    for (const auto& outline : outlines) {
      EXPECT_TRUE(outline->IsValid());
      EXPECT_TRUE(outline->IsClosed());
      EXPECT_EQ(outline->PointAtStart(), outline->PointAtEnd());
    }
  }
}

TEST(TextOutlines, OuterOnesRunCounterclockwiseAndCountersClockwise) {
  const Outlines outlines = host::TextOutlines(Text("O"));
  ASSERT_EQ(outlines.size(), 2U);
  double outer = Area(*outlines[0]);
  double inner = Area(*outlines[1]);
  if (std::abs(outer) < std::abs(inner)) std::swap(outer, inner);
  EXPECT_GT(outer, 0.8);
  EXPECT_LT(inner, -0.4);
  EXPECT_GT(Area(*host::TextOutlines(Text("l"))[0]), 0.05);
}

TEST(TextOutlines, StraightLettersArePolylinesAndRoundOnesAreParabolas) {
  std::vector<ON_3dPoint> points;
  EXPECT_EQ(host::TextOutlines(Text("H"))[0]->IsPolyline(&points), 13);
  EXPECT_EQ(points.front(), points.back());
  const Outlines round = host::TextOutlines(Text("O"));
  const ON_NurbsCurve* curve = ON_NurbsCurve::Cast(round[0].get());
  ASSERT_NE(curve, nullptr);
  EXPECT_EQ(curve->Order(), 3);
  EXPECT_FALSE(curve->IsRational());
  EXPECT_EQ(curve->Domain().Min, 0);
  EXPECT_EQ(curve->Domain().Max, (curve->CVCount() - 1) / 2);
}

// Nothing is lost where the font leaves out points: they lie exactly halfway between its own.
TEST(TextOutlines, PiecesOfARoundLetterMeetSmoothly) {
  for (const auto& outline : host::TextOutlines(Text("O", 1000))) {
    const ON_NurbsCurve* curve = ON_NurbsCurve::Cast(outline.get());
    ASSERT_NE(curve, nullptr);
    for (int i = 1; i < static_cast<int>(curve->Domain().Max); ++i) {
      ON_3dPoint p{}, q{};
      ON_3dVector before{}, behind{};
      curve->Ev1Der(i - 1e-9, &p, &before);
      curve->Ev1Der(i, &q, &behind);
      const double turn = ON_CrossProduct(before, behind).z / before.Length() / behind.Length();
      EXPECT_LT(std::abs(turn), 0.05) << i;
    }
  }
}

TEST(TextOutlines, LieInTheTextsPlane) {
  ON_TextEntity2 text = Text("Bg", 3);
  text.m_plane = {{10, 20, 30}, {0, 0.6, 0.8}, {-1, 0, 0}, {0, -0.8, 0.6}};
  const Outlines outlines = host::TextOutlines(text);
  const Outlines flat = host::TextOutlines(Text("Bg", 3));
  ASSERT_EQ(outlines.size(), flat.size());
  for (std::size_t i = 0; i < outlines.size(); ++i) {
    for (const double t : {0.0, 0.3, 1.7, 2.5}) {
      const ON_3dPoint p = outlines[i]->PointAt(t);
      const ON_3dPoint q = flat[i]->PointAt(t);
      EXPECT_NEAR(p.DistanceTo(text.m_plane.PointAt(q.x, q.y)), 0, 1e-13);
    }
  }
}

TEST(TextOutlines, LinesStandOneBelowTheOtherAtTheFontsPitch) {
  const ON_BoundingBox one = BoxOf(Text("H"));
  const ON_BoundingBox two = BoxOf(Text("H\nH"));
  const ON_BoundingBox three = BoxOf(Text("H\r\n\r\nH"));
  const double pitch = two.m_max.y - one.m_max.y;
  // 2355 units of the font for a capital of 1409.
  EXPECT_NEAR(pitch, 2355.0 / 1409, 1e-12);
  EXPECT_NEAR(three.m_max.y - one.m_max.y, 2 * pitch, 1e-12);
  EXPECT_NEAR(two.m_max.x, one.m_max.x, 1e-15);
}

TEST(TextOutlines, TheOriginStandsInTheTextAsTheAlignmentSays) {
  const double pitch = 2355.0 / 1409;
  struct Row {
    V alignment;
    double top_of_one;
    double top_of_two;
  };
  // Where the top of the first line's capitals lies, for a line and for two.
  for (const Row& row :
       {Row{V::top, 0, 0}, Row{V::middle_of_top, 0.5, 0.5}, Row{V::bottom_of_top, 1, 1},
        Row{V::middle, 0.5, (1 + pitch) / 2}, Row{V::middle_of_bottom, 0.5, pitch + 0.5},
        Row{V::bottom, 1, pitch + 1}, Row{V::bottom_of_bounding_box, 1, pitch + 1}}) {
    ON_TextEntity2 text = Text("H", 2);
    text.m_valign = row.alignment;
    EXPECT_NEAR(BoxOf(text).m_max.y, 2 * row.top_of_one, 1e-12);
    text.m_text = "H\nH";
    EXPECT_NEAR(BoxOf(text).m_max.y, 2 * row.top_of_two, 1e-12);
    EXPECT_NEAR(BoxOf(text).m_min.y, 2 * (row.top_of_two - pitch - 1), 1e-12);
  }
  ON_TextEntity2 text = Text("Hg", 2);
  text.m_valign = V::bottom_of_bounding_box;
  EXPECT_NEAR(BoxOf(text).m_min.y, 0, 1e-12);
}

TEST(TextOutlines, EachLineIsAlignedByItself) {
  ON_TextEntity2 text = Text("HHHH\nH", 2);
  const double width = host::TextWidth(Text("HHHH", 2));
  const double letter = host::TextWidth(Text("H", 2));
  EXPECT_NEAR(width, 4 * letter, 1e-12);
  const ON_BoundingBox left = BoxOf(text);
  text.m_halign = H::automatic;
  EXPECT_EQ(BoxOf(text).m_min.x, left.m_min.x);
  text.m_halign = H::right;
  EXPECT_NEAR(BoxOf(text).m_min.x, left.m_min.x - width, 1e-12);
  text.m_halign = H::center;
  EXPECT_NEAR(BoxOf(text).m_min.x, left.m_min.x - width / 2, 1e-12);
  // The second line has its middle there too.
  text.m_text = "\nH";
  EXPECT_NEAR(BoxOf(text).m_min.x + BoxOf(text).m_max.x,
              BoxOf(Text("H", 2)).m_min.x + BoxOf(Text("H", 2)).m_max.x - letter, 1e-12);
}

TEST(TextWidth, IsThatOfTheWidestLine) {
  const double a = host::TextWidth(Text("wide line", 3));
  EXPECT_GT(a, host::TextWidth(Text("line", 3)));
  EXPECT_EQ(host::TextWidth(Text("x\nwide line\ny", 3)), a);
  EXPECT_NEAR(host::TextWidth(Text("wide line", 6)), 2 * a, 1e-12);
  // 1139 units of the font for a digit, 569 for a blank.
  EXPECT_NEAR(host::TextWidth(Text("12 3")), (3 * 1139 + 569) / 1409.0, 1e-12);
  EXPECT_EQ(host::TextWidth(Text("")), 0);
}

TEST(TextWidth, PairsAreKerned) {
  EXPECT_LT(host::TextWidth(Text("AV")),
            host::TextWidth(Text("A")) + host::TextWidth(Text("V")) - 0.05);
}

TEST(TextOutlines, TextsWithoutVisibleLettersHaveNone) {
  for (const char* letters : {"", " ", "\n\n", " \t ", "\x01\x1f\x7f", "\xe2\x80\x8b"}) {
    EXPECT_TRUE(host::TextOutlines(Text(letters)).empty());
  }
  EXPECT_TRUE(host::TextOutlines(Text(std::string(3, '\0'))).empty());
  EXPECT_GT(host::TextWidth(Text(" ")), 0);
}

TEST(TextOutlines, ControlCharactersTakeNoPlace) {
  EXPECT_EQ(host::TextWidth(Text("A\x01\x02"
                                 "B\xe2\x80\x8f\xef\xbb\xbf")),
            host::TextWidth(Text("AB")));
  EXPECT_EQ(host::TextWidth(Text("A\tB")), host::TextWidth(Text("A B")));
}

TEST(TextOutlines, HeightsThatAreNoneGiveNothing) {
  for (const double height : {0.0, -1.0, std::nan(""), HUGE_VAL, ON_UNSET_VALUE}) {
    EXPECT_TRUE(host::TextOutlines(Text("H", height)).empty());
    EXPECT_EQ(host::TextWidth(Text("H", height)), 0);
  }
  EXPECT_TRUE(host::TextOutlines(Text("HHHHHHHHHHHHHHHHHH", 1.7e308)).size() < 3);
  ON_TextEntity2 text = Text("H");
  text.m_plane.origin.x = std::nan("");
  EXPECT_TRUE(host::TextOutlines(text).empty());
}

TEST(TextOutlines, BoldAndItalicLettersDiffer) {
  ON_TextEntity2 text = Text("l");
  const ON_BoundingBox plain = BoxOf(text);
  text.m_bold = true;
  const ON_BoundingBox bold = BoxOf(text);
  EXPECT_GT(bold.m_max.x - bold.m_min.x, 1.3 * (plain.m_max.x - plain.m_min.x));
  text.m_bold = false;
  text.m_italic = true;
  const ON_BoundingBox italic = BoxOf(text);
  EXPECT_GT(italic.m_max.x - italic.m_min.x, 1.5 * (plain.m_max.x - plain.m_min.x));
}

// This family has one style only.
TEST(TextOutlines, AStyleThatAFontLacksIsImitated) {
  ON_TextEntity2 text = Text("H");
  text.m_font = "DejaVu Math TeX Gyre";
  const ON_BoundingBox plain = BoxOf(text);
  ON_TextEntity2 serif = text;
  serif.m_font = "DejaVu Serif";
  if (BoxOf(serif).m_max == plain.m_max) GTEST_SKIP() << "The font is not there.";
  text.m_italic = true;
  const ON_BoundingBox italic = BoxOf(text);
  EXPECT_NEAR(italic.m_max.y, 1, 1e-12);
  EXPECT_GT(italic.m_max.x, plain.m_max.x + 0.1);
  text.m_italic = false;
  text.m_bold = true;
  const ON_BoundingBox bold = BoxOf(text);
  EXPECT_NEAR(bold.m_max.y - bold.m_min.y, 1, 1e-12);
  EXPECT_GT(host::TextWidth(text), 0.9);
  EXPECT_NE(bold.m_max.x, plain.m_max.x);
}

TEST(TextOutlines, AFontThatTheMachineDoesNotHaveIsReplaced) {
  for (const std::string& font :
       {std::string("No Such Font 42"), std::string(), std::string("\xff\xfe"),
        std::string(100000, 'x'), std::string("a:b-c,d\\"), std::string("A\0B", 3)}) {
    ON_TextEntity2 text = Text("H");
    text.m_font = font;
    EXPECT_NEAR(BoxOf(text).m_max.y, 1, 1e-12);
  }
  // Letters of the same widths.
  ON_TextEntity2 text = Text("Quick", 1);
  const double width = host::TextWidth(text);
  text.m_font = "Arial";
  EXPECT_EQ(host::TextWidth(text), width);
}

TEST(TextOutlines, ALetterThatTheFontDoesNotHaveComesFromAnother) {
  // A chess queen; only one of the fonts has it.
  ON_TextEntity2 text = Text("\xe2\x99\x95");
  ON_TextEntity2 other = text;
  other.m_font = "DejaVu Sans";
  EXPECT_GE(host::TextOutlines(text).size(), 3U);
  EXPECT_EQ(BoxOf(text).m_max, BoxOf(other).m_max);
}

TEST(TextOutlines, ALetterThatNoFontHasIsDrawnAsMissing) {
  // A letter for private use, and malformed text.
  const Outlines box = host::TextOutlines(Text("\xf4\x8f\xbf\xbd"));
  EXPECT_FALSE(box.empty());
  EXPECT_EQ(host::TextOutlines(Text("\xff\xc0\x80")).size() % 3, 0U);
  EXPECT_FALSE(host::TextOutlines(Text("\xff")).empty());
}

// Beyond a limit nothing is drawn, so that no text can fill the memory.
TEST(TextOutlines, OnlyTheFirstLettersOfAnEndlessTextAreDrawn) {
  const std::string letters(200000, '-');
  EXPECT_EQ(host::TextOutlines(Text(letters)).size(), 65536U);
  EXPECT_EQ(host::TextOutlines(Text(std::string(1000000, '\n') + "H")).size(), 0U);
}

TEST(TextOutlines, EveryLetterThereIsIsDrawnOrNot) {
  for (char32_t first = 0; first < 0x110000; first += 0x8000) {
    std::u16string units;
    for (char32_t c = first; c < first + 0x8000; c += 7) {
      if (c < 0x10000) {
        units.push_back(static_cast<char16_t>(c));
      } else {
        units.push_back(static_cast<char16_t>(0xd800 + ((c - 0x10000) >> 10)));
        units.push_back(static_cast<char16_t>(0xdc00 + ((c - 0x10000) & 0x3ff)));
      }
    }
    for (const auto& outline : host::TextOutlines(Text(host::Utf8FromUtf16(units)))) {
      ASSERT_TRUE(outline->IsValid());
    }
  }
}

TEST(TextOutlines, MayBeAskedForByManyThreads) {
  std::vector<std::thread> threads;
  std::vector<double> widths(8);
  threads.reserve(widths.size());
  for (double& width : widths) {
    threads.emplace_back([&width] {
      for (int i = 0; i < 50; ++i) width = BoxOf(Text("Threads \xe2\x99\x95")).m_max.x;
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const double width : widths) EXPECT_EQ(width, widths[0]);
}

}  // namespace
