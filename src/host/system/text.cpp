#include "host/system/text.h"

#include <locale.h>
#include <utf8proc.h>

#include <algorithm>
#include <cstdarg>
#include <cstdint>
#include <cstdio>

namespace host {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

struct Decoded {
  char32_t codePoint = kReplacement;
  std::size_t length = 1;
  bool valid = false;
};

// The code point at `offset`, which stands before the end of the text.
Decoded DecodeAt(std::string_view text, std::size_t offset) {
  const auto* start = reinterpret_cast<const utf8proc_uint8_t*>(text.data()) + offset;
  utf8proc_int32_t codePoint = 0;
  const utf8proc_ssize_t length =
      utf8proc_iterate(start, static_cast<utf8proc_ssize_t>(text.size() - offset), &codePoint);
  if (length <= 0) return {};
  return {static_cast<char32_t>(codePoint), static_cast<std::size_t>(length), true};
}

void AppendUtf8(std::string& out, char32_t codePoint) {
  utf8proc_uint8_t bytes[4];
  const utf8proc_ssize_t length =
      utf8proc_encode_char(static_cast<utf8proc_int32_t>(codePoint), bytes);
  out.append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length));
}

bool IsHighSurrogate(char16_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLowSurrogate(char16_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

// Simple case folding: the full folding where that is one code point, else the lower-case letter.
// The dotted capital I has no simple folding at all.
char32_t Folded(char32_t codePoint) {
  constexpr char32_t kDottedCapitalI = 0x130;
  if (codePoint == kDottedCapitalI) return codePoint;
  utf8proc_int32_t folded[4];
  int lastBoundClass = 0;
  const auto character = static_cast<utf8proc_int32_t>(codePoint);
  const utf8proc_ssize_t count =
      utf8proc_decompose_char(character, folded, 4, UTF8PROC_CASEFOLD, &lastBoundClass);
  return static_cast<char32_t>(count == 1 ? folded[0] : utf8proc_tolower(character));
}

bool IsAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

char FoldedAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

// What is compared: a malformed byte equals only itself.
char32_t FoldedAt(std::string_view text, std::size_t offset, std::size_t& length) {
  constexpr char32_t kBeyondUnicode = 0x110000;
  const Decoded decoded = DecodeAt(text, offset);
  length = decoded.length;
  if (!decoded.valid) return kBeyondUnicode + static_cast<unsigned char>(text[offset]);
  return Folded(decoded.codePoint);
}

// True when `text` starts with `prefix`; `matched` is then the length of that start.
bool MatchesStart(std::string_view text, std::string_view prefix, std::size_t& matched) {
  matched = 0;
  for (std::size_t offset = 0; offset < prefix.size();) {
    if (matched == text.size()) return false;
    if (IsAscii(text[matched]) && IsAscii(prefix[offset])) {
      if (FoldedAscii(text[matched++]) != FoldedAscii(prefix[offset++])) return false;
      continue;
    }
    std::size_t textLength = 0;
    std::size_t prefixLength = 0;
    if (FoldedAt(text, matched, textLength) != FoldedAt(prefix, offset, prefixLength)) return false;
    matched += textLength;
    offset += prefixLength;
  }
  return true;
}

// True when both texts end in ASCII characters that differ. Names of a family differ at their ends
// rather than at their starts.
bool EndInOtherAscii(std::string_view a, std::string_view b) {
  return !a.empty() && !b.empty() && IsAscii(a.back()) && IsAscii(b.back()) &&
         FoldedAscii(a.back()) != FoldedAscii(b.back());
}

// Makes the "C" locale the thread's own while it lives.
class CLocaleScope {
 public:
  CLocaleScope() : previous_(uselocale(CLocale())) {}
  ~CLocaleScope() { uselocale(previous_); }
  CLocaleScope(const CLocaleScope&) = delete;
  CLocaleScope& operator=(const CLocaleScope&) = delete;

 private:
  static locale_t CLocale() {
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
  }
  locale_t previous_;
};

}  // namespace

std::string Utf8FromUtf16(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t codePoint = text[i];
    if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      codePoint = 0x10000u + ((codePoint - 0xD800u) << 10u) + (text[++i] - 0xDC00u);
    } else if (IsHighSurrogate(text[i]) || IsLowSurrogate(text[i])) {
      codePoint = kReplacement;
    }
    AppendUtf8(out, codePoint);
  }
  return out;
}

std::u16string Utf16FromUtf8(std::string_view text) {
  std::u16string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const Decoded decoded = DecodeAt(text, i);
    i += decoded.length;
    if (decoded.codePoint < 0x10000) {
      out += static_cast<char16_t>(decoded.codePoint);
    } else {
      const char32_t offset = decoded.codePoint - 0x10000;
      out += static_cast<char16_t>(0xD800 + (offset >> 10));
      out += static_cast<char16_t>(0xDC00 + (offset & 0x3FF));
    }
  }
  return out;
}

std::size_t CodePointCount(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); i += DecodeAt(text, i).length) ++count;
  return count;
}

std::string_view FirstCodePoints(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (; count > 0 && end < text.size(); --count) end += DecodeAt(text, end).length;
  return text.substr(0, end);
}

std::string_view FirstBytes(std::string_view text, std::size_t count) {
  if (text.size() <= count) return text;
  constexpr std::size_t kLongestTail = 3;
  for (std::size_t back = 1; back <= std::min(kLongestTail, count); ++back) {
    if (DecodeAt(text, count - back).length > back) return text.substr(0, count - back);
  }
  return text.substr(0, count);
}

bool EqualNoCase(std::string_view a, std::string_view b) {
  if (EndInOtherAscii(a, b)) return false;
  std::size_t matched = 0;
  return MatchesStart(a, b, matched) && matched == a.size();
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
  std::size_t matched = 0;
  return MatchesStart(text, prefix, matched);
}

std::string FoldedCase(std::string_view text) {
  std::string folded;
  folded.reserve(text.size());
  for (std::size_t offset = 0; offset < text.size();) {
    const Decoded decoded = DecodeAt(text, offset);
    if (decoded.valid) {
      AppendUtf8(folded, Folded(decoded.codePoint));
    } else {
      folded += text.substr(offset, decoded.length);
    }
    offset += decoded.length;
  }
  return folded;
}

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

bool IsControl(char c) {
  return (c >= 0 && c < ' ') || c == '\x7f';
}

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string Format(const char* format, ...) {
  const CLocaleScope locale;
  std::va_list arguments;
  va_start(arguments, format);
  std::va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, arguments);
  va_end(arguments);
  std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
  if (length > 0) std::vsnprintf(text.data(), text.size() + 1, format, again);
  va_end(again);
  return text;
}

}  // namespace host
