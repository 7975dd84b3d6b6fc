#include <functional>
#include <iterator>

#include "host/command/ask_for_name.h"
#include "host/command/get_object.h"
#include "host/command/get_option.h"
#include "host/command/get_string.h"
#include "host/command/host_commands.h"
#include "host/command/name_pattern.h"
#include "host/document/app.h"
#include "host/document/object_iterator.h"
#include "host/document/read_report.h"
#include "host/system/text.h"

namespace {

using ObjectTest = std::function<bool(const CRhinoObject&)>;

// "1 object", "12 objects".
std::string Objects(int count) {
  return std::to_string(count) + (count == 1 ? " object" : " objects");
}

// The objects that can be selected, lights last.
template <class Visit>
void ForEachObject(CRhinoDoc& doc, Visit visit) {
  CRhinoObjectIterator it(doc);
  it.IncludeLights();
  std::vector<CRhinoObject*> objects;
  for (CRhinoObject* object = it.First(); object != nullptr; object = it.Next()) {
    objects.push_back(object);
  }
  for (CRhinoObject* object : objects) visit(*object);
}

// Adds the objects that pass the test to the selection.
CommandResult SelectObjects(CRhinoDoc& doc, const ObjectTest& test) {
  int count = 0;
  ForEachObject(doc, [&](CRhinoObject& object) {
    if (test(object) && object.Select()) ++count;
  });
  RhinoApp().Print(Objects(count) + " added to the selection.\n");
  return count > 0 ? CommandResult::success : CommandResult::nothing;
}

CommandResult RunSelAll(CRhinoCommandContext& context) {
  return SelectObjects(context.m_doc, [](const CRhinoObject&) { return true; });
}

CommandResult RunSelNone(CRhinoCommandContext& context) {
  int count = 0;
  ForEachObject(context.m_doc, [&](CRhinoObject& object) {
    if (object.Select(false)) ++count;
  });
  RhinoApp().Print(Objects(count) + " removed from the selection.\n");
  return CommandResult::success;
}

CommandResult RunSelName(CRhinoCommandContext& context) {
  CRhinoGetString get(context);
  get.SetCommandPrompt("Name of the objects to select");
  std::vector<std::string> names;
  ForEachObject(context.m_doc, [&](const CRhinoObject& object) {
    const std::string& name = object.Attributes().m_name;
    if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end())
      names.push_back(name);
  });
  get.SetWords(std::move(names));
  if (get.GetString() != CRhinoGet::Result::string) return get.CommandResult();
  return SelectObjects(context.m_doc, [&](const CRhinoObject& object) {
    return FitsNamePattern(object.Attributes().m_name, get.String());
  });
}

CommandResult RunSelId(CRhinoCommandContext& context) {
  const CRhinoDoc& doc = context.m_doc;
  CRhinoGetString get(context);
  get.SetCommandPrompt("Id or serial number of the object to select");
  get.SetCheck([&doc](const std::string& text) {
    return FindObjectByNumber(doc, text) == nullptr
               ? "There is no object with the id or serial number '" + text + "'."
               : std::string();
  });
  if (get.GetString() != CRhinoGet::Result::string) return get.CommandResult();
  const CRhinoObject* wanted = FindObjectByNumber(doc, get.String());
  return SelectObjects(context.m_doc,
                       [wanted](const CRhinoObject& object) { return &object == wanted; });
}

// Lights have no material.
CommandResult RunSelMaterial(CRhinoCommandContext& context) {
  CRhinoGetString get(context);
  get.SetCommandPrompt("Material of the objects to select");
  AskForMaterial(get, context.m_doc);
  if (get.GetString() != CRhinoGet::Result::string) return get.CommandResult();
  return SelectObjects(context.m_doc, [&get](const CRhinoObject& object) {
    const ON_Material& material = object.ObjectMaterial();
    return object.ObjectType() != ON_ObjectType::light && material.MaterialIndex() >= 0 &&
           host::EqualNoCase(material.m_name, get.String());
  });
}

CommandResult RunSelLayer(CRhinoCommandContext& context) {
  CRhinoGetString get(context);
  get.SetCommandPrompt("Layer of the objects to select");
  AskForLayer(get, context.m_doc);
  if (get.GetString() != CRhinoGet::Result::string) return get.CommandResult();
  const int layer = context.m_doc.m_layer_table.FindLayer(get.String());
  return SelectObjects(context.m_doc, [layer](const CRhinoObject& object) {
    return object.Attributes().m_layer_index == layer;
  });
}

struct TypeRow {
  std::string_view Name;
  ON_ObjectType Type;
};

constexpr TypeRow kTypes[] = {
    {"Point", ON_ObjectType::point},
    {"PointCloud", ON_ObjectType::pointset},
    {"Curve", ON_ObjectType::curve},
    {"Surface", ON_ObjectType::surface},
    {"Brep", ON_ObjectType::brep},
    {"Extrusion", ON_ObjectType::extrusion},
    {"Mesh", ON_ObjectType::mesh},
    {"SubD", ON_ObjectType::subd},
    {"Light", ON_ObjectType::light},
    {"Annotation", ON_ObjectType::annotation},
    {"Block", ON_ObjectType::instance_reference},
    {"Dot", ON_ObjectType::text_dot},
    {"Hatch", ON_ObjectType::hatch},
    {"Detail", ON_ObjectType::detail},
    {"ClippingPlane", ON_ObjectType::clipping_plane},
};

CommandResult RunSelType(CRhinoCommandContext& context) {
  CRhinoGetOption get(context);
  get.SetCommandPrompt("Kind of the objects to select");
  for (const TypeRow& row : kTypes) get.AddCommandOption(row.Name);
  if (get.GetOption() != CRhinoGet::Result::option) return get.CommandResult();
  const ON_ObjectType type = kTypes[get.OptionIndex() - 1].Type;
  return SelectObjects(context.m_doc,
                       [type](const CRhinoObject& object) { return object.ObjectType() == type; });
}

CommandResult RunHide(CRhinoCommandContext& context) {
  CRhinoGetObject get(context);
  get.SetCommandPrompt("Select objects to hide");
  if (get.GetObjects(1, 0) != CRhinoGet::Result::object) return get.CommandResult();
  int count = 0;
  for (CRhinoObject* object : get.Objects()) {
    if (object->Hide()) ++count;
  }
  RhinoApp().Print(Objects(count) + " hidden.\n");
  return CommandResult::success;
}

CommandResult RunShow(CRhinoCommandContext& context) {
  int count = 0;
  ForEachObject(context.m_doc, [&](CRhinoObject& object) {
    if (object.Hide(false)) ++count;
  });
  RhinoApp().Print(Objects(count) + " shown.\n");
  return count > 0 ? CommandResult::success : CommandResult::nothing;
}

constexpr std::string_view kObjectUsage =
    "Takes the selected objects. When none is selected, type the name, id or serial number of\n"
    "each (What tells them), and Enter at the end.\n";

}  // namespace

std::vector<HostCommand::Row> SelectionCommands() {
  return {
      {"a80827c5-6f6d-4bd3-a389-c514e75717f1"_uuid, "SelAll",
       "Selects all visible, unlocked objects.", "Asks for nothing.\n", RunSelAll},
      {"2f4564ea-3de8-419b-89db-f57d00e567ec"_uuid, "SelNone", "Deselects all objects.",
       "Asks for nothing.\n", RunSelNone},
      {"cc531309-c58f-4cce-832a-1f7d087458db"_uuid, "SelName",
       "Adds the objects of a name to the selection.",
       "Asks for the name; * stands for any text and ? for one character.\n", RunSelName},
      {"90efdfff-a781-4c93-b3db-872f88d595bb"_uuid, "SelLayer",
       "Adds the objects of a layer to the selection.",
       "Asks for the layer's name or its full path, as in Walls::Inner.\n", RunSelLayer},
      {"673818b1-571f-48e1-9799-580e1a81d50f"_uuid, "SelId",
       "Adds an object to the selection by its id or serial number.",
       "Asks for the id or the serial number; What tells both.\n", RunSelId},
      {"d3556712-106b-4de3-8713-3da2cf048937"_uuid, "SelMaterial",
       "Adds the objects of a material to the selection.",
       "Asks for the material's name. Objects that have it from their layer count, too.\n",
       RunSelMaterial},
      {"ea96dda6-eb93-4d25-b8ca-c5057728f51d"_uuid, "SelType",
       "Adds the objects of a kind to the selection.",
       "Asks for the kind: Point, PointCloud, Curve, Surface, Brep, Extrusion, Mesh, SubD, Light,\n"
       "Annotation, Block, Dot, Hatch, Detail or ClippingPlane.\n",
       RunSelType},
      {"3af91c7a-ed06-40d1-a0b2-f8cf803e4e6d"_uuid, "Hide", "Hides objects.", kObjectUsage,
       RunHide},
      {"8bc756b0-3b73-492e-abe5-f4cf9ee365fa"_uuid, "Show", "Shows all hidden objects.",
       "Asks for nothing. Objects on a layer that is off stay unseen.\n", RunShow},
  };
}
