#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <memory>
#include <unordered_map>
#include <vector>

#include "host/geometry/on_point.h"
#include "host/modeling/font_catalog.h"

namespace host {

// A closed outline of Bézier curves of one degree, which are joined end to end: each has `degree`
// points behind the last one of the curve before it. The last point is the first one.
struct GlyphContour {
  int degree = 1;
  std::vector<ON_2dPoint> points;
};

// A letter as a font draws it. Lengths are in heights of the font's capital letters; the letter
// begins at 0 and stands on the x axis.
struct FontGlyph {
  // From where it begins to where the next one does.
  double advance = 0;
  // Where its lowest point lies; 0 when it draws nothing.
  double bottom = 0;
  // The outer ones run counterclockwise, the counters inside them clockwise.
  std::vector<GlyphContour> contours;
};

// An opened font. Not for several threads at a time.
class FontFace {
 public:
  // Null when the file can't be read or has no outlines.
  [[nodiscard]] static std::unique_ptr<FontFace> Open(FT_Library library, const FontFile& file);

  // 0 when the font doesn't have the letter. Glyph 0 is the one that is drawn instead.
  [[nodiscard]] unsigned GlyphIndex(char32_t letter) const;
  // Stays where it is as long as the font. Nothing to draw when the glyph is broken.
  [[nodiscard]] const FontGlyph& Glyph(unsigned index);
  // How far the second of two glyphs is moved when it follows the first, in heights of a capital.
  [[nodiscard]] double Kerning(unsigned first, unsigned second) const;
  // The distance between the lines of a text that the font's maker gave, in heights of a capital.
  [[nodiscard]] double LinePitch() const;

 private:
  struct Done {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
  };
  using Face = std::unique_ptr<FT_FaceRec, Done>;

  FontFace(Face face, const FontFile& file);
  bool LoadOutline(unsigned index);
  double CapitalHeight();
  FontGlyph MakeGlyph(unsigned index);

  Face face_;
  double slant_;
  // How much strokes are thickened, in the font's units.
  FT_Pos thickening_;
  // A unit of the font in heights of its capitals.
  double unit_ = 1;
  std::unordered_map<unsigned, FontGlyph> glyphs_;
};

}  // namespace host
