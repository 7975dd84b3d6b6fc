#include "host/command/script.h"

#include <algorithm>
#include <utility>

#include "host/system/text.h"

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

class ScriptParser {
 public:
  explicit ScriptParser(std::string_view text) : text_(text) {
    if (text_.starts_with(kByteOrderMark)) text_.remove_prefix(kByteOrderMark.size());
  }

  Script Parse() {
    while (SkipToToken() && script_.error.empty()) ParseToken();
    return std::move(script_);
  }

 private:
  static bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
  }

  bool AtEnd() const { return next_ == text_.size(); }

  char Take() {
    const char c = text_[next_++];
    if (c == '\n') ++line_;
    return c;
  }

  // False at the end of the script.
  bool SkipToToken() {
    while (!AtEnd()) {
      if (text_[next_] == '#') {
        next_ = std::min(text_.find('\n', next_), text_.size());
      } else if (IsBlank(text_[next_])) {
        if (Take() == '\n') line_start_ = next_;
      } else {
        return true;
      }
    }
    return false;
  }

  void ParseToken() {
    ScriptToken token;
    token.line = line_;
    if (line_start_) token.indent = next_ - *line_start_;
    line_start_.reset();
    token.answer.kind = Answer::Kind::text;
    token.answer.Quoted = text_[next_] == '"';
    while (!AtEnd() && !IsBlank(text_[next_])) {
      const char c = Take();
      if (c != '"') {
        token.answer.Text += c;
      } else if (!ParseQuoted(token.answer.Text)) {
        script_.error = "A double quote is not closed.";
        script_.error_line = token.line;
        return;
      }
    }
    if (!token.answer.Quoted) NameKeys(token.answer);
    script_.tokens.push_back(std::move(token));
  }

  // What stands up to the closing quote. False when there is none.
  bool ParseQuoted(std::string& text) {
    while (!AtEnd()) {
      const char c = Take();
      if (c == '"' && (AtEnd() || text_[next_] != '"')) return true;
      if (c == '"') Take();
      text += c;
    }
    return false;
  }

  static void NameKeys(Answer& answer) {
    if (answer.Text == "!") answer.kind = Answer::Kind::cancel;
    if (host::EqualNoCase(answer.Text, "Enter") || host::EqualNoCase(answer.Text, "_Enter")) {
      answer.kind = Answer::Kind::enter;
    }
  }

  std::string_view text_;
  std::size_t next_ = 0;
  int line_ = 1;
  // Where the line begins, as long as no word of it was met.
  std::optional<std::size_t> line_start_ = 0;
  Script script_;
};

}  // namespace

Script ParseScript(std::string_view text) {
  return ScriptParser(text).Parse();
}
