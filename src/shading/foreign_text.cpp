#include "shading/foreign_text.h"

#include "host/system/text.h"

namespace orv {
namespace {

bool IsUtf8(std::string_view bytes) {
  return host::Utf8FromUtf16(host::Utf16FromUtf8(bytes)) == bytes;
}

std::string Utf8FromLatin1(std::string_view bytes) {
  std::u16string text;
  for (const char byte : bytes) text += static_cast<unsigned char>(byte);
  return host::Utf8FromUtf16(text);
}

bool BreaksCall(char letter) {
  const auto byte = static_cast<unsigned char>(letter);
  return letter == '"' || letter == ']' || byte < 0x20 || byte == 0x7F;
}

}  // namespace

std::string CallTextFromBytes(std::string_view bytes) {
  std::string text = IsUtf8(bytes) ? std::string(bytes) : Utf8FromLatin1(bytes);
  std::erase_if(text, BreaksCall);
  return text;
}

}  // namespace orv
