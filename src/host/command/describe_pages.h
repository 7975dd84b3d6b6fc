#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/command/dialog_page.h"

// The pages of properties of all plug-ins.
struct PropertyPages {
  using List = std::vector<std::unique_ptr<CRhinoDialogPage>>;
  List Document;
  List Objects;
};

// A page that is open: its title, and a line for each control with its id, label, value and
// choices.
std::string DescribePage(const CRhinoDialogPage& page);

// All pages and their controls as JSON in UTF-8; it opens those that are offered:
//   {"document": [PAGE...], "objects": [PAGE...]}
//   PAGE: {"title": "Orv GI", "offered": true, "controls": [CONTROL...]}
//   CONTROL: {"id", "label", "kind", "value": TEXT, "choices": [TEXT...], "shown", "enabled": BOOL}
std::string DescribePagesAsJson(const PropertyPages& pages, CRhinoDoc& doc);
