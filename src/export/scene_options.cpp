#include "export/scene_options.h"

#include "export/background.h"
#include "export/caustic_options.h"
#include "export/clipping_planes.h"
#include "export/gi_options.h"
#include "export/ipr_options.h"
#include "export/outline_options.h"
#include "export/reflection_options.h"
#include "export/rib_text.h"
#include "export/scene_units.h"
#include "export/shader_statement.h"

namespace orv {
namespace {

// The surface of all that has no other.
void WriteDefaultSurface(RibWriter& writer, const RenderSettings& settings) {
  if (!settings.Surface.empty()) WriteShaderStatement(writer, "Surface", settings.Surface);
}

// The user's own options, which override those before them.
void WriteOptionsArchive(RibWriter& writer, const RenderSettings& settings) {
  if (!settings.UseOptionsArchive || settings.OptionsArchive.empty()) return;
  RibPrintf(writer, "ReadArchive \"%s\"\n", RibPath(settings.OptionsArchive).c_str());
}

// An enlarged crop is the camera's screen window instead.
void WriteCropWindow(RibWriter& writer, const RenderSettings& settings) {
  if (!settings.UseCropWindow || settings.Enlarge) return;
  const auto& [x0, x1, y0, y1] = settings.CropWindow;
  RibPrintf(writer, "CropWindow %g %g %g %g\n", x0, x1, y0, y1);
}

void WritePixelOptions(RibWriter& writer, const RenderSettings& settings) {
  if (settings.ClampToAlpha) {
    RibPrintf(writer, "Option \"render\" \"prefilterclamptoalpha\" [1]\n");
  }
  if (settings.EdgeMask) RibPrintf(writer, "Option \"render\" \"integer edgemask\" [1]\n");
}

}  // namespace

void WriteSceneOptions(RibWriter& writer, const CRhinoDoc& doc, const CRhinoView& view,
                       const ObjectList& objects, const RenderSettings& settings,
                       const IprSettings* iprSettings, TextureConverter& textures) {
  WriteBackground(writer, settings, textures);
  WriteGiOptions(writer, settings);
  WriteOutlineOptions(writer, settings, objects);
  WriteReflectionOptions(writer, settings);
  WriteDefaultSurface(writer, settings);
  WriteOptionsArchive(writer, settings);
  WriteCropWindow(writer, settings);
  WritePixelOptions(writer, settings);
  WriteSceneUnits(writer, doc, settings);
  WriteClippingPlanes(writer, view, objects);
  if (iprSettings != nullptr) WriteIprOptions(writer, *iprSettings);
  WriteCausticOptions(writer, settings);
}

}  // namespace orv
