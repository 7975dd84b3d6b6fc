#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/command/command.h"
#include "host/command/dialog_page.h"
#include "jobs/file_picker.h"

// What all property pages do with their controls.
namespace orv {

// The RIB archive that something is drawn as.
inline constexpr FileQuestion kRibFileQuestion{{"Choose RIB File", "RIB Files;*.rib;All file;*.*;"},
                                               FileQuestion::Dialog::open,
                                               {},
                                               &UserValues::ArchiveDir};

CRhinoControl MakeControl(std::string_view id, std::string_view label, CRhinoControlKind kind,
                          std::string value = {});

// The position of the control that a user wants to change. -1, and what is wrong in `problem`, when
// there is none of the name, or it is hidden, disabled or only to be read.
int ControlToChange(const std::vector<CRhinoControl>& controls, std::string_view name,
                    std::string& problem);

// The value of a path that is to be asked for.
inline constexpr std::string_view kAskForFile = "...";

// Asks for a file, with a dialog that proposes `file` or in a script with a prompt. False when none
// was told.
[[nodiscard]] bool AskForPath(CRhinoCommandContext& context, const FileQuestion& question,
                              UserValues& user, std::string& file);
// The file that a button's value tells or, when that is empty, that is asked for.
[[nodiscard]] bool ChooseFile(CRhinoCommandContext& context, const FileQuestion& question,
                              UserValues& user, std::string_view value, std::string& file);

}  // namespace orv
