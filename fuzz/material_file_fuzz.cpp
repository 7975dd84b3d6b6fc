#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "shading/material_file.h"
#include "shading/shader_call.h"

namespace {

constexpr double kGamma = 2.2;

// Whether each line of a file is read as one line.
bool HasShortLines(std::string_view text) {
  constexpr std::size_t kLongestLine = 1999;
  while (text.size() > kLongestLine) {
    const std::size_t end = text.find('\n');
    if (end >= kLongestLine) return false;
    text.remove_prefix(end + 1);
  }
  return true;
}

// Nothing ends a file's strings and brackets early: there are whole pairs of quotes and brackets in
// each line.
void CheckLines(std::string_view text) {
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    bool isString = false;
    bool isEscaped = false;
    for (const char c : line) {
      if (c == '"' && !isEscaped) isString = !isString;
      isEscaped = isString && c == '\\' && !isEscaped;
    }
    if (isString) std::abort();
    text.remove_prefix(std::min(line.size() + 1, text.size()));
  }
}

bool HaveSameTexts(const orv::MaterialAttributes& a, const orv::MaterialAttributes& b) {
  return a.Name == b.Name && a.Surface == b.Surface && a.Displacement == b.Displacement &&
         a.Instancer == b.Instancer && a.Diffuse == b.Diffuse &&
         a.ComplexShadow == b.ComplexShadow && a.DisplacementMode == b.DisplacementMode;
}

}  // namespace

// Any bytes are a material file. The file that is written of the material is well formed, and what
// is read from it is read again from the file that is written of that.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const orv::MaterialAttributes first = orv::MaterialFromText(bytes, kGamma);
  const std::string text = orv::TextFromMaterial("a.omf", kGamma, first);
  CheckLines(text);
  const orv::MaterialAttributes second = orv::MaterialFromText(text, kGamma);
  const std::string again = orv::TextFromMaterial("a.omf", kGamma, second);
  const orv::MaterialAttributes third = orv::MaterialFromText(again, kGamma);
  if (HasShortLines(text) && HasShortLines(again) && !HaveSameTexts(second, third)) std::abort();

  // A call that a document holds may be anything.
  orv::MaterialAttributes any;
  any.Surface = any.Displacement = any.Instancer = any.Name = bytes;
  CheckLines(orv::TextFromMaterial(bytes, kGamma, any));
  return 0;
}
