#include <algorithm>
#include <utility>

#include "host/document/app.h"

// Editing the document, undo and redo.

void CRhinoDoc::Change(DocState state) {
  const auto kept = std::make_shared<DocState>(std::move(state));
  DocStates states(*this, CRhinoTableEvent::added);
  const CRhinoTableEvent event = states.Exchange(*kept);
  states.Settle();
  undo_.Add(kept);
  states.Raise(event, *kept);
}

bool CRhinoDoc::ModifyObjectAttributes(CRhinoObject& object,
                                       const ON_3dmObjectAttributes& attributes) {
  if (&object.doc_ != this || object.IsDeleted()) return false;
  AttributesState state{object.serial_number_, attributes};
  state.attributes.m_uuid = object.attributes_.m_uuid;
  Change(std::move(state));
  return true;
}

int CRhinoDoc::MaterialToEdit(const CRhinoObject& object) {
  const int index = object.ObjectMaterial().MaterialIndex();
  const int layer_index = object.Attributes().m_layer_index;
  const ON_Layer* layer = m_layer_table.At(layer_index);
  const bool is_of_layer = object.Attributes().MaterialSource() == ON_AttributeSource::layer;
  if (index >= 0 || !is_of_layer || layer == nullptr) return index;
  ON_Layer changed = *layer;
  changed.SetRenderMaterialIndex(
      m_material_table.AddMaterial(RhinoApp().AppSettings().DefaultMaterial()));
  return m_layer_table.ModifyLayer(changed, layer_index) ? changed.RenderMaterialIndex() : -1;
}

unsigned CRhinoDoc::BeginUndoRecord(std::string_view caption) {
  return undo_.Begin(caption);
}

bool CRhinoDoc::EndUndoRecord(unsigned number) {
  return undo_.End(number);
}

bool CRhinoDoc::Undo() {
  if (!MayReplay() || !undo_.UndoCaption()) return false;
  Replay(undo_.MoveToRedoable(), true);
  return true;
}

bool CRhinoDoc::Redo() {
  if (!MayReplay() || !undo_.RedoCaption()) return false;
  Replay(undo_.MoveToUndoable(), false);
  return true;
}

bool CRhinoDoc::MayReplay() const {
  return !undo_.IsOpen() && !RhinoApp().EventWatchers()->IsRaising();
}

// Takes the states by value: what a watcher changes may end the record.
void CRhinoDoc::Replay(UndoStates record, bool backwards) {
  if (backwards) std::reverse(record.begin(), record.end());
  DocStates states(*this, CRhinoTableEvent::undeleted);
  std::vector<CRhinoTableEvent> events;
  for (const auto& state : record) events.push_back(states.Exchange(*state));
  states.Settle();
  for (std::size_t i = 0; i < record.size(); ++i) states.Raise(events[i], *record[i]);
}

std::optional<std::string> CRhinoDoc::UndoCaption() const {
  return undo_.UndoCaption();
}

std::optional<std::string> CRhinoDoc::RedoCaption() const {
  return undo_.RedoCaption();
}

void CRhinoDoc::DeselectUnselectable() {
  if (selected_count_ == 0) return;
  for (const auto* list : {&objects_, &lights_}) {
    for (const auto& object : *list) object->DeselectUnlessSelectable();
  }
}
