#include "jobs/plugin.h"

#include "export/scene_export.h"
#include "host/document/app.h"
#include "settings/profile_values.h"
#include "settings/settings_chunk.h"
#include "settings/settings_store.h"

namespace orv {

RenderSettings CSceneOutPlugIn::LoadSettings() const {
  return LoadRenderSettings(user_strings_, user_);
}

void CSceneOutPlugIn::StoreSettings(const RenderSettings& settings) {
  StoreRenderSettings(settings, user_strings_, user_);
}

TextureConverter& CSceneOutPlugIn::Textures() {
  textures_.TextureCacheDir = user_.TextureCacheDir;
  return textures_;
}

ON_UUID CSceneOutPlugIn::PlugInID() const {
  return "7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4"_uuid;
}

std::string_view CSceneOutPlugIn::PlugInName() const {
  return "RhinoOrv";
}

std::string_view CSceneOutPlugIn::PlugInVersion() const {
  return __DATE__ "  " __TIME__;
}

bool CSceneOutPlugIn::OnLoadPlugIn() {
  user_ = LoadProfileValues(RhinoApp().ProfileContext(), user_strings_);
  return CRhinoFileExportPlugIn::OnLoadPlugIn();
}

void CSceneOutPlugIn::OnUnloadPlugIn() {
  SaveProfileValues(RhinoApp().ProfileContext(), user_, user_strings_);
  CRhinoFileExportPlugIn::OnUnloadPlugIn();
}

bool CSceneOutPlugIn::CallWriteDocument(const CRhinoFileWriteOptions& options) {
  const bool onlySelected = options.Mode(0);
  return !onlySelected && !user_strings_.IsEmpty();
}

bool CSceneOutPlugIn::WriteDocument(CRhinoDoc&, ON_BinaryArchive& archive,
                                    const CRhinoFileWriteOptions&) {
  return WriteSettingsChunk(archive, user_strings_);
}

bool CSceneOutPlugIn::ReadDocument(CRhinoDoc&, ON_BinaryArchive& archive,
                                   const CRhinoFileReadOptions& options) {
  const bool merging = options.Mode(0) || options.Mode(4);
  return ReadSettingsChunk(archive, merging, user_strings_);
}

void CSceneOutPlugIn::AddPagesToObjectPropertiesDialog(Pages& pages) {
  for (const MakePage& make : object_pages_) pages.push_back(make());
}

void CSceneOutPlugIn::AddPagesToDocumentPropertiesDialog(Pages& pages) {
  for (const MakePage& make : document_pages_) pages.push_back(make());
}

void CSceneOutPlugIn::AddFileType(std::vector<CRhinoFileType>& types) {
  types.push_back({PlugInID(), "Orv RIB Files (*.orib)", "orib"});
}

int CSceneOutPlugIn::WriteFile(std::string_view fileName, CRhinoDoc& doc,
                               const CRhinoFileWriteOptions& options) {
  RenderSettings settings;
  return ExportSceneRib(fileName, doc, options, user_.Reparameterize ? 1 : 0, PlugInFileName(),
                        settings, nullptr, Textures());
}

}  // namespace orv
