#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "host/geometry/on_brep.h"

// Compares a brep with the facts of its geometry: the counts of its tables, the classes of its
// curves and surfaces, its faces with their loops, surfaces and meshes.
void ExpectBrep(const nlohmann::json& fact, const ON_Brep& brep, const std::string& place);
