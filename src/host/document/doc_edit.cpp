#include <algorithm>
#include <utility>

#include "host/document/app.h"

// Editing the document, undo and redo.

void CRhinoDoc::Change(DocState state) {
  const auto kept = std::make_shared<DocState>(std::move(state));
  DocStates states(*this);
  const CRhinoTableEvent event = states.Exchange(*kept);
  undo_.Add(kept);
  states.Raise(event == CRhinoTableEvent::undeleted ? CRhinoTableEvent::added : event, *kept);
}

bool CRhinoDoc::ModifyObjectAttributes(CRhinoObject& object,
                                       const ON_3dmObjectAttributes& attributes) {
  if (&object.doc_ != this) return false;
  AttributesState state{object.serial_number_, attributes};
  state.attributes.m_uuid = object.attributes_.m_uuid;
  Change(std::move(state));
  return true;
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
  DocStates states(*this);
  std::vector<CRhinoTableEvent> events;
  for (const auto& state : record) events.push_back(states.Exchange(*state));
  for (std::size_t i = 0; i < record.size(); ++i) states.Raise(events[i], *record[i]);
}

std::optional<std::string> CRhinoDoc::UndoCaption() const {
  return undo_.UndoCaption();
}

std::optional<std::string> CRhinoDoc::RedoCaption() const {
  return undo_.RedoCaption();
}

void CRhinoDoc::OnVisibilityChanged() {
  visible_box_.reset();
  if (selected_count_ == 0) return;
  for (const auto* list : {&objects_, &lights_}) {
    for (const auto& object : *list) object->DeselectUnlessSelectable();
  }
}
