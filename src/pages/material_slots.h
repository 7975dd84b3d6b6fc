#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jobs/choose_shader.h"
#include "jobs/shader_slot.h"
#include "shading/shader_catalogue.h"

namespace orv {

// A place for a shader on the material page.
struct MaterialSlot {
  // Its kind is what messages and the page's controls call it.
  ShaderSlot Fields;
  // What stands beside its list.
  std::string_view Label;
  std::span<const CatalogueRow> (*Catalogue)();
  FilePicker Picker;
  // What a shader of another kind gives.
  std::string_view WrongKind;
};

enum : std::size_t { kSurface = 0, kDisplacement = 1, kInstancer = 2 };
inline constexpr std::size_t kMaterialSlotCount = 3;

// By the numbers above.
const std::array<MaterialSlot, kMaterialSlotCount>& MaterialSlots();

// What the list of a slot offers.
std::vector<std::string> ShaderChoices(const MaterialSlot& slot);
// What it shows of a shader: the name that users know or, of others than its own, the shader's.
std::string ShownShader(const MaterialSlot& slot, std::string_view shaderName);
// The row of the list that is called so, in any case; null when there is none.
const CatalogueRow* FindShader(const MaterialSlot& slot, std::string_view displayName);

}  // namespace orv
