#include "pages/property_selection.h"

#include "host/document/doc.h"

namespace orv {

std::vector<CRhinoObject*> SelectedTargets(CRhinoDoc& doc, PropertyTarget target) {
  std::vector<CRhinoObject*> targets;
  for (const auto& list : {doc.Objects(), doc.Lights()}) {
    for (const auto& object : list) {
      const bool isLight = object->ObjectType() == ON_ObjectType::light;
      if (object->IsSelected() && isLight == (target == PropertyTarget::lights)) {
        targets.push_back(object.get());
      }
    }
  }
  return targets;
}

CRhinoObject* FirstSelectedTarget(CRhinoDoc& doc, PropertyTarget target) {
  const std::vector<CRhinoObject*> targets = SelectedTargets(doc, target);
  return targets.empty() ? nullptr : targets.front();
}

}  // namespace orv
