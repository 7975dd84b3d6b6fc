#include "host/command/dialog_page.h"

#include <algorithm>

#include "host/system/text.h"

int FindControl(const std::vector<CRhinoControl>& controls, std::string_view name) {
  const auto first = [&](auto fits) {
    const auto found = std::find_if(controls.begin(), controls.end(), fits);
    return found == controls.end() ? -1 : static_cast<int>(found - controls.begin());
  };
  const auto has_id = [&](const CRhinoControl& c) { return host::EqualNoCase(c.Id, name); };
  const auto has_label = [&](const CRhinoControl& c) { return host::EqualNoCase(c.Label, name); };
  const int by_id = first(has_id);
  if (by_id >= 0) return by_id;
  const int shown = first([&](const CRhinoControl& c) { return c.IsShown && has_label(c); });
  return shown >= 0 ? shown : first(has_label);
}
