#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "host/document/doc.h"
#include "host/document/new_id.h"
#include "host/geometry/on_annotation.h"
#include "host/geometry/on_instance_ref.h"
#include "host/system/text.h"

// Merging a document into the open one.

namespace {

// Where the records of an imported table went: position there to position here.
class IndexMap {
 public:
  void Add(int index) { indices_.push_back(index); }
  // -1 for a position outside the imported table.
  int operator[](int index) const {
    const bool isInside = index >= 0 && static_cast<std::size_t>(index) < indices_.size();
    return isInside ? indices_[static_cast<std::size_t>(index)] : -1;
  }

 private:
  std::vector<int> indices_;
};

// How the imported objects' references change.
struct ImportMaps {
  IndexMap layers;
  IndexMap materials;
  IndexMap linetypes;
  // By the indices that groups store.
  std::map<int, int> groups;
};

// The record's id, or a new one when it is nil or taken; it is then taken.
template <class Record>
ON_UUID FreeId(const Record& record, std::size_t position, IdSet& taken) {
  const auto isTaken = [&taken](const ON_UUID& id) { return taken.contains(id); };
  ON_UUID id = record.m_id;
  if (id.IsNil() || isTaken(id)) id = NewId(static_cast<std::uint32_t>(position), isTaken);
  taken.insert(id);
  return id;
}

template <class Record>
IdSet IdsOf(const std::vector<Record>& records) {
  IdSet ids;
  for (const Record& record : records) ids.insert(record.m_id);
  return ids;
}

// Appends imported records to those of a table, with new ids for those whose own is taken.
template <class Record>
IndexMap Append(std::vector<Record>& records, std::vector<Record> imported) {
  IdSet taken = IdsOf(records);
  IndexMap map;
  for (Record& record : imported) {
    record.m_id = FreeId(record, records.size(), taken);
    map.Add(static_cast<int>(records.size()));
    records.push_back(std::move(record));
  }
  return map;
}

template <class Record>
IndexMap Append(CRhinoTable<Record>& table, std::vector<Record> imported) {
  std::vector<Record> records = table.Records();
  IndexMap map = Append(records, std::move(imported));
  table = CRhinoTable<Record>(std::move(records));
  return map;
}

std::map<int, int> AppendGroups(CRhinoGroupTable& table, std::vector<ON_Group> imported) {
  std::vector<ON_Group> groups = table.Records();
  IdSet taken = IdsOf(groups);
  std::set<int> takenIndices;
  for (const ON_Group& group : groups) takenIndices.insert(group.m_index);
  std::map<int, int> map;
  int next = 0;
  for (ON_Group& group : imported) {
    while (takenIndices.contains(next)) ++next;
    takenIndices.insert(next);
    map.emplace(group.m_index, next);
    group.m_index = next;
    group.m_id = FreeId(group, groups.size(), taken);
    groups.push_back(std::move(group));
  }
  table = CRhinoGroupTable(std::move(groups));
  return map;
}

// Finds the open layers by their place: the position of the layer above and the name.
class LayerMerger {
 public:
  LayerMerger(const CRhinoLayerTable& open, const CRhinoLayerTable& imported)
      : imported_(imported), layers_(open.Records()), taken_(IdsOf(layers_)) {
    merged_.assign(imported.Records().size(), kUnmerged);
    for (int i = 0; i < open.Count(); ++i) {
      by_place_.emplace(PlaceOf(open.ParentOf(i), open.At(i)->m_name), i);
    }
  }

  // The position of an imported layer among the merged ones; -1 for one that there isn't. The
  // layers above it are merged before it.
  int Merge(int index, const ImportMaps& maps) {
    std::vector<int> way;
    for (; imported_.At(index) != nullptr && Merged(index) == kUnmerged;
         index = imported_.ParentOf(index)) {
      way.push_back(index);
    }
    int parent = imported_.At(index) == nullptr ? -1 : Merged(index);
    for (; !way.empty(); way.pop_back()) {
      parent = Merged(way.back()) = FindOrAdd(*imported_.At(way.back()), parent, maps);
    }
    return parent;
  }

  std::vector<ON_Layer> TakeLayers() { return std::move(layers_); }

 private:
  static constexpr int kUnmerged = -2;
  using Place = std::pair<int, std::string>;

  static Place PlaceOf(int parent, std::string_view name) {
    return {parent, host::FoldedCase(name)};
  }
  int& Merged(int index) { return merged_[static_cast<std::size_t>(index)]; }

  int FindOrAdd(const ON_Layer& imported, int parent, const ImportMaps& maps) {
    const auto [place, isNew] =
        by_place_.emplace(PlaceOf(parent, imported.m_name), static_cast<int>(layers_.size()));
    if (!isNew) return place->second;
    ON_Layer layer = imported;
    layer.m_id = FreeId(layer, layers_.size(), taken_);
    layer.m_parent_id = parent < 0 ? ON_UUID{} : layers_[static_cast<std::size_t>(parent)].m_id;
    layer.m_render_material_index = maps.materials[layer.m_render_material_index];
    layer.m_linetype_index = maps.linetypes[layer.m_linetype_index];
    layers_.push_back(std::move(layer));
    return place->second;
  }

  const CRhinoLayerTable& imported_;
  std::vector<ON_Layer> layers_;
  IdSet taken_;
  std::vector<int> merged_;
  std::map<Place, int> by_place_;
};

// Gives records whose id is taken a new one. The result has the id of each, by the stored one.
template <class Record>
IdMap<ON_UUID> FreeIds(std::vector<Record>& imported, const std::vector<Record>& open) {
  IdSet taken = IdsOf(open);
  IdMap<ON_UUID> ids;
  for (std::size_t i = 0; i < imported.size(); ++i) {
    const ON_UUID stored = imported[i].m_id;
    imported[i].m_id = FreeId(imported[i], open.size() + i, taken);
    if (!stored.IsNil()) ids.emplace(stored, imported[i].m_id);
  }
  return ids;
}

// Lets a block reference name its definition by the id that it has now; one whose definition the
// imported document lacks names none.
void Remap(std::shared_ptr<ON_Geometry>& geometry, const IdMap<ON_UUID>& definitionIds) {
  const ON_InstanceRef* reference = ON_InstanceRef::Cast(geometry.get());
  if (reference == nullptr) return;
  const auto found = definitionIds.find(reference->m_instance_definition_uuid);
  const ON_UUID id = found == definitionIds.end() ? ON_UUID{} : found->second;
  if (id == reference->m_instance_definition_uuid) return;
  auto own = std::make_shared<ON_InstanceRef>(*reference);
  own->m_instance_definition_uuid = id;
  geometry = std::move(own);
}

// The same for an annotation and its style.
void RemapStyle(std::shared_ptr<ON_Geometry>& geometry, const IdMap<ON_UUID>& styleIds) {
  const ON_Annotation* annotation = ON_Annotation::Cast(geometry.get());
  if (annotation == nullptr) return;
  const auto found = styleIds.find(annotation->m_dimstyle_id);
  const ON_UUID id = found == styleIds.end() ? ON_UUID{} : found->second;
  if (id == annotation->m_dimstyle_id) return;
  auto own = std::make_shared<ON_Annotation>(*annotation);
  own->m_dimstyle_id = id;
  geometry = std::move(own);
}

// The layers of both documents. `maps` gets where the imported ones went.
std::vector<ON_Layer> MergedLayers(const CRhinoLayerTable& open, std::vector<ON_Layer> imported,
                                   ImportMaps& maps) {
  const CRhinoLayerTable importedTable(std::move(imported));
  LayerMerger merger(open, importedTable);
  for (int i = 0; i < importedTable.Count(); ++i) maps.layers.Add(merger.Merge(i, maps));
  return merger.TakeLayers();
}

// A group that the imported document lacks is dropped: its index may mean another group here.
void Remap(ON_3dmObjectAttributes& attributes, const ImportMaps& maps) {
  attributes.m_layer_index = maps.layers[attributes.m_layer_index];
  attributes.m_material_index = maps.materials[attributes.m_material_index];
  attributes.m_linetype_index = maps.linetypes[attributes.m_linetype_index];
  std::vector<int> groups;
  for (const int group : attributes.m_group) {
    const auto found = maps.groups.find(group);
    if (found != maps.groups.end()) groups.push_back(found->second);
  }
  attributes.m_group = std::move(groups);
}

void AddCounts(std::vector<ONX_UnreadKind>& counts, const std::vector<ONX_UnreadKind>& added) {
  for (const ONX_UnreadKind& kind : added) {
    const auto found =
        std::find_if(counts.begin(), counts.end(),
                     [&kind](const ONX_UnreadKind& count) { return count.m_name == kind.m_name; });
    if (found == counts.end()) {
      counts.push_back(kind);
    } else {
      found->m_count += kind.m_count;
    }
  }
}

}  // namespace

void CRhinoDoc::ImportModel(ONX_Model model) {
  undo_.Clear();
  ImportMaps maps;
  std::vector<ON_Material> materials = m_material_table.Records();
  maps.materials = Append(materials, std::move(model.m_material_table));
  m_material_table = CRhinoMaterialTable(std::move(materials), this);
  maps.linetypes = Append(m_linetype_table, std::move(model.m_linetype_table));
  maps.groups = AppendGroups(m_group_table, std::move(model.m_group_table));
  m_layer_table =
      CRhinoLayerTable(MergedLayers(m_layer_table, std::move(model.m_layer_table), maps), this);
  const IdMap<ON_UUID> styleIds = FreeIds(model.m_dimstyle_table, m_dimstyle_table.Records());
  Append(m_dimstyle_table, std::move(model.m_dimstyle_table));
  const IdMap<ON_UUID> definitionIds =
      FreeIds(model.m_idef_table, m_instance_definition_table.Records());
  for (ONX_ModelObject& object : model.m_object_table) {
    Remap(object.m_attributes, maps);
    Remap(object.m_geometry, definitionIds);
    RemapStyle(object.m_geometry, styleIds);
    object.m_span = {};
  }
  for (ONX_ModelLight& light : model.m_light_table) {
    Remap(light.m_attributes, maps);
    light.m_span = {};
  }
  const std::size_t first = objects_.size();
  const IdMap<ON_UUID> newIds =
      AddObjects(std::move(model.m_object_table), std::move(model.m_light_table));
  for (ON_InstanceDefinition& definition : model.m_idef_table) {
    for (ON_UUID& id : definition.m_object_ids) {
      const auto found = newIds.find(id);
      if (found != newIds.end()) id = found->second;
    }
  }
  Append(m_instance_definition_table, std::move(model.m_idef_table));
  MarkDefinitionMembers();
  ShowInDepth(first);
  AddCounts(unread_, model.m_unread);
  std::move(model.m_problems.begin(), model.m_problems.end(), std::back_inserter(problems_));
}

void CRhinoDoc::ShowInDepth(std::size_t first_object) {
  ON_BoundingBox box;
  for (std::size_t i = first_object; i < objects_.size(); ++i) {
    const CRhinoObject& object = *objects_[i];
    if (object.IsVisible()) box.Include(object.BoundingBox());
  }
  for (const auto& view : views_) view->Viewport().IncludeInDepth(box);
}
