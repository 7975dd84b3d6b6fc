#include "jobs/file_picker.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "host/command/get_string.h"
#include "host/system/file.h"
#include "host/system/path.h"
#include "host/system/text.h"
#include "jobs/orv_home.h"

namespace orv {
namespace {

// What follows the "*" of a pattern: ".rib" of "*.rib".
std::string_view PatternExtension(std::string_view pattern) {
  return pattern.substr(std::min<std::size_t>(pattern.size(), 1));
}

std::string FolderOf(std::string_view file) {
  const host::PathParts parts = host::SplitPath(file);
  return parts.Drive + parts.Folder;
}

bool Exists(std::string_view path) {
  return host::FileExists(path) || host::FolderExists(path);
}

CRhinoFileDialog DialogFor(const FilePicker& picker, const std::string& folder,
                           const std::string& file) {
  CRhinoFileDialog dialog;
  dialog.Title = picker.Title;
  dialog.Filters = FileFiltersFromText(picker.Filter);
  dialog.FilterIndex = FileFilterIndex(dialog.Filters, file);
  dialog.Folder = folder.empty() ? FolderOf(file) : folder;
  if (Exists(file)) dialog.FileName = file;
  return dialog;
}

// The chosen path with the extension of the chosen row, unless that takes every file or there is no
// such row.
std::string WithChosenExtension(const CRhinoFileDialog& dialog, const CRhinoFileChoice& choice) {
  const auto row = static_cast<std::size_t>(choice.FilterIndex) - 1;
  if (row >= dialog.Filters.size()) return choice.Path;
  const std::string& pattern = dialog.Filters[row].Pattern;
  if (pattern.starts_with("*.*")) return choice.Path;
  host::PathParts parts = host::SplitPath(choice.Path);
  parts.Extension = PatternExtension(pattern);
  return host::JoinPath(parts);
}

std::string WithBackslashes(std::string path) {
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

}  // namespace

std::vector<CRhinoFileFilter> FileFiltersFromText(std::string_view text) {
  std::vector<CRhinoFileFilter> filters;
  std::optional<std::string_view> description;
  for (std::size_t end = text.find(';'); end != std::string_view::npos; end = text.find(';')) {
    const std::string_view field = text.substr(0, end);
    text.remove_prefix(end + 1);
    if (description) {
      filters.push_back({std::string(*description), std::string(field)});
      description.reset();
    } else {
      description = field;
    }
  }
  return filters;
}

int FileFilterIndex(const std::vector<CRhinoFileFilter>& filters, std::string_view file) {
  const std::string extension = host::SplitPath(file).Extension;
  for (std::size_t i = 0; i < filters.size(); ++i) {
    const std::string_view pattern = PatternExtension(filters[i].Pattern);
    if (!pattern.empty() && host::EqualNoCase(pattern, extension)) return static_cast<int>(i) + 1;
  }
  return 1;
}

bool PickFileToOpen(CRhinoCommandContext& context, const FilePicker& picker, std::string& folder,
                    std::string& file) {
  const auto choice = GetOpenFileName(context, DialogFor(picker, folder, file));
  if (!choice) return false;
  file = choice->Path;
  folder = FolderOf(file);
  return true;
}

bool PickFileToSave(CRhinoCommandContext& context, const FilePicker& picker, std::string& folder,
                    std::string& file) {
  CRhinoFileDialog dialog = DialogFor(picker, folder, file);
  for (;;) {
    const auto choice = GetSaveFileName(context, dialog);
    if (!choice) return false;
    std::string name = WithChosenExtension(dialog, *choice);
    if (name == choice->Path || !host::FileExists(name)) {
      file = std::move(name);
      folder = FolderOf(file);
      return true;
    }
    // The dialog has not asked whether that file may be replaced.
    dialog.FileName = std::move(name);
  }
}

CommandResult AskForFileName(CRhinoCommandContext& context, std::string_view prompt,
                             std::string& file) {
  CRhinoGetString get(context);
  get.SetCommandPrompt(prompt);
  get.AcceptNothing();
  get.TakePath();
  if (get.GetString() != CRhinoGet::Result::string) return get.CommandResult();
  file = get.String();
  return CommandResult::success;
}

CommandResult AskForFile(CRhinoCommandContext& context, const FileQuestion& question,
                         UserValues& user, std::string& file) {
  if (context.IsInteractive()) {
    const auto pick =
        question.Shown == FileQuestion::Dialog::open ? PickFileToOpen : PickFileToSave;
    std::string picked = WithBackslashes(file);
    if (pick(context, question.Picker, user.*question.Folder, picked)) file = picked;
    return CommandResult::success;
  }
  std::string typed;
  const CommandResult asked = AskForFileName(context, question.Prompt, typed);
  if (asked == CommandResult::success) file = WithBackslashes(ExpandOrvHome(typed));
  return asked;
}

}  // namespace orv
