#pragma once

#include <vector>

class CRhinoDoc;
class CRhinoObject;

namespace orv {

// What a property page is for.
enum class PropertyTarget { lights, objects };

// The selected lights, or the selected objects that are no lights, in the order of the document.
std::vector<CRhinoObject*> SelectedTargets(CRhinoDoc& doc, PropertyTarget target);

// The first of them; null when there is none.
CRhinoObject* FirstSelectedTarget(CRhinoDoc& doc, PropertyTarget target);

}  // namespace orv
