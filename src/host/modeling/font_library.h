#pragma once

#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <unordered_map>

#include "host/modeling/font_face.h"

namespace host {

class FontLibrary;

// The fonts that a text in one style is drawn with.
class FontStyle {
 public:
  FontStyle(FontLibrary& library, FontRequest request, FontFace& face)
      : library_(library), request_(std::move(request)), face_(face) {}

  // The one that was asked for, or the nearest.
  [[nodiscard]] FontFace& Face() const { return face_; }
  // The font that has a letter: Face() when it has it or no other font does.
  [[nodiscard]] FontFace& FaceWith(char32_t letter);

 private:
  FontFace& FindFaceWith(char32_t letter);

  FontLibrary& library_;
  FontRequest request_;
  FontFace& face_;
  // Made when it is first needed.
  std::optional<FontSubstitutes> substitutes_;
  // For the letters that Face() doesn't have.
  std::unordered_map<char32_t, FontFace*> others_;
};

// The opened fonts. Not for several threads at a time.
class FontLibrary {
 public:
  FontLibrary();

  // Null when there is no font. The result is good until another style is asked for.
  [[nodiscard]] FontStyle* Style(const FontRequest& request);
  // Opened once. Null when it can't be.
  [[nodiscard]] FontFace* Face(const FontFile& file);

 private:
  struct Done {
    void operator()(FT_Library library) const { FT_Done_FreeType(library); }
  };
  std::unique_ptr<FT_LibraryRec_, Done> library_;
  // By what tells font files from each other. Those that can't be opened are null.
  std::map<std::tuple<std::string, long, double, bool>, std::unique_ptr<FontFace>> faces_;
  std::map<std::tuple<std::string, bool, bool>, std::optional<FontStyle>> styles_;
};

}  // namespace host
