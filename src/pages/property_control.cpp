#include "pages/property_control.h"

#include <utility>

namespace orv {

CRhinoControl MakeControl(std::string_view id, std::string_view label, CRhinoControlKind kind,
                          std::string value) {
  CRhinoControl control;
  control.Id = id;
  control.Label = label;
  control.Kind = kind;
  control.Value = std::move(value);
  return control;
}

int ControlToChange(const std::vector<CRhinoControl>& controls, std::string_view name,
                    std::string& problem) {
  const int index = FindControl(controls, name);
  if (index < 0) {
    problem = "There is no '" + std::string(name) + "' on this page.";
    return -1;
  }
  const CRhinoControl& control = controls[static_cast<std::size_t>(index)];
  const bool isFree = control.IsShown && control.IsEnabled;
  if (isFree && control.Kind != CRhinoControlKind::text) return index;
  problem = "'" + std::string(name) + "' can't be changed now.";
  return -1;
}

bool AskForPath(CRhinoCommandContext& context, const FileQuestion& question, UserValues& user,
                std::string& file) {
  const FilePicker& picker = question.Picker;
  if (!context.IsInteractive()) {
    return AskForFileName(context, picker.Title, file) == CommandResult::success;
  }
  const auto pick = question.Shown == FileQuestion::Dialog::open ? PickFileToOpen : PickFileToSave;
  return pick(context, picker, user.*question.Folder, file);
}

bool ChooseFile(CRhinoCommandContext& context, const FileQuestion& question, UserValues& user,
                std::string_view value, std::string& file) {
  if (value.empty() || value == kAskForFile) return AskForPath(context, question, user, file);
  file = value;
  return true;
}

}  // namespace orv
