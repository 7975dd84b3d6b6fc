#include "shading/shader_call.h"

#include <algorithm>
#include <array>
#include <optional>

#include "host/system/number_text.h"
#include "settings/setting_text.h"
#include "shading/shader_declaration.h"

namespace orv {
namespace {

constexpr SettingBounds kFloatBounds{-1e30, 1e30};
constexpr SettingBounds kColorBounds{0, 1e30};

// A parameter as it stands in the text: where its declaration ends, and its value.
struct Pair {
  ShaderDeclaration Declaration;
  std::size_t DeclarationEnd = 0;
  std::string_view Value;
};

// Goes through the parameters of a shader call one by one.
class PairReader {
 public:
  explicit PairReader(std::string_view text) : text_(text) {
    std::string_view name;
    NextToken(text_, position_, name);
  }

  // Where the value that was read last ends.
  [[nodiscard]] std::size_t Position() const { return position_; }

  // The next parameter with the name and type; nothing when there is none.
  std::optional<Pair> Next(std::string_view type, std::string_view name) {
    Pair pair;
    std::string_view words;
    while (NextToken(text_, position_, words)) {
      pair.DeclarationEnd = position_;
      if (!NextToken(text_, position_, pair.Value)) break;
      const auto declaration = ReadDeclaration(words);
      if (!declaration || declaration->BaseType != type || declaration->Name != name) continue;
      pair.Declaration = *declaration;
      return pair;
    }
    return std::nullopt;
  }

  // The same, and no array.
  std::optional<Pair> NextSingle(std::string_view type, std::string_view name) {
    std::optional<Pair> pair = Next(type, name);
    while (pair && pair->Declaration.Length != 1) pair = Next(type, name);
    return pair;
  }

 private:
  std::string_view text_;
  std::size_t position_ = 0;
};

// Puts `value` in brackets where the value of the pair that was read last stands.
void ReplaceValue(std::string& text, const Pair& pair, std::size_t valueEnd,
                  std::string_view value) {
  std::string bracketed = " [";
  bracketed += value;
  bracketed += ']';
  text.replace(pair.DeclarationEnd, valueEnd - pair.DeclarationEnd, bracketed);
}

bool ReplaceSingle(std::string& text, std::string_view type, std::string_view name,
                   std::string_view value) {
  PairReader reader(text);
  const std::optional<Pair> pair = reader.NextSingle(type, name);
  if (pair) ReplaceValue(text, *pair, reader.Position(), value);
  return pair.has_value();
}

}  // namespace

bool NextToken(std::string_view text, std::size_t& position, std::string_view& token) {
  position = std::min(text.find_first_not_of(' ', position), text.size());
  if (position == text.size()) return false;
  const char first = text[position];
  const bool enclosed = first == '"' || first == '[';
  if (enclosed) ++position;
  const char closing = first == '[' ? ']' : first == '"' ? '"' : ' ';
  const std::size_t end = std::min(text.find(closing, position), text.size());
  token = text.substr(position, end - position);
  position = enclosed ? std::min(end + 1, text.size()) : end;
  return true;
}

std::string_view ShaderNameOf(std::string_view text) {
  std::size_t position = 0;
  std::string_view name;
  NextToken(text, position, name);
  return name;
}

bool GetStringParam(std::string_view text, std::string_view name, std::string& value) {
  const std::optional<Pair> pair = PairReader(text).NextSingle("string", name);
  if (!pair) return false;
  value = pair->Value;
  std::erase(value, '"');
  return true;
}

bool GetFloatParam(std::string_view text, std::string_view name, double& value) {
  PairReader reader(text);
  while (const std::optional<Pair> pair = reader.NextSingle("float", name)) {
    const std::optional<double> number = host::ParseRealInRange(pair->Value);
    if (!number) continue;
    value = kFloatBounds.Hold(*number);
    return true;
  }
  return false;
}

bool GetColorParam(std::string_view text, std::string_view name, double& red, double& green,
                   double& blue) {
  const std::optional<Pair> pair = PairReader(text).NextSingle("color", name);
  if (!pair) return false;
  std::size_t position = 0;
  for (double* part : std::array{&red, &green, &blue}) {
    std::string_view token;
    if (!NextToken(pair->Value, position, token)) break;
    if (const auto number = host::ParseRealInRange(token)) *part = kColorBounds.Hold(*number);
  }
  return true;
}

bool SetStringParam(std::string& text, std::string_view name, std::string_view value) {
  std::string quoted = "\"";
  quoted += value;
  quoted += '"';
  return ReplaceSingle(text, "string", name, quoted);
}

bool SetFloatParam(std::string& text, std::string_view name, double value) {
  return ReplaceSingle(text, "float", name, host::FormatG(value));
}

bool SetColorParam(std::string& text, std::string_view name, ON_Color value) {
  PairReader reader(text);
  const std::optional<Pair> pair = reader.Next("color", name);
  if (!pair) return false;
  ReplaceValue(text, *pair, reader.Position(),
               host::FormatG(value.FractionRed()) + ' ' + host::FormatG(value.FractionGreen()) +
                   ' ' + host::FormatG(value.FractionBlue()));
  return true;
}

}  // namespace orv
