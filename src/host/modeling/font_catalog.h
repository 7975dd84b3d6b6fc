#pragma once

#include <fontconfig/fontconfig.h>

#include <memory>
#include <optional>
#include <string>

// Which fonts the machine has.
namespace host {

struct FontRequest {
  // Empty for the default one.
  std::string family;
  bool bold = false;
  bool italic = false;
  friend bool operator==(const FontRequest&, const FontRequest&) = default;
};

struct FontFile {
  std::string path;
  // Which font of the file.
  long face_index = 0;
  // What has to be done to it to come near to the request: how far letters lean to the right for
  // each unit of height, and whether their strokes are to be thickened.
  double slant = 0;
  bool embolden = false;
  friend bool operator==(const FontFile&, const FontFile&) = default;
};

// The font that comes nearest to what is asked for, by the rules that are configured on the
// machine; nothing when it has no font.
[[nodiscard]] std::optional<FontFile> FindFont(const FontRequest& request);

// The machine's fonts in the order in which they resemble a request. Those whose letters are all in
// others before them are left out.
class FontSubstitutes {
 public:
  explicit FontSubstitutes(const FontRequest& request);

  // The first font that has a letter; nothing when none has.
  [[nodiscard]] std::optional<FontFile> FontWith(char32_t letter) const;

 private:
  struct Destroy {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
  };
  std::unique_ptr<FcPattern, Destroy> pattern_;
  std::unique_ptr<FcFontSet, Destroy> fonts_;
};

}  // namespace host
