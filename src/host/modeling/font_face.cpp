#include "host/modeling/font_face.h"

#include FT_BBOX_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>

#include "host/modeling/glyph_contours.h"

namespace host {

namespace {

// Of fonts that have no capitals and don't say how high theirs would be: the part of the em that is
// usual.
constexpr double kUsualCapitalHeight = 0.7;
// The usual distance of lines, in heights of a capital, and the greatest one that is believed.
constexpr double kUsualLinePitch = 1.6;
constexpr double kMaxLinePitch = 10;
// Strokes are thickened by this part of the em, as screens do it.
constexpr FT_Pos kThickeningShare = 24;

}  // namespace

std::unique_ptr<FontFace> FontFace::Open(FT_Library library, const FontFile& file) {
  FT_Face opened = nullptr;
  if (FT_New_Face(library, file.path.c_str(), file.face_index, &opened) != 0) return nullptr;
  Face face(opened);
  if (!FT_IS_SCALABLE(opened) || opened->units_per_EM == 0) return nullptr;
  return std::unique_ptr<FontFace>(new FontFace(std::move(face), file));
}

FontFace::FontFace(Face face, const FontFile& file)
    : face_(std::move(face)),
      slant_(file.slant),
      thickening_(file.embolden ? face_->units_per_EM / kThickeningShare : 0) {
  unit_ = 1 / CapitalHeight();
}

// In the font's units, as they are before any scaling.
bool FontFace::LoadOutline(unsigned index) {
  if (FT_Load_Glyph(face_.get(), index, FT_LOAD_NO_SCALE) != 0) return false;
  if (face_->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return false;
  return thickening_ == 0 || FT_Outline_Embolden(&face_->glyph->outline, thickening_) == 0;
}

double FontFace::CapitalHeight() {
  FT_BBox box{};
  const unsigned capital = GlyphIndex(U'H');
  if (capital != 0 && LoadOutline(capital) &&
      FT_Outline_Get_BBox(&face_->glyph->outline, &box) == 0 && box.yMax > box.yMin) {
    return static_cast<double>(box.yMax - box.yMin);
  }
  const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face_.get(), FT_SFNT_OS2));
  if (os2 != nullptr && os2->version >= 2 && os2->version != 0xffff && os2->sCapHeight > 0) {
    return os2->sCapHeight;
  }
  return kUsualCapitalHeight * face_->units_per_EM;
}

unsigned FontFace::GlyphIndex(char32_t letter) const {
  const unsigned index = FT_Get_Char_Index(face_.get(), letter);
  // Fonts of symbols have theirs in an area for private use.
  constexpr char32_t kSymbols = 0xf000;
  if (index != 0 || letter > 0xff) return index;
  return FT_Get_Char_Index(face_.get(), kSymbols + letter);
}

FontGlyph FontFace::MakeGlyph(unsigned index) {
  FontGlyph glyph;
  if (!LoadOutline(index)) return glyph;
  const double advance = static_cast<double>(face_->glyph->metrics.horiAdvance + thickening_);
  glyph.advance = unit_ * advance;
  glyph.contours = ContoursOf(face_->glyph->outline);
  bool is_first = true;
  for (GlyphContour& contour : glyph.contours) {
    for (ON_2dPoint& p : contour.points) {
      p = {unit_ * (p.x + slant_ * p.y), unit_ * p.y};
      glyph.bottom = is_first ? p.y : std::min(glyph.bottom, p.y);
      is_first = false;
    }
  }
  return glyph;
}

const FontGlyph& FontFace::Glyph(unsigned index) {
  const auto found = glyphs_.find(index);
  return found != glyphs_.end() ? found->second
                                : glyphs_.emplace(index, MakeGlyph(index)).first->second;
}

double FontFace::Kerning(unsigned first, unsigned second) const {
  FT_Vector kerning{};
  if (!FT_HAS_KERNING(face_.get()) ||
      FT_Get_Kerning(face_.get(), first, second, FT_KERNING_UNSCALED, &kerning) != 0) {
    return 0;
  }
  return unit_ * static_cast<double>(kerning.x);
}

double FontFace::LinePitch() const {
  const double pitch = unit_ * face_->height;
  return pitch > 1 && pitch < kMaxLinePitch ? pitch : kUsualLinePitch;
}

}  // namespace host
