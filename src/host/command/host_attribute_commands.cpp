#include "host/command/ask_for_name.h"
#include "host/command/get_object.h"
#include "host/command/get_string.h"
#include "host/command/host_commands.h"
#include "host/document/app.h"

namespace {

// What a command sets on objects, from a text that is typed.
struct AttributeRow {
  std::string_view Name;
  unsigned Filter;
  // Prepares the getter of the text.
  void (*Prepare)(CRhinoGetString& get, const CRhinoDoc& doc);
  // False when the attributes are so already.
  bool (*Set)(const CRhinoDoc& doc, const std::string& text, ON_3dmObjectAttributes& attributes);
};

constexpr unsigned kAllButLights =
    CRhinoGetObject::any_object & ~static_cast<unsigned>(ON_ObjectType::light);

void AskForName(CRhinoGetString& get, const CRhinoDoc&) {
  get.SetCommandPrompt("Name (Enter takes it away)");
  get.SetDefaultString({});
}

bool SetName(const CRhinoDoc&, const std::string& text, ON_3dmObjectAttributes& attributes) {
  const bool changes = attributes.m_name != text;
  attributes.m_name = text;
  return changes;
}

bool SetLayer(const CRhinoDoc& doc, const std::string& text, ON_3dmObjectAttributes& attributes) {
  const int layer = doc.m_layer_table.FindLayer(text);
  const bool changes = attributes.m_layer_index != layer;
  attributes.m_layer_index = layer;
  return changes;
}

bool SetMaterial(const CRhinoDoc& doc, const std::string& text,
                 ON_3dmObjectAttributes& attributes) {
  const int material = doc.m_material_table.FindMaterial(text);
  const bool changes = attributes.m_material_index != material ||
                       attributes.m_material_source != ON_AttributeSource::object;
  attributes.m_material_index = material;
  attributes.m_material_source = ON_AttributeSource::object;
  return changes;
}

constexpr AttributeRow kName = {"Name", CRhinoGetObject::any_object, AskForName, SetName};
constexpr AttributeRow kLayer = {"Layer", CRhinoGetObject::any_object, AskForLayer, SetLayer};
constexpr AttributeRow kMaterial = {"Material", kAllButLights, AskForMaterial, SetMaterial};

// An object that is so already counts when something is set, not when it is taken away.
CommandResult RunSetAttribute(const AttributeRow& row, CRhinoCommandContext& context) {
  CRhinoGetObject getObjects(context);
  getObjects.SetCommandPrompt("Select objects");
  getObjects.SetGeometryFilter(row.Filter);
  if (getObjects.GetObjects(1, 0) != CRhinoGet::Result::object) return getObjects.CommandResult();
  CRhinoGetString getText(context);
  getText.SetCommandPrompt(row.Name);
  row.Prepare(getText, context.m_doc);
  if (getText.GetString() != CRhinoGet::Result::string) return getText.CommandResult();
  const std::string& text = getText.String();
  int count = 0;
  for (CRhinoObject* object : getObjects.Objects()) {
    ON_3dmObjectAttributes attributes = object->Attributes();
    const bool changes = row.Set(context.m_doc, text, attributes);
    if (changes ? context.m_doc.ModifyObjectAttributes(*object, attributes) : !text.empty()) {
      ++count;
    }
  }
  RhinoApp().Print(std::string(row.Name) + (text.empty() ? " removed from " : " set on ") +
                   std::to_string(count) + (count == 1 ? " object.\n" : " objects.\n"));
  return count > 0 ? CommandResult::success : CommandResult::nothing;
}

HostCommand::Row CommandOf(const AttributeRow& row, const ON_UUID& id, std::string_view name,
                           std::string_view description, std::string_view usage) {
  return {id, name, description, usage,
          [&row](CRhinoCommandContext& context) { return RunSetAttribute(row, context); }};
}

// Why no new material can have the name; empty when it can.
std::string ProblemOfNewName(const CRhinoDoc& doc, const std::string& name) {
  if (name.empty()) return "A name is not empty.";
  const bool isTaken = doc.m_material_table.FindMaterial(name) >= 0;
  return isTaken ? "There is a material '" + name + "' already." : std::string();
}

CommandResult RunAddMaterial(CRhinoCommandContext& context) {
  CRhinoDoc& doc = context.m_doc;
  ON_Material material;
  CRhinoGetString get(context);
  get.SetCommandPrompt("Name of the material");
  get.AddCommandOptionColor("Color", &material.m_diffuse, "Color of the material");
  get.SetCheck([&doc](const std::string& name) { return ProblemOfNewName(doc, name); });
  CRhinoGet::Result result = get.GetString();
  while (result == CRhinoGet::Result::option) result = get.GetString();
  if (result != CRhinoGet::Result::string) return get.CommandResult();
  material.m_name = get.String();
  doc.m_material_table.AddMaterial(material);
  RhinoApp().Print("Material '" + material.m_name + "' added.\n");
  return CommandResult::success;
}

}  // namespace

std::vector<HostCommand::Row> AttributeCommands() {
  return {
      CommandOf(
          kName, "841cbeb5-c747-4650-9bb9-3f6ef73e2f04"_uuid, "SetObjectName",
          "Names objects, or takes their names away.",
          "Takes the selected objects, or asks for them as Hide does; then asks for the name.\n"
          "Enter or an empty one takes the name away.\n"),
      CommandOf(kLayer, "6fcdda1f-d425-4f31-923f-ad3092835d96"_uuid, "SetObjectLayer",
                "Puts objects on a layer.",
                "Takes the selected objects, or asks for them as Hide does; then asks for the "
                "layer's\n"
                "name or its full path, as in Walls::Inner.\n"),
      CommandOf(kMaterial, "32e0783e-7117-4eb8-b38c-9948a3ceac24"_uuid, "SetObjectMaterial",
                "Gives objects a material of their own.",
                "Takes the selected objects, or asks for them as Hide does; then asks for the name "
                "of\n"
                "the material.\n"),
      {"ab0a8f13-ddba-4816-b5e2-5dc577850dad"_uuid, "AddMaterial", "Adds a material.",
       "Asks for the name, which no material has yet, with the option Color (as 255,128,0 or\n"
       "#ff8000).\n",
       RunAddMaterial},
  };
}
