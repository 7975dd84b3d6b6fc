#include "jobs/scene_file.h"

#include "export/scene_export.h"
#include "jobs/plugin.h"

namespace orv {

bool WriteSceneFile(CSceneOutPlugIn& plugIn, CRhinoDoc& doc, RenderSettings& settings,
                    const IprSettings* iprSettings) {
  CRhinoFileWriteOptions options;
  options.SetMode(0, settings.Selected);
  constexpr int kReparameterize = 1;
  return ExportSceneRib(settings.RibName, doc, options, kReparameterize, {}, settings, iprSettings,
                        plugIn.Textures()) != 0;
}

}  // namespace orv
