#include "jobs/material_command.h"

#include "host/command/get_string.h"
#include "host/document/object.h"
#include "jobs/attribute_options.h"
#include "jobs/objects_to_edit.h"
#include "jobs/shader_slot.h"
#include "shading/shader_call.h"

namespace orv {
namespace {

using Record = MaterialAttributes;
using MaterialOption = AttributeOption<Record, bool Record::*>;

constexpr std::string_view kDisplacementModes[] = {"Off", "Bump", "Regular", "Mesh"};

constexpr MaterialOption kOptions[] = {
    {"Name", &Record::Name, &Record::NameChanged},
    {"Color", &Record::Diffuse, &Record::ColorChanged, "Material color "},
    {"Transparency",
     &Record::Transparency,
     &Record::TransparencyChanged,
     "Transparency (0-1) ",
     {0, 1}},
    {"ShadingSamples",
     &Record::ShadingSamples,
     &Record::ShadingSamplesChanged,
     "Shading samples (1-32) ",
     {1, 32}},
    {"Surface", &Record::Surface, &Record::SurfaceChanged},
    {"Displacement", &Record::Displacement, &Record::DisplacementChanged},
    {"DisplacementMode",
     &Record::DisplacementMode,
     &Record::DisplacementModeChanged,
     {},
     {},
     kDisplacementModes},
};

// The slot whose shader an option edits; null for every other option.
const ShaderSlot* SlotOf(const MaterialOption& option) {
  for (const ShaderSlot* slot : {&kSurfaceSlot, &kDisplacementSlot}) {
    if (option.Changed == slot->CallChanged) return slot;
  }
  return nullptr;
}

CommandResult AskForName(CRhinoCommandContext& context, MaterialAttributes& attributes) {
  CRhinoGetString get(context);
  get.SetCommandPrompt("Name: ");
  get.SetDefaultString(attributes.Name);
  get.AcceptNothing();
  if (get.GetString() != CRhinoGet::Result::string) return get.CommandResult();
  attributes.Name = get.String();
  return CommandResult::success;
}

// A material on the run of the command.
struct MaterialEdit {
  CRhinoCommandContext& Context;
  CSceneOutPlugIn& PlugIn;
  const CRhinoObject& Object;
  MaterialAttributes& Attributes;

  [[nodiscard]] std::string Shown(const MaterialOption& option) const {
    const ShaderSlot* slot = SlotOf(option);
    return slot == nullptr ? Attributes.Name : std::string(ShaderNameOf(Attributes.*slot->Call));
  }

  // Without a shader, the host's material counts.
  void EditShader(const ShaderSlot& slot) const {
    const CommandResult edited = EditShaderSlot(Context, PlugIn, slot, Object, Attributes);
    std::string& call = Attributes.*slot.Call;
    if (edited == CommandResult::success && call.empty()) call = kHostShader;
  }

  [[nodiscard]] CommandResult Change(const MaterialOption& option) const {
    // Also for a shader whose edit isn't accepted: all objects get the one that is shown.
    Attributes.*option.Changed = true;
    if (const ShaderSlot* slot = SlotOf(option)) {
      EditShader(*slot);
      return CommandResult::success;
    }
    const bool isName = option.Changed == &MaterialAttributes::NameChanged;
    return isName ? AskForName(Context, Attributes) : CommandResult::success;
  }
};

}  // namespace

CCommandOrvMaterial::CCommandOrvMaterial(CSceneOutPlugIn& plugIn)
    : COrvCommand(
          plugIn, "4d258932-23b0-4627-acf3-60848b68b564"_uuid, "OrvMaterial",
          "Edits name, colour, shaders and displacement of objects' materials.",
          "Asks for the objects unless some are selected. The options show the first one's\n"
          "material; Enter stores what was changed in the materials of all. Surface and\n"
          "Displacement edit the shaders as OrvSurface does.\n") {}

CommandResult CCommandOrvMaterial::RunCommand(CRhinoCommandContext& context) {
  std::vector<CRhinoObject*> objects;
  const CommandResult asked = GetObjectsToEdit(context, objects);
  if (asked != CommandResult::success) return asked;
  MaterialAttributes attributes = ReadMaterialAttributes(*objects.front());
  const MaterialEdit edit{context, PlugIn(), *objects.front(), attributes};
  const CommandResult edited = EditAttributes(
      context, "Orv Material", std::span<const MaterialOption>(kOptions), attributes,
      [&edit](const MaterialOption& option) { return edit.Shown(option); },
      [&edit](const MaterialOption& option) { return edit.Change(option); });
  if (edited != CommandResult::success) return edited;
  for (const CRhinoObject* object : objects) {
    // An object without a material is passed over.
    static_cast<void>(WriteMaterialAttributes(context.m_doc, *object, attributes));
  }
  return CommandResult::success;
}

}  // namespace orv
