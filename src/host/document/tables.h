#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/document/id_map.h"
#include "host/geometry/on_light.h"
#include "host/geometry/on_object_attributes.h"
#include "host/geometry/on_tables.h"

class CRhinoDoc;
class CRhinoObject;

// A table of a document. An index is a position in it.
template <class Record>
class CRhinoTable {
 public:
  CRhinoTable() = default;
  explicit CRhinoTable(std::vector<Record> records) : records_(std::move(records)) {}

  int Count() const { return static_cast<int>(records_.size()); }
  // The record at `index`, or null when there is none.
  const Record* At(int index) const {
    return index >= 0 && index < Count() ? &records_[static_cast<std::size_t>(index)] : nullptr;
  }
  const std::vector<Record>& Records() const { return records_; }
  auto begin() const { return records_.begin(); }
  auto end() const { return records_.end(); }

 protected:
  std::vector<Record> records_;
};

// The tables of layers and materials know the document that they belong to. Each edit can be undone
// and is told to the event watchers. A table without a document takes no edits.

class CRhinoLayerTable : public CRhinoTable<ON_Layer> {
 public:
  explicit CRhinoLayerTable(std::vector<ON_Layer> layers, CRhinoDoc* doc = nullptr);
  CRhinoLayerTable(CRhinoLayerTable&&) = default;
  CRhinoLayerTable& operator=(CRhinoLayerTable&&) = default;

  // The position of a layer by its id; -1 when there is none.
  int FindLayer(const ON_UUID& id) const;
  // The position of a layer by its full path "Parent::Child", else of the first one with the name;
  // without regard to case. -1 when there is none.
  int FindLayer(std::string_view name) const;
  // The position of the layer above; -1 when there is none. Layers that name each other as the one
  // above have one among them that counts as the top.
  int ParentOf(int index) const;
  // True when the layer and all above it are on. An index outside the table counts as on.
  bool IsLayerVisible(int index) const;
  // True when the layer or one above it is locked.
  bool IsLayerLocked(int index) const;
  // "Parent::Child"; empty for an index outside the table.
  std::string FullPath(int index) const;

  // Replaces the layer at `index`; its id stays. Objects that can't be selected any more, as the
  // layer or one above it is now off or locked, are deselected. False when there is no such layer.
  bool ModifyLayer(const ON_Layer& layer, int index);

 private:
  friend class DocStates;

  // What follows from a layer and all above it.
  struct Place {
    int parent = -1;
    bool visible = true;
    bool locked = false;
  };
  // Puts `layer` in the place of the one at `index`, which it then is. True when that may change
  // which layers are visible or locked.
  bool Exchange(int index, ON_Layer& layer);
  void FindPlaces();
  const Place* PlaceAt(int index) const;
  bool HasFullPath(int index, std::string_view path) const;

  std::vector<Place> places_;
  IdMap<int> by_id_;
  CRhinoDoc* doc_;
};

class CRhinoMaterialTable : public CRhinoTable<ON_Material> {
 public:
  // Each material's index becomes its position.
  explicit CRhinoMaterialTable(std::vector<ON_Material> materials, CRhinoDoc* doc = nullptr);
  CRhinoMaterialTable(CRhinoMaterialTable&&) = default;
  CRhinoMaterialTable& operator=(CRhinoMaterialTable&&) = default;

  // The position of the first material of the name, without regard to case; -1 when there is none,
  // and for an empty name.
  int FindMaterial(std::string_view name) const;
  // Appends a material and gives its position; -1 for a table without a document. An id that is nil
  // or taken is replaced by a new one.
  int AddMaterial(const ON_Material& material);
  // Replaces the material at `index`; its id stays. False when there is no such material.
  bool ModifyMaterial(const ON_Material& material, int index);

 private:
  friend class DocStates;

  CRhinoDoc* doc_;
};

// The lights of the document, which are objects. A light stays at its position when others are
// deleted. Each edit can be undone and is told to the event watchers.
class CRhinoLightTable {
 public:
  explicit CRhinoLightTable(CRhinoDoc& doc) : doc_(doc) {}
  CRhinoLightTable(const CRhinoLightTable&) = delete;
  CRhinoLightTable& operator=(const CRhinoLightTable&) = delete;

  // The number of positions, those of deleted lights included.
  int Count() const;
  // The light at `index`; null when there is none or it is deleted.
  CRhinoObject* At(int index) const;
  // Appends a light and gives its position. An id that is nil or taken is replaced by a new one.
  int AddLight(const ON_Light& light, ON_3dmObjectAttributes attributes = {});
  // Replaces the light at `index`; its id stays. False when there is no such light.
  bool ModifyLight(const ON_Light& light, int index);
  // Deletes the light at `index`; what was selected of it isn't any more. False when there is no
  // such light, and for a member of a block definition.
  bool DeleteLight(int index);

 private:
  CRhinoDoc& doc_;
};

class CRhinoGroupTable : public CRhinoTable<ON_Group> {
 public:
  CRhinoGroupTable() = default;
  explicit CRhinoGroupTable(std::vector<ON_Group> groups);

  // The group that objects name by `stored_index`, or null.
  const ON_Group* FindGroup(int stored_index) const;

 private:
  std::map<int, std::size_t> by_stored_index_;
};

class CRhinoLinetypeTable : public CRhinoTable<ON_Linetype> {
 public:
  explicit CRhinoLinetypeTable(std::vector<ON_Linetype> linetypes, const CRhinoDoc* doc = nullptr)
      : CRhinoTable(std::move(linetypes)), doc_(doc) {}

  // The position of the linetype that an object's lines have: its own or that of its layer, as the
  // object says; an object that takes it from a block placement has its layer's here. -1 for a
  // continuous line.
  int EffectiveLinetypeIndex(const CRhinoObject& object) const;
  // A factor on the lengths of all linetypes of the document.
  double LinetypeScale() const;

 private:
  const CRhinoDoc* doc_;
};

using CRhinoDimStyleTable = CRhinoTable<ON_DimStyle>;
using CRhinoInstanceDefinitionTable = CRhinoTable<ON_InstanceDefinition>;
