#include "side_export/vrml_stream.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/temp_folder.h"

namespace orv {
namespace {

std::string Written(const std::function<void(VrmlStream&)>& write) {
  const TempFolder folder;
  VrmlStream stream(folder.File("a.wrl"));
  EXPECT_TRUE(stream.IsOpen());
  write(stream);
  EXPECT_TRUE(stream.Close());
  return FileContent(folder.File("a.wrl"));
}

TEST(VrmlStream, NumbersHaveSixDigitsAndAPoint) {
  EXPECT_EQ(Written([](VrmlStream& stream) { stream.WriteNumbers(1.0F, -0.25, 1234567.0); }),
            "1 -0.25 1.23457e+06\n");
}

TEST(VrmlStream, PolygonsEndWithMinusOne) {
  EXPECT_EQ(Written([](VrmlStream& stream) { stream.WritePolygon(0, 12, 3); }), "0, 12, 3, -1\n");
}

TEST(VrmlStream, KeepsTheOrderOfMuchText) {
  std::string expected;
  const std::string text(100000, 'x');
  EXPECT_TRUE(Written([&](VrmlStream& stream) {
                for (int i = 0; i < 30; ++i) {
                  stream.Write(text);
                  stream.WriteNumbers(i);
                  expected += text + std::to_string(i) + "\n";
                }
              }) == expected);
}

TEST(VrmlStream, FullDiskIsAFailure) {
  VrmlStream stream("/dev/full");
  ASSERT_TRUE(stream.IsOpen());
  stream.Write("x");
  EXPECT_FALSE(stream.Close());
}

TEST(VrmlString, EscapesWhatWouldEndIt) {
  EXPECT_EQ(VrmlString("Fenster ö \\ 1"), "Fenster ö \\ 1");
  EXPECT_EQ(VrmlString("a \"b\" \\ c"), "a \\\"b\\\" \\\\ c");
  EXPECT_EQ(VrmlString("a\\b\\"), "a\\\\b\\\\");
  EXPECT_EQ(VrmlString(""), "");
}

TEST(ToVrml, TurnsTheUpwardAxis) {
  EXPECT_EQ(ToVrml(ON_3fPoint{1, 2, 3}), (ON_3fPoint{1, 3, -2}));
  EXPECT_EQ(ToVrml(ON_3dVector{1, 2, 3}), (ON_3dVector{1, 3, -2}));
}

}  // namespace
}  // namespace orv
