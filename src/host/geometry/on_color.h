#pragma once

#include <cstdint>

// A colour of 8 bits a channel. Alpha 0 is opaque.
class ON_Color {
 public:
  constexpr ON_Color() = default;
  constexpr ON_Color(int red, int green, int blue, int alpha = 0)
      : red_(static_cast<std::uint8_t>(red)),
        green_(static_cast<std::uint8_t>(green)),
        blue_(static_cast<std::uint8_t>(blue)),
        alpha_(static_cast<std::uint8_t>(alpha)) {}

  constexpr int Red() const { return red_; }
  constexpr int Green() const { return green_; }
  constexpr int Blue() const { return blue_; }
  constexpr int Alpha() const { return alpha_; }
  // 0 to 1.
  constexpr double FractionRed() const { return red_ / 255.0; }
  constexpr double FractionGreen() const { return green_ / 255.0; }
  constexpr double FractionBlue() const { return blue_ / 255.0; }
  // Each fraction is held to 0..1 and rounded to the nearest of 256 steps; a NaN counts as 0.
  // Alpha becomes opaque.
  void SetFractionalRGB(double red, double green, double blue);

  friend bool operator==(const ON_Color&, const ON_Color&) = default;

 private:
  std::uint8_t red_ = 0;
  std::uint8_t green_ = 0;
  std::uint8_t blue_ = 0;
  std::uint8_t alpha_ = 0;
};

// "No colour" in documents.
inline constexpr ON_Color ON_UNSET_COLOR{255, 255, 255, 255};
