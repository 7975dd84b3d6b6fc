#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "host/geometry/on_surface.h"

// What the other reader calls the class of a surface, "ON_RevSurface".
std::string SurfaceClassName(const ON_Surface& surface);

// Compares a surface with the facts of its geometry: domain, closed, singular sides, the point and
// the normal in the middle of the domain, and its NURBS form.
void ExpectSurface(const nlohmann::json& fact, const ON_Surface& surface, const std::string& place);
