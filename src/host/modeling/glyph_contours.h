#pragma once

#include <ft2build.h>
#include FT_OUTLINE_H

#include <vector>

#include "host/modeling/font_face.h"

namespace host {

// The outlines of a glyph in the font's own units, directed as FontGlyph says. Those that enclose
// nothing are left out.
[[nodiscard]] std::vector<GlyphContour> ContoursOf(FT_Outline& outline);

}  // namespace host
