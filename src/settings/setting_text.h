#pragma once

#include <array>
#include <string>
#include <string_view>

#include "host/geometry/on_color.h"

// The text forms of settings: an integer "%d", a real "%g", a flag "1" or "0", a colour "%g,%g,%g"
// of fractions, four reals "%g %g %g %g", a text as it stands. Reading never fails.
namespace orv {

// What a number is held to when it is read. Writing takes any value.
struct SettingBounds {
  double Minimum = 0;
  double Maximum = 0;

  // The nearest value within the bounds; the lower one for a NaN.
  [[nodiscard]] constexpr double Hold(double value) const {
    if (!(value >= Minimum)) return Minimum;
    return value > Maximum ? Maximum : value;
  }
};

std::string SettingText(bool value);
std::string SettingText(int value);
std::string SettingText(double value);
std::string SettingText(const std::string& value);
std::string SettingText(ON_Color value);
std::string SettingText(const std::array<double, 4>& value);

// Each reads `text` into `value`. Only numbers are held to `bounds`.
//
// A flag is false exactly for "0". A text that is no number counts as 0.
void ReadSettingText(std::string_view text, SettingBounds bounds, bool& value);
void ReadSettingText(std::string_view text, SettingBounds bounds, int& value);
void ReadSettingText(std::string_view text, SettingBounds bounds, double& value);
void ReadSettingText(std::string_view text, SettingBounds bounds, std::string& value);
// Keeps `value` when a comma is missing.
void ReadSettingText(std::string_view text, SettingBounds bounds, ON_Color& value);
// Keeps the elements for which there is no number.
void ReadSettingText(std::string_view text, SettingBounds bounds, std::array<double, 4>& value);

}  // namespace orv
