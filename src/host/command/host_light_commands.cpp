#include <array>
#include <cmath>
#include <span>

#include "host/command/get_object.h"
#include "host/command/get_option.h"
#include "host/command/get_point.h"
#include "host/command/get_string.h"
#include "host/command/host_commands.h"
#include "host/document/app.h"
#include "host/geometry/on_light.h"

namespace {

using Points = std::span<const ON_3dPoint>;

void PlaceAt(Points points, ON_Light& light) {
  light.m_location = points[0];
}

void PlaceTowards(Points points, ON_Light& light) {
  light.m_location = points[0];
  light.m_direction = points[1] - points[0];
}

void PlaceLine(Points points, ON_Light& light) {
  light.m_location = points[0];
  light.m_length = points[1] - points[0];
}

void PlaceRectangle(Points points, ON_Light& light) {
  light.m_location = points[0];
  light.m_length = points[1] - points[0];
  light.m_width = points[2] - points[0];
  light.m_direction = ON_CrossProduct(light.m_length, light.m_width);
}

void PlaceNowhere(Points, ON_Light&) {}

// A kind of light: what it is called, the points that it is made of, and what they make of it.
struct LightKind {
  std::string_view Name;
  ON_LightStyle Style;
  std::array<std::string_view, 3> Prompts;
  void (*Place)(Points points, ON_Light& light);
};

constexpr LightKind kKinds[] = {
    {"Point", ON_LightStyle::world_point, {"Location"}, PlaceAt},
    {"Spot", ON_LightStyle::world_spot, {"Location", "Target"}, PlaceTowards},
    {"Directional", ON_LightStyle::world_directional, {"Location", "Target"}, PlaceTowards},
    {"Rectangular",
     ON_LightStyle::world_rectangular,
     {"Corner", "End of the length", "End of the width"},
     PlaceRectangle},
    {"Linear", ON_LightStyle::world_linear, {"Start", "End"}, PlaceLine},
    {"Ambient", ON_LightStyle::ambient, {}, PlaceNowhere},
};

// What can be told of a new light before its kind.
struct LightLook {
  std::string Name;
  ON_Color Color{255, 255, 255};
  // Half the angle of a spot's cone, in degrees.
  double SpotAngle = 45;
};

// Asks for the options and the kind. Null when there is none; `ended` is then what the command
// gives back.
const LightKind* AskForKind(CRhinoCommandContext& context, LightLook& look, CommandResult& ended) {
  for (;;) {
    CRhinoGetOption get(context);
    get.SetCommandPrompt("Kind of the light");
    for (const LightKind& kind : kKinds) get.AddCommandOption(kind.Name);
    const int name = get.AddCommandOption("Name", look.Name);
    get.AddCommandOptionColor("Color", &look.Color, "Color of the light");
    get.AddCommandOptionNumber("SpotAngle", &look.SpotAngle,
                               "Half the angle of a spot's cone (degrees)", 1, 89);
    const CRhinoGet::Result result = get.GetOption();
    ended = get.CommandResult();
    if (result != CRhinoGet::Result::option) return nullptr;
    if (get.OptionIndex() < name) return &kKinds[get.OptionIndex() - 1];
    if (get.OptionIndex() > name) continue;
    CRhinoGetString getName(context);
    getName.SetCommandPrompt("Name of the light");
    const bool isNamed = getName.GetString() == CRhinoGet::Result::string;
    ended = getName.CommandResult();
    if (!isNamed) return nullptr;
    look.Name = getName.String();
  }
}

// What is wrong with the last of the points; empty when nothing is.
std::string_view ProblemOf(Points points) {
  const auto isLength = [](double length) { return length > 0 && std::isfinite(length); };
  if (points.size() < 2) return {};
  const ON_3dVector last = points.back() - points.front();
  if (!isLength(last.Length())) return "It must stand apart from the first point.";
  if (points.size() < 3) return {};
  const double area = ON_CrossProduct(points[1] - points[0], last).Length();
  return isLength(area) ? std::string_view()
                        : "It must not stand in line with the first two points.";
}

// Asks for one more point. Success, or what the command gives back.
CommandResult AskForNextPoint(CRhinoCommandContext& context, std::string_view prompt,
                              std::vector<ON_3dPoint>& points) {
  points.emplace_back();
  for (;;) {
    const CommandResult asked = AskForPoint(context, prompt, points.back());
    if (asked != CommandResult::success) return asked;
    const std::string_view problem = ProblemOf(points);
    if (problem.empty()) return CommandResult::success;
    if (!context.m_input.Refuse(problem)) return CommandResult::failure;
  }
}

// Asks for the points that a kind is made of. Success, or what the command gives back.
CommandResult AskForPoints(CRhinoCommandContext& context, const LightKind& kind,
                           std::vector<ON_3dPoint>& points) {
  for (const std::string_view prompt : kind.Prompts) {
    if (prompt.empty()) break;
    const CommandResult asked = AskForNextPoint(context, prompt, points);
    if (asked != CommandResult::success) return asked;
  }
  return CommandResult::success;
}

// The attributes of a new object: on the layer that new objects stand on.
ON_3dmObjectAttributes NewAttributes(const CRhinoDoc& doc, const std::string& name) {
  ON_3dmObjectAttributes attributes;
  const int layer = doc.Properties().Settings().m_current_layer_index;
  if (doc.m_layer_table.At(layer) != nullptr) attributes.m_layer_index = layer;
  attributes.m_name = name;
  return attributes;
}

ON_Light LightOf(const LightKind& kind, const LightLook& look, Points points) {
  ON_Light light;
  light.m_style = kind.Style;
  light.m_diffuse = look.Color;
  light.m_light_name = look.Name;
  if (light.IsSpotLight()) light.m_spot_angle = look.SpotAngle;
  kind.Place(points, light);
  return light;
}

CommandResult RunAddLight(CRhinoCommandContext& context) {
  LightLook look;
  CommandResult ended = CommandResult::success;
  const LightKind* kind = AskForKind(context, look, ended);
  if (kind == nullptr) return ended;
  std::vector<ON_3dPoint> points;
  ended = AskForPoints(context, *kind, points);
  if (ended != CommandResult::success) return ended;
  CRhinoDoc& doc = context.m_doc;
  const int index =
      doc.m_light_table.AddLight(LightOf(*kind, look, points), NewAttributes(doc, look.Name));
  const unsigned number = doc.Lights()[static_cast<std::size_t>(index)]->RuntimeSerialNumber();
  RhinoApp().Print(std::string(kind->Name) + " light added, serial number " +
                   std::to_string(number) + ".\n");
  return CommandResult::success;
}

CommandResult RunDeleteLight(CRhinoCommandContext& context) {
  CRhinoGetObject get(context);
  get.SetCommandPrompt("Select lights to delete");
  get.SetGeometryFilter(static_cast<unsigned>(ON_ObjectType::light));
  if (get.GetObjects(1, 0) != CRhinoGet::Result::object) return get.CommandResult();
  int count = 0;
  for (const CRhinoObject* object : get.Objects()) {
    const ON_Light* light = ON_Light::Cast(object->Geometry());
    if (light != nullptr && context.m_doc.m_light_table.DeleteLight(light->LightIndex())) ++count;
  }
  RhinoApp().Print(std::to_string(count) + (count == 1 ? " light" : " lights") + " deleted.\n");
  return count > 0 ? CommandResult::success : CommandResult::nothing;
}

}  // namespace

std::vector<HostCommand::Row> LightCommands() {
  return {
      {"eff93ec5-caee-4614-89e6-dadf0eec605d"_uuid, "AddLight", "Adds a light.",
       "Asks for the kind of the light, before which the options Name, Color (as 255,128,0 or\n"
       "#ff8000) and SpotAngle (half the angle of a spot's cone, in degrees) may be set, and then\n"
       "for its points: the Location of a Point light, Location and Target of a Spot or\n"
       "Directional light, the Corner and the ends of length and width of a Rectangular light, "
       "the\n"
       "Start and End of a Linear light; an Ambient light has none. A rectangular light shines to\n"
       "the side from which its three points go round counter-clockwise. The light stands on the\n"
       "current layer and is not selected.\n",
       RunAddLight},
      {"5d0dfe8d-5e1b-4c2e-9f39-d4c551c5f1c6"_uuid, "DeleteLight", "Deletes lights.",
       "Takes the selected lights. When none is selected, type the name, id or serial number of\n"
       "each, and Enter at the end.\n",
       RunDeleteLight},
  };
}
