// Material files of the material page.

#include "host/document/app.h"
#include "host/system/file_replacement.h"
#include "jobs/plugin.h"
#include "pages/material_editor.h"
#include "pages/property_control.h"
#include "shading/material_file.h"

namespace orv {
namespace {

constexpr std::string_view kFilter = "Orv Material Files (*.omf);*.omf;All Files;*.*;";
constexpr FileQuestion kLoad{
    {"Load Orv Material", kFilter}, FileQuestion::Dialog::open, {}, &UserValues::MaterialDir};
constexpr FileQuestion kSave{
    {"Save Orv Material", kFilter}, FileQuestion::Dialog::save, {}, &UserValues::MaterialDir};

}  // namespace

void MaterialEditor::Load(CRhinoCommandContext& context, std::string_view value) {
  std::string path;
  if (!orv::ChooseFile(context, kLoad, plug_in_.User(), value, path)) return;
  MaterialAttributes material;
  if (ReadMaterialFile(path, Gamma(), material)) {
    Replace(context.m_doc, material);
  } else {
    RhinoApp().Print("Unable to load selected material file.\n");
  }
}

void MaterialEditor::Save(CRhinoCommandContext& context, std::string_view value) {
  std::string path;
  if (!orv::ChooseFile(context, kSave, plug_in_.User(), value, path)) return;
  // An older file stays as it is when the new one can't be written whole.
  if (!host::ReplaceFile(path, TextFromMaterial(path, Gamma(), current_))) {
    RhinoApp().Print("Unable to save selected material.\n");
  }
}

}  // namespace orv
