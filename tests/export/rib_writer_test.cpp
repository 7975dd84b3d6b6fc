#include "export/rib_writer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <random>
#include <string>

#include "export_fixture.h"
#include "host/system/text.h"
#include "line_model.h"
#include "support/temp_folder.h"

namespace orv {
namespace {

std::string Repeated(char c, int count) {
  return std::string(static_cast<std::size_t>(count), c);
}

TEST(RibWriter, StartsWithEverythingAtZero) {
  const TempFolder folder;
  const RibWriter writer(folder.File("scene.rib"));
  EXPECT_EQ(writer.FileName, folder.File("scene.rib"));
  EXPECT_EQ(writer.Indent, 0);
  EXPECT_EQ(writer.LineLength(), 0);
  EXPECT_EQ(writer.Reparameterize, 0);
  EXPECT_EQ(writer.PointSetCount, 0);
  EXPECT_EQ(writer.Gamma, 0);
}

TEST(RibWriter, KnowsTheSizeOfItsCompleteLines) {
  const TempFolder folder;
  RibWriter writer(folder.File("scene.rib"));
  EXPECT_EQ(writer.Size(), 0u);
  RibPrintf(writer, "Sides 1\nSides ");
  EXPECT_EQ(writer.Size(), 0u);
  RibPrintf(writer, "2\n");
  EXPECT_EQ(writer.Size(), 16u);
  // More than what the writer holds back.
  const std::string line = Repeated('x', 1999) + "\n";
  for (int i = 0; i < 2000; ++i) RibPrintf(writer, "%s", line.c_str());
  EXPECT_EQ(writer.Size(), 4000016u);
  EXPECT_TRUE(writer.Close());
  EXPECT_EQ(std::filesystem::file_size(folder.File("scene.rib")), 4000016u);
}

TEST(RibWriter, BuildsAStatementFromSeveralCalls) {
  EXPECT_EQ(Written([](RibWriter& writer) {
              RibPrintf(writer, "PixelSamples %d", 4);
              RibPrintf(writer, " %d", 8);
              RibPrintf(writer, "\n");
              RibPrintf(writer, "Display \"%s\" [%g]\n", "a.tif", 0.25);
            }),
            "PixelSamples 4 8\nDisplay \"a.tif\" [0.25]\n");
}

TEST(RibWriter, NumbersHaveAPointAndSixDigitsInEveryLocale) {
  EXPECT_EQ(Written([](RibWriter& writer) { RibPrintf(writer, "%g %g %d\n", 0.5, 1e7 / 3, -3); }),
            "0.5 3.33333e+06 -3\n");
}

TEST(RibWriter, IndentsWhatBeginsALine) {
  EXPECT_EQ(Written([](RibWriter& writer) {
              RibPrintf(writer, "WorldBegin\n");
              writer.Indent += 2;
              RibPrintf(writer, "Sphere");
              RibPrintf(writer, " 1\n");
              writer.Indent -= 2;
              RibPrintf(writer, "WorldEnd\n");
            }),
            "WorldBegin\n  Sphere 1\nWorldEnd\n");
}

TEST(RibWriter, BlankLineCarriesNoIndent) {
  EXPECT_EQ(Written([](RibWriter& writer) {
              writer.Indent = 4;
              RibPrintf(writer, "\n");
              RibPrintf(writer, "%s", "\n");
              RibPrintf(writer, "a\n");
            }),
            "\n\n    a\n");
}

TEST(RibWriter, IndentIsAtMostFortyBlanksAndNeverNegative) {
  EXPECT_EQ(Written([](RibWriter& writer) {
              writer.Indent = 42;
              RibPrintf(writer, "a\n");
              writer.Indent = -2;
              RibPrintf(writer, "b\n");
              writer.Indent = std::numeric_limits<int>::max() - 2;
              RibPrintf(writer, "c\n");
            }),
            Repeated(' ', 40) + "a\nb\n" + Repeated(' ', 40) + "c\n");
}

TEST(RibWriter, EmptyOrMissingFormatDoesNothing) {
  EXPECT_EQ(Written([](RibWriter& writer) {
              writer.Indent = 2;
              const char* none = nullptr;
              const char* empty = "";
              RibPrintf(writer, none, 0);
              RibPrintf(writer, empty, 0);
              EXPECT_EQ(writer.LineLength(), 0);
              RibPrintf(writer, "\n");
            }),
            "\n");
}

TEST(RibWriter, EmptyTextBeginsALineAllTheSame) {
  EXPECT_EQ(Written([](RibWriter& writer) {
              writer.Indent = 2;
              RibPrintf(writer, "%s", "");
              EXPECT_EQ(writer.LineLength(), 2);
              RibPrintf(writer, "\n");
            }),
            "  \n");
}

TEST(RibWriter, UnknownPlaceholderIsWrittenAsItStands) {
  const char* format = "%d %x %s\n";
  EXPECT_EQ(Written([&](RibWriter& writer) { RibPrintf(writer, format, 1, 2, "c"); }), "1 %x %s\n");
}

TEST(RibWriter, LineStaysBelowItsLimit) {
  const std::string most = Repeated('a', 4092);
  EXPECT_EQ(Written([&](RibWriter& writer) { RibPrintf(writer, "%s\n", most.c_str()); }),
            most + "\n");
  EXPECT_EQ(Written([&](RibWriter& writer) {
              RibPrintf(writer, "%s", most.c_str());
              RibPrintf(writer, "b");
              EXPECT_EQ(writer.LineLength(), 4093);
              RibPrintf(writer, "\n");
            }),
            most + "b\n  \n");
}

TEST(RibWriter, BrokenLineGoesOnTwoBlanksDeeper) {
  const std::string first = Repeated('a', 4000);
  const std::string second = Repeated('b', 100);
  EXPECT_EQ(Written([&](RibWriter& writer) {
              writer.Indent = 4;
              RibPrintf(writer, "%s", first.c_str());
              RibPrintf(writer, "%s", second.c_str());
              RibPrintf(writer, " c\n");
              RibPrintf(writer, "d\n");
            }),
            "    " + first + "\n      " + second + " c\n    d\n");
}

TEST(RibWriter, BrokenLineHasAtMostFortyBlanks) {
  const std::string text = Repeated('a', 4050);
  EXPECT_EQ(Written([&](RibWriter& writer) {
              writer.Indent = 40;
              RibPrintf(writer, "%s", text.c_str());
              RibPrintf(writer, "b%s\n", text.substr(0, 10).c_str());
            }),
            Repeated(' ', 40) + text + "\n" + Repeated(' ', 40) + "baaaaaaaaaa\n");
}

TEST(RibWriter, TextTooLongForAnyLineIsWrittenByItself) {
  const std::string text = Repeated('a', 4093) + "\n";
  EXPECT_EQ(Written([&](RibWriter& writer) {
              writer.Indent = 2;
              RibPrintf(writer, "Head ");
              RibPrintf(writer, "%s", text.c_str());
              EXPECT_EQ(writer.LineLength(), 0);
              RibPrintf(writer, "b\n");
            }),
            "  Head \n    " + text + "  b\n");
}

TEST(RibWriter, TextIsCutAtItsLimit) {
  const std::string text = Repeated('a', 10000);
  EXPECT_EQ(Written([&](RibWriter& writer) { RibPrintf(writer, "%s\n", text.c_str()); }),
            "\n  " + Repeated('a', 4094));
}

TEST(RibWriter, TextIsNeverCutInsideACharacter) {
  const std::string text = Repeated('a', 4093) + "é" + Repeated('b', 100);
  EXPECT_EQ(Written([&](RibWriter& writer) {
              RibPrintf(writer, "%s", text.c_str());
              EXPECT_EQ(writer.LineLength(), 4093);
              RibPrintf(writer, "\n");
            }),
            Repeated('a', 4093) + "\n  \n");
}

TEST(RibWriter, DoublePercentBecomesOneAndALoneOneStays) {
  EXPECT_EQ(Written([](RibWriter& writer) {
              RibPrintf(writer, "##Scene %s\n", "100%% of %s and %d%n.rib");
              RibPrintf(writer, "%s\n", "%%% %");
            }),
            "##Scene 100% of %s and %d%n.rib\n%% %\n");
}

TEST(RibWriter, PercentSignsOfTwoTextsMeetInTheLine) {
  EXPECT_EQ(Written([](RibWriter& writer) {
              RibPrintf(writer, "%s", "50%");
              RibPrintf(writer, "%%");
              RibPrintf(writer, " %s\n", "%");
              RibPrintf(writer, "%s\n", "%");
            }),
            "50% %\n%\n");
}

TEST(RibWriter, PercentSignsOnBothSidesOfABreakStayTwo) {
  const std::string text = Repeated('a', 4000) + "%";
  EXPECT_EQ(Written([&](RibWriter& writer) {
              RibPrintf(writer, "%s", text.c_str());
              RibPrintf(writer, "%s\n", ("%" + Repeated('b', 100) + "%%").c_str());
            }),
            text + "\n  %" + Repeated('b', 100) + "%\n");
}

TEST(RibWriter, TextTooLongForAnyLineKeepsItsPercentSigns) {
  const std::string text = "%%" + Repeated('a', 4092);
  EXPECT_EQ(Written([&](RibWriter& writer) { RibPrintf(writer, "%s", text.c_str()); }),
            "\n  " + text);
}

TEST(RibWriter, LineThatNeverEndedIsNotWritten) {
  EXPECT_EQ(Written([](RibWriter& writer) { RibPrintf(writer, "a\nb"); }), "");
  EXPECT_EQ(Written([](RibWriter& writer) {
              RibPrintf(writer, "a\n");
              RibPrintf(writer, "b");
            }),
            "a\n");
}

TEST(RibWriter, NumberGroupsAreThePrintfForm) {
  EXPECT_EQ(Written([](RibWriter& writer) {
              writer.Indent = 2;
              RibNumbers(writer, 1.0f, -0.5, 1e-7);
              RibIntegers(writer, 4, -1, 1234567);
              RibPrintf(writer, "]\n");
            }),
            "  1 -0.5 1e-07 4 -1 1234567 ]\n");
}

// Random texts of all lengths, some with percent signs and line feeds, and number groups between
// them: enough to pass the block's end and every position of a break.
TEST(RibWriter, AgreesWithTheModelOfLines) {
  std::mt19937 random(1);
  const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  const auto randomText = [&] {
    const int kind = below(20);
    if (kind == 0) return std::string("\n");
    const int longest = kind == 1 ? 4094 : kind < 5 ? 300 : 30;
    std::string text;
    for (int length = below(longest + 1); length > 0; --length) text += "%%abcdefgh"[below(10)];
    if (below(8) == 0 && text.size() < 4094) text += '\n';
    return text;
  };
  LineModel model;
  const std::string stream = Written([&](RibWriter& writer) {
    for (int i = 0; i < 60000; ++i) {
      writer.Indent = model.indent = below(10) == 0 ? below(60) : model.indent;
      if (below(2) == 0) {
        const std::string text = randomText();
        RibPrintf(writer, "%s", text.c_str());
        model.Add(text);
      } else {
        const double x = static_cast<double>(random()) / 1000;
        RibNumbers(writer, x, -1.0, x / 3);
        model.Add(host::Format("%g %g %g ", x, -1.0, x / 3));
        RibIntegers(writer, i, -i);
        model.Add(host::Format("%d %d ", i, -i));
      }
    }
    RibPrintf(writer, "\n");
    model.Add("\n");
  });
  EXPECT_TRUE(stream == model.written);
  EXPECT_GT(stream.size(), 2'000'000u);
}

// A group of every length before every position near the limit.
TEST(RibWriter, BreaksBeforeTheGroupThatReachesTheLimit) {
  for (int before = 4060; before < 4094; ++before) {
    for (const float value : {1.0f, 0.5f, 0.123456f, -1.23457e-30f}) {
      LineModel model;
      model.Add(Repeated('a', before));
      model.Add(host::Format("%g %g ", value, value));
      model.Add("]\n");
      EXPECT_EQ(Written([&](RibWriter& writer) {
                  RibPrintf(writer, "%s", Repeated('a', before).c_str());
                  RibNumbers(writer, value, value);
                  RibPrintf(writer, "]\n");
                }),
                model.written);
    }
  }
}

TEST(RibWriter, IsNotOpenWhenTheFileCannotBeWritten) {
  const TempFolder folder;
  RibWriter writer(folder.Path().string());
  EXPECT_FALSE(writer.IsOpen());
  RibPrintf(writer, "lost\n");
  EXPECT_FALSE(writer.Close());
}

TEST(RibWriter, FullDiskShowsAsAnErrorAndAtClosing) {
  RibWriter writer("/dev/full");
  ASSERT_TRUE(writer.IsOpen());
  RibPrintf(writer, "short\n");
  EXPECT_FALSE(writer.HasError());
  for (int i = 0; i < 100000; ++i) RibPrintf(writer, "many more of them\n");
  EXPECT_TRUE(writer.HasError());
  EXPECT_FALSE(writer.Close());
}

TEST(RibWriter, FullDiskShowsAtClosingOfAShortStream) {
  RibWriter writer("/dev/full");
  RibPrintf(writer, "short\n");
  EXPECT_FALSE(writer.Close());
}

}  // namespace
}  // namespace orv
