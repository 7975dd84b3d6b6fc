#include "shading/dark_tree.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "host/system/file.h"
#include "host/system/text.h"
#include "settings/number_list.h"
#include "settings/text_line.h"
#include "shading/foreign_text.h"
#include "shading/shader_call.h"
#include "shading/shader_param.h"

namespace orv {
namespace {

constexpr std::uint64_t kLargestFile = 16 << 20;
constexpr SettingBounds kChannelBounds{0, 255};
constexpr SettingBounds kFloatBounds{-1e9, 1e9};

// What stands behind the first colon and one more character; nothing without a colon.
std::optional<std::string_view> BehindColon(std::string_view line) {
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return std::nullopt;
  return line.substr(std::min(colon + 2, line.size()));
}

std::string_view UpToControlCharacter(std::string_view text) {
  const auto end = std::find_if(text.begin(), text.end(), host::IsControl);
  return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

ON_Color ColorOf(std::string_view text) {
  std::array<double, 3> channels{};
  ParseNumberList(text, channels);
  const auto channel = [&](std::size_t i) {
    return static_cast<int>(kChannelBounds.Hold(channels[i]));
  };
  return {channel(0), channel(1), channel(2)};
}

// Goes through a file's lines. Each tweak is three lines that begin with "Tweak": what it is, its
// caption and its value.
class TweakReader {
 public:
  void TakeLine(std::string_view line) {
    std::size_t position = 0;
    std::string_view first;
    if (!NextToken(line, position, first) || !host::EqualNoCase(first, "Tweak")) return;
    switch (next_) {
      case Line::Kind:
        TakeKind(line);
        break;
      case Line::Caption:
        TakeCaption(line);
        break;
      case Line::Value:
        if (const auto value = BehindColon(line)) TakeValue(*value);
        next_ = Line::Kind;
        break;
    }
  }

  // True when there are as many tweaks of either kind as there may be.
  [[nodiscard]] bool IsFull() const {
    return std::min(colorCount_, floatCount_) == kMaxShaderParams;
  }

  // The captions and values of the tweaks.
  [[nodiscard]] std::span<const ParamValue> Values() const { return values_; }

 private:
  enum class Line { Kind, Caption, Value };

  void TakeKind(std::string_view line) {
    isColor_ = host::Contains(line, "IF_COLOR");
    isFloat_ = host::Contains(line, "IF_PERCENT") || host::Contains(line, "IF_INT") ||
               host::Contains(line, "IF_BUMP");
    next_ = Line::Caption;
  }

  void TakeCaption(std::string_view line) {
    const auto text = BehindColon(line);
    if (!text) return;
    caption_ = CallTextOf(TextFromBytes(UpToControlCharacter(*text)));
    next_ = Line::Value;
  }

  // A tweak that the call has no parameters for counts as well.
  void TakeValue(std::string_view text) {
    if (isColor_ && colorCount_ < kMaxShaderParams) {
      const std::string name = "ColorTweak" + std::to_string(++colorCount_);
      values_.push_back(StringValue(name + "Name", caption_));
      values_.push_back(ColorValue(name, ColorOf(text)));
    }
    const std::optional<double> number = ParseNumber(text, kFloatBounds);
    if (isFloat_ && number && floatCount_ < kMaxShaderParams) {
      const std::string name = "FloatTweak" + std::to_string(++floatCount_);
      values_.push_back(StringValue(name + "Name", caption_));
      values_.push_back(FloatValue(name, *number));
    }
  }

  Line next_ = Line::Kind;
  bool isColor_ = false;
  bool isFloat_ = false;
  std::string caption_;
  std::size_t colorCount_ = 0;
  std::size_t floatCount_ = 0;
  std::vector<ParamValue> values_;
};

}  // namespace

void RefreshDarkTreeTweaks(std::string& callText) {
  std::string path;
  if (!GetStringParam(callText, "DarkTreeShader", path)) return;
  const std::optional<std::string> content = host::ReadWholeFile(path, kLargestFile);
  if (!content) return;
  std::string_view rest = *content;
  TweakReader reader;
  while (!rest.empty() && !reader.IsFull()) reader.TakeLine(TakeTextLine(rest));
  SetParams(callText, reader.Values());
}

}  // namespace orv
