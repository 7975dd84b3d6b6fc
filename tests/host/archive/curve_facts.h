#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "host/geometry/on_curve.h"

// What the other reader calls the class of a curve, "ON_ArcCurve".
std::string CurveClassName(const ON_Curve& curve);

// Compares a curve with the facts of its geometry: domain, length, closed, polyline, points along
// it, and its NURBS form.
void ExpectCurve(const nlohmann::json& fact, const ON_Curve& curve, const std::string& place);
