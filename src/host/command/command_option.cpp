#include "host/command/command_option.h"

#include <charconv>
#include <cmath>

#include "host/command/color_text.h"
#include "host/system/number_text.h"
#include "host/system/text.h"

namespace {

// Tells the alternatives of a variant apart.
template <class... Parts>
struct Overloaded : Parts... {
  using Parts::operator()...;
};
template <class... Parts>
Overloaded(Parts...) -> Overloaded<Parts...>;

std::string IntText(int value) {
  char text[host::kMaxIntLength];
  return {text, host::FormatInt(value, text)};
}

// The whole of `text` as a number; nothing for any other text.
template <class Value>
std::optional<Value> WholeNumber(std::string_view text) {
  text = host::Trimmed(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  Value value{};
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc{} || stop != end) return std::nullopt;
  if constexpr (std::is_floating_point_v<Value>) {
    if (!std::isfinite(value)) return std::nullopt;
  }
  return value;
}

template <class Value>
bool SetNumber(std::string_view text, Value min, Value max, Value& variable) {
  const std::optional<Value> value = WholeNumber<Value>(text);
  if (!value || *value < min || *value > max) return false;
  variable = *value;
  return true;
}

bool SetColor(std::string_view text, ON_Color& variable) {
  const std::optional<ON_Color> color = ColorFromText(text);
  if (color) variable = *color;
  return color.has_value();
}

// " from 1 to 9", " of at least 1", " of at most 9" or nothing.
std::string RangeText(bool has_min, bool has_max, const std::string& min, const std::string& max) {
  if (has_min && has_max) return " from " + min + " to " + max;
  if (has_min) return " of at least " + min;
  if (has_max) return " of at most " + max;
  return {};
}

std::string WordAt(const std::vector<std::string>& words, int index) {
  if (index < 0 || index >= static_cast<int>(words.size())) return {};
  return words[static_cast<std::size_t>(index)];
}

}  // namespace

int FindName(const std::vector<std::string>& names, std::string_view text, bool prefixes,
             std::vector<std::string>* candidates) {
  if (candidates != nullptr) candidates->clear();
  int found = -1;
  int count = 0;
  for (int i = 0; i < static_cast<int>(names.size()); ++i) {
    const std::string& name = names[static_cast<std::size_t>(i)];
    if (host::EqualNoCase(name, text)) return i;
    if (!prefixes || text.empty() || !host::StartsWithNoCase(name, text)) continue;
    found = i;
    ++count;
    if (candidates != nullptr) candidates->push_back(name);
  }
  return count == 1 ? found : -1;
}

std::string OneOf(const std::vector<std::string>& words) {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i > 0) text += i + 1 == words.size() ? " or " : ", ";
    text += words[i];
  }
  return text;
}

PromptOption CommandOption::Shown() const {
  return {name_, ValueText(), Choices()};
}

std::string CommandOption::ValueText() const {
  return std::visit(
      Overloaded{[](const Plain& plain) { return plain.Value; },
                 [](const Toggle& toggle) { return *toggle.Variable ? toggle.On : toggle.Off; },
                 [](const Integer& integer) { return IntText(*integer.Variable); },
                 [](const Number& number) { return host::FormatG(*number.Variable); },
                 [](const Color& color) { return ColorText(*color.Variable); },
                 [](const List& list) { return WordAt(list.Words, *list.Variable); }},
      kind_);
}

std::vector<std::string> CommandOption::Choices() const {
  if (const auto* toggle = std::get_if<Toggle>(&kind_)) return {toggle->Off, toggle->On};
  if (const auto* list = std::get_if<List>(&kind_)) return list->Words;
  return {};
}

bool CommandOption::Flip() {
  const auto* toggle = std::get_if<Toggle>(&kind_);
  if (toggle == nullptr) return false;
  *toggle->Variable = !*toggle->Variable;
  return true;
}

Prompt CommandOption::ValuePrompt() const {
  Prompt prompt;
  prompt.Text = name_;
  if (const auto* integer = std::get_if<Integer>(&kind_); integer && !integer->Prompt.empty()) {
    prompt.Text = integer->Prompt;
  }
  if (const auto* number = std::get_if<Number>(&kind_); number && !number->Prompt.empty()) {
    prompt.Text = number->Prompt;
  }
  if (const auto* color = std::get_if<Color>(&kind_); color && !color->Prompt.empty()) {
    prompt.Text = color->Prompt;
  }
  for (const std::string& word : Choices()) prompt.Options.push_back({word, {}, {}});
  prompt.Default = ValueText();
  prompt.AcceptsEnter = true;
  return prompt;
}

std::string CommandOption::SetValue(std::string_view text) {
  const auto set_word = [text](const std::vector<std::string>& words, auto store) {
    const int index = FindName(words, text.starts_with('_') ? text.substr(1) : text, true);
    if (index >= 0) store(index);
    return index >= 0;
  };
  const bool set = std::visit(
      Overloaded{[](const Plain&) { return false; },
                 [&](const Toggle& toggle) {
                   return set_word(Choices(), [&](int index) { *toggle.Variable = index == 1; });
                 },
                 [&](const Integer& integer) {
                   return SetNumber(text, integer.Min, integer.Max, *integer.Variable);
                 },
                 [&](const Number& number) {
                   return SetNumber(text, number.Min, number.Max, *number.Variable);
                 },
                 [&](const Color& color) { return SetColor(text, *color.Variable); },
                 [&](const List& list) {
                   return set_word(list.Words, [&](int index) { *list.Variable = index; });
                 }},
      kind_);
  if (set) return {};
  return name_ + " takes " + Expected() + ", not '" + std::string(text) + "'.";
}

std::string CommandOption::Expected() const {
  using IntLimits = std::numeric_limits<int>;
  using RealLimits = std::numeric_limits<double>;
  return std::visit(
      Overloaded{[](const Plain&) { return std::string("no value here"); },
                 [this](const Toggle&) { return OneOf(Choices()); },
                 [](const Integer& integer) {
                   return "a whole number" + RangeText(integer.Min != IntLimits::min(),
                                                       integer.Max != IntLimits::max(),
                                                       IntText(integer.Min), IntText(integer.Max));
                 },
                 [](const Number& number) {
                   return "a number" + RangeText(number.Min != RealLimits::lowest(),
                                                 number.Max != RealLimits::max(),
                                                 host::FormatG(number.Min),
                                                 host::FormatG(number.Max));
                 },
                 [](const Color&) { return std::string("a colour as 255,128,0 or #ff8000"); },
                 [this](const List&) { return OneOf(Choices()); }},
      kind_);
}
