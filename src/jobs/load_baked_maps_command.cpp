#include "jobs/load_baked_maps_command.h"

#include <string>
#include <vector>

#include "export/bake_maps.h"
#include "export/baked_name.h"
#include "host/command/get_option.h"
#include "host/document/object_iterator.h"
#include "settings/settings_store.h"

namespace orv {
namespace {

CommandResult AskForSelected(CRhinoCommandContext& context, bool& selectedOnly) {
  CRhinoGetOption get(context);
  get.SetCommandPrompt("Load Baked Maps ");
  get.AcceptNothing();
  get.AddCommandOptionToggle("Selected", "No", "Yes", &selectedOnly);
  CRhinoGet::Result result = get.GetOption();
  while (result == CRhinoGet::Result::option) result = get.GetOption();
  if (result == CRhinoGet::Result::nothing) return CommandResult::success;
  return result == CRhinoGet::Result::cancel ? CommandResult::cancel : CommandResult::failure;
}

// Puts the map in the place of the material's images. A layer that has no material gets one here,
// but the map comes into it only when this is done again, or with the layer's next object.
void AssignMap(CRhinoDoc& doc, const CRhinoObject& object, const std::string& file) {
  ON_Material material = object.ObjectMaterial();
  if (doc.MaterialToEdit(object) < 0) return;
  std::erase_if(material.m_textures, [](const ON_Texture& texture) {
    return texture.m_type == ON_Texture::Type::bitmap;
  });
  constexpr int kModulate = 1;
  ON_Texture& texture = material.m_textures.emplace_back();
  texture.m_image_file = file;
  texture.m_bOn = true;
  texture.m_type = ON_Texture::Type::bitmap;
  texture.m_mode = kModulate;
  doc.m_material_table.ModifyMaterial(material, material.MaterialIndex());
}

}  // namespace

CCommandOrvLoadBakedMaps::CCommandOrvLoadBakedMaps(CSceneOutPlugIn& plugIn)
    : COrvCommand(
          plugIn, "26b9f0c3-81de-4a57-b4e6-0d93c75a1f28"_uuid, "OrvLoadBakedMaps",
          "Gives the materials of the objects the maps that were baked of them.",
          "Selected=Yes takes the selected objects only. Enter puts the maps into the materials.\n"
          "A layer without a material gets one, and an object that this was made for its map only\n"
          "when the command runs again.\n") {}

CommandResult CCommandOrvLoadBakedMaps::RunCommand(CRhinoCommandContext& context) {
  const BakeSettings bake = LoadBakeSettings(PlugIn().UserStrings());
  bool selectedOnly = false;
  const CommandResult asked = AskForSelected(context, selectedOnly);
  if (asked != CommandResult::success) return asked;
  CRhinoObjectIterator iterator(context.m_doc);
  for (CRhinoObject* object = iterator.First(); object != nullptr; object = iterator.Next()) {
    if ((selectedOnly && !object->IsSelected()) || !CanBeBaked(*object)) continue;
    AssignMap(context.m_doc, *object, BakedMapFileName(bake.BakeImageName, *object));
  }
  return CommandResult::success;
}

}  // namespace orv
