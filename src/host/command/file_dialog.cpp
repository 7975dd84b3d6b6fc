#include "host/command/file_dialog.h"

#include "host/command/get_option.h"
#include "host/command/get_string.h"
#include "host/system/environment.h"
#include "host/system/file.h"
#include "host/system/path.h"
#include "host/system/text.h"

namespace {

// The extension of the patterns "*.rib" and "*.*", with its point.
std::string_view PatternExtension(std::string_view pattern) {
  return pattern.starts_with('*') ? pattern.substr(1) : pattern;
}

bool TakesEveryFile(const CRhinoFileFilter& filter) {
  return std::string_view(filter.Pattern).starts_with("*.*");
}

// The row whose pattern is that of the path's extension; the row that was chosen at first when
// there is none.
int FittingFilter(const CRhinoFileDialog& dialog, std::string_view path) {
  const std::string extension = host::SplitPath(path).Extension;
  if (extension.size() < 2) return dialog.FilterIndex;
  for (std::size_t i = 0; i < dialog.Filters.size(); ++i) {
    const CRhinoFileFilter& filter = dialog.Filters[i];
    if (TakesEveryFile(filter)) continue;
    if (host::EqualNoCase(PatternExtension(filter.Pattern), extension)) {
      return static_cast<int>(i) + 1;
    }
  }
  return dialog.FilterIndex;
}

bool IsAbsolute(std::string_view path) {
  return path.starts_with('/') || path.starts_with('\\') || !host::SplitPath(path).Drive.empty();
}

// The path that a person means: "~" is the home folder, a relative path stands in `folder`.
std::string FullPath(std::string_view folder, std::string_view typed) {
  if (typed == "~" || typed.starts_with("~/")) {
    return host::EnvironmentValue("HOME").value_or("~") + std::string(typed.substr(1));
  }
  if (IsAbsolute(typed)) return std::string(typed);
  return host::AppendPath(folder, typed);
}

// Asks for a path. Empty when it was cancelled.
std::string AskForPath(CRhinoCommandContext& context, const CRhinoFileDialog& dialog) {
  CRhinoGetString get(context);
  get.SetCommandPrompt(dialog.Folder.empty() ? dialog.Title
                                             : dialog.Title + " (in " + dialog.Folder + ")");
  if (!dialog.FileName.empty()) get.SetDefaultString(dialog.FileName);
  get.TakePath(dialog.Folder);
  if (get.GetString() != CRhinoGet::Result::string) return {};
  if (get.String().empty() || get.String() == dialog.FileName) return get.String();
  return FullPath(dialog.Folder, get.String());
}

// Why no file can be written at `path`; empty when nothing speaks against it.
std::string Objection(const std::string& path) {
  if (host::FolderExists(path)) return "'" + path + "' is a folder.";
  const host::PathParts parts = host::SplitPath(path);
  const std::string folder = parts.Drive + parts.Folder;
  if (!parts.Folder.empty() && !host::FolderExists(folder)) {
    return "There is no folder '" + folder + "'.";
  }
  return NameObjection(path);
}

enum class Overwrite { yes, no, cancelled };

Overwrite AskToOverwrite(CRhinoCommandContext& context, const std::string& path) {
  CRhinoGetOption get(context);
  get.SetCommandPrompt(path + " exists. Replace it?");
  get.SetCommandPromptDefault("No");
  get.AcceptNothing();
  const int yes = get.AddCommandOption("Yes");
  get.AddCommandOption("No");
  switch (get.GetOption()) {
    case CRhinoGet::Result::option:
      return get.OptionIndex() == yes ? Overwrite::yes : Overwrite::no;
    case CRhinoGet::Result::nothing:
      return Overwrite::no;
    default:
      return Overwrite::cancelled;
  }
}

}  // namespace

std::string NameObjection(std::string_view path) {
  if (!host::SplitPath(path).Base.empty()) return {};
  return "'" + std::string(path) + "' has no name before its extension.";
}

std::optional<CRhinoFileChoice> GetOpenFileName(CRhinoCommandContext& context,
                                                const CRhinoFileDialog& dialog) {
  for (;;) {
    std::string path = AskForPath(context, dialog);
    if (path.empty()) return std::nullopt;
    if (host::FileExists(path)) return CRhinoFileChoice{path, FittingFilter(dialog, path)};
    if (!context.m_input.Refuse("There is no file '" + path + "'.")) return std::nullopt;
  }
}

std::optional<CRhinoFileChoice> GetSaveFileName(CRhinoCommandContext& context,
                                                const CRhinoFileDialog& dialog) {
  for (;;) {
    std::string path = AskForPath(context, dialog);
    if (path.empty()) return std::nullopt;
    if (const std::string objection = Objection(path); !objection.empty()) {
      if (!context.m_input.Refuse(objection)) return std::nullopt;
      continue;
    }
    if (host::FileExists(path)) {
      const Overwrite answer = AskToOverwrite(context, path);
      if (answer == Overwrite::cancelled) return std::nullopt;
      if (answer == Overwrite::no) continue;
    }
    return CRhinoFileChoice{path, FittingFilter(dialog, path)};
  }
}
