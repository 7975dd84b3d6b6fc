#include "pages/material_rows.h"

#include <algorithm>

#include "host/system/text.h"
#include "pages/material_row_pick.h"
#include "pages/material_row_value.h"

namespace orv {
namespace {

using Kind = CRhinoControlKind;

// Does something with each row that the group of `head` shows when it is open.
template <class Action>
void ForGroup(std::vector<ShaderParam>& params, std::size_t head, const Action& action) {
  for (std::size_t i = head + 1; i < params.size() && params[i].Label.starts_with(' '); ++i) {
    if (!params[i].AlwaysHidden) action(params[i]);
  }
}

std::string_view CaptionMark(const std::vector<ShaderParam>& params, std::size_t index) {
  if (!params[index].GroupHead) return "    ";
  std::size_t next = index + 1;
  if (next < params.size() && params[next].AlwaysHidden) ++next;
  if (next >= params.size()) return "  ";
  return params[next].Collapsed ? "+ " : "- ";
}

CRhinoControl CaptionControl(const std::vector<ShaderParam>& params, std::size_t index) {
  CRhinoControl control;
  control.Label = RowCaption(params, index);
  control.Kind = params[index].GroupHead ? Kind::button : Kind::text;
  return control;
}

CRhinoControl ValueControl(const ShaderParam& param) {
  CRhinoControl control;
  control.Label = host::Trimmed(param.Label);
  control.Kind = param.Kind == ParamKind::Color ? Kind::color : Kind::combo;
  control.Value = RowValue(param);
  control.Choices = RowChoices(param);
  return control;
}

CRhinoControl PickControl(const ShaderParam& param) {
  CRhinoControl control;
  control.Label = "..";
  control.Kind = Kind::button;
  control.IsShown = RowPickOf(param) != RowPick::none;
  return control;
}

// Adds a row's controls under their ids.
void AddRow(const std::string& id, CRhinoControl caption, CRhinoControl value, CRhinoControl pick,
            std::vector<CRhinoControl>& controls) {
  caption.Id = id + ".Caption";
  value.Id = id;
  pick.Id = id + ".Choose";
  controls.insert(controls.end(), {std::move(caption), std::move(value), std::move(pick)});
}

// The parameter's name; those after the first of a name have a number, as "Ka#2".
std::string RowName(const std::vector<ShaderParam>& params, std::size_t index) {
  const auto end = params.begin() + static_cast<std::ptrdiff_t>(index);
  const auto before = std::count_if(params.begin(), end, [&](const ShaderParam& param) {
    return param.Name == params[index].Name;
  });
  return params[index].Name + (before == 0 ? "" : "#" + std::to_string(before + 1));
}

}  // namespace

std::string RowCaption(const std::vector<ShaderParam>& params, std::size_t index) {
  return std::string(CaptionMark(params, index)) + params[index].Label;
}

void MaterialRows::Read(std::string_view call, std::string_view layout, double gamma) {
  draft_ = ShaderDraft(call, gamma);
  std::vector<ShaderParam>& params = draft_.Params;
  for (std::size_t i = 0; i < params.size() && i < layout.size(); ++i) {
    if (!params[i].GroupHead || layout[i] != '-') continue;
    ForGroup(params, i, [](ShaderParam& member) { member.Collapsed = false; });
  }
}

std::vector<std::size_t> MaterialRows::Shown() const {
  std::vector<std::size_t> shown;
  for (std::size_t i = 0; i < draft_.Params.size() && shown.size() < kMostRows; ++i) {
    if (!draft_.Params[i].Collapsed) shown.push_back(i);
  }
  return shown;
}

void MaterialRows::Toggle(std::size_t index, std::string& layout) {
  bool isOpen = false;
  ForGroup(draft_.Params, index, [&isOpen](ShaderParam& member) {
    member.Collapsed = !member.Collapsed;
    isOpen = !member.Collapsed;
  });
  if (layout.size() <= index) layout.resize(index + 1, ' ');
  layout[index] = isOpen ? '-' : '+';
}

std::vector<CRhinoControl> MaterialRows::Controls(std::string_view slot) const {
  std::vector<CRhinoControl> controls;
  const std::vector<ShaderParam>& params = draft_.Params;
  for (const std::size_t index : Shown()) {
    AddRow(std::string(slot) + '.' + RowName(params, index), CaptionControl(params, index),
           ValueControl(params[index]), PickControl(params[index]), controls);
  }
  return controls;
}

}  // namespace orv
