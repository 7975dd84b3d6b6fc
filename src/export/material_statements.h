#pragma once

#include <string>
#include <vector>

#include "settings/render_settings.h"
#include "shading/texture_converter.h"

class ON_Material;

namespace orv {

enum class MaterialStatementKind {
  // Text is the whole statement with its line end.
  Line,
  // The handle of the export's next point set; no text.
  PointSetHandle,
  // Text is the shader call.
  Surface,
  Displacement,
  Instancer,
};

// One statement of a material.
struct MaterialStatement {
  MaterialStatementKind Kind = MaterialStatementKind::Line;
  std::string Text;
};

// What a material writes into the block of each object that has it.
struct MaterialStatements {
  std::vector<MaterialStatement> Statements;
  // The object must reach the renderer as a render mesh, because a shader needs the texture
  // coordinates that only the mesh has.
  bool WantsRenderMesh = false;
};

// Makes the statements of a material, and converts the images that it uses.
MaterialStatements MakeMaterialStatements(const ON_Material& material,
                                          const RenderSettings& settings,
                                          TextureConverter& textures);

}  // namespace orv
