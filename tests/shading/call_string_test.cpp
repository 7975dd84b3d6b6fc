#include "shading/call_string.h"

#include <gtest/gtest.h>

#include "shading/shader_call.h"

namespace orv {
namespace {

using namespace std::string_view_literals;

TEST(CallString, UsualNameStaysByteForByte) {
  for (const std::string name : {"", "wood.jpg", "C:/maps/wood (1).jpg", "100%d%s.png",
                                 "b\u00e4\u6728\U0001F332.tif", "[wood.jpg", "a'b`c$(d);e.jpg"}) {
    EXPECT_EQ(EncodeCallString(name), name);
    EXPECT_EQ(DecodeCallString(name), name);
  }
}

TEST(CallString, TypedWindowsPathStays) {
  for (const std::string name : {"C:\\maps\\wood.jpg", "\\\\server\\maps\\012.jpg",
                                 "C:\\maps\\042.jpg", "maps\\999.jpg", "maps\\200.jpg"}) {
    EXPECT_EQ(EncodeCallString(name), name);
    EXPECT_EQ(DecodeCallString(name), name);
  }
}

TEST(CallString, WhatCouldEndAStringOrItsBracketsIsEscaped) {
  EXPECT_EQ(EncodeCallString("wood [1].jpg"), "wood [1\\135.jpg");
  EXPECT_EQ(EncodeCallString("a\"b.jpg"), "a\\042b.jpg");
  EXPECT_EQ(EncodeCallString("a\nb\tc\x7f\x01.jpg"), "a\\012b\\011c\\177\\001.jpg");
  EXPECT_EQ(EncodeCallString("a\0b"sv), "a\\000b");
}

TEST(CallString, NameWithEscapesHasNoOtherBackslashes) {
  EXPECT_EQ(EncodeCallString("C:\\maps\\wood [1].jpg"), "C:/maps/wood [1\\135.jpg");
  EXPECT_EQ(EncodeCallString("C:\\maps\\"), "C:/maps/");
  // It would read as an escape.
  EXPECT_EQ(EncodeCallString("maps\\012.jpg"), "maps/012.jpg");
}

TEST(CallString, OtherEscapesAreNone) {
  for (const std::string text : {"\\101.jpg", "a\\n", "a\\\"", "a\\04", "a\\", "a\\135\\b", "\\235",
                                 "\\08a", "\\777", "\\\\042"}) {
    EXPECT_EQ(DecodeCallString(text), text);
  }
}

TEST(CallString, EachByteComesBack) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string name = {'a', static_cast<char>(byte), '1', '3', '5', ']'};
    const std::string expected = byte == '\\' ? "a/135]" : name;
    EXPECT_EQ(DecodeCallString(EncodeCallString(name)), expected) << byte;
  }
}

TEST(CallString, LongNameComesBack) {
  std::string name;
  for (int i = 0; i < 1000; ++i) name += "a]b\"\n";
  const std::string text = EncodeCallString(name);
  EXPECT_EQ(text.size(), 1000u * (2 + 3 * 4));
  EXPECT_EQ(DecodeCallString(text), name);
}

TEST(QuotedName, OnlyWhatEndsItsQuotesIsEscaped) {
  for (const std::string name :
       {"", "Gold [1]", "]", "C:\\maps\\gold", "\\101", "a\\n", "\\042\\n"}) {
    EXPECT_EQ(EncodeQuotedName(name), name);
    EXPECT_EQ(DecodeQuotedName(name), name);
  }
  EXPECT_EQ(EncodeQuotedName("6\" pipe\\"), "6\\042 pipe\\134");
  EXPECT_EQ(EncodeQuotedName("a\\b\n"), "a\\134b\\012");
  EXPECT_EQ(EncodeQuotedName("maps\\012"), "maps\\134012");
  EXPECT_EQ(EncodeQuotedName("maps\\135"), "maps\\134135");
  EXPECT_EQ(DecodeQuotedName("a\\135\\042\\134"), "a]\"\\");
}

TEST(QuotedName, EachByteComesBackInEveryPlace) {
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    for (const std::string& name :
         {std::string{c}, std::string{c, '0', '1', '2'}, std::string{'"', c, '1', '3', '4'},
          std::string{'\\', '0', c}, std::string{'\\', '1', '3', '5', c}}) {
      const std::string text = EncodeQuotedName(name);
      EXPECT_EQ(DecodeQuotedName(text), name) << byte;
      EXPECT_EQ(text.find('"'), std::string::npos);
      EXPECT_FALSE(text.ends_with('\\'));
    }
  }
}

TEST(CallString, NameCanNotLeaveItsPlaceInACall) {
  std::string call = "\"VPlastic\" \"string ColorMapName\" [\"\"] \"float Diffuse\" [0.5]";
  const std::string name = "a\"] \"float Diffuse\" [9] [\"\nb.jpg";
  ASSERT_TRUE(SetStringParam(call, "ColorMapName", EncodeCallString(name)));
  std::string value;
  ASSERT_TRUE(GetStringParam(call, "ColorMapName", value));
  EXPECT_EQ(DecodeCallString(value), name);
  double diffuse = 0;
  ASSERT_TRUE(GetFloatParam(call, "Diffuse", diffuse));
  EXPECT_EQ(diffuse, 0.5);
}

}  // namespace
}  // namespace orv
