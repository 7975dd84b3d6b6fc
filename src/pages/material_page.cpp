#include "pages/material_page.h"

#include "pages/material_controls.h"
#include "pages/property_control.h"
#include "pages/property_selection.h"

namespace orv {

bool CMatDlg::IsOffered(CRhinoDoc& doc) const {
  return FirstSelectedTarget(doc, PropertyTarget::objects) != nullptr;
}

std::vector<CRhinoControl> CMatDlg::Controls() const {
  std::vector<CRhinoControl> controls;
  for (MaterialControl& one : MaterialControls(editor_)) {
    controls.push_back(std::move(one.Control));
  }
  return controls;
}

std::string CMatDlg::Change(CRhinoCommandContext& context, std::string_view control,
                            std::string_view value) {
  std::string problem;
  const int index = ControlToChange(Controls(), control, problem);
  if (index < 0) return problem;
  return MaterialControls(editor_)[static_cast<std::size_t>(index)].Change(editor_, context, value);
}

}  // namespace orv
