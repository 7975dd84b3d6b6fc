#include "shading/shader_call.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <utility>

#include "host/system/number_text.h"
#include "settings/number_list.h"
#include "shading/shader_declaration.h"

namespace orv {
namespace {

constexpr std::string_view kStringType = "string";
constexpr std::string_view kFloatType = "float";
constexpr std::string_view kColorType = "color";

constexpr SettingBounds kColorBounds{0, kNumberBounds.Maximum};

// A parameter as it stands in the text: where its declaration and its value end.
struct Pair {
  ShaderDeclaration Declaration;
  std::size_t DeclarationEnd = 0;
  std::string_view Value;
  std::size_t ValueEnd = 0;
};

// Goes through the parameters of a shader call one by one.
class PairReader {
 public:
  explicit PairReader(std::string_view text) : text_(text) {
    std::string_view name;
    NextToken(text_, position_, name);
  }

  // The next parameter; nothing when there is none.
  std::optional<Pair> Next() {
    Pair pair;
    std::string_view words;
    while (NextToken(text_, position_, words)) {
      pair.DeclarationEnd = position_;
      if (!NextToken(text_, position_, pair.Value)) break;
      pair.ValueEnd = position_;
      const auto declaration = ReadDeclaration(words);
      if (!declaration) continue;
      pair.Declaration = *declaration;
      return pair;
    }
    return std::nullopt;
  }

  // The next one with the name and type that is no array.
  std::optional<Pair> NextSingle(std::string_view type, std::string_view name) {
    std::optional<Pair> pair = Next();
    while (pair && !(pair->Declaration.Length == 1 && pair->Declaration.BaseType == type &&
                     pair->Declaration.Name == name)) {
      pair = Next();
    }
    return pair;
  }

 private:
  std::string_view text_;
  std::size_t position_ = 0;
};

// What is still to be set, by type and name.
using Wanted = std::map<std::pair<std::string_view, std::string_view>, std::string_view>;

// The value that the parameter gets.
Wanted::iterator FindFor(const ShaderDeclaration& declaration, Wanted& wanted) {
  if (declaration.Length != 1 && declaration.BaseType != kColorType) return wanted.end();
  return wanted.find({declaration.BaseType, declaration.Name});
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
  const std::optional<Pair> pair = PairReader(text).NextSingle(kStringType, name);
  if (!pair) return false;
  value = pair->Value;
  std::erase(value, '"');
  return true;
}

bool GetFloatParam(std::string_view text, std::string_view name, double& value) {
  PairReader reader(text);
  while (const std::optional<Pair> pair = reader.NextSingle(kFloatType, name)) {
    const std::optional<double> number = ParseNumber(pair->Value);
    if (!number) continue;
    value = *number;
    return true;
  }
  return false;
}

bool GetColorParam(std::string_view text, std::string_view name, double& red, double& green,
                   double& blue) {
  const std::optional<Pair> pair = PairReader(text).NextSingle(kColorType, name);
  if (!pair) return false;
  std::size_t position = 0;
  for (double* part : std::array{&red, &green, &blue}) {
    std::string_view token;
    if (!NextToken(pair->Value, position, token)) break;
    if (const auto number = ParseNumber(token, kColorBounds)) *part = *number;
  }
  return true;
}

ParamValue StringValue(std::string_view name, std::string_view value) {
  ParamValue result{kStringType, std::string(name), "\""};
  result.Text += value;
  result.Text += '"';
  return result;
}

ParamValue FloatValue(std::string_view name, double value) {
  return {kFloatType, std::string(name), host::FormatG(value)};
}

ParamValue ColorValue(std::string_view name, ON_Color value) {
  return {kColorType, std::string(name),
          host::FormatG(value.FractionRed()) + ' ' + host::FormatG(value.FractionGreen()) + ' ' +
              host::FormatG(value.FractionBlue())};
}

std::size_t SetParams(std::string& text, std::span<const ParamValue> values) {
  Wanted wanted;
  for (const ParamValue& value : values) wanted[{value.Type, value.Name}] = value.Text;
  const std::size_t count = wanted.size();
  PairReader reader(text);
  std::string result;
  std::size_t copied = 0;
  while (!wanted.empty()) {
    const std::optional<Pair> pair = reader.Next();
    if (!pair) break;
    const auto found = FindFor(pair->Declaration, wanted);
    if (found == wanted.end()) continue;
    result.append(text, copied, pair->DeclarationEnd - copied);
    result += " [";
    result += found->second;
    result += ']';
    copied = pair->ValueEnd;
    wanted.erase(found);
  }
  if (copied > 0) text.replace(0, copied, result);
  return count - wanted.size();
}

bool SetStringParam(std::string& text, std::string_view name, std::string_view value) {
  const ParamValue param = StringValue(name, value);
  return SetParams(text, {&param, 1}) > 0;
}

bool SetFloatParam(std::string& text, std::string_view name, double value) {
  const ParamValue param = FloatValue(name, value);
  return SetParams(text, {&param, 1}) > 0;
}

bool SetColorParam(std::string& text, std::string_view name, ON_Color value) {
  const ParamValue param = ColorValue(name, value);
  return SetParams(text, {&param, 1}) > 0;
}

}  // namespace orv
