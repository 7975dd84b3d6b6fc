#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "export/material_statements.h"
#include "settings/render_settings.h"
#include "shading/material_attributes.h"

namespace orv {

// A material on its way to statements.
struct MaterialDraft {
  const RenderSettings& Settings;
  // With the host's material made into shader calls.
  MaterialAttributes Attributes;
  bool UsesTexture = false;
  // Shadow rays run the surface shader.
  bool HitModeShader = false;
  // The material takes part in the prepass of indirect light.
  bool Prepass = true;
  // It reflects indirect light.
  bool Reflective = false;
  MaterialStatements Result{};

  void Add(std::string line) { Add(MaterialStatementKind::Line, std::move(line)); }
  void Add(MaterialStatementKind kind, std::string text) {
    Result.Statements.push_back({kind, std::move(text)});
  }
};

// Where a shader's texture comes from; nothing when its call doesn't tell. "st" are the coordinates
// of a mesh.
std::optional<std::string> ProjectionOf(std::string_view call);

// True for a call of the DarkTree shader `name` that uses the coordinates of a mesh.
bool IsDarkTreeIn2D(std::string_view call, std::string_view name);

// Adds the statements of the surface shader, and what it means for the rest of the material.
void AddSurface(MaterialDraft& draft);

// Adds what the surface shader does to caustics. `isMetal`: it mirrors in the material's colour
// where its call names none.
void AddCaustics(MaterialDraft& draft, bool isMetal);

}  // namespace orv
