#pragma once

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

// Adds the statements of the surface shader, and what it means for the rest of the material.
void AddSurface(MaterialDraft& draft);

// Adds what the surface shader does to caustics. `isMetal`: it mirrors in the material's colour
// where its call names none.
void AddCaustics(MaterialDraft& draft, bool isMetal);

}  // namespace orv
