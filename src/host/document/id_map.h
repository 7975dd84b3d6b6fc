#pragma once

#include <cstddef>
#include <unordered_map>
#include <unordered_set>

#include "host/geometry/on_uuid.h"

// Ids come from files, and a file can be made so that a hash known beforehand puts all its ids into
// one bucket. This one differs from run to run.
struct IdHash {
  std::size_t operator()(const ON_UUID& id) const noexcept;
};

template <class Value>
using IdMap = std::unordered_map<ON_UUID, Value, IdHash>;
using IdSet = std::unordered_set<ON_UUID, IdHash>;
