#include "export/view_choice.h"

#include <vector>

#include "host/system/text.h"

namespace orv {

const CRhinoView* ChooseView(const CRhinoDoc& doc, std::string_view viewName) {
  const CRhinoView* chosen = doc.ActiveView();
  if (viewName == "Current") return chosen;
  std::vector<CRhinoView*> views;
  doc.GetViewList(views, true, false);
  for (const CRhinoView* view : views) {
    if (host::EqualNoCase(view->Viewport().Name(), viewName)) chosen = view;
  }
  return chosen;
}

}  // namespace orv
