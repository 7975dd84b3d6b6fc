#pragma once

#include <cstddef>

#include "shading/material_attributes.h"

namespace orv {

// What material pages share and keep for the life of the plug-in.
struct MaterialPageState {
  // The material that was copied last.
  MaterialAttributes Clipboard;
  // Whether objects get a material of their own before their look is changed.
  bool IsBasicForced = true;
  // The place for a shader whose parameters are shown: 0 surface, 1 displacement, 2 instancer.
  std::size_t ActiveSlot = 0;
};

}  // namespace orv
