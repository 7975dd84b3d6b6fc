#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/command/input_source.h"

// Answers to a command's prompts, as a person or a script gives them. Remembers what was asked and
// what was refused. A word "Enter" is the key and "!" cancels; after the last answer comes the end
// of the input.
class TypedInput : public InputSource {
 public:
  enum class By { person, script };

  explicit TypedInput(std::vector<std::string> answers, By by = By::person)
      : answers_(answers.begin(), answers.end()), by_(by) {}

  bool Refuse(std::string_view message) override {
    refusals_.emplace_back(message);
    return IsInteractive();
  }
  bool IsInteractive() const override { return by_ == By::person; }

  // The line of each prompt, in their order.
  const std::vector<std::string>& Prompts() const { return prompts_; }
  const std::vector<std::string>& Refusals() const { return refusals_; }
  bool IsUsedUp() const { return answers_.empty(); }

 protected:
  Answer Read(const Prompt& prompt) override {
    prompts_.push_back(prompt.Line());
    if (answers_.empty()) return {Answer::Kind::end, {}, false};
    std::string text = std::move(answers_.front());
    answers_.pop_front();
    if (text == "Enter") return {Answer::Kind::enter, {}, false};
    if (text == "!") return {Answer::Kind::cancel, {}, false};
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    if (quoted) text = text.substr(1, text.size() - 2);
    return {Answer::Kind::text, std::move(text), quoted};
  }

 private:
  std::deque<std::string> answers_;
  By by_;
  std::vector<std::string> prompts_;
  std::vector<std::string> refusals_;
};
