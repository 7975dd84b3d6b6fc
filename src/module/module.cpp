// The module that hosts load: the plug-in object with its commands, and what a host asks of the
// module's exports.

#include "host/command/plugin_module.h"
#include "jobs/bake_command.h"
#include "jobs/copy_rhino_map_command.h"
#include "jobs/cube_map_command.h"
#include "jobs/environment_map_command.h"
#include "jobs/ipr_commands.h"
#include "jobs/load_baked_maps_command.h"
#include "jobs/material_command.h"
#include "jobs/object_command.h"
#include "jobs/option_commands.h"
#include "jobs/plugin.h"
#include "jobs/scene_commands.h"
#include "jobs/settings_commands.h"
#include "jobs/submit_job_command.h"
#include "jobs/surface_command.h"
#include "jobs/version_increment_command.h"
#include "jobs/write_archive_command.h"
#include "pages/document_pages.h"
#include "pages/light_page.h"
#include "pages/material_page.h"
#include "pages/object_page.h"
#include "side_export/export_vrml_command.h"

namespace {

// The one plug-in object, with all its commands and pages.
class Module {
 public:
  Module() {
    plug_in_.AddCommand<orv::CCommandOrvOptions>();
    plug_in_.AddCommand<orv::CCommandOrvSurface>();
    plug_in_.AddCommand<orv::CCommandSceneOut>();
    plug_in_.AddCommand<orv::CCommandOrvRender>();
    plug_in_.AddCommand<orv::CCommandOrvMaterial>();
    plug_in_.AddCommand<orv::CCommandOrvTrace>();
    plug_in_.AddCommand<orv::CCommandOrvOutline>();
    plug_in_.AddCommand<orv::CCommandOrvGI>();
    plug_in_.AddCommand<orv::CCommandOrvLoadSettings>();
    plug_in_.AddCommand<orv::CCommandOrvSaveSettings>();
    plug_in_.AddCommand<orv::CCommandOrvResetSettings>();
    plug_in_.AddCommand<orv::CCommandOrvEnvironmentMap>();
    plug_in_.AddCommand<orv::CCommandOrvIprStart>();
    plug_in_.AddCommand<orv::CCommandOrvRenderCubeMap>();
    plug_in_.AddCommand<orv::CCommandOrvIprEnd>();
    plug_in_.AddCommand<orv::CCommandOrvIprUpdateSelected>();
    plug_in_.AddCommand<orv::CCommandOrvIprUpdateView>();
    plug_in_.AddCommand<orv::CCommandOrvSubmitJob>();
    plug_in_.AddCommand<orv::CCommandOrvVersionIncrement>();
    plug_in_.AddCommand<orv::CCommandOrvBake>();
    plug_in_.AddCommand<orv::CCommandOrvLoadBakedMaps>();
    plug_in_.AddCommand<orv::CCommandOrvExportVrml>();
    plug_in_.AddCommand<orv::CCommandOrvObject>();
    plug_in_.AddCommand<orv::CCommandOrvWriteArchive>();
    plug_in_.AddCommand<orv::CCommandOrvCopyRhinoMap>();

    plug_in_.AddDocumentPage<orv::CDocPageDlg>();
    plug_in_.AddDocumentPage<orv::CDisplayDlg>();
    plug_in_.AddDocumentPage<orv::CTraceDlg>();
    plug_in_.AddDocumentPage<orv::CGiDlg>();
    plug_in_.AddDocumentPage<orv::COutlineDlg>();
    plug_in_.AddDocumentPage<orv::CAnimDlg>();
    plug_in_.AddDocumentPage<orv::AdvancedDlg>();
    plug_in_.AddDocumentPage<orv::CTweakDlg>();
    plug_in_.AddDocumentPage<orv::CBakeDlg>();
    plug_in_.AddDocumentPage<orv::CGenDlg>();

    plug_in_.AddObjectPage<orv::CLightPropPageDlg>();
    plug_in_.AddObjectPage<orv::CMatDlg>();
    plug_in_.AddObjectPage<orv::CObjectDlg>();
  }

 private:
  orv::CSceneOutPlugIn plug_in_;
};

Module theModule;

}  // namespace

extern "C" {

// The SDK that the module was built with; a host refuses others than its own.
[[gnu::visibility("default")]] int RhinoPlugInSdkVersion() {
  return kRhinoPlugInSdkVersion;
}
[[gnu::visibility("default")]] int RhinoPlugInSdkServiceRelease() {
  return kRhinoPlugInSdkServiceRelease;
}

// Who ships the plug-in. What there is none of is empty.
[[gnu::visibility("default")]] const wchar_t* RhinoPlugInDeveloperOrganization() {
  return L"RhinoOrv";
}
[[gnu::visibility("default")]] const wchar_t* RhinoPlugInDeveloperAddress() {
  return L"";
}
[[gnu::visibility("default")]] const wchar_t* RhinoPlugInDeveloperCountry() {
  return L"";
}
[[gnu::visibility("default")]] const wchar_t* RhinoPlugInDeveloperPhone() {
  return L"";
}
[[gnu::visibility("default")]] const wchar_t* RhinoPlugInDeveloperFax() {
  return L"";
}
[[gnu::visibility("default")]] const wchar_t* RhinoPlugInDeveloperEmail() {
  return L"";
}
[[gnu::visibility("default")]] const wchar_t* RhinoPlugInDeveloperWebsite() {
  return L"";
}
[[gnu::visibility("default")]] const wchar_t* RhinoPlugInUpdateURL() {
  return L"";
}

}  // extern "C"
