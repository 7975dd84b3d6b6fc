#pragma once

#include <span>
#include <string_view>

#include "pages/property_row.h"
#include "shading/material_attributes.h"

namespace orv {

// A control of the material page that stands for one field of the material.
struct MaterialField {
  // Which values give objects a material of their own before they are stored.
  enum class Force { never, whenTyped, always };

  PropertyRow<MaterialAttributes, bool MaterialAttributes::*> Control;
  Force Forces = Force::never;

  // Whether this value does so. One of the choices isn't typed.
  [[nodiscard]] bool ForcesBasicMaterial(std::string_view value) const;
};

// The name, what stands above the shaders and what stands below them.
std::span<const MaterialField> MaterialNameFields();
std::span<const MaterialField> MaterialLookFields();
std::span<const MaterialField> MaterialShapeFields();

}  // namespace orv
