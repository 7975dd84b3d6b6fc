#include "pages/page_controls.h"

#include <algorithm>

#include "export/rib_text.h"
#include "host/command/color_text.h"
#include "host/system/number_text.h"
#include "host/system/text.h"
#include "pages/control_value.h"
#include "pages/image_size.h"
#include "shading/gamma.h"

namespace orv {
namespace {

CRhinoControlKind EditOrCombo(PageWords suggested) {
  return suggested.empty() ? CRhinoControlKind::edit : CRhinoControlKind::combo;
}

std::string YesOrNo(bool value) {
  return std::string(value ? kYes : kNo);
}

std::string WordAt(PageWords words, std::size_t index) {
  return index < words.size() ? std::string(words[index]) : std::string();
}

// The number of a word, in any case; that of words when it is none of them.
std::size_t IndexOf(PageWords words, std::string_view text) {
  const auto equals = [text](std::string_view word) { return host::EqualNoCase(word, text); };
  return static_cast<std::size_t>(std::find_if(words.begin(), words.end(), equals) - words.begin());
}

ON_Color ColorOf(std::string_view text) {
  return ColorFromText(text).value_or(ON_Color());
}

}  // namespace

std::string PageCheck::Shown(const PageRecords& records) const {
  return YesOrNo(ValueOf(records, Field));
}

bool PageCheck::Read(std::string_view text, PageRecords& records) const {
  ValueOf(records, Field) = text == kYes;
  return true;
}

std::string PageThreeState::Shown(const PageRecords& records) const {
  constexpr std::string_view kWords[] = {kNo, kMixed, kYes};
  return WordAt(kWords, static_cast<std::size_t>(ValueOf(records, Field)));
}

bool PageThreeState::Read(std::string_view text, PageRecords& records) const {
  ValueOf(records, Field) = text == kYes ? 2 : text == kNo ? 0 : 1;
  return true;
}

CRhinoControlKind PageInteger::Kind() const {
  return EditOrCombo(Suggested);
}

std::string PageInteger::Shown(const PageRecords& records) const {
  return SettingText(ValueOf(records, Field));
}

bool PageInteger::Read(std::string_view text, PageRecords& records) const {
  const auto value = host::ParseIntInRange(text);
  if (text.empty() || !value) return false;
  ValueOf(records, Field) = static_cast<int>(Bounds.Hold(*value));
  return true;
}

CRhinoControlKind PageNumber::Kind() const {
  return EditOrCombo(Suggested);
}

std::string PageNumber::Shown(const PageRecords& records) const {
  return SettingText(ValueOf(records, Field));
}

bool PageNumber::Read(std::string_view text, PageRecords& records) const {
  const auto value = host::ParseRealInRange(text);
  if (!value) return false;
  const double held = Bounds.Hold(*value);
  ValueOf(records, Field) =
      Precision == Kept::single_precision ? static_cast<double>(static_cast<float>(held)) : held;
  return true;
}

CRhinoControlKind PageText::Kind() const {
  return EditOrCombo(Suggested);
}

std::string PageText::Shown(const PageRecords& records) const {
  return ValueOf(records, Field);
}

bool PageText::Read(std::string_view text, PageRecords& records) const {
  ValueOf(records, Field) = host::FirstBytes(text, MostBytes);
  return true;
}

std::string PageName::Shown(const PageRecords& records) const {
  return ValueOf(records, Field);
}

bool PageName::Read(std::string_view text, PageRecords& records) const {
  ValueOf(records, Field) = text;
  return true;
}

std::string PageFile::Shown(const PageRecords& records) const {
  return ValueOf(records, Field);
}

bool PageFile::Read(std::string_view text, PageRecords& records) const {
  ValueOf(records, Field) = text;
  return true;
}

std::string PageList::Shown(const PageRecords& records) const {
  return WordAt(Words, static_cast<std::size_t>(ValueOf(records, Field)));
}

bool PageList::Read(std::string_view text, PageRecords& records) const {
  const std::size_t index = IndexOf(Words, text);
  if (index == Words.size()) return false;
  ValueOf(records, Field) = static_cast<int>(index);
  return true;
}

std::string PageFlagList::Shown(const PageRecords& records) const {
  return WordAt(Words, ValueOf(records, Field) ? 1 : 0);
}

bool PageFlagList::Read(std::string_view text, PageRecords& records) const {
  ValueOf(records, Field) = IndexOf(Words, text) == 1;
  return true;
}

std::string PageWordList::Shown(const PageRecords& records) const {
  const std::size_t index = IndexOf(Words, ValueOf(records, Field));
  return WordAt(Words, index < Words.size() ? index : Other);
}

bool PageWordList::Read(std::string_view text, PageRecords& records) const {
  ValueOf(records, Field) = text;
  return true;
}

std::string PageWordCheck::Shown(const PageRecords& records) const {
  return YesOrNo(host::Contains(ValueOf(records, Field), Word));
}

bool PageWordCheck::Read(std::string_view text, PageRecords& records) const {
  if (text == kYes) ValueOf(records, Field) += std::string(Word) + ',';
  return true;
}

std::string PageImageSize::Shown(const PageRecords& records) const {
  return ImageSizeText(ValueOf(records, Width), ValueOf(records, Height));
}

bool PageImageSize::Read(std::string_view text, PageRecords& records) const {
  int width = 0;
  int height = 0;
  if (!ParseImageSize(text, width, height)) return false;
  ValueOf(records, Width) = width;
  ValueOf(records, Height) = height;
  return true;
}

std::string PageColor::Shown(const PageRecords& records) const {
  return ColorText(ValueOf(records, Field));
}

bool PageColor::Read(std::string_view text, PageRecords& records) const {
  ValueOf(records, Field) = ColorOf(text);
  return true;
}

std::string PageGammaColor::Shown(const PageRecords& records) const {
  return ColorText(GammaAdjustColor(ValueOf(records, Field), 1 / records.Render.RhinoGamma));
}

bool PageGammaColor::Read(std::string_view text, PageRecords& records) const {
  ValueOf(records, Field) = GammaAdjustColor(ColorOf(text), records.Render.RhinoGamma);
  return true;
}

std::string PageGammaColor::SettingOf(std::string_view text, const PageRecords& records) {
  const ON_Color color = ColorOf(text);
  const auto adjusted = [&records](double fraction) {
    return host::FormatG(ApplyGamma(fraction, records.Render.RhinoGamma));
  };
  return adjusted(color.FractionRed()) + ',' + adjusted(color.FractionGreen()) + ',' +
         adjusted(color.FractionBlue());
}

std::string PagePresets::Shown(const PageRecords& records) const {
  for (const Preset& preset : Presets) {
    if (preset.First == ValueOf(records, First) && preset.Second == ValueOf(records, Second)) {
      return std::string(preset.Name);
    }
  }
  return "Custom";
}

bool PagePresets::Read(std::string_view, PageRecords&) {
  return false;
}

const PagePresets::Preset& PagePresets::Named(std::string_view name) const {
  const auto isNamed = [name](const Preset& preset) { return preset.Name == name; };
  const auto found = std::find_if(Presets.begin(), Presets.end(), isNamed);
  return found == Presets.end() ? Presets.front() : *found;
}

}  // namespace orv
