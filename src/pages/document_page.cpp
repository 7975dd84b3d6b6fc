#include "pages/document_page.h"

#include "host/command/command_option.h"
#include "pages/control_value.h"

namespace orv {
namespace {

constexpr std::string_view kAskForFile = "...";

// The key by which a control is known; empty when it has none of its own.
template <class Control>
std::string KeyOfControl(const Control& control) {
  if constexpr (requires { control.Word; }) {
    return std::string(KeyOf(control.Field)) + '.' + std::string(control.Word);
  } else if constexpr (requires { control.Field; }) {
    return std::string(KeyOf(control.Field));
  } else {
    return {};
  }
}

template <class Control>
std::vector<std::string> ChoicesOf(const Control& control, CRhinoDoc& doc) {
  std::vector<std::string> choices;
  if constexpr (requires { control.Names; }) {
    choices = control.Names(doc);
  } else if constexpr (requires { control.Presets; }) {
    for (const auto& preset : control.Presets) choices.emplace_back(preset.Name);
  } else if constexpr (requires { control.Choices(); }) {
    choices.assign(control.Choices().begin(), control.Choices().end());
  }
  return choices;
}

// Writes the key of a control, when it is one of the document.
struct KeyWriter {
  const PageRecords& Records;
  std::string_view Text;
  ON_UserStringList& List;

  void operator()(const PageGammaColor& color) const {
    List.SetUserString(KeyOf(color.Field), PageGammaColor::SettingOf(Text, Records));
  }
  template <class Control>
  void operator()(const Control& control) const {
    if constexpr (requires { control.Field; }) {
      constexpr std::size_t kOfTheDocument = 0;
      if (control.Field.index() != kOfTheDocument) return;
      List.SetUserString(KeyOf(control.Field), SettingText(ValueOf(Records, control.Field)));
    }
  }
};

bool ReadRow(const PageRow& row, std::string_view text, PageRecords& records) {
  return std::visit([&](const auto& control) { return control.Read(text, records); }, row.Is);
}

// Texts that are put together of several controls begin empty.
void EmptyWordTexts(std::span<const PageRow> rows, PageRecords& records) {
  for (const PageRow& row : rows) {
    if (const auto* word = std::get_if<PageWordCheck>(&row.Is)) {
      ValueOf(records, word->Field).clear();
    }
  }
}

std::string AskForName(CRhinoCommandContext& context, const PageFile& file, UserValues& user,
                       CRhinoControl& control) {
  const bool asked =
      AskForFile(context, *file.Question, user, control.Value) == CommandResult::success;
  return asked ? std::string() : control.Id + " has got no file's name.";
}

}  // namespace

void StoreRenderPage(CSceneOutPlugIn& plugIn, const PageRecords& records) {
  plugIn.StoreSettings(records.Render);
}

void DocumentPage::Open(CRhinoDoc& doc) {
  const PageRecords records = LoadPageRecords(plug_in_);
  controls_.clear();
  for (const PageRow& row : table_.Rows) {
    CRhinoControl& shown = controls_.emplace_back();
    shown.Label = row.Label;
    std::visit(
        [&](const auto& control) {
          shown.Id = row.Id.empty() ? KeyOfControl(control) : std::string(row.Id);
          shown.Kind = control.Kind();
          shown.Value = control.Shown(records);
          shown.Choices = ChoicesOf(control, doc);
        },
        row.Is);
  }
  ShowAndEnable();
}

std::string DocumentPage::Change(CRhinoCommandContext& context, std::string_view control,
                                 std::string_view value) {
  const int found = FindControl(controls_, control);
  if (found < 0) {
    return std::string(Title()) + " has no control '" + std::string(control) + "'.";
  }
  const auto row = static_cast<std::size_t>(found);
  const std::string before = controls_[row].Value;
  std::string problem = ChangeRow(context, row, value);
  if (controls_[row].Value == before) return problem;
  ShowAndEnable();
  if (table_.Rows[row].Live) table_.SendLive(plug_in_.Live(), Read().Render);
  return problem;
}

std::string DocumentPage::ChangeRow(CRhinoCommandContext& context, std::size_t row,
                                    std::string_view value) {
  const PageRow::Control& control = table_.Rows[row].Is;
  if (const auto* button = std::get_if<PageButton>(&control)) return Press(context, *button, value);
  if (const auto* file = std::get_if<PageFile>(&control); file != nullptr && value == kAskForFile) {
    return AskForName(context, *file, plug_in_.User(), controls_[row]);
  }
  std::string problem = SetControlValue(controls_[row], value);
  const auto* presets = std::get_if<PagePresets>(&control);
  if (presets != nullptr && problem.empty()) SetPreset(*presets, controls_[row].Value);
  return problem;
}

std::string DocumentPage::Press(CRhinoCommandContext& context, const PageButton& button,
                                std::string_view value) {
  if (!value.empty()) {
    context.m_input.AnswerNextPrompt({Answer::Kind::text, std::string(value), true});
  }
  const CommandResult result = button.Press(context, plug_in_);
  Open(context.m_doc);
  return result == CommandResult::success ? std::string() : "It was not done.";
}

void DocumentPage::SetPreset(const PagePresets& presets, std::string_view name) {
  const PagePresets::Preset& preset = presets.Named(name);
  SetNumber(presets.First, preset.First);
  SetNumber(presets.Second, preset.Second);
}

void DocumentPage::SetNumber(const PageField<int>& field, int value) {
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    const auto* number = std::get_if<PageInteger>(&table_.Rows[i].Is);
    if (number != nullptr && number->Field == field) controls_[i].Value = SettingText(value);
  }
}

PageRecords DocumentPage::Read() const {
  PageRecords records = LoadPageRecords(plug_in_);
  EmptyWordTexts(table_.Rows, records);
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    ReadRow(table_.Rows[i], controls_[i].Value, records);
  }
  return records;
}

void DocumentPage::ShowAndEnable() {
  const RenderSettings settings = Read().Render;
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    controls_[i].IsShown = table_.Rows[i].Shown.Holds(settings);
    controls_[i].IsEnabled = table_.Rows[i].Enabled.Holds(settings);
  }
}

void DocumentPage::Accept(CRhinoDoc&) {
  if (table_.Store != nullptr) {
    table_.Store(plug_in_, Read());
    return;
  }
  PageRecords records = LoadPageRecords(plug_in_);
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    const PageRow& row = table_.Rows[i];
    const std::string& text = controls_[i].Value;
    if (!ReadRow(row, text, records)) continue;
    std::visit(KeyWriter{records, text, plug_in_.UserStrings()}, row.Is);
  }
  plug_in_.User() = records.User;
}

}  // namespace orv
