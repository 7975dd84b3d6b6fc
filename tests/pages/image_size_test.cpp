#include "pages/image_size.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

struct Size {
  bool Read;
  int Width, Height;
  friend bool operator==(const Size&, const Size&) = default;
};

Size Parsed(std::string_view text) {
  Size size{false, -1, -1};
  size.Read = ParseImageSize(text, size.Width, size.Height);
  return size;
}

TEST(ImageSize, IsTwoNumbers) {
  EXPECT_EQ(Parsed("640 x 480"), (Size{true, 640, 480}));
  EXPECT_EQ(Parsed("640x480"), (Size{true, 640, 480}));
  EXPECT_EQ(Parsed("640,480 pixels"), (Size{true, 640, 480}));
  EXPECT_EQ(Parsed("0 x 0"), (Size{true, 0, 0}));
}

TEST(ImageSize, WithoutADigitAtTheStartIsTheViewports) {
  EXPECT_EQ(Parsed(""), (Size{true, 0, 0}));
  EXPECT_EQ(Parsed("Viewport"), (Size{true, 0, 0}));
  EXPECT_EQ(Parsed(" 640 x 480"), (Size{true, 0, 0}));
  EXPECT_EQ(Parsed("-640 x 480"), (Size{true, 0, 0}));
}

TEST(ImageSize, IsNotReadWhenANumberIsMissingOrTooLarge) {
  EXPECT_FALSE(Parsed("640").Read);
  EXPECT_FALSE(Parsed("640 x ").Read);
  EXPECT_FALSE(Parsed("640 x high").Read);
  EXPECT_FALSE(Parsed("99999999999 x 480").Read);
  EXPECT_FALSE(Parsed("640 x 99999999999").Read);
}

TEST(ImageSize, IsShownAsItIsTyped) {
  EXPECT_EQ(ImageSizeText(640, 480), "640 x 480");
  EXPECT_EQ(ImageSizeText(0, 0), "Viewport");
  EXPECT_EQ(ImageSizeText(640, 0), "640 x 0");
}

}  // namespace
}  // namespace orv
