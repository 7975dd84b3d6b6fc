#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/command/command.h"
#include "host/command/dialog_page.h"

namespace orv {

class MaterialEditor;

// A control of the material page and what happens when its user gives it a value. What is wrong
// with the value is given back; empty when nothing is. One that is only to be read has no action.
struct MaterialControl {
  using Action = std::function<std::string(MaterialEditor& editor, CRhinoCommandContext& context,
                                           std::string_view value)>;

  CRhinoControl Control;
  Action Change;
};

// All controls in the order of the page.
std::vector<MaterialControl> MaterialControls(const MaterialEditor& editor);

}  // namespace orv
