// How the material page's shaders and their parameters are chosen.

#include <algorithm>
#include <utility>

#include "host/document/app.h"
#include "host/system/file.h"
#include "jobs/plugin.h"
#include "pages/material_changes.h"
#include "pages/material_editor.h"
#include "pages/material_row_pick.h"
#include "pages/material_row_value.h"
#include "pages/property_control.h"
#include "pages/property_selection.h"
#include "pages/property_undo.h"
#include "shading/dark_tree.h"
#include "shading/shader_call.h"
#include "shading/shader_file.h"
#include "shading/shader_path.h"

namespace orv {

void MaterialEditor::ChooseListed(CRhinoDoc& doc, std::size_t slot, const CatalogueRow& row) {
  if (row.ShaderName == "null" || row.ShaderName == "Rhino") {
    const PropertyUndo undo(doc, kMaterialUndo);
    ForceBasicMaterial(doc);
    StoreShader(doc, slot, row.ShaderName == "null" ? std::string_view() : kHostShader);
    RefreshParams();
    return;
  }
  const std::string path = ListedShaderPath(row.ShaderName);
  if (host::FileExists(path)) TakeShader(doc, slot, path, true);
}

void MaterialEditor::ChooseFile(CRhinoCommandContext& context, std::size_t slot,
                                std::string_view value) {
  const FileQuestion question{
      MaterialSlots()[slot].Picker, FileQuestion::Dialog::open, {}, &UserValues::ShaderDir};
  std::string file = ListedShaderPath(shader_names_[slot]);
  std::replace(file.begin(), file.end(), '/', '\\');
  if (!orv::ChooseFile(context, question, plug_in_.User(), value, file)) return;
  TakeShader(context.m_doc, slot, file, false);
}

void MaterialEditor::TakeShader(CRhinoDoc& doc, std::size_t slot, const std::string& path,
                                bool isListed) {
  const MaterialSlot& place = MaterialSlots()[slot];
  std::string call;
  std::string kind;
  if (!ReadShaderFile(path, call, kind)) return;
  if (kind != place.Fields.Kind) {
    RhinoApp().Print(place.WrongKind);
    return;
  }
  const PropertyUndo undo(doc, kMaterialUndo);
  ForceBasicMaterial(doc);
  // A metal from the list is to reflect smoothly.
  if (isListed && slot == kSurface && ShaderNameOf(call) == "VMetal") {
    SetFloatParam(call, "ReflectionSamples", 4);
  }
  StoreShader(doc, slot, call);
  SwitchTo(slot);
}

void MaterialEditor::StoreShader(CRhinoDoc& doc, std::size_t slot, std::string_view call) {
  const ShaderSlot& fields = MaterialSlots()[slot].Fields;
  MaterialAttributes change;
  change.*fields.Call = call;
  change.*fields.CallChanged = true;
  (change.*fields.Layout).clear();
  change.*fields.LayoutChanged = true;
  Apply(doc, change);
}

void MaterialEditor::ToggleGroup(CRhinoDoc& doc, std::size_t index) {
  const ShaderSlot& fields = MaterialSlots()[state_.ActiveSlot].Fields;
  MaterialAttributes change;
  change.*fields.Layout = current_.*fields.Layout;
  rows_.Toggle(index, change.*fields.Layout);
  change.*fields.LayoutChanged = true;
  Apply(doc, change);
}

std::string MaterialEditor::ChangeParam(CRhinoDoc& doc, std::size_t index, std::string_view value) {
  ShaderParam& param = rows_.Draft().Params[index];
  RowReading reading = ReadRowValue(value, param);
  // A colour of a displacement is shown, but not stored.
  const bool isOnlyShown = state_.ActiveSlot == kDisplacement && param.Kind == ParamKind::Color;
  if (reading.IsCommitted && !isOnlyShown) Commit(doc, false);
  return std::move(reading.Problem);
}

void MaterialEditor::PickParam(CRhinoCommandContext& context, std::size_t index,
                               std::string_view value) {
  CRhinoDoc& doc = context.m_doc;
  const RowPick pick = RowPickOf(rows_.Draft().Params[index]);
  const CRhinoObject* first = FirstSelectedTarget(doc, PropertyTarget::objects);
  if (!PickRowValue(context, plug_in_, first, value, index, rows_.Draft())) return;
  Commit(doc, RefreshesTweaks(pick));
  if (RefreshesTweaks(pick)) RefreshParams();
}

void MaterialEditor::Commit(CRhinoDoc& doc, bool refreshesTweaks) {
  const ShaderSlot& fields = MaterialSlots()[state_.ActiveSlot].Fields;
  MaterialAttributes change;
  std::string& call = change.*fields.Call;
  call = rows_.Draft().CallText();
  if (refreshesTweaks && state_.ActiveSlot != kInstancer) RefreshDarkTreeTweaks(call);
  change.*fields.CallChanged = true;
  Apply(doc, change);
}

}  // namespace orv
