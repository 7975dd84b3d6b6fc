#pragma once

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "host/geometry/on_tables.h"

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
  auto begin() const { return records_.begin(); }
  auto end() const { return records_.end(); }

 protected:
  std::vector<Record> records_;
};

class CRhinoLayerTable : public CRhinoTable<ON_Layer> {
 public:
  using CRhinoTable::CRhinoTable;
  // The position of a layer by its id, by its name or by its full path "Parent::Child", without
  // regard to case; -1 when there is none.
  int FindLayer(const ON_UUID& id) const;
  int FindLayer(std::string_view name) const;
  // True when the layer and all above it are on. An index outside the table counts as on.
  bool IsLayerVisible(int index) const;
  // True when the layer or one above it is locked.
  bool IsLayerLocked(int index) const;
  // "Parent::Child".
  std::string FullPath(int index) const;
};

class CRhinoGroupTable : public CRhinoTable<ON_Group> {
 public:
  using CRhinoTable::CRhinoTable;
  // The group that objects name by `stored_index`, or null.
  const ON_Group* FindGroup(int stored_index) const;
};

using CRhinoMaterialTable = CRhinoTable<ON_Material>;
using CRhinoLinetypeTable = CRhinoTable<ON_Linetype>;
using CRhinoDimStyleTable = CRhinoTable<ON_DimStyle>;
using CRhinoInstanceDefinitionTable = CRhinoTable<ON_InstanceDefinition>;
