#include "pages/material_editor.h"

#include "host/document/doc.h"
#include "jobs/plugin.h"
#include "pages/material_changes.h"
#include "pages/property_selection.h"
#include "pages/property_undo.h"
#include "settings/settings_store.h"
#include "shading/shader_call.h"

namespace orv {
namespace {

std::string_view CaptionOf(ON_AttributeSource source) {
  switch (source) {
    case ON_AttributeSource::layer:
      return "Layer material";
    case ON_AttributeSource::object:
      return "Basic material";
    case ON_AttributeSource::parent:
      return "Parent material";
    default:
      return " ";
  }
}

}  // namespace

MaterialEditor::MaterialEditor(CSceneOutPlugIn& plugIn)
    : plug_in_(plugIn), state_(plugIn.MaterialPages()), preview_(plugIn, *this) {}

double MaterialEditor::Gamma() const {
  return static_cast<double>(StoredRhinoGamma(plug_in_.UserStrings()));
}

void MaterialEditor::ShowPicture(std::string_view path) {
  picture_ = path;
  PrintedPreview::ShowPicture(path);
}

bool MaterialEditor::HasPreview() const {
  return !plug_in_.Live().IsRunning();
}

bool MaterialEditor::ReadFirst(CRhinoDoc& doc) {
  const CRhinoObject* first = FirstSelectedTarget(doc, PropertyTarget::objects);
  if (first == nullptr) return false;
  source_caption_ = CaptionOf(first->Attributes().MaterialSource());
  current_ = ReadMaterialAttributes(*first);
  return true;
}

void MaterialEditor::RefreshPage(CRhinoDoc& doc) {
  const bool isRead = ReadFirst(doc);
  RefreshParams();
  if (isRead) preview_.RenderPreview(current_, is_preview_on_);
}

void MaterialEditor::RefreshParams() {
  for (std::size_t slot = 0; slot < kMaterialSlotCount; ++slot) {
    const std::string& call = current_.*MaterialSlots()[slot].Fields.Call;
    // Without a displacement its list stays as it is.
    if (slot == kDisplacement && call.empty()) continue;
    shader_names_[slot] = ShaderNameOf(call);
  }
  const ShaderSlot& active = MaterialSlots()[state_.ActiveSlot].Fields;
  rows_.Read(current_.*active.Call, current_.*active.Layout, Gamma());
}

void MaterialEditor::SwitchTo(std::size_t slot) {
  state_.ActiveSlot = slot;
  RefreshParams();
}

void MaterialEditor::SwitchPreview(bool isOn) {
  is_preview_on_ = isOn;
  preview_.RenderPreview(current_, is_preview_on_);
}

void MaterialEditor::Apply(CRhinoDoc& doc, const MaterialAttributes& change) {
  TakeChanges(change, current_);
  StoreMaterialChange(doc, change);
  preview_.RenderPreview(current_, is_preview_on_);
  SendMaterialChange(doc, change, plug_in_.Live());
}

void MaterialEditor::ForceBasicMaterial(CRhinoDoc& doc) {
  if (!state_.IsBasicForced || !GiveNewMaterials(doc, NewMaterialsFor::objectsWithoutTheirOwn))
    return;
  ReadFirst(doc);
  RefreshParams();
}

void MaterialEditor::MakeNew(CRhinoDoc& doc) {
  if (GiveNewMaterials(doc, NewMaterialsFor::allObjects)) RefreshPage(doc);
}

void MaterialEditor::Copy() {
  state_.Clipboard = current_;
}

void MaterialEditor::Paste(CRhinoDoc& doc) {
  Replace(doc, state_.Clipboard);
}

void MaterialEditor::Replace(CRhinoDoc& doc, const MaterialAttributes& other) {
  const PropertyUndo undo(doc, kMaterialUndo);
  ForceBasicMaterial(doc);
  current_ = other;
  Apply(doc, WithAllMarks(other));
  RefreshParams();
}

}  // namespace orv
