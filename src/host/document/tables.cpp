#include "host/document/tables.h"

#include <algorithm>
#include <memory>

#include "host/document/doc.h"
#include "host/document/new_id.h"
#include "host/system/text.h"

namespace {

constexpr std::string_view kPathSeparator = "::";

}  // namespace

CRhinoLayerTable::CRhinoLayerTable(std::vector<ON_Layer> layers, CRhinoDoc* doc)
    : CRhinoTable(std::move(layers)), doc_(doc) {
  by_id_.reserve(records_.size());
  for (int i = 0; i < Count(); ++i) {
    const ON_UUID& id = At(i)->m_id;
    if (!id.IsNil()) by_id_.emplace(id, i);
  }
  FindPlaces();
}

// Walks up from each layer until it meets one that is known, and then down again. A layer met twice
// on one way up closes a circle; it becomes the top of it.
void CRhinoLayerTable::FindPlaces() {
  enum class State : char { untouched, on_the_way, known };
  std::vector<State> states(records_.size(), State::untouched);
  places_.assign(records_.size(), {});
  std::vector<std::size_t> way;
  for (std::size_t start = 0; start < records_.size(); ++start) {
    std::size_t at = start;
    while (states[at] == State::untouched) {
      states[at] = State::on_the_way;
      way.push_back(at);
      const int parent = FindLayer(records_[at].m_parent_id);
      if (parent < 0 || states[static_cast<std::size_t>(parent)] == State::on_the_way) break;
      places_[at].parent = parent;
      at = static_cast<std::size_t>(parent);
    }
    for (; !way.empty(); way.pop_back()) {
      const std::size_t index = way.back();
      Place& place = places_[index];
      place.visible = records_[index].m_visible && IsLayerVisible(place.parent);
      place.locked = records_[index].m_locked || IsLayerLocked(place.parent);
      states[index] = State::known;
    }
  }
}

const CRhinoLayerTable::Place* CRhinoLayerTable::PlaceAt(int index) const {
  return At(index) == nullptr ? nullptr : &places_[static_cast<std::size_t>(index)];
}

int CRhinoLayerTable::FindLayer(const ON_UUID& id) const {
  const auto found = by_id_.find(id);
  return found == by_id_.end() ? -1 : found->second;
}

int CRhinoLayerTable::FindLayer(std::string_view name) const {
  int named = -1;
  for (int i = 0; i < Count(); ++i) {
    if (HasFullPath(i, name)) return i;
    if (named < 0 && host::EqualNoCase(At(i)->m_name, name)) named = i;
  }
  return named;
}

bool CRhinoLayerTable::HasFullPath(int index, std::string_view path) const {
  for (;;) {
    const std::size_t split = path.rfind(kPathSeparator);
    const bool isTop = split == std::string_view::npos;
    const std::string_view name = isTop ? path : path.substr(split + kPathSeparator.size());
    if (!host::EqualNoCase(At(index)->m_name, name)) return false;
    index = ParentOf(index);
    if (isTop || index < 0) return isTop && index < 0;
    path = path.substr(0, split);
  }
}

int CRhinoLayerTable::ParentOf(int index) const {
  const Place* place = PlaceAt(index);
  return place == nullptr ? -1 : place->parent;
}

bool CRhinoLayerTable::IsLayerVisible(int index) const {
  const Place* place = PlaceAt(index);
  return place == nullptr || place->visible;
}

bool CRhinoLayerTable::IsLayerLocked(int index) const {
  const Place* place = PlaceAt(index);
  return place != nullptr && place->locked;
}

std::string CRhinoLayerTable::FullPath(int index) const {
  std::vector<int> way;
  for (; At(index) != nullptr; index = ParentOf(index)) way.push_back(index);
  std::string path;
  for (; !way.empty(); way.pop_back()) {
    if (!path.empty()) path += kPathSeparator;
    path += At(way.back())->m_name;
  }
  return path;
}

bool CRhinoLayerTable::ModifyLayer(const ON_Layer& layer, int index) {
  const ON_Layer* present = At(index);
  if (doc_ == nullptr || present == nullptr) return false;
  LayerState state{index, layer};
  state.layer.m_id = present->m_id;
  doc_->Change(std::move(state));
  return true;
}

bool CRhinoLayerTable::Exchange(int index, ON_Layer& layer) {
  ON_Layer& present = records_[static_cast<std::size_t>(index)];
  std::swap(present, layer);
  if (present.m_visible == layer.m_visible && present.m_locked == layer.m_locked &&
      present.m_parent_id == layer.m_parent_id) {
    return false;
  }
  FindPlaces();
  return true;
}

CRhinoMaterialTable::CRhinoMaterialTable(std::vector<ON_Material> materials, CRhinoDoc* doc)
    : CRhinoTable(std::move(materials)), doc_(doc) {
  for (std::size_t i = 0; i < records_.size(); ++i) {
    records_[i].m_material_index = static_cast<int>(i);
  }
}

int CRhinoMaterialTable::FindMaterial(std::string_view name) const {
  const auto found = std::find_if(begin(), end(), [name](const ON_Material& material) {
    return !name.empty() && host::EqualNoCase(material.m_name, name);
  });
  return found == end() ? -1 : static_cast<int>(found - begin());
}

int CRhinoMaterialTable::AddMaterial(const ON_Material& material) {
  if (doc_ == nullptr) return -1;
  const int index = Count();
  ON_Material added = material;
  added.m_material_index = index;
  const auto isTaken = [this](const ON_UUID& id) {
    return std::any_of(begin(), end(),
                       [&id](const ON_Material& other) { return other.m_id == id; });
  };
  if (added.m_id.IsNil() || isTaken(added.m_id)) {
    added.m_id = NewId(static_cast<std::uint32_t>(index), isTaken);
  }
  doc_->Change(MaterialState{index, std::move(added)});
  return index;
}

bool CRhinoMaterialTable::ModifyMaterial(const ON_Material& material, int index) {
  const ON_Material* present = At(index);
  if (doc_ == nullptr || present == nullptr) return false;
  ON_Material changed = material;
  changed.m_id = present->m_id;
  changed.m_material_index = index;
  doc_->Change(MaterialState{index, std::move(changed)});
  return true;
}

int CRhinoLightTable::Count() const {
  return static_cast<int>(doc_.Lights().size());
}

CRhinoObject* CRhinoLightTable::At(int index) const {
  if (index < 0 || index >= Count()) return nullptr;
  CRhinoObject* light = doc_.Lights()[static_cast<std::size_t>(index)].get();
  return light->IsDeleted() ? nullptr : light;
}

// A light comes as one that is deleted and is then undeleted, which is what Undo takes back.
int CRhinoLightTable::AddLight(const ON_Light& light, ON_3dmObjectAttributes attributes) {
  const int index = Count();
  ONX_ModelObject object;
  object.m_attributes = std::move(attributes);
  object.m_object_type = static_cast<unsigned>(ON_ObjectType::light);
  const ON_UUID id = doc_.AddObject(doc_.lights_, std::move(object));
  doc_.lights_.back()->deleted_ = true;
  auto added = std::make_shared<ON_Light>(light);
  added->m_light_index = index;
  added->m_light_id = id;
  doc_.Change(LightState{index, std::move(added)});
  return index;
}

bool CRhinoLightTable::ModifyLight(const ON_Light& light, int index) {
  const CRhinoObject* object = At(index);
  if (object == nullptr) return false;
  auto changed = std::make_shared<ON_Light>(light);
  changed->m_light_index = index;
  if (const ON_Light* present = ON_Light::Cast(object->Geometry())) {
    changed->m_light_id = present->m_light_id;
  }
  doc_.Change(LightState{index, std::move(changed)});
  return true;
}

bool CRhinoLightTable::DeleteLight(int index) {
  const CRhinoObject* object = At(index);
  if (object == nullptr || object->IsInstanceDefinitionGeometry()) return false;
  doc_.Change(LightState{index, object->geometry_, true});
  return true;
}

CRhinoGroupTable::CRhinoGroupTable(std::vector<ON_Group> groups) : CRhinoTable(std::move(groups)) {
  for (std::size_t i = 0; i < records_.size(); ++i) {
    by_stored_index_.emplace(records_[i].m_index, i);
  }
}

const ON_Group* CRhinoGroupTable::FindGroup(int stored_index) const {
  const auto found = by_stored_index_.find(stored_index);
  return found == by_stored_index_.end() ? nullptr : &records_[found->second];
}

int CRhinoLinetypeTable::EffectiveLinetypeIndex(const CRhinoObject& object) const {
  const ON_3dmObjectAttributes& attributes = object.Attributes();
  int index = attributes.m_linetype_index;
  if (attributes.m_linetype_source != ON_AttributeSource::object) {
    const ON_Layer* layer =
        doc_ == nullptr ? nullptr : doc_->m_layer_table.At(attributes.m_layer_index);
    index = layer == nullptr ? -1 : layer->m_linetype_index;
  }
  return At(index) == nullptr ? -1 : index;
}

double CRhinoLinetypeTable::LinetypeScale() const {
  return doc_ == nullptr ? 1 : doc_->Properties().Settings().m_linetype_scale;
}
