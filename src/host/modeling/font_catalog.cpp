#include "host/modeling/font_catalog.h"

#include <array>
#include <span>

#include "host/system/text.h"

namespace host {

namespace {

// Longer names are cut: no font has such a one.
constexpr std::size_t kMaxFamilyLength = 256;

// What annotations are written in when nothing else is said; every machine has a font with letters
// as wide as these, or the rules name one.
constexpr const char* kDefaultFamily = "Arial";

// Taken when the machine has no rules.
constexpr std::array<const char*, 2> kLastFamilies{"Liberation Sans", "DejaVu Sans"};

struct DestroyPattern {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, DestroyPattern>;

void AddText(FcPattern* pattern, const char* object, const char* text) {
  FcPatternAddString(pattern, object, reinterpret_cast<const FcChar8*>(text));
}

// The name without malformed letters.
std::string FamilyName(std::string_view family) {
  const std::string_view name = Trimmed(FirstCodePoints(family, kMaxFamilyLength));
  return name.empty() ? kDefaultFamily : Utf8FromUtf16(Utf16FromUtf8(name));
}

Pattern MakePattern(const FontRequest& request) {
  Pattern pattern(FcPatternCreate());
  FcPattern* p = pattern.get();
  if (p == nullptr) return pattern;
  AddText(p, FC_FAMILY, FamilyName(request.family).c_str());
  FcPatternAddInteger(p, FC_WEIGHT, request.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddInteger(p, FC_SLANT, request.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  FcPatternAddBool(p, FC_OUTLINE, FcTrue);
  FcPatternAddBool(p, FC_VARIABLE, FcFalse);
  // Not that of the user: the same document looks alike for everyone.
  AddText(p, FC_LANG, "en");
  FcConfigSubstitute(nullptr, p, FcMatchPattern);
  FcDefaultSubstitute(p);
  for (const char* family : kLastFamilies) AddText(p, FC_FAMILY, family);
  return pattern;
}

// Of a font that was made ready for a request.
std::optional<FontFile> FileOf(const FcPattern* font) {
  FcChar8* path = nullptr;
  if (FcPatternGetString(font, FC_FILE, 0, &path) != FcResultMatch) return std::nullopt;
  FontFile file;
  file.path = reinterpret_cast<const char*>(path);
  int index = 0;
  // The highest bit says that the font can be varied, not which one it is.
  if (FcPatternGetInteger(font, FC_INDEX, 0, &index) == FcResultMatch) {
    file.face_index = index & 0x7fffffff;
  }
  FcMatrix* matrix = nullptr;
  if (FcPatternGetMatrix(font, FC_MATRIX, 0, &matrix) == FcResultMatch) file.slant = matrix->xy;
  FcBool embolden = FcFalse;
  file.embolden =
      FcPatternGetBool(font, FC_EMBOLDEN, 0, &embolden) == FcResultMatch && embolden == FcTrue;
  return file;
}

}  // namespace

std::optional<FontFile> FindFont(const FontRequest& request) {
  const Pattern pattern = MakePattern(request);
  if (pattern == nullptr) return std::nullopt;
  FcResult result = FcResultNoMatch;
  const Pattern font(FcFontMatch(nullptr, pattern.get(), &result));
  return font == nullptr ? std::nullopt : FileOf(font.get());
}

FontSubstitutes::FontSubstitutes(const FontRequest& request)
    : pattern_(MakePattern(request).release()) {
  FcResult result = FcResultNoMatch;
  if (pattern_ != nullptr) {
    fonts_.reset(FcFontSort(nullptr, pattern_.get(), FcTrue, nullptr, &result));
  }
}

std::optional<FontFile> FontSubstitutes::FontWith(char32_t letter) const {
  if (fonts_ == nullptr) return std::nullopt;
  for (FcPattern* font : std::span(fonts_->fonts, static_cast<std::size_t>(fonts_->nfont))) {
    FcCharSet* letters = nullptr;
    if (FcPatternGetCharSet(font, FC_CHARSET, 0, &letters) != FcResultMatch) continue;
    if (FcCharSetHasChar(letters, letter) == FcFalse) continue;
    const Pattern ready(FcFontRenderPrepare(nullptr, pattern_.get(), font));
    return ready == nullptr ? std::nullopt : FileOf(ready.get());
  }
  return std::nullopt;
}

}  // namespace host
