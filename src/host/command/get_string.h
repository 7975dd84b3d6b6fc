#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/command/getter.h"

// Asks for a text. Options are picked by their whole names only; a text in double quotes is never
// an option. At a terminal the text is the whole line, in a script one token.
class CRhinoGetString : public CRhinoGet {
 public:
  explicit CRhinoGetString(CRhinoCommandContext& context) : CRhinoGet(context) {}

  // What Enter gives, as a string.
  void SetDefaultString(std::string_view text) { default_ = text; }
  // The text is a path: the terminal completes file names; relative ones stand in `folder`, or in
  // the current folder when that is empty.
  void TakePath(std::string_view folder = {});
  // What is wrong with a typed text, or an empty text for one that is an answer. What is wrong is
  // told; then it is asked for again, or the getter fails when a script answers.
  using Check = std::function<std::string(const std::string& text)>;
  void SetCheck(Check check) { check_ = std::move(check); }
  // Texts that the terminal offers for completion.
  void SetWords(std::vector<std::string> words) { words_ = std::move(words); }

  // string, nothing, option, cancel or no_result.
  Result GetString();
  // The text of the last string result.
  const std::string& String() const { return string_; }

 protected:
  std::optional<Result> TakeText(const Answer& answer) override;
  std::optional<Result> TakeEnter() override;
  bool TakesFreeText() const override { return true; }
  void CompletePrompt(Prompt& prompt) const override;

 private:
  std::optional<std::string> default_;
  std::string string_;
  Check check_;
  std::vector<std::string> words_;
  bool takes_path_ = false;
  std::string folder_;
};
