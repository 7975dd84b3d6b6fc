#pragma once

#include <map>
#include <string>

#include "support/rib_checker.h"

// Names with what Declare said of them.
using RibDeclarations = std::map<std::string, std::string>;

// Complains about the arrays of a PointsPolygons or a SubdivisionMesh.
void CheckRibMesh(const RibStatement& mesh, const RibDeclarations& declared, RibReport& report);
