#include "export/shader_statement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "export_fixture.h"
#include "support/rib_checker.h"

namespace {

std::string Statement(std::string_view call) {
  return Written([call](orv::RibWriter& writer) {
    orv::WriteShaderStatement(writer, "Surface", call);
    RibPrintf(writer, "Sides 1\n");
  });
}

TEST(ShaderStatement, IsTheCallAsItStands) {
  EXPECT_EQ(Statement("\"VPlastic\"   \"float Diffuse\" [0.5] \"string Map\" [\"a 50%.tx\"]"),
            "Surface \"VPlastic\"   \"float Diffuse\" [0.5] \"string Map\" [\"a 50%.tx\"]\n"
            "Sides 1\n");
  EXPECT_EQ(Statement("matte"), "Surface matte\nSides 1\n");
}

TEST(ShaderStatement, KeepsWhatRibCanReadByteForByte) {
  for (const std::string call :
       {"\"V\" \"string Map\" [\"wood [1].jpg\"]", "\"V\" \"string Map\" [\"a\\042b\\\\\"]",
        "\"V\" \"float A\" 1  \"float[2] B\" [ 1 2 ] ", "\"größe\" \"string S\" [\"\"]"}) {
    EXPECT_EQ(Statement(call), "Surface " + call + "\nSides 1\n");
  }
}

TEST(ShaderStatement, ClosesWhatIsOpen) {
  EXPECT_EQ(Statement("\"V"), "Surface \"V\"\nSides 1\n");
  EXPECT_EQ(Statement("\"V\" \"float A\" [1 2"), "Surface \"V\" \"float A\" [1 2]\nSides 1\n");
  EXPECT_EQ(Statement("\"V\" \"string A\" [\"abc"),
            "Surface \"V\" \"string A\" [\"abc\"]\nSides 1\n");
  EXPECT_EQ(Statement("\"V\" \"float A\" [1 \"float B\" [2"),
            "Surface \"V\" \"float A\" [1 \"float B\"  2]\nSides 1\n");
  // A backslash takes the quote with it.
  EXPECT_EQ(Statement("\"V\" \"string Map\" [\"C:\\maps\\\"]"),
            "Surface \"V\" \"string Map\" [\"C:\\\\maps\\\\\"]\nSides 1\n");
  EXPECT_EQ(Statement("\"V\" \"float A\" 1]"), "Surface \"V\" \"float A\" [1 ]\nSides 1\n");
}

TEST(ShaderStatement, HasNoControlCharacter) {
  EXPECT_EQ(Statement("\"V\nPlastic\" \"float A\" [1\n2]"),
            "Surface \"V\\012Plastic\" \"float A\" [1 2]\nSides 1\n");
  EXPECT_EQ(Statement("\"V\"\nReadArchive \"evil.rib\""),
            "Surface \"V\" \"\\012ReadArchive\" [\"evil.rib\"]\nSides 1\n");
  EXPECT_EQ(Statement("\"V\" [string \"A\"] [\"b\"]"),
            "Surface \"V\" [string \"A\"] [\"b\"]\nSides 1\n");
}

// Whatever a call holds, the statements behind it are read.
TEST(ShaderStatement, NeverTakesWhatFollowsWithIt) {
  constexpr std::string_view kSigns = "\"\"[]\\ \nx1";
  constexpr std::size_t kCount = 20000;
  std::mt19937 random(7);
  const std::string rib = Written([&](orv::RibWriter& writer) {
    for (std::size_t i = 0; i < kCount; ++i) {
      std::string call;
      for (std::size_t length = random() % 24; length > 0; --length) {
        call += kSigns[random() % kSigns.size()];
      }
      orv::WriteShaderStatement(writer, "Surface", call);
      RibPrintf(writer, "Sides 1\n");
    }
  });
  const RibReport report = CheckRib(rib);
  EXPECT_EQ(report.Named("Surface").size(), kCount);
  EXPECT_EQ(report.Named("Sides").size(), kCount);
  for (const std::string& complaint : report.Complaints) {
    EXPECT_THAT(complaint, testing::Not(testing::HasSubstr("closed")));
  }
}

// A call of `count` floats.
std::string LongCall(int count) {
  std::string call = "\"VLong\"";
  for (int i = 0; i < count; ++i) call += " \"float P" + std::to_string(i) + "\" [0.5]";
  return call;
}

TEST(ShaderStatement, OfALongCallHasEachParameterOnALineThatHoldsIt) {
  for (const int count : {201, 2000, 50000}) {
    const RibReport report = CheckRib(Statement(LongCall(count)));
    EXPECT_THAT(report.Complaints, testing::IsEmpty());
    ASSERT_EQ(report.Statements.size(), 2U);
    EXPECT_EQ(report.Statements[0].Name, "Surface");
    EXPECT_EQ(report.Statements[0].Arguments.size(), 1U + 2U * static_cast<std::size_t>(count));
    EXPECT_EQ(report.Statements[1].Name, "Sides");
  }
}

TEST(ShaderStatement, OfALongCallLeavesOutAParameterLongerThanALine) {
  const std::string call = "\"VLong\" \"float A\" [1] \"string Map\" [\"" +
                           std::string(1 << 20, 'x') + "\"] \"float B\" [2]";
  EXPECT_EQ(Statement(call), "Surface \"VLong\" \"float A\" [1] \"float B\" [2]\nSides 1\n");
}

TEST(ShaderStatement, OfALongCallWithoutItsLastSignsIsClosed) {
  const RibReport report = CheckRib(Statement(LongCall(300) + " \"float Last\" [0.5"));
  EXPECT_THAT(report.Complaints, testing::IsEmpty());
  EXPECT_EQ(report.Statements.size(), 2U);
}

TEST(ShaderStatement, OfALongNameOrNothingIsStillOne) {
  EXPECT_EQ(Statement(std::string(5000, ' ')), "Surface \"\"\nSides 1\n");
  EXPECT_EQ(Statement('"' + std::string(5000, 'n')),
            "Surface \"" + std::string(3500, 'n') + "\"\nSides 1\n");
}

}  // namespace
