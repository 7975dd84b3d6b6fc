#include "program.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "host/command/command_runner.h"
#include "host/command/export_file.h"
#include "host/command/guarded_call.h"
#include "host/command/plugin.h"
#include "host/command/terminal_input.h"
#include "host/document/app.h"
#include "host/system/file.h"
#include "host/system/interrupt.h"
#include "host/system/path.h"
#include "host/system/profile.h"

namespace {

constexpr std::uint64_t kMaxScriptBytes = std::uint64_t{64} << 20;
constexpr const char* kModuleName = "RhinoOrv5_x64.rhp";

void PrintError(std::string_view message) {
  std::fflush(stdout);
  std::fprintf(stderr, "orvhost: %.*s\n", static_cast<int>(message.size()), message.data());
}

// What comes from the standard input; nothing, with errno set, when it is too much or can't be
// read.
std::optional<std::string> ReadStandardInput() {
  std::string text;
  char buffer[65536];
  std::size_t count = 0;
  while ((count = std::fread(buffer, 1, sizeof buffer, stdin)) > 0) {
    text.append(buffer, count);
    if (text.size() > kMaxScriptBytes) {
      errno = EFBIG;
      return std::nullopt;
    }
  }
  if (std::ferror(stdin) != 0) return std::nullopt;
  return text;
}

// The module that is installed with this program; empty when there is none.
std::string InstalledModule() {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return {};
  const std::filesystem::path folder = program.parent_path();
  for (const auto& path :
       {folder / kModuleName, folder.parent_path() / "lib/rhinoorv" / kModuleName}) {
    if (host::FileExists(path.string())) return path.string();
  }
  return {};
}

std::string HistoryPath() {
  host::PathParts parts = host::SplitPath(host::DefaultProfilePath());
  if (parts.Base.empty()) return {};
  parts.Base = "history";
  parts.Extension.clear();
  return host::JoinPath(parts);
}

}  // namespace

int Program::Run() {
  ShowText();
  RhinoApp().CommandWindow().SetProgressSink(
      [this](const host::Progress* progress) { screen_.ShowProgress(progress); });
  if (!PrepareScripts() || !CheckExportFolder()) return static_cast<int>(CommandResult::failure);
  LoadProfile();
  CommandResult result = CommandResult::failure;
  if (LoadPlugIn()) {
    result = OpenModel() ? RunLoaded() : CommandResult::failure;
    EndPlugIn();
  }
  return static_cast<int>(result);
}

void Program::ShowText() {
  RhinoApp().CommandWindow().SetSink([this](std::string_view text) { screen_.Print(text); });
}

bool Program::PrepareScripts() {
  const auto add = [this](const std::optional<std::string>& text, const std::string& name) {
    if (!text) {
      PrintError("The script " + name + " can't be read: " + host::LastSystemError() + ".");
      return false;
    }
    scripts_.push_back(std::make_unique<ScriptInput>(*text, name));
    if (!scripts_.back()->Error().empty()) PrintError(scripts_.back()->Error());
    return scripts_.back()->Error().empty();
  };
  for (const Arguments::Script& script : arguments_.Scripts) {
    if (script.IsFile) {
      if (!add(host::ReadWholeFile(script.Text, kMaxScriptBytes), script.Text)) return false;
    } else if (!add(script.Text, "-c")) {
      return false;
    }
  }
  const bool told = !arguments_.Scripts.empty() || !arguments_.Export.empty();
  if (told || isatty(STDIN_FILENO) != 0) return true;
  return add(ReadStandardInput(), "standard input");
}

bool Program::CheckExportFolder() const {
  if (arguments_.Export.empty()) return true;
  host::PathParts parts = host::SplitPath(arguments_.Export);
  parts.Base.clear();
  parts.Extension.clear();
  const std::string folder = host::JoinPath(parts);
  if (folder.empty() || host::FolderExists(folder)) return true;
  PrintError("There is no folder '" + folder + "' to export to.");
  return false;
}

void Program::LoadProfile() {
  host::Profile profile(host::DefaultProfilePath());
  profile_loaded_ = profile.Load();
  if (!profile_loaded_) PrintError("The profile can't be read: " + profile.Error());
  RhinoApp().SetProfile(std::move(profile));
}

bool Program::LoadPlugIn() {
  const std::string path = arguments_.PlugIn.empty() ? InstalledModule() : arguments_.PlugIn;
  if (path.empty()) {
    PrintError(std::string("The plug-in module ") + kModuleName +
               " is neither beside this program nor in ../lib/rhinoorv; name it with --plugin.");
    return false;
  }
  std::string error;
  module_ = PlugInModule::Load(path, error);
  if (module_ != nullptr && registry_.AddPlugIn(module_->PlugIn())) return true;
  PrintError(module_ == nullptr ? error : "The plug-in of " + path + " refused to load.");
  return false;
}

bool Program::OpenModel() {
  if (arguments_.Model.empty()) return true;
  // What is told while opening is an error message when the opening fails.
  std::string told;
  RhinoApp().CommandWindow().SetSink([&told](std::string_view text) { told += text; });
  const bool opened = GuardedCall("Opening " + arguments_.Model, false,
                                  [this] { return RhinoApp().OpenDocument(arguments_.Model); });
  ShowText();
  if (opened) {
    RhinoApp().Print(told);
  } else {
    while (told.ends_with('\n')) told.pop_back();
    PrintError(told);
  }
  return opened;
}

CommandResult Program::RunLoaded() {
  host::CatchInterrupts();
  const bool told = !scripts_.empty() || !arguments_.Export.empty();
  if (!told) return RunPrompt();
  const CommandResult result = RunScripts();
  const bool stopped = std::any_of(scripts_.begin(), scripts_.end(),
                                   [](const auto& script) { return !script->Error().empty(); });
  if (stopped || arguments_.Export.empty()) return result;
  return std::max(result, RunExport());
}

CommandResult Program::RunScripts() {
  CommandResult worst = CommandResult::success;
  for (const auto& script : scripts_) {
    if (commands_.ExitRequested()) break;
    if (arguments_.KeepGoing) script->KeepGoing(PrintError);
    CommandRunner runner(registry_, *script);
    worst = std::max(worst, runner.RunAll(commands_.ExitRequested()));
    if (!script->Error().empty()) PrintError(script->Error());
    if (script->HasFailed() && !host::InterruptRequested()) worst = CommandResult::failure;
    if (!script->Error().empty()) break;
  }
  return worst;
}

CommandResult Program::RunExport() const {
  const CommandResult result =
      ExportFile(registry_, RhinoApp().ActiveDoc(), arguments_.Export, false);
  if (host::InterruptRequested()) PrintError("Interrupted.");
  return result;
}

CommandResult Program::RunPrompt() {
  TerminalInput input(HistoryPath());
  CommandRunner runner(registry_, input);
  runner.RunAll(commands_.ExitRequested());
  // A person has seen how each command ended.
  return CommandResult::success;
}

void Program::EndPlugIn() {
  registry_.RemovePlugIn(module_->PlugIn());
  if (!profile_loaded_) return;
  if (!RhinoApp().ProfileContext().Save()) {
    PrintError("The profile can't be written: " + RhinoApp().ProfileContext().Error());
  }
}
