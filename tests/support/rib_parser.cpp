#include "support/rib_parser.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <string>
#include <utility>

namespace {

constexpr std::size_t kMaxLineLength = 4096;

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
bool EndsWord(char c) {
  return IsBlank(c) || c == '"' || c == '[' || c == ']' || c == '#';
}
bool StartsNumber(char c) {
  return (c >= '0' && c <= '9') || c == '-' || c == '+' || c == '.';
}

class Parser {
 public:
  Parser(std::string_view rib, RibReport& report) : rib_(rib), report_(report) {}

  void Run() {
    while (SkipToToken()) {
      const char c = rib_[at_];
      if (c == '[') {
        Add(ReadArray());
      } else if (c == ']') {
        Complain("a closing bracket has no opening one");
        ++at_;
      } else if (c == '"') {
        Add({RibArgument::Kind::text, {}, {ReadText()}, line_});
      } else if (StartsNumber(c)) {
        const int line = line_;
        RibArgument argument{RibArgument::Kind::number, {}, {}, line};
        argument.Numbers.push_back(ReadNumber());
        Add(std::move(argument));
      } else {
        report_.Statements.push_back({std::string(ReadWord()), {}, line_});
      }
    }
  }

 private:
  void Complain(std::string_view what) { ComplainAboutLine(report_, line_, what); }

  // False at the end of the stream.
  bool SkipToToken() {
    for (; at_ < rib_.size(); ++at_) {
      if (rib_[at_] == '#') {
        at_ = std::min(rib_.find('\n', at_), rib_.size());
        if (at_ == rib_.size()) return false;
      }
      if (!IsBlank(rib_[at_])) return true;
      if (rib_[at_] == '\n') ++line_;
    }
    return false;
  }

  void Add(RibArgument argument) {
    if (report_.Statements.empty()) {
      Complain("an argument stands before the first statement");
      return;
    }
    report_.Statements.back().Arguments.push_back(std::move(argument));
  }

  std::string_view ReadWord() {
    const std::size_t start = at_;
    while (at_ < rib_.size() && !EndsWord(rib_[at_])) ++at_;
    return rib_.substr(start, at_ - start);
  }

  double ReadNumber() {
    const std::string_view word = ReadWord();
    const std::string_view digits = word.substr(word.front() == '+' ? 1 : 0);
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size() || !std::isfinite(value)) {
      Complain("'" + std::string(word) + "' is no finite number");
    }
    return value;
  }

  std::string ReadText() {
    const int first = line_;
    std::string text;
    for (++at_; at_ < rib_.size(); ++at_) {
      char c = rib_[at_];
      if (c == '"') {
        ++at_;
        return text;
      }
      if (c == '\n') ++line_;
      if (c == '\\' && at_ + 1 < rib_.size()) {
        c = rib_[++at_];
        if (c == 'n') c = '\n';
        if (c == 't') c = '\t';
      }
      text += c;
    }
    ComplainAboutLine(report_, first, "a string is not closed");
    return text;
  }

  RibArgument ReadArray() {
    RibArgument array{RibArgument::Kind::numbers, {}, {}, line_};
    ++at_;
    while (SkipToToken()) {
      const char c = rib_[at_];
      if (c == ']') {
        ++at_;
        if (!array.Texts.empty()) array.kind = RibArgument::Kind::texts;
        if (!array.Texts.empty() && !array.Numbers.empty()) {
          Complain("an array mixes strings and numbers");
        }
        return array;
      }
      if (c == '"') {
        array.Texts.push_back(ReadText());
      } else if (c == '[') {
        Complain("an array stands in an array");
        ++at_;
      } else if (StartsNumber(c)) {
        array.Numbers.push_back(ReadNumber());
      } else if (std::isupper(static_cast<unsigned char>(c)) != 0) {
        // The next statement.
        break;
      } else {
        Complain("'" + std::string(ReadWord()) + "' is no finite number");
      }
    }
    ComplainAboutLine(report_, array.Line, "an array is not closed");
    return array;
  }

  std::string_view rib_;
  RibReport& report_;
  std::size_t at_ = 0;
  int line_ = 1;
};

void CheckLines(std::string_view rib, RibReport& report) {
  int line = 1;
  for (; !rib.empty(); ++line) {
    const std::size_t end = rib.find('\n');
    const std::string_view text = rib.substr(0, end);
    if (!text.empty() && text.find_first_not_of(' ') == std::string_view::npos) {
      ComplainAboutLine(report, line, "a blank line carries blanks");
    }
    if (text.size() > kMaxLineLength) {
      ComplainAboutLine(report, line, "it has " + std::to_string(text.size()) + " bytes");
    }
    if (end == std::string_view::npos) {
      ComplainAboutLine(report, line, "the last line has no end");
      return;
    }
    rib.remove_prefix(end + 1);
  }
}

}  // namespace

void ComplainAboutLine(RibReport& report, int line, std::string_view what) {
  report.Complaints.push_back("line " + std::to_string(line) + ": " + std::string(what));
}

void ParseRib(std::string_view rib, RibReport& report) {
  CheckLines(rib, report);
  Parser(rib, report).Run();
}
