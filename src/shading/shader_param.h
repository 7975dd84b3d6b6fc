#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "host/geometry/on_color.h"

namespace orv {

// As many parameters of a shader are shown; those behind them are not.
inline constexpr std::size_t kMaxShaderParams = 200;

enum class ParamKind { String = 0, Float = 1, Color = 2 };

// Which fixed list a string parameter offers.
enum class ParamList { None = 0, Projection = 1, Space = 2 };

inline constexpr std::array<std::string_view, 5> kProjectionWords = {"st", "planar", "box",
                                                                     "spherical", "cylindrical"};
inline constexpr std::array<std::string_view, 8> kSpaceWords = {
    "shader", "world", "object", "current", "camera", "NDC", "screen", "raster"};

// One parameter of a shader while an editor shows it, as a row.
struct ShaderParam {
  ParamKind Kind = ParamKind::String;
  // The numbers of a float, 1 to 16; else 1.
  int Count = 1;
  // The command option that shows the parameter; -1 while there is none.
  int OptionIndex = -1;
  ParamList ListKind = ParamList::None;
  // The numbers of a float.
  std::array<double, 16> Values{};
  // Offers the powers of two.
  bool IsSampleCount = false;
  // The row isn't shown now, or never.
  bool Collapsed = false;
  bool AlwaysHidden = false;
  // The rows behind belong to this one and can be opened and closed by it.
  bool GroupHead = false;
  // The name is that of a coordinate space, or of a projection; the kind may be any.
  bool IsSpace = false;
  bool IsProjection = false;
  // The colour, gamma-encoded.
  ON_Color Color{0, 0, 0};
  std::string Name;
  // What the row is called; three blanks in front when it belongs to a group.
  std::string Label;
  // A string's value, a float's numbers joined by commas, a colour's numbers as they stood.
  std::string Text;
  // The type of the declaration as it stood: "float[2]".
  std::string Declared;
  // Values to offer, separated by semicolons.
  std::string Presets;
};

}  // namespace orv
