#include "host/modeling/font_library.h"

namespace host {

namespace {

// When a process has asked for more styles, it has forgotten most of them.
constexpr std::size_t kMaxStyles = 1000;

}  // namespace

FontFace& FontStyle::FaceWith(char32_t letter) {
  if (face_.GlyphIndex(letter) != 0) return face_;
  const auto found = others_.find(letter);
  if (found != others_.end()) return *found->second;
  FontFace& face = FindFaceWith(letter);
  others_.emplace(letter, &face);
  return face;
}

FontFace& FontStyle::FindFaceWith(char32_t letter) {
  if (!substitutes_.has_value()) substitutes_.emplace(request_);
  const std::optional<FontFile> file = substitutes_->FontWith(letter);
  FontFace* face = file.has_value() ? library_.Face(*file) : nullptr;
  return face != nullptr && face->GlyphIndex(letter) != 0 ? *face : face_;
}

FontLibrary::FontLibrary() {
  FT_Library library = nullptr;
  if (FT_Init_FreeType(&library) == 0) library_.reset(library);
}

FontFace* FontLibrary::Face(const FontFile& file) {
  if (library_ == nullptr) return nullptr;
  const auto [at, is_new] =
      faces_.try_emplace({file.path, file.face_index, file.slant, file.embolden});
  if (is_new) at->second = FontFace::Open(library_.get(), file);
  return at->second.get();
}

FontStyle* FontLibrary::Style(const FontRequest& request) {
  if (styles_.size() >= kMaxStyles) styles_.clear();
  const auto [at, is_new] = styles_.try_emplace({request.family, request.bold, request.italic});
  if (is_new) {
    const std::optional<FontFile> file = FindFont(request);
    FontFace* face = file.has_value() ? Face(*file) : nullptr;
    if (face != nullptr) at->second.emplace(*this, request, *face);
  }
  return at->second.has_value() ? &*at->second : nullptr;
}

}  // namespace host
