#include <array>
#include <set>

#include "host/command/get_object.h"
#include "host/command/get_string.h"
#include "host/command/host_commands.h"
#include "host/document/app.h"
#include "host/document/read_report.h"

namespace {

// Undo and Redo: what each is called in messages and does.
struct ReplayRow {
  std::string_view Name;
  std::string_view Verb;
  std::optional<std::string> (CRhinoDoc::*Caption)() const;
  bool (CRhinoDoc::*Replay)();
};

constexpr ReplayRow kUndo = {"Undo", "undo", &CRhinoDoc::UndoCaption, &CRhinoDoc::Undo};
constexpr ReplayRow kRedo = {"Redo", "redo", &CRhinoDoc::RedoCaption, &CRhinoDoc::Redo};

CommandResult RunReplay(const ReplayRow& row, CRhinoDoc& doc) {
  const std::optional<std::string> caption = (doc.*row.Caption)();
  if (!caption || !(doc.*row.Replay)()) {
    RhinoApp().Print("Nothing to " + std::string(row.Verb) + ".\n");
    return CommandResult::nothing;
  }
  RhinoApp().Print(std::string(row.Name) + ": " + *caption + ".\n");
  return CommandResult::success;
}

CommandResult RunUndo(CRhinoCommandContext& context) {
  return RunReplay(kUndo, context.m_doc);
}

CommandResult RunRedo(CRhinoCommandContext& context) {
  return RunReplay(kRedo, context.m_doc);
}

// A text by a key; an empty one takes the key away.
struct UserText {
  std::string Key;
  std::string Value;
};

// False when the carrier is as the text says already.
bool Apply(const UserText& text, ON_Object& carrier) {
  const auto present = carrier.GetUserString(text.Key);
  if (text.Value.empty()) {
    if (!present) return false;
    carrier.m_user_strings.RemoveUserString(text.Key);
  } else {
    if (present == text.Value) return false;
    carrier.SetUserString(text.Key, text.Value);
  }
  return true;
}

// A text that a carrier has already counts as set, one that it hasn't doesn't count as removed.
bool CountsUnchanged(const UserText& text) {
  return !text.Value.empty();
}

// The texts of a light stand on the light itself, those of other objects on their attributes. True
// when the object counts.
bool ApplyToObject(const UserText& text, CRhinoDoc& doc, CRhinoObject& object) {
  if (const ON_Light* light = ON_Light::Cast(object.Geometry());
      light && light->LightIndex() >= 0) {
    ON_Light changed = *light;
    return Apply(text, changed) ? doc.m_light_table.ModifyLight(changed, light->LightIndex())
                                : CountsUnchanged(text);
  }
  ON_3dmObjectAttributes attributes = object.Attributes();
  return Apply(text, attributes) ? doc.ModifyObjectAttributes(object, attributes)
                                 : CountsUnchanged(text);
}

int SetOnObjects(const UserText& text, CRhinoDoc& doc, const std::vector<CRhinoObject*>& objects) {
  int count = 0;
  for (CRhinoObject* object : objects) {
    if (ApplyToObject(text, doc, *object)) ++count;
  }
  return count;
}

int SetOnMaterials(const UserText& text, CRhinoDoc& doc,
                   const std::vector<CRhinoObject*>& objects) {
  std::set<int> indices;
  for (const CRhinoObject* object : objects) {
    if (object->ObjectType() == ON_ObjectType::light) continue;
    // Without a text there is nothing for which a layer would need a material.
    const int index =
        text.Value.empty() ? object->ObjectMaterial().MaterialIndex() : doc.MaterialToEdit(*object);
    if (index >= 0) indices.insert(index);
  }
  int count = 0;
  for (const int index : indices) {
    ON_Material material = *doc.m_material_table.At(index);
    const bool counts = Apply(text, material) ? doc.m_material_table.ModifyMaterial(material, index)
                                              : CountsUnchanged(text);
    if (counts) ++count;
  }
  return count;
}

// What can carry a text: the word of the option, what messages call it, and what sets the text.
struct CarrierRow {
  std::string_view Word;
  std::string_view Noun;
  int (*Set)(const UserText&, CRhinoDoc&, const std::vector<CRhinoObject*>&);
};

constexpr std::array<CarrierRow, 2> kCarriers = {
    {{"Object", "object", SetOnObjects}, {"Material", "material", SetOnMaterials}}};

std::vector<std::string_view> CarrierWords() {
  std::vector<std::string_view> words;
  for (const CarrierRow& row : kCarriers) words.push_back(row.Word);
  return words;
}

// Asks for the key and what carries it. What the command gives back when there is no key.
std::optional<CommandResult> AskForKey(CRhinoCommandContext& context, std::string& key,
                                       int& carrier) {
  CRhinoGetString get(context);
  get.SetCommandPrompt("Key of the text");
  get.AddCommandOptionList("On", CarrierWords(), &carrier);
  get.SetCheck([](const std::string& text) {
    return text.empty() ? std::string("A key is not empty.") : std::string();
  });
  CRhinoGet::Result result = get.GetString();
  while (result == CRhinoGet::Result::option) result = get.GetString();
  if (result != CRhinoGet::Result::string) return get.CommandResult();
  key = get.String();
  return std::nullopt;
}

// "OrvArchive set on 2 objects."
void TellCount(const UserText& text, int count, std::string_view noun) {
  RhinoApp().Print(text.Key + (text.Value.empty() ? " removed from " : " set on ") +
                   std::to_string(count) + " " + (count == 1 ? std::string(noun) : Plural(noun)) +
                   ".\n");
}

CommandResult RunSetUserText(CRhinoCommandContext& context) {
  CRhinoGetObject getObjects(context);
  getObjects.SetCommandPrompt("Select objects to carry a text");
  if (getObjects.GetObjects(1, 0) != CRhinoGet::Result::object) return getObjects.CommandResult();
  UserText text;
  int carrier = 0;
  if (const auto ended = AskForKey(context, text.Key, carrier)) return *ended;
  CRhinoGetString getValue(context);
  getValue.SetCommandPrompt("Text (Enter removes the key)");
  getValue.SetDefaultString({});
  if (getValue.GetString() != CRhinoGet::Result::string) return getValue.CommandResult();
  text.Value = getValue.String();
  const CarrierRow& row = kCarriers[static_cast<std::size_t>(carrier)];
  const int count = row.Set(text, context.m_doc, getObjects.Objects());
  TellCount(text, count, row.Noun);
  return count > 0 ? CommandResult::success : CommandResult::nothing;
}

}  // namespace

std::vector<HostCommand::Row> EditCommands() {
  return {
      {"a62fd96f-a65a-4d54-b1d0-c57819fd4ba9"_uuid, "Undo",
       "Takes back what the last command changed.",
       "Asks for nothing. Takes back edits of objects, layers, materials and lights. Changes of\n"
       "settings, views, cameras and the selection make no record. Opening and importing can't be\n"
       "taken back.\n",
       RunUndo, false},
      {"a2bc5a6d-1fcd-4e5a-9d61-c811647e9167"_uuid, "Redo", "Makes again what Undo took back.",
       "Asks for nothing.\n", RunRedo, false},
      {"8e41b402-13e4-4e4e-ba91-223688e52da1"_uuid, "SetUserText",
       "Sets or removes a text of objects or of their materials.",
       "Takes the selected objects, or asks for them as Hide does; then asks for the key, with "
       "the\n"
       "option On (Object or Material), and the text. Enter or an empty text removes the key. A\n"
       "layer without a material gets one when its objects take theirs from it.\n",
       RunSetUserText},
  };
}
