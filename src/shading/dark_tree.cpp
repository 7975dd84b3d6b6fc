#include "shading/dark_tree.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "host/system/file.h"
#include "host/system/number_text.h"
#include "host/system/text.h"
#include "settings/number_list.h"
#include "settings/setting_text.h"
#include "shading/foreign_text.h"
#include "shading/shader_call.h"
#include "shading/shader_param.h"
#include "shading/text_line.h"

namespace orv {
namespace {

constexpr std::uint64_t kLargestFile = 16 << 20;
constexpr SettingBounds kChannelBounds{0, 255};
constexpr SettingBounds kFloatBounds{-1e9, 1e9};

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

// What stands behind the first colon and one more character; nothing without a colon.
std::optional<std::string_view> BehindColon(std::string_view line) {
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return std::nullopt;
  return line.substr(std::min(colon + 2, line.size()));
}

std::string_view UpToControlCharacter(std::string_view text) {
  const auto end = std::find_if(text.begin(), text.end(), [](char letter) {
    const auto byte = static_cast<unsigned char>(letter);
    return byte < 0x20 || byte == 0x7F;
  });
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
  explicit TweakReader(std::string& callText) : callText_(callText) {}

  // False when there are as many tweaks as there may be.
  bool TakeLine(std::string_view line) {
    std::size_t position = 0;
    std::string_view first;
    if (!NextToken(line, position, first) || !host::EqualNoCase(first, "Tweak")) return true;
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
    return std::max(colorNumber_, floatNumber_) <= kMaxShaderParams;
  }

 private:
  enum class Line { Kind, Caption, Value };

  void TakeKind(std::string_view line) {
    isColor_ = Contains(line, "IF_COLOR");
    isFloat_ =
        Contains(line, "IF_PERCENT") || Contains(line, "IF_INT") || Contains(line, "IF_BUMP");
    next_ = Line::Caption;
  }

  void TakeCaption(std::string_view line) {
    const auto text = BehindColon(line);
    if (!text) return;
    caption_ = CallTextFromBytes(UpToControlCharacter(*text));
    next_ = Line::Value;
  }

  // A tweak that the call has no parameters for counts as well.
  void TakeValue(std::string_view text) {
    if (isColor_) {
      const std::string name = "ColorTweak" + std::to_string(colorNumber_++);
      SetStringParam(callText_, name + "Name", caption_);
      SetColorParam(callText_, name, ColorOf(text));
    }
    const std::optional<double> number = host::ParseRealInRange(text);
    if (isFloat_ && number) {
      const std::string name = "FloatTweak" + std::to_string(floatNumber_++);
      SetStringParam(callText_, name + "Name", caption_);
      SetFloatParam(callText_, name, kFloatBounds.Hold(*number));
    }
  }

  std::string& callText_;
  Line next_ = Line::Kind;
  bool isColor_ = false;
  bool isFloat_ = false;
  std::string caption_;
  std::size_t colorNumber_ = 1;
  std::size_t floatNumber_ = 1;
};

}  // namespace

void RefreshDarkTreeTweaks(std::string& callText) {
  std::string path;
  if (!GetStringParam(callText, "DarkTreeShader", path)) return;
  const std::optional<std::string> content = host::ReadWholeFile(path, kLargestFile);
  if (!content) return;
  std::string_view rest = *content;
  TweakReader reader(callText);
  while (!rest.empty() && reader.TakeLine(TakeTextLine(rest))) {
  }
}

}  // namespace orv
