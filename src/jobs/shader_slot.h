#pragma once

#include <string>
#include <string_view>

#include "host/command/command.h"
#include "shading/material_attributes.h"

class CRhinoObject;

namespace orv {

class CSceneOutPlugIn;

// A place of a material for a shader.
struct ShaderSlot {
  // What the shader has to be.
  std::string_view Kind;
  std::string MaterialAttributes::*Call;
  bool MaterialAttributes::*CallChanged;
  std::string MaterialAttributes::*Layout;
  bool MaterialAttributes::*LayoutChanged;
};

inline constexpr ShaderSlot kSurfaceSlot{
    "Surface", &MaterialAttributes::Surface, &MaterialAttributes::SurfaceChanged,
    &MaterialAttributes::SurfaceLayout, &MaterialAttributes::SurfaceLayoutChanged};
inline constexpr ShaderSlot kDisplacementSlot{
    "Displacement", &MaterialAttributes::Displacement, &MaterialAttributes::DisplacementChanged,
    &MaterialAttributes::DisplacementLayout, &MaterialAttributes::DisplacementLayoutChanged};

// Lets the user edit the shader of a slot; points are picked on `object`. On success the shader is
// marked as changed, and its page forgets which groups were open. Any other result, as
// EditShaderCall gives it, changes nothing.
[[nodiscard]] CommandResult EditShaderSlot(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn,
                                           const ShaderSlot& slot, const CRhinoObject& object,
                                           MaterialAttributes& attributes);

}  // namespace orv
