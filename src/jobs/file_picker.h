#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/command/command.h"
#include "host/command/file_dialog.h"
#include "settings/user_values.h"

// The plug-in's dialogs that choose a file.
namespace orv {

// What a picker shows.
struct FilePicker {
  std::string_view Title;
  // Descriptions and patterns, each followed by ";": "RIB Files (*.rib);*.rib;All Files;*.*;".
  std::string_view Filter;
};

// The images that maps are made of.
inline constexpr std::string_view kImageFilter =
    "All files;*.*;Orv Texture Maps (*.tx);*.tx;Portable Network Graphics (*.png);*.png;"
    "JPEG Interchange Format (*.jpg);*.jpg;Tagged Image File Format (*.tif);*.tif;"
    "Radiance HDR (*.hdr);*.hdr; Photoshop File Format (*.psd);*.psd;"
    "SGI Image Format (*.sgi);*.sgi;IES Light Profiles (*.ies);*.ies;";

// Asks for an existing file. `folder` is where the dialog starts (the folder of `file` when it is
// empty), `file` the name that it proposes when there is such a file. True when a file was chosen;
// `file` is then its name and `folder` its folder. False leaves both as they are.
[[nodiscard]] bool PickFileToOpen(CRhinoCommandContext& context, const FilePicker& picker,
                                  std::string& folder, std::string& file);

// Asks for a file to write, otherwise as PickFileToOpen. The name's extension is replaced by that
// of the chosen filter, unless that filter takes every file: "set v1.2" becomes "set v1.ors". When
// there is a file of the name that comes of it, the dialog is shown again with that name.
[[nodiscard]] bool PickFileToSave(CRhinoCommandContext& context, const FilePicker& picker,
                                  std::string& folder, std::string& file);

// Asks for a file's name with a prompt, as a script answers it. Success; otherwise what the command
// is to give back.
[[nodiscard]] CommandResult AskForFileName(CRhinoCommandContext& context, std::string_view prompt,
                                           std::string& file);

// How a command asks for a file: with a dialog when a person runs it, with a prompt in its scripted
// form.
struct FileQuestion {
  enum class Dialog { open, save };

  FilePicker Picker;
  Dialog Shown = Dialog::open;
  std::string_view Prompt;
  // Where the dialog starts.
  std::string UserValues::*Folder = nullptr;
};

// Asks for a file. Success with the old name when the dialog was cancelled; a prompt that was not
// answered gives what the command is to give back.
//
// What is typed at the prompt may begin with $ORVHOME, and gets backslashes. The dialog is shown
// with backslashes, too, but what it gives stays as it is.
[[nodiscard]] CommandResult AskForFile(CRhinoCommandContext& context, const FileQuestion& question,
                                       UserValues& user, std::string& file);

// The rows of a filter text. A description without a pattern is dropped.
std::vector<CRhinoFileFilter> FileFiltersFromText(std::string_view text);

// The row whose pattern has the file's extension, counted from 1; 1 when there is none.
int FileFilterIndex(const std::vector<CRhinoFileFilter>& filters, std::string_view file);

}  // namespace orv
