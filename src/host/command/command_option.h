#pragma once

#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/command/input_source.h"
#include "host/geometry/on_color.h"

// An option of a getter. Toggles, integers, numbers, colours and lists change the variable that
// they are bound to; a plain option has no variable, and picking it is up to the command.
class CommandOption {
 public:
  struct Plain {
    std::string Value;
  };
  struct Toggle {
    std::string Off, On;
    bool* Variable;
  };
  struct Integer {
    int* Variable;
    std::string Prompt;
    int Min, Max;
  };
  struct Number {
    double* Variable;
    std::string Prompt;
    double Min, Max;
  };
  // Typed as "255,128,0" or "#ff8000".
  struct Color {
    ON_Color* Variable;
    std::string Prompt;
  };
  struct List {
    std::vector<std::string> Words;
    int* Variable;
  };
  using Kind = std::variant<Plain, Toggle, Integer, Number, Color, List>;

  CommandOption(std::string_view name, Kind kind) : name_(name), kind_(std::move(kind)) {}

  const std::string& Name() const { return name_; }
  bool IsPlain() const { return std::holds_alternative<Plain>(kind_); }
  // What the prompt shows of the option.
  PromptOption Shown() const;
  // Flips a toggle; false for every other kind.
  bool Flip();
  // The prompt that asks for the value of an integer, number, colour or list. Enter keeps the
  // value.
  Prompt ValuePrompt() const;
  // Sets the bound variable from a typed value. Empty when that worked; otherwise what was
  // expected: "Frame takes a whole number from -1 to 9999, not 'x'."
  std::string SetValue(std::string_view text);

 private:
  std::string ValueText() const;
  std::vector<std::string> Choices() const;
  std::string Expected() const;

  std::string name_;
  Kind kind_;
};

// The position in `names` of the one that equals `text` or, with `prefixes`, that alone begins with
// it, without regard to case. Otherwise -1, and `candidates` holds the names that begin so.
int FindName(const std::vector<std::string>& names, std::string_view text, bool prefixes,
             std::vector<std::string>* candidates = nullptr);

// "A, B or C".
std::string OneOf(const std::vector<std::string>& words);
