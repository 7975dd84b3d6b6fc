#pragma once

#include <algorithm>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "jobs/plugin.h"
#include "pages/property_control.h"
#include "pages/property_row.h"
#include "pages/property_selection.h"

namespace orv {

// A page whose controls are fields of the selected lights or objects: it shows those of the first
// one, and each change is stored at once in all.
template <class Record, class Mark>
class PropertyPage : public CRhinoDialogPage {
 public:
  using Row = PropertyRow<Record, Mark>;

  std::string_view Title() const override { return title_; }
  bool IsOffered(CRhinoDoc& doc) const override {
    return FirstSelectedTarget(doc, target_) != nullptr;
  }

  void Open(CRhinoDoc& doc) override {
    const CRhinoObject* first = FirstSelectedTarget(doc, target_);
    record_ = first == nullptr ? Record() : ReadRecord(*first);
    not_taken_.clear();
  }

  std::vector<CRhinoControl> Controls() const override {
    std::vector<CRhinoControl> controls;
    for (const Row& row : rows_) {
      CRhinoControl& control = controls.emplace_back(row.Control(record_));
      if (const auto typed = not_taken_.find(row.Id); typed != not_taken_.end()) {
        control.Value = typed->second;
      }
    }
    return controls;
  }

  // A number that the field has already is not stored, and one that can't be read only shown. A
  // path that is told or, for "...", chosen in a dialog ticks the check that says that it is used.
  std::string Change(CRhinoCommandContext& context, std::string_view control,
                     std::string_view value) override {
    const std::vector<CRhinoControl> controls = Controls();
    std::string problem;
    const int index = ControlToChange(controls, control, problem);
    if (index < 0) return problem;
    // Each row is one control.
    const Row& row = rows_[static_cast<std::size_t>(index)];
    if (row.Rule.File == nullptr) return ChangeField(context.m_doc, row, value);
    ChangePath(context, row, value);
    return {};
  }

  // Nothing is left to store.
  void Accept(CRhinoDoc&) override {}

 protected:
  PropertyPage(CSceneOutPlugIn& plugIn, std::string_view title, PropertyTarget target,
               std::span<const Row> rows)
      : plug_in_(plugIn), title_(title), target_(target), rows_(rows) {}

  CSceneOutPlugIn& PlugIn() const { return plug_in_; }
  // What the page shows.
  Record& Shown() { return record_; }
  std::vector<CRhinoObject*> Targets(CRhinoDoc& doc) const { return SelectedTargets(doc, target_); }

  virtual Record ReadRecord(const CRhinoObject& object) const = 0;
  // Stores the field of a row, as it is shown, in all targets.
  virtual void Store(CRhinoDoc& doc, const Row& row) = 0;

 private:
  std::string ChangeField(CRhinoDoc& doc, const Row& row, std::string_view value) {
    Record changed = record_;
    std::string problem = row.Read(value, changed);
    const bool isTyped = row.Kind == CRhinoControlKind::combo;
    not_taken_.erase(row.Id);
    if (!problem.empty()) {
      if (isTyped) not_taken_[row.Id] = value;
      return problem;
    }
    if (isTyped && row.IsSame(changed, record_)) return {};
    record_ = std::move(changed);
    Store(doc, row);
    return {};
  }

  // Stores the path, and then that it is used.
  void ChangePath(CRhinoCommandContext& context, const Row& row, std::string_view value) {
    std::string file = row.Control(record_).Value;
    if (value != kAskForFile) {
      file = value;
    } else if (!AskForPath(context, *row.Rule.File, plug_in_.User(), file)) {
      return;
    }
    ChangeField(context.m_doc, row, file);
    if (file.empty()) return;
    const auto check = std::find_if(rows_.begin(), rows_.end(),
                                    [&row](const Row& one) { return one.Id == row.Rule.UsedBy; });
    if (check != rows_.end()) ChangeField(context.m_doc, *check, "Yes");
  }

  CSceneOutPlugIn& plug_in_;
  std::string_view title_;
  PropertyTarget target_;
  std::span<const Row> rows_;
  Record record_{};
  // Typed texts that are no numbers, by the id of their control.
  std::map<std::string_view, std::string> not_taken_;
};

}  // namespace orv
