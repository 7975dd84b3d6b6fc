#include "host/archive/rich_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "host/system/number_text.h"
#include "host/system/text.h"

namespace host {
namespace {

// Groups that hold no text.
constexpr std::array<std::string_view, 8> kTables{"fonttbl", "colortbl", "stylesheet", "info",
                                                  "pict",    "header",   "footer",     "object"};

// The letters 0x80 to 0x9f of the code page that \' means; the others are those of Unicode.
constexpr std::array<char16_t, 32> kWindowsLetters{
    0x20ac, 0x81,   0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021, 0x02c6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8d,   0x017d, 0x8f,   0x90,   0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
    0x2013, 0x2014, 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0x9d,   0x017e, 0x0178};

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

// A command and the number behind it.
struct Command {
  std::string_view word;
  int number = 0;
};

class RichTextReader {
 public:
  explicit RichTextReader(std::u16string text) : text_(std::move(text)) {}

  std::string Read();

 private:
  struct Group {
    bool is_hidden = false;
    // How many letters stand behind one given by its number, for readers that don't know it.
    int stand_in_length = 1;
  };

  void ReadEscape();
  void ReadCommand();
  void ReadHexLetter();
  void Obey(const std::string& word, int number);
  void Put(char16_t letter);
  char16_t Next() const { return at_ < text_.size() ? text_[at_] : u'\0'; }
  // The next character where it is one of ASCII.
  char NextChar() const { return Next() < 0x80 ? static_cast<char>(Next()) : '\0'; }

  std::u16string text_;
  std::size_t at_ = 0;
  std::u16string plain_;
  // Letters that are passed over.
  int stand_ins_ = 0;
  std::vector<Group> groups_{Group()};
};

std::string RichTextReader::Read() {
  while (at_ < text_.size()) {
    const char16_t c = text_[at_++];
    switch (c) {
      case u'{':
        groups_.push_back(Group(groups_.back()));
        break;
      case u'}':
        if (groups_.size() > 1) groups_.pop_back();
        break;
      case u'\\':
        ReadEscape();
        break;
      case u'\r':
      case u'\n':
        break;
      default:
        Put(c);
    }
  }
  // The end of the last paragraph begins no other.
  if (plain_.ends_with(u'\n')) plain_.pop_back();
  return Utf8FromUtf16(plain_);
}

void RichTextReader::Put(char16_t letter) {
  if (stand_ins_ > 0) {
    --stand_ins_;
  } else if (!groups_.back().is_hidden) {
    plain_ += letter;
  }
}

void RichTextReader::ReadEscape() {
  if (IsLetter(NextChar())) {
    ReadCommand();
    return;
  }
  if (at_ >= text_.size()) return;
  const char16_t c = text_[at_++];
  switch (c) {
    case u'\'':
      ReadHexLetter();
      break;
    case u'~':
      Put(u' ');
      break;
    case u'_':
      Put(u'-');
      break;
    case u'\r':
    case u'\n':
      Put(u'\n');
      break;
    case u'*':
      groups_.back().is_hidden = true;
      break;
    case u'-':
      break;
    default:
      Put(c);
  }
}

void RichTextReader::ReadHexLetter() {
  int value = 0;
  for (int i = 0; i < 2; ++i) {
    const int digit = HexDigit(NextChar());
    if (digit < 0) return;
    value = 16 * value + digit;
    ++at_;
  }
  const bool is_own = value >= 0x80 && value < 0xa0;
  Put(is_own ? kWindowsLetters[static_cast<std::size_t>(value - 0x80)]
             : static_cast<char16_t>(value));
}

void RichTextReader::ReadCommand() {
  std::string word;
  while (IsLetter(NextChar())) {
    word += NextChar();
    ++at_;
  }
  std::string number;
  if (NextChar() == '-') {
    number += '-';
    ++at_;
  }
  while (IsDigit(NextChar())) {
    number += NextChar();
    ++at_;
  }
  if (Next() == u' ') ++at_;
  Obey(word, ParseInt(number));
}

void RichTextReader::Obey(const std::string& word, int number) {
  if (word == "par" || word == "line") {
    Put(u'\n');
  } else if (word == "tab") {
    Put(u'\t');
  } else if (word == "u") {
    // Numbers above 32767 are written as negative ones.
    Put(static_cast<char16_t>(number & 0xffff));
    stand_ins_ = groups_.back().stand_in_length;
  } else if (word == "uc") {
    groups_.back().stand_in_length = std::clamp(number, 0, 16);
  } else if (std::find(kTables.begin(), kTables.end(), word) != kTables.end()) {
    groups_.back().is_hidden = true;
  }
}

// \r\n and \r become \n.
std::string WithPlainLineEnds(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r') {
      plain += text[i];
    } else if (i + 1 == text.size() || text[i + 1] != '\n') {
      plain += '\n';
    }
  }
  return plain;
}

}  // namespace

std::string PlainTextFromRichText(std::string_view text) {
  if (!text.starts_with("{\\rtf")) return WithPlainLineEnds(text);
  return RichTextReader(Utf16FromUtf8(text)).Read();
}

}  // namespace host
