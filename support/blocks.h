#pragma once

#include <string_view>
#include <vector>

#include "host/archive/model.h"
#include "host/geometry/on_xform.h"

// Blocks for the tests and the benchmarks.

// Adds a block whose members are `members`, which become objects of the model with ids of their
// own, and gives its id. The same names and counts give the same ids.
ON_UUID AddBlock(ONX_Model& model, std::string_view name, std::vector<ONX_ModelObject> members);

// An object that places the block of that id. It has no id and no stored box.
ONX_ModelObject PlacementOf(const ON_UUID& block, const ON_Xform& xform = {});

ON_Xform TranslationBy(double x, double y, double z);
ON_Xform ScalingBy(double factor);
