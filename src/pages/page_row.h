#pragma once

#include <initializer_list>
#include <span>
#include <string_view>
#include <variant>

#include "pages/page_controls.h"

// A page of the document's properties as data.
namespace orv {

// In which modes something holds: the modes of a field as bits. Without a field it always holds.
struct PageCondition {
  int RenderSettings::*Mode = nullptr;
  unsigned Modes = 0;

  bool Holds(const RenderSettings& settings) const {
    return Mode == nullptr || (Modes >> settings.*Mode & 1U) != 0;
  }
};
constexpr PageCondition In(int RenderSettings::*mode, std::initializer_list<unsigned> modes) {
  PageCondition condition{mode};
  for (const unsigned one : modes) condition.Modes |= 1U << one;
  return condition;
}
inline constexpr PageCondition kAlways{};
inline constexpr PageCondition kNever{&RenderSettings::GiMode, 0};

// A control of a page, in the order in which the page reads them.
struct PageRow {
  using Control =
      std::variant<PageCheck, PageThreeState, PageInteger, PageNumber, PageText, PageName, PageFile,
                   PageList, PageFlagList, PageWordList, PageWordCheck, PageImageSize, PageColor,
                   PageGammaColor, PagePresets, PageButton>;

  std::string_view Label;
  Control Is;
  PageCondition Shown = kAlways;
  PageCondition Enabled = kAlways;
  // The page's live statement is sent when the control changes.
  bool Live = false;
  // What the control is called when it isn't by the key of its field.
  std::string_view Id{};
};

struct DocumentPageTable {
  using StoreRecord = void (*)(CSceneOutPlugIn& plugIn, const PageRecords& records);

  std::string_view Title;
  std::span<const PageRow> Rows;
  // Stores what was read. Null for a page that writes the keys of its own controls only, each by
  // itself.
  StoreRecord Store = nullptr;
  // What a live session is sent.
  void (*SendLive)(InteractiveRender& live, const RenderSettings& settings) = nullptr;
};

// Stores the record of the render settings.
void StoreRenderPage(CSceneOutPlugIn& plugIn, const PageRecords& records);

}  // namespace orv
