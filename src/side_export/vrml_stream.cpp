#include "side_export/vrml_stream.h"

#include <array>

#include "host/system/number_text.h"
#include "host/system/text.h"

namespace orv {

bool VrmlStream::Close() {
  file_.Write(text_);
  text_.clear();
  return file_.Close();
}

// Large writes are the cheapest for the file system.
void VrmlStream::Write(std::string_view text) {
  constexpr std::size_t kBlockSize = std::size_t{1} << 20;
  text_ += text;
  if (text_.size() < kBlockSize) return;
  file_.Write(text_);
  text_.clear();
}

void VrmlStream::AppendNumber(double number) {
  std::array<char, host::kMaxGLength> digits;
  text_.append(digits.data(), host::FormatG(number, digits.data()));
  text_ += ' ';
}

void VrmlStream::AppendIndex(int index) {
  std::array<char, host::kMaxIntLength> digits;
  text_.append(digits.data(), host::FormatInt(index, digits.data()));
  text_ += ", ";
}

std::string VrmlString(std::string_view text) {
  if (!host::Contains(text, "\"") && !text.ends_with('\\')) return std::string(text);
  std::string escaped;
  for (const char c : text) {
    if (c == '"' || c == '\\') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

}  // namespace orv
