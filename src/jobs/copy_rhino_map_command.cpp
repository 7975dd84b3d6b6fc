#include "jobs/copy_rhino_map_command.h"

#include <algorithm>
#include <array>

#include "host/document/object.h"
#include "jobs/objects_to_edit.h"
#include "jobs/shader_draft.h"
#include "settings/settings_store.h"
#include "shading/call_string.h"
#include "shading/material_attributes.h"

namespace orv {
namespace {

void SetPair(ShaderParam& param, std::string_view name, const std::array<double, 2>& pair) {
  if (param.Kind != ParamKind::Float || param.Count != 2 || param.Name != name) return;
  std::copy(pair.begin(), pair.end(), param.Values.begin());
}

// Puts the map into the shader. False when the shader has no place for one.
bool CopyMap(const MaterialAttributes& attributes, ShaderDraft& draft) {
  std::string map = attributes.ColorMap;
  std::replace(map.begin(), map.end(), '\\', '/');
  bool isFound = false;
  for (ShaderParam& param : draft.Params) {
    if (param.Kind == ParamKind::String && param.Name == "ColorMapName") {
      param.Text = EncodeCallString(map);
      isFound = true;
    }
    SetPair(param, "TextureOriginXY", attributes.MapOrigin);
    SetPair(param, "TextureSizeXY", attributes.MapSize);
  }
  return isFound;
}

}  // namespace

CCommandOrvCopyRhinoMap::CCommandOrvCopyRhinoMap(CSceneOutPlugIn& plugIn)
    : COrvCommand(plugIn, "c4f3f2c2-2350-4b02-9a1a-f5069c6b86ef"_uuid, "OrvCopyRhinoMap",
                  "Puts the host material's image into the surface shader of objects.",
                  "Asks for the objects unless some are selected. Shaders with the parameter\n"
                  "ColorMapName get the image, its size and its origin; others stay.\n") {}

CommandResult CCommandOrvCopyRhinoMap::RunCommand(CRhinoCommandContext& context) {
  std::vector<CRhinoObject*> objects;
  const CommandResult asked = GetObjectsToEdit(context, objects);
  if (asked != CommandResult::success) return asked;
  const auto gamma = static_cast<double>(StoredRhinoGamma(PlugIn().UserStrings()));
  for (const CRhinoObject* object : objects) {
    MaterialAttributes attributes = ReadMaterialAttributes(*object);
    if (attributes.ColorMap.empty()) continue;
    ShaderDraft draft(attributes.Surface, gamma);
    if (!CopyMap(attributes, draft)) continue;
    attributes.Surface = draft.CallText();
    attributes.SurfaceChanged = true;
    // An object without a material is passed over.
    static_cast<void>(WriteMaterialAttributes(context.m_doc, *object, attributes));
  }
  return CommandResult::success;
}

}  // namespace orv
