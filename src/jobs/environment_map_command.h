#pragma once

#include "jobs/file_picker.h"
#include "jobs/orv_command.h"

namespace orv {

// The dialog for the map.
inline constexpr FilePicker kEnvironmentMapPicker{
    "Choose Environment Map",
    "All files;*.*;Orv Texture Maps (*.tx);*.tx;Portable Network Graphics (*.png);*.png;"
    "JPEG Interchange Format (*.jpg);*.jpg;Tagged Image File Format (*.tif);*.tif;"
    "Radiance HDR (*.hdr);*.hdr; Photoshop File Format (*.psd);*.psd;"
    "SGI Image Format (*.sgi);*.sgi;IES Light Profiles (*.ies);*.ies;"};

// OrvEnvironmentMap: makes one map the background of the gather, of reflections and of the image.
class CCommandOrvEnvironmentMap : public COrvCommand {
 public:
  explicit CCommandOrvEnvironmentMap(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;

 private:
  CommandResult AskForMap(CRhinoCommandContext& context, std::string& map) const;
};

}  // namespace orv
