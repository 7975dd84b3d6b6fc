#pragma once

#include <string_view>

#include "host/document/doc.h"
#include "host/document/file_options.h"
#include "settings/ipr_settings.h"
#include "settings/render_settings.h"
#include "shading/texture_converter.h"

namespace orv {

// Writes the document as one RIB file and returns 1, or returns 0.
//
// An older file is moved aside first and put back when the export fails; the cause is told in the
// command window. `fileName` counts to its first 999 characters, and the settings' frame number is
// added to its name. Mode 0 of `writeOptions` asks for the selected objects only, with all lights.
// `reparameterize` is for NURBS surfaces; `ignoredText` is not read. `iprSettings` is null unless
// an interactive session asks. The settings' result fields (FormatWidth, FormatHeight, ViewportId,
// CameraMatrix, CameraFov, BakeDisplayCount) become what was written; a bake of meshes also changes
// those that its BakeMeshMode rules. `textures` converts the images; those that
// failed in a finished export are tried again by the next one.
int ExportSceneRib(std::string_view fileName, CRhinoDoc& doc,
                   const CRhinoFileWriteOptions& writeOptions, int reparameterize,
                   std::string_view ignoredText, RenderSettings& settings,
                   const IprSettings* iprSettings, TextureConverter& textures);

}  // namespace orv
