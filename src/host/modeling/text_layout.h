#pragma once

#include <string_view>
#include <vector>

#include "host/modeling/font_library.h"

// Where the letters of a text stand. Lengths are in heights of a capital letter.
namespace host {

struct PlacedGlyph {
  // Of a font of the library that the text was laid out with.
  const FontGlyph* glyph = nullptr;
  // Where it begins, from the beginning of its line.
  double x = 0;
};

struct TextLine {
  std::vector<PlacedGlyph> glyphs;
  double width = 0;
};

struct TextLayout {
  // At least one, however empty.
  std::vector<TextLine> lines;
  // From line to line, downwards.
  double pitch = 0;
};

// Letter by letter from left to right; pairs are kerned as the font says, letters are not shaped.
// Control characters and those that only guide the layout are skipped, a tab is a blank. Only the
// first 65,536 letters count.
[[nodiscard]] TextLayout LayOutText(FontStyle& style, std::string_view text);

}  // namespace host
