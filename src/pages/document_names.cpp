#include "pages/document_names.h"

#include <set>

#include "host/document/doc.h"
#include "host/document/object_iterator.h"
#include "host/document/view.h"
#include "host/geometry/on_curve.h"
#include "host/system/text.h"

namespace orv {

std::vector<std::string> ViewNames(CRhinoDoc& doc) {
  std::vector<CRhinoView*> views;
  doc.GetViewList(views, true, false);
  std::vector<std::string> names{"Current"};
  for (const CRhinoView* view : views) names.push_back(view->Viewport().Name());
  return names;
}

std::vector<std::string> CurveNames(CRhinoDoc& doc) {
  std::vector<std::string> names;
  std::set<std::string> seen;
  CRhinoObjectIterator objects(doc);
  for (const CRhinoObject* object = objects.First(); object != nullptr; object = objects.Next()) {
    const std::string& name = object->Attributes().m_name;
    if (name.empty() || ON_Curve::Cast(object->Geometry()) == nullptr) continue;
    if (seen.insert(host::FoldedCase(name)).second) names.push_back(name);
  }
  return names;
}

}  // namespace orv
