#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "host/command/command.h"
#include "jobs/file_picker.h"
#include "jobs/plugin.h"
#include "settings/render_settings.h"

// Options of the render settings at the prompt, as tables.
namespace orv {

// What the pick of an option works on.
struct OptionEdit {
  CRhinoCommandContext& Context;
  CSceneOutPlugIn& PlugIn;
  RenderSettings& Settings;
};

// An option. The bounds of its numbers are those of the prompt, not those that hold when the
// setting is read.
struct OptionRow {
  using Toggle = bool RenderSettings::*;
  struct List {
    int RenderSettings::*Field;
    std::span<const std::string_view> Words;
  };
  struct Color {
    ON_Color RenderSettings::*Field;
    std::string_view Prompt;
  };
  struct Integer {
    int RenderSettings::*Field;
    int Minimum, Maximum;
    std::string_view Prompt;
  };
  struct Number {
    double RenderSettings::*Field;
    double Minimum, Maximum;
    std::string_view Prompt;
  };
  // A name that is asked for with a prompt.
  struct Name {
    std::string RenderSettings::*Field;
    std::string_view Prompt;
  };
  // A file that is asked for with a dialog, or in the scripted form with a prompt.
  struct File {
    std::string RenderSettings::*Field;
    const FileQuestion* Question;
  };
  // Anything else: what the option shows as its value, and what its pick does. A result that is no
  // success ends the editing.
  struct Action {
    std::string (*Shown)(const RenderSettings& settings);
    CommandResult (*Pick)(const OptionEdit& edit);
  };

  static constexpr int kAlways = -1;

  std::string_view Title;
  std::variant<Toggle, List, Color, Integer, Number, Name, File, Action> Kind;
  // The mode of the table's setting in which the option is shown.
  int Mode = kAlways;
};

struct OptionTable {
  std::string_view Prompt;
  std::span<const OptionRow> Rows;
  // The setting that tells which rows are shown; null when all are.
  int RenderSettings::*Mode = nullptr;
};

// Lets the user change the table's options one by one, until Enter. Success when they were
// accepted; cancel, failure, or what a prompt in between has ended with.
[[nodiscard]] CommandResult EditOptionTable(const OptionEdit& edit, const OptionTable& table);

}  // namespace orv
