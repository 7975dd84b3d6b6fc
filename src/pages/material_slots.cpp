#include "pages/material_slots.h"

#include <algorithm>

#include "host/system/text.h"

namespace orv {
namespace {

constexpr ShaderSlot kInstancerSlot{
    "Instancer", &MaterialAttributes::Instancer, &MaterialAttributes::InstancerChanged,
    &MaterialAttributes::InstancerLayout, &MaterialAttributes::InstancerLayoutChanged};

constexpr std::array<MaterialSlot, kMaterialSlotCount> kSlots{{
    {kSurfaceSlot, "Surface:", SurfaceCatalogue, kShaderPicker,
     "Selected shader is not a surface shader.\n"},
    {kDisplacementSlot,
     "Displacement:",
     DisplacementCatalogue,
     {kShaderPicker.Title, "Orv Shader Files;*.slb;All Files;*.*;"},
     "Selected shader is not a displacement shader.\n"},
    {kInstancerSlot,
     "Instancer:",
     InstancerCatalogue,
     {"Choose instancer shader", kShaderPicker.Filter},
     "Selected shader is not an instancer shader.\n"},
}};

}  // namespace

const std::array<MaterialSlot, kMaterialSlotCount>& MaterialSlots() {
  return kSlots;
}

std::vector<std::string> ShaderChoices(const MaterialSlot& slot) {
  std::vector<std::string> choices;
  for (const CatalogueRow& row : slot.Catalogue()) choices.emplace_back(row.DisplayName);
  return choices;
}

std::string ShownShader(const MaterialSlot& slot, std::string_view shaderName) {
  const std::span<const CatalogueRow> rows = slot.Catalogue();
  const auto row = std::find_if(rows.begin(), rows.end(), [shaderName](const CatalogueRow& one) {
    return one.ShaderName == shaderName;
  });
  return std::string(row == rows.end() ? shaderName : row->DisplayName);
}

const CatalogueRow* FindShader(const MaterialSlot& slot, std::string_view displayName) {
  for (const CatalogueRow& row : slot.Catalogue()) {
    if (host::EqualNoCase(row.DisplayName, displayName)) return &row;
  }
  return nullptr;
}

}  // namespace orv
