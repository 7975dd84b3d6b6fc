#include "host/command/dialog_page.h"

#include "host/system/text.h"

int FindControl(const std::vector<CRhinoControl>& controls, std::string_view name) {
  int hidden = -1;
  for (int i = 0; i < static_cast<int>(controls.size()); ++i) {
    const CRhinoControl& control = controls[static_cast<std::size_t>(i)];
    if (host::EqualNoCase(control.Id, name)) return i;
    if (!host::EqualNoCase(control.Label, name)) continue;
    if (control.IsShown) return i;
    if (hidden < 0) hidden = i;
  }
  return hidden;
}
