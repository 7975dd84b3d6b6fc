#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "host/geometry/on_extrusion.h"
#include "host/geometry/on_subd.h"

// Compares an extrusion with the facts of its geometry: path, profiles, ends, and the faces of its
// brep.
void ExpectExtrusion(const nlohmann::json& fact, const ON_Extrusion& extrusion,
                     const std::string& place);
// Compares a SubD with the facts of its control net: counts, points, kinds of vertices, edges and
// faces.
void ExpectSubD(const nlohmann::json& fact, const ON_SubD& subd, const std::string& place);
