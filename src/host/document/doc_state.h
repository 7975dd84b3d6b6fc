#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "host/document/event_watcher.h"
#include "host/geometry/on_object_attributes.h"
#include "host/geometry/on_tables.h"

// The state of one thing of a document, kept while the document has another one.

struct MaterialState {
  int index;
  // Nothing: the table has no material at `index` yet.
  std::optional<ON_Material> material;
};

struct LayerState {
  int index;
  ON_Layer layer;
};

struct LightState {
  int index;
  std::shared_ptr<ON_Geometry> light;
  bool deleted = false;
};

struct AttributesState {
  unsigned serial_number;
  ON_3dmObjectAttributes attributes;
};

using DocState = std::variant<MaterialState, LayerState, LightState, AttributesState>;

// Two states with the same subject are states of the same thing.
using DocSubject = std::pair<std::size_t, std::int64_t>;
DocSubject SubjectOf(const DocState& state);

// What a change of this kind is called when it is undone by itself: "Material change", ...
std::string_view ChangeCaption(const DocState& state);

// Exchanges states of a document with kept ones: a change, its undoing and its redoing are the same
// step. First all states of the step are exchanged, then Settle is called, then Raise for each.
class DocStates {
 public:
  // `arrival` is what a material or light that comes into its table is: added or undeleted.
  DocStates(CRhinoDoc& doc, CRhinoTableEvent arrival) : doc_(doc), arrival_(arrival) {}

  // Puts `state` into the document and gives back in it what was there before. A state of a thing
  // that there isn't changes nothing.
  CRhinoTableEvent Exchange(DocState& state);
  // Deselects what can't be selected any more after all exchanges.
  void Settle();
  // Tells the watchers of a change. `before` is the state that it replaced.
  void Raise(CRhinoTableEvent event, const DocState& before);

 private:
  CRhinoTableEvent Exchange(MaterialState& state);
  CRhinoTableEvent Exchange(LayerState& state);
  CRhinoTableEvent Exchange(LightState& state);
  CRhinoTableEvent Exchange(AttributesState& state);
  void Tell(CRhinoEventWatcher& watcher, CRhinoTableEvent event, const MaterialState& before);
  void Tell(CRhinoEventWatcher& watcher, CRhinoTableEvent event, const LayerState& before);
  void Tell(CRhinoEventWatcher& watcher, CRhinoTableEvent event, const LightState& before);
  void Tell(CRhinoEventWatcher& watcher, CRhinoTableEvent event, const AttributesState& before);

  CRhinoDoc& doc_;
  CRhinoTableEvent arrival_;
  // What Settle looks at: the objects with other attributes and the lights that came or went or,
  // after layers have changed, all.
  std::vector<CRhinoObject*> changed_objects_;
  bool layers_changed_ = false;
};
