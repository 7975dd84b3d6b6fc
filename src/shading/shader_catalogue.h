#pragma once

#include <span>
#include <string_view>

namespace orv {

// A shader that the material page offers.
struct CatalogueRow {
  std::string_view DisplayName;
  // The name in a shader call and of the shader's file. "Rhino", which stands for the host's own
  // material, and "null" have no file.
  std::string_view ShaderName;
};

// The renderer's standard shaders, in the order in which a page lists them.
std::span<const CatalogueRow> SurfaceCatalogue();
std::span<const CatalogueRow> DisplacementCatalogue();
std::span<const CatalogueRow> InstancerCatalogue();

}  // namespace orv
