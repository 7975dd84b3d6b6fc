#pragma once

#include <string>
#include <vector>

class CRhinoDoc;

namespace orv {

// "Current" and the names of the document's model views.
std::vector<std::string> ViewNames(CRhinoDoc& doc);

// The names of the document's curves that have one, each once.
std::vector<std::string> CurveNames(CRhinoDoc& doc);

}  // namespace orv
