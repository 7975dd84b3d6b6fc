#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/command/dialog_page.h"
#include "jobs/file_picker.h"
#include "pages/page_choices.h"
#include "pages/page_records.h"
#include "settings/setting_text.h"

// The kinds of controls of which the tables of pages are made. Each has
//   Kind      what a front shows,
//   Choices   what it offers,
//   Shown     the text for what the records hold,
//   Read      takes a text into the records; false when it leaves the stored value.
namespace orv {

struct PageCheck {
  PageField<bool> Field;

  static CRhinoControlKind Kind() { return CRhinoControlKind::check; }
  std::string Shown(const PageRecords& records) const;
  bool Read(std::string_view text, PageRecords& records) const;
};

// 2 for a tick, 0 for none, 1 for what is neither.
struct PageThreeState {
  PageField<int> Field;

  static CRhinoControlKind Kind() { return CRhinoControlKind::three_state; }
  std::string Shown(const PageRecords& records) const;
  bool Read(std::string_view text, PageRecords& records) const;
};

// An integer by the digits at the start of the text, 0 for any other text, held to the page's
// bounds. An empty text and one out of an int's range leave the stored value.
struct PageInteger {
  PageField<int> Field;
  SettingBounds Bounds;
  PageWords Suggested{};

  CRhinoControlKind Kind() const;
  PageWords Choices() const { return Suggested; }
  std::string Shown(const PageRecords& records) const;
  bool Read(std::string_view text, PageRecords& records) const;
};

// A number, 0 for a text that is none, held to the page's bounds. One out of a double's range
// leaves the stored value.
struct PageNumber {
  enum class Kept { whole, single_precision };

  PageField<double> Field;
  SettingBounds Bounds;
  PageWords Suggested{};
  Kept Precision = Kept::whole;

  CRhinoControlKind Kind() const;
  PageWords Choices() const { return Suggested; }
  std::string Shown(const PageRecords& records) const;
  bool Read(std::string_view text, PageRecords& records) const;
};

struct PageText {
  PageField<std::string> Field;
  PageWords Suggested{};
  std::size_t MostBytes = std::string::npos;

  CRhinoControlKind Kind() const;
  PageWords Choices() const { return Suggested; }
  std::string Shown(const PageRecords& records) const;
  bool Read(std::string_view text, PageRecords& records) const;
};

// A text for which names in the document are suggested.
struct PageName {
  PageField<std::string> Field;
  std::vector<std::string> (*Names)(CRhinoDoc& doc);

  static CRhinoControlKind Kind() { return CRhinoControlKind::combo; }
  std::string Shown(const PageRecords& records) const;
  bool Read(std::string_view text, PageRecords& records) const;
};

struct PageFile {
  PageField<std::string> Field;
  const FileQuestion* Question;

  static CRhinoControlKind Kind() { return CRhinoControlKind::path; }
  std::string Shown(const PageRecords& records) const;
  bool Read(std::string_view text, PageRecords& records) const;
};

// One of the words, counted from 0.
struct PageList {
  PageField<int> Field;
  PageWords Words;

  static CRhinoControlKind Kind() { return CRhinoControlKind::list; }
  PageWords Choices() const { return Words; }
  std::string Shown(const PageRecords& records) const;
  bool Read(std::string_view text, PageRecords& records) const;
};

// The second of two words when the field is true.
struct PageFlagList {
  PageField<bool> Field;
  PageWords Words;

  static CRhinoControlKind Kind() { return CRhinoControlKind::list; }
  PageWords Choices() const { return Words; }
  std::string Shown(const PageRecords& records) const;
  bool Read(std::string_view text, PageRecords& records) const;
};

// One of the words, which the field holds; one that is no such word, in any case, counts as the
// word with the number Other.
struct PageWordList {
  PageField<std::string> Field;
  PageWords Words;
  std::size_t Other = 0;

  static CRhinoControlKind Kind() { return CRhinoControlKind::list; }
  PageWords Choices() const { return Words; }
  std::string Shown(const PageRecords& records) const;
  bool Read(std::string_view text, PageRecords& records) const;
};

// A word of the text "Diffuse,Depth,", to which the words that are ticked are added in the order of
// the rows; the text is empty before the first one.
struct PageWordCheck {
  PageField<std::string> Field;
  std::string_view Word;

  static CRhinoControlKind Kind() { return CRhinoControlKind::check; }
  std::string Shown(const PageRecords& records) const;
  bool Read(std::string_view text, PageRecords& records) const;
};

// "640 x 480", see ParseImageSize.
struct PageImageSize {
  PageField<int> Width;
  PageField<int> Height;
  PageWords Suggested;

  static CRhinoControlKind Kind() { return CRhinoControlKind::combo; }
  PageWords Choices() const { return Suggested; }
  std::string Shown(const PageRecords& records) const;
  bool Read(std::string_view text, PageRecords& records) const;
};

struct PageColor {
  PageField<ON_Color> Field;

  static CRhinoControlKind Kind() { return CRhinoControlKind::color; }
  std::string Shown(const PageRecords& records) const;
  bool Read(std::string_view text, PageRecords& records) const;
};

// A colour whose shown fractions are those of the field raised to 1 / RhinoGamma.
struct PageGammaColor {
  PageField<ON_Color> Field;

  static CRhinoControlKind Kind() { return CRhinoControlKind::color; }
  std::string Shown(const PageRecords& records) const;
  bool Read(std::string_view text, PageRecords& records) const;
  // The text form of the setting, whose fractions are not cut to steps of 1/255.
  static std::string SettingOf(std::string_view text, const PageRecords& records);
};

// A list that sets the texts of two numbers of the page, and itself is not stored.
struct PagePresets {
  struct Preset {
    std::string_view Name;
    int First, Second;
  };
  PageField<int> First;
  PageField<int> Second;
  std::span<const Preset> Presets;

  static CRhinoControlKind Kind() { return CRhinoControlKind::list; }
  // "Custom" when no preset has the values.
  std::string Shown(const PageRecords& records) const;
  static bool Read(std::string_view text, PageRecords& records);
  // The preset of a name among the choices.
  const Preset& Named(std::string_view name) const;
};

// Does what a command does; a value answers its first question.
struct PageButton {
  CommandResult (*Press)(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn);

  static CRhinoControlKind Kind() { return CRhinoControlKind::button; }
  static std::string Shown(const PageRecords&) { return {}; }
  static bool Read(std::string_view, PageRecords&) { return false; }
};

}  // namespace orv
