#include "host/modeling/text_layout.h"

#include <algorithm>
#include <array>
#include <string>

#include "host/system/text.h"

namespace host {

namespace {

constexpr std::size_t kMaxLetters = 65536;

struct LetterRange {
  char32_t first;
  char32_t last;
};

// Letters that are not drawn: control characters, marks of direction and joining, variation
// selectors and tags.
constexpr std::array<LetterRange, 10> kNotDrawn{{{0x00, 0x1f},
                                                 {0x7f, 0x9f},
                                                 {0xad, 0xad},
                                                 {0x61c, 0x61c},
                                                 {0x200b, 0x200f},
                                                 {0x2028, 0x202e},
                                                 {0x2060, 0x206f},
                                                 {0xfe00, 0xfe0f},
                                                 {0xfeff, 0xfeff},
                                                 {0xe0000, 0xe0fff}}};

bool IsDrawn(char32_t letter) {
  return std::none_of(kNotDrawn.begin(), kNotDrawn.end(), [&](const LetterRange& range) {
    return range.first <= letter && letter <= range.last;
  });
}

std::u32string Letters(std::string_view text) {
  const std::u16string units = Utf16FromUtf8(FirstCodePoints(text, kMaxLetters));
  std::u32string letters;
  letters.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    char32_t letter = units[i];
    // Malformed text has been mended: a first half of a pair has its second one.
    if (letter >= 0xd800 && letter < 0xdc00 && i + 1 < units.size()) {
      letter = 0x10000 + ((letter - 0xd800) << 10) + (units[++i] - char32_t{0xdc00});
    }
    letters.push_back(letter);
  }
  return letters;
}

// Sets letters one behind the other.
class LineSetter {
 public:
  LineSetter(FontStyle& style, TextLine& line) : style_(style), line_(line) {}

  void Add(char32_t letter) {
    FontFace& face = style_.FaceWith(letter);
    const unsigned index = face.GlyphIndex(letter);
    if (&face == last_face_) line_.width += face.Kerning(last_index_, index);
    const FontGlyph& glyph = face.Glyph(index);
    line_.glyphs.push_back({&glyph, line_.width});
    line_.width += glyph.advance;
    last_face_ = &face;
    last_index_ = index;
  }

 private:
  FontStyle& style_;
  TextLine& line_;
  const FontFace* last_face_ = nullptr;
  unsigned last_index_ = 0;
};

TextLine SetLine(FontStyle& style, std::u32string_view letters) {
  TextLine line;
  LineSetter setter(style, line);
  for (const char32_t letter : letters) {
    if (letter == U'\t') {
      setter.Add(U' ');
    } else if (IsDrawn(letter)) {
      setter.Add(letter);
    }
  }
  return line;
}

}  // namespace

TextLayout LayOutText(FontStyle& style, std::string_view text) {
  TextLayout layout;
  layout.pitch = style.Face().LinePitch();
  const std::u32string letters = Letters(text);
  std::u32string_view rest = letters;
  for (std::size_t end = rest.find(U'\n'); end != rest.npos; end = rest.find(U'\n')) {
    layout.lines.push_back(SetLine(style, rest.substr(0, end)));
    rest.remove_prefix(end + 1);
  }
  layout.lines.push_back(SetLine(style, rest));
  return layout;
}

}  // namespace host
