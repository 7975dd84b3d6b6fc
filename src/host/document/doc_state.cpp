#include "host/document/doc_state.h"

#include <array>

#include "host/document/app.h"

DocSubject SubjectOf(const DocState& state) {
  struct Number {
    std::int64_t operator()(const MaterialState& material) const { return material.index; }
    std::int64_t operator()(const LayerState& layer) const { return layer.index; }
    std::int64_t operator()(const LightState& light) const { return light.index; }
    std::int64_t operator()(const AttributesState& object) const { return object.serial_number; }
  };
  return {state.index(), std::visit(Number(), state)};
}

std::string_view ChangeCaption(const DocState& state) {
  constexpr std::array<std::string_view, std::variant_size_v<DocState>> kCaptions = {
      "Material change", "Layer change", "Light change", "Object change"};
  return kCaptions[state.index()];
}

CRhinoTableEvent DocStates::Exchange(DocState& state) {
  return std::visit([this](auto& kept) { return Exchange(kept); }, state);
}

CRhinoTableEvent DocStates::Exchange(MaterialState& state) {
  std::vector<ON_Material>& materials = doc_.m_material_table.records_;
  const auto index = static_cast<std::size_t>(state.index);
  if (!state.material && index + 1 == materials.size()) {
    state.material = std::move(materials.back());
    materials.pop_back();
    return CRhinoTableEvent::deleted;
  }
  if (state.material && index == materials.size()) {
    materials.push_back(std::move(*state.material));
    state.material.reset();
    return arrival_;
  }
  if (state.material && index < materials.size()) std::swap(materials[index], *state.material);
  return CRhinoTableEvent::modified;
}

CRhinoTableEvent DocStates::Exchange(LayerState& state) {
  CRhinoLayerTable& table = doc_.m_layer_table;
  if (table.At(state.index) != nullptr && table.Exchange(state.index, state.layer)) {
    doc_.ForgetWhatIsShown();
    layers_changed_ = true;
  }
  return CRhinoTableEvent::modified;
}

CRhinoTableEvent DocStates::Exchange(LightState& state) {
  CRhinoObject& light = *doc_.lights_[static_cast<std::size_t>(state.index)];
  std::swap(light.geometry_, state.light);
  if (light.deleted_ == state.deleted) return CRhinoTableEvent::modified;
  std::swap(light.deleted_, state.deleted);
  ++doc_.content_number_;
  changed_objects_.push_back(&light);
  return light.deleted_ ? CRhinoTableEvent::deleted : arrival_;
}

CRhinoTableEvent DocStates::Exchange(AttributesState& state) {
  const auto found = doc_.by_serial_number_.find(state.serial_number);
  if (found != doc_.by_serial_number_.end()) {
    CRhinoObject* object = found->second;
    const bool wasVisible = object->IsVisible();
    std::swap(object->attributes_, state.attributes);
    object->edited_ = true;
    if (object->IsVisible() != wasVisible || object->IsInstanceDefinitionGeometry()) {
      doc_.ForgetWhatIsShown();
    }
    changed_objects_.push_back(object);
  }
  return CRhinoTableEvent::modified;
}

void DocStates::Settle() {
  if (layers_changed_) {
    doc_.DeselectUnselectable();
  } else {
    for (CRhinoObject* object : changed_objects_) object->DeselectUnlessSelectable();
  }
}

void DocStates::Raise(CRhinoTableEvent event, const DocState& before) {
  RhinoApp().EventWatchers()->Raise([&](CRhinoEventWatcher& watcher) {
    std::visit([&](const auto& kept) { Tell(watcher, event, kept); }, before);
  });
}

// Layers and objects stay, and no material goes while watchers are told. But a watcher that was
// called before may have put another material where one was deleted, or deleted a light, and all
// have heard of that already.
void DocStates::Tell(CRhinoEventWatcher& watcher, CRhinoTableEvent event,
                     const MaterialState& before) {
  const CRhinoMaterialTable& table = doc_.m_material_table;
  if (event == CRhinoTableEvent::deleted && table.At(before.index) != nullptr) return;
  watcher.MaterialTableEvent(event, table, before.index,
                             before.material ? &*before.material : nullptr);
}

void DocStates::Tell(CRhinoEventWatcher& watcher, CRhinoTableEvent event,
                     const LayerState& before) {
  watcher.LayerTableEvent(event, doc_.m_layer_table, before.index, &before.layer);
}

void DocStates::Tell(CRhinoEventWatcher& watcher, CRhinoTableEvent event,
                     const LightState& before) {
  const bool isThere = doc_.m_light_table.At(before.index) != nullptr;
  if (isThere == (event == CRhinoTableEvent::deleted)) return;
  const ON_Light* oldLight = before.deleted ? nullptr : ON_Light::Cast(before.light.get());
  watcher.LightTableEvent(event, doc_.m_light_table, before.index, oldLight);
}

void DocStates::Tell(CRhinoEventWatcher& watcher, CRhinoTableEvent, const AttributesState& before) {
  CRhinoObject* object = doc_.LookupObject(before.serial_number);
  if (object != nullptr) watcher.OnModifyObjectAttributes(doc_, *object, before.attributes);
}
