#include "pages/material_controls.h"

#include <span>
#include <utility>

#include "pages/material_changes.h"
#include "pages/material_editor.h"
#include "pages/material_fields.h"
#include "pages/property_undo.h"

namespace orv {
namespace {

using Kind = CRhinoControlKind;
using Controls = std::vector<MaterialControl>;

std::string ChangeField(const MaterialField& field, MaterialEditor& editor, CRhinoDoc& doc,
                        std::string_view value) {
  MaterialAttributes change;
  std::string problem = field.Control.Read(value, change);
  if (!problem.empty()) return problem;
  change.*field.Control.Changed = true;
  const PropertyUndo undo(doc, kMaterialUndo);
  if (field.ForcesBasicMaterial(value)) editor.ForceBasicMaterial(doc);
  editor.Apply(doc, change);
  return {};
}

void AddFields(std::span<const MaterialField> fields, const MaterialEditor& shown,
               Controls& controls) {
  for (const MaterialField& field : fields) {
    controls.push_back(
        {field.Control.Control(shown.Current()),
         [&field](MaterialEditor& editor, CRhinoCommandContext& context, std::string_view value) {
           return ChangeField(field, editor, context.m_doc, value);
         }});
  }
}

// `action` takes the editor, the context and the value.
template <class Action>
void AddButton(std::string_view id, std::string_view label, Action action, Controls& controls) {
  controls.push_back(
      {MakeControl(id, label, Kind::button),
       [action](MaterialEditor& editor, CRhinoCommandContext& context, std::string_view value) {
         action(editor, context, value);
         return std::string();
       }});
}

// `action` takes the editor and whether it is ticked.
template <class Action>
void AddCheck(std::string_view id, std::string_view label, bool isTicked, Action action,
              Controls& controls) {
  controls.push_back(
      {MakeControl(id, label, Kind::check, PropertyText({}, isTicked)),
       [id, action](MaterialEditor& editor, CRhinoCommandContext&, std::string_view value) {
         bool isToBe = false;
         std::string problem = ReadPropertyText(id, value, {}, isToBe);
         if (problem.empty()) action(editor, isToBe);
         return problem;
       }});
}

void AddText(std::string_view id, std::string_view label, std::string_view value,
             Controls& controls) {
  controls.push_back({MakeControl(id, label, Kind::text, std::string(value)), {}});
}

void AddMaterialButtons(const MaterialEditor& shown, Controls& controls) {
  using Editor = MaterialEditor;
  using Context = CRhinoCommandContext;
  using Text = std::string_view;
  AddButton(
      "New", "New", [](Editor& e, Context& c, Text) { e.MakeNew(c.m_doc); }, controls);
  AddButton(
      "Copy", "Copy", [](Editor& e, Context&, Text) { e.Copy(); }, controls);
  AddButton(
      "Paste", "Paste", [](Editor& e, Context& c, Text) { e.Paste(c.m_doc); }, controls);
  AddButton(
      "Load", "Load", [](Editor& e, Context& c, Text path) { e.Load(c, path); }, controls);
  AddButton(
      "Save", "Save", [](Editor& e, Context& c, Text path) { e.Save(c, path); }, controls);
  AddCheck(
      "ForceBasicMaterial", "Force basic material", shown.IsBasicForced(),
      [](Editor& e, bool isForced) { e.SetBasicForced(isForced); }, controls);
  AddButton(
      "SelectMatching", "Select matching",
      [](Editor& e, Context& c, Text) { SelectMatchingObjects(c.m_doc, e.Current()); }, controls);
}

// While an interactive render runs, there is no preview.
void AddPreview(const MaterialEditor& shown, Controls& controls) {
  AddCheck(
      "Preview", "Preview", shown.IsPreviewOn(),
      [](MaterialEditor& editor, bool isOn) { editor.SwitchPreview(isOn); }, controls);
  controls.back().Control.IsEnabled = shown.HasPreview();
  AddText("Picture", "Picture", shown.Picture(), controls);
  controls.back().Control.IsShown = shown.HasPreview();
}

std::string SwitchSlot(MaterialEditor& editor, std::string_view value) {
  std::vector<std::string_view> kinds;
  for (const MaterialSlot& slot : MaterialSlots()) kinds.push_back(slot.Fields.Kind);
  int slot = static_cast<int>(editor.ActiveSlot());
  std::string problem = ReadPropertyText("ActiveSlot", value, {.Choices = kinds}, slot);
  if (problem.empty()) editor.SwitchTo(static_cast<std::size_t>(slot));
  return problem;
}

void AddActiveSlot(const MaterialEditor& shown, Controls& controls) {
  CRhinoControl control = MakeControl("ActiveSlot", "Active slot:", Kind::list,
                                      std::string(MaterialSlots()[shown.ActiveSlot()].Fields.Kind));
  for (const MaterialSlot& slot : MaterialSlots()) {
    control.Choices.emplace_back(slot.Fields.Kind);
  }
  controls.push_back(
      {std::move(control), [](MaterialEditor& editor, CRhinoCommandContext&,
                              std::string_view value) { return SwitchSlot(editor, value); }});
}

std::string ChooseListed(MaterialEditor& editor, CRhinoDoc& doc, std::size_t slot,
                         std::string_view value) {
  const MaterialSlot& place = MaterialSlots()[slot];
  const CatalogueRow* row = FindShader(place, value);
  if (row == nullptr) {
    return std::string(place.Fields.Kind) + " has no '" + std::string(value) + "' in its list.";
  }
  editor.ChooseListed(doc, slot, *row);
  return {};
}

void AddSlots(const MaterialEditor& shown, Controls& controls) {
  AddActiveSlot(shown, controls);
  for (std::size_t i = 0; i < kMaterialSlotCount; ++i) {
    const MaterialSlot& slot = MaterialSlots()[i];
    CRhinoControl list = MakeControl(slot.Fields.Kind, slot.Label, Kind::list,
                                     ShownShader(slot, shown.ShaderName(i)));
    list.Choices = ShaderChoices(slot);
    controls.push_back({std::move(list), [i](MaterialEditor& editor, CRhinoCommandContext& context,
                                             std::string_view value) {
                          return ChooseListed(editor, context.m_doc, i, value);
                        }});
    AddButton(
        "Choose" + std::string(slot.Fields.Kind), "..",
        [i](MaterialEditor& editor, CRhinoCommandContext& context, std::string_view value) {
          editor.ChooseFile(context, i, value);
        },
        controls);
  }
}

std::string ChangeRow(MaterialEditor& editor, CRhinoCommandContext& context, std::size_t row,
                      std::size_t part, std::string_view value) {
  const std::size_t param = editor.Rows().Shown()[row];
  if (part == MaterialRows::kValue) return editor.ChangeParam(context.m_doc, param, value);
  if (part == MaterialRows::kCaption) {
    editor.ToggleGroup(context.m_doc, param);
  } else {
    editor.PickParam(context, param, value);
  }
  return {};
}

void AddRows(const MaterialEditor& shown, Controls& controls) {
  std::vector<CRhinoControl> rows =
      shown.Rows().Controls(MaterialSlots()[shown.ActiveSlot()].Fields.Kind);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::size_t row = i / MaterialRows::kPartCount;
    const std::size_t part = i % MaterialRows::kPartCount;
    controls.push_back(
        {std::move(rows[i]), [row, part](MaterialEditor& editor, CRhinoCommandContext& context,
                                         std::string_view value) {
           return ChangeRow(editor, context, row, part, value);
         }});
  }
}

}  // namespace

std::vector<MaterialControl> MaterialControls(const MaterialEditor& editor) {
  Controls controls;
  AddText("MaterialSource", "", editor.SourceCaption(), controls);
  AddFields(MaterialNameFields(), editor, controls);
  AddMaterialButtons(editor, controls);
  AddFields(MaterialLookFields(), editor, controls);
  AddPreview(editor, controls);
  AddSlots(editor, controls);
  AddFields(MaterialShapeFields(), editor, controls);
  AddRows(editor, controls);
  return controls;
}

}  // namespace orv
