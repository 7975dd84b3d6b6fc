#include "jobs/option_table.h"

#include <vector>

#include "host/command/get_option.h"

namespace orv {
namespace {

// Adds a row's option to the getter.
struct OptionAdder {
  CRhinoGetOption& Get;
  RenderSettings& Settings;
  std::string_view Title;

  int operator()(OptionRow::Toggle field) const {
    return Get.AddCommandOptionToggle(Title, "No", "Yes", &(Settings.*field));
  }
  int operator()(const OptionRow::List& list) const {
    return Get.AddCommandOptionList(Title, list.Words, &(Settings.*list.Field));
  }
  int operator()(const OptionRow::Color& color) const {
    return Get.AddCommandOptionColor(Title, &(Settings.*color.Field), color.Prompt);
  }
  int operator()(const OptionRow::Integer& row) const {
    return Get.AddCommandOptionInteger(Title, &(Settings.*row.Field), row.Prompt, row.Minimum,
                                       row.Maximum);
  }
  int operator()(const OptionRow::Number& row) const {
    return Get.AddCommandOptionNumber(Title, &(Settings.*row.Field), row.Prompt, row.Minimum,
                                      row.Maximum);
  }
  int operator()(const OptionRow::Name& name) const {
    return Get.AddCommandOption(Title, Settings.*name.Field);
  }
  int operator()(const OptionRow::File& file) const {
    return Get.AddCommandOption(Title, Settings.*file.Field);
  }
  int operator()(const OptionRow::Action& action) const {
    return Get.AddCommandOption(Title, action.Shown(Settings));
  }
};

// Carries out the pick of a row's option.
struct OptionPicker {
  const OptionEdit& Edit;

  CommandResult operator()(const OptionRow::Name& name) const {
    return AskForFileName(Edit.Context, name.Prompt, Edit.Settings.*name.Field);
  }
  CommandResult operator()(const OptionRow::File& file) const {
    return AskForFile(Edit.Context, *file.Question, Edit.PlugIn.User(), Edit.Settings.*file.Field);
  }
  CommandResult operator()(const OptionRow::Action& action) const { return action.Pick(Edit); }
  // The other options have changed their fields themselves.
  template <class Bound>
  CommandResult operator()(const Bound&) const {
    return CommandResult::success;
  }
};

// Adds the options that the settings show; their rows in the same order.
std::vector<const OptionRow*> AddOptions(CRhinoGetOption& get, const OptionTable& table,
                                         RenderSettings& settings) {
  std::vector<const OptionRow*> rows;
  for (const OptionRow& row : table.Rows) {
    if (row.Mode != OptionRow::kAlways && settings.*table.Mode != row.Mode) continue;
    std::visit(OptionAdder{get, settings, row.Title}, row.Kind);
    rows.push_back(&row);
  }
  return rows;
}

}  // namespace

CommandResult EditOptionTable(const OptionEdit& edit, const OptionTable& table) {
  CRhinoGetOption get(edit.Context);
  get.SetCommandPrompt(table.Prompt);
  get.AcceptNothing();
  for (;;) {
    get.ClearCommandOptions();
    const std::vector<const OptionRow*> rows = AddOptions(get, table, edit.Settings);
    const CRhinoGet::Result result = get.GetOption();
    if (result == CRhinoGet::Result::nothing) return CommandResult::success;
    if (result == CRhinoGet::Result::cancel) return CommandResult::cancel;
    if (result != CRhinoGet::Result::option) return CommandResult::failure;
    const auto index = static_cast<std::size_t>(get.OptionIndex()) - 1;
    const CommandResult picked = std::visit(OptionPicker{edit}, rows[index]->Kind);
    if (picked != CommandResult::success) return picked;
  }
}

}  // namespace orv
