#include <functional>

#include "host/command/get_object.h"
#include "host/command/get_option.h"
#include "host/command/get_point.h"
#include "host/command/host_commands.h"
#include "host/document/app.h"
#include "host/geometry/on_light.h"

namespace {

using LightEdit = std::function<void(ON_Light&)>;

// Asks for lights. Success, or what the command gives back.
CommandResult AskForLights(CRhinoCommandContext& context, std::string_view prompt,
                           std::vector<CRhinoObject*>& lights) {
  CRhinoGetObject get(context);
  get.SetCommandPrompt(prompt);
  get.SetGeometryFilter(static_cast<unsigned>(ON_ObjectType::light));
  if (get.GetObjects(1, 0) != CRhinoGet::Result::object) return get.CommandResult();
  lights = get.Objects();
  return CommandResult::success;
}

// Edits each light and tells how many there were.
CommandResult EditLights(CRhinoDoc& doc, const std::vector<CRhinoObject*>& lights,
                         const std::vector<LightEdit>& edits, std::string_view verb) {
  int count = 0;
  for (const CRhinoObject* object : lights) {
    const ON_Light* light = ON_Light::Cast(object->Geometry());
    if (light == nullptr) continue;
    ON_Light changed = *light;
    for (const LightEdit& edit : edits) edit(changed);
    if (doc.m_light_table.ModifyLight(changed, light->LightIndex())) ++count;
  }
  RhinoApp().Print(std::to_string(count) + (count == 1 ? " light " : " lights ") +
                   std::string(verb) + ".\n");
  return count > 0 ? CommandResult::success : CommandResult::nothing;
}

// The values that the prompt shows: those of the first light, and what was typed.
struct LightValues {
  explicit LightValues(const ON_Light& light)
      : on(light.IsEnabled()),
        color(light.Diffuse()),
        location(light.Location()),
        target(light.Location() + light.Direction()),
        shadow(light.ShadowIntensity()),
        spot_angle(light.m_spot_angle) {}

  bool on;
  ON_Color color;
  ON_3dPoint location;
  ON_3dPoint target;
  double shadow;
  double spot_angle;
};

// Moving a light keeps its direction, turning it keeps its place.
void TurnTo(ON_3dPoint target, ON_Light& light) {
  const ON_3dVector direction = target - light.m_location;
  if (direction.Length() > 0) light.m_direction = direction;
}

// An option of SetLight: what adds it to a getter, and what gives its value to a light. Where it is
// a point, that is asked for.
struct LightOption {
  void (*Add)(CRhinoGetOption& get, LightValues& values);
  void (*Give)(const LightValues& values, ON_Light& light);
  ON_3dPoint LightValues::*Point = nullptr;
};

constexpr LightOption kLightOptions[] = {
    {[](CRhinoGetOption& get, LightValues& values) {
       get.AddCommandOptionToggle("On", "No", "Yes", &values.on);
     },
     [](const LightValues& values, ON_Light& light) { light.Enable(values.on); }},
    {[](CRhinoGetOption& get, LightValues& values) {
       get.AddCommandOptionColor("Color", &values.color, "Color of the light");
     },
     [](const LightValues& values, ON_Light& light) { light.SetDiffuse(values.color); }},
    {[](CRhinoGetOption& get, LightValues& values) {
       get.AddCommandOption("Location", PointText(values.location));
     },
     [](const LightValues& values, ON_Light& light) { light.m_location = values.location; },
     &LightValues::location},
    {[](CRhinoGetOption& get, LightValues& values) {
       get.AddCommandOption("Target", PointText(values.target));
     },
     [](const LightValues& values, ON_Light& light) { TurnTo(values.target, light); },
     &LightValues::target},
    {[](CRhinoGetOption& get, LightValues& values) {
       get.AddCommandOptionNumber("ShadowIntensity", &values.shadow, "Shadow intensity (0-1)", 0,
                                  1);
     },
     [](const LightValues& values, ON_Light& light) { light.SetShadowIntensity(values.shadow); }},
    {[](CRhinoGetOption& get, LightValues& values) {
       get.AddCommandOptionNumber("SpotAngle", &values.spot_angle,
                                  "Half the angle of a spot's cone (degrees)", 1, 89);
     },
     [](const LightValues& values, ON_Light& light) {
       if (light.IsSpotLight()) light.m_spot_angle = values.spot_angle;
     }},
};

// Asks for values until Enter, and notes what each that was given does. Success, or what the
// command gives back.
CommandResult AskForValues(CRhinoCommandContext& context, LightValues values,
                           std::vector<LightEdit>& edits) {
  for (;;) {
    CRhinoGetOption get(context);
    get.SetCommandPrompt("Values of the light");
    get.AcceptNothing();
    for (const LightOption& option : kLightOptions) option.Add(get, values);
    const CRhinoGet::Result result = get.GetOption();
    if (result == CRhinoGet::Result::nothing) return CommandResult::success;
    if (result != CRhinoGet::Result::option) return get.CommandResult();
    const LightOption& picked = kLightOptions[get.OptionIndex() - 1];
    if (picked.Point != nullptr) {
      const CommandResult asked = AskForPoint(context, "Point", values.*picked.Point);
      if (asked != CommandResult::success) return asked;
    }
    edits.emplace_back([&picked, values](ON_Light& light) { picked.Give(values, light); });
  }
}

CommandResult RunSetLight(CRhinoCommandContext& context) {
  std::vector<CRhinoObject*> lights;
  CommandResult ended = AskForLights(context, "Select lights to change", lights);
  if (ended != CommandResult::success) return ended;
  const ON_Light* first = ON_Light::Cast(lights.front()->Geometry());
  if (first == nullptr) return CommandResult::failure;
  std::vector<LightEdit> edits;
  ended = AskForValues(context, LightValues(*first), edits);
  if (ended != CommandResult::success) return ended;
  if (edits.empty()) return CommandResult::nothing;
  return EditLights(context.m_doc, lights, edits, "changed");
}

CommandResult RunMoveObject(CRhinoCommandContext& context) {
  std::vector<CRhinoObject*> lights;
  CommandResult ended = AskForLights(context, "Select lights to move", lights);
  if (ended != CommandResult::success) return ended;
  ON_3dPoint from;
  ON_3dPoint to;
  ended = AskForPoint(context, "Point to move from", from);
  if (ended == CommandResult::success) ended = AskForPoint(context, "Point to move to", to);
  if (ended != CommandResult::success) return ended;
  const ON_3dVector way = to - from;
  return EditLights(context.m_doc, lights,
                    {[way](ON_Light& light) { light.m_location = light.m_location + way; }},
                    "moved");
}

}  // namespace

std::vector<HostCommand::Row> LightEditCommands() {
  return {
      {"ecdd155a-cb62-4400-9696-40561eb84682"_uuid, "SetLight", "Changes the values of lights.",
       "Takes the selected lights, or asks for them by name, id or serial number. Then On, Color "
       "(as\n"
       "255,128,0 or #ff8000), Location and Target (as x,y,z), ShadowIntensity (0 to 1) and "
       "SpotAngle\n"
       "(half the angle of a spot's cone, in degrees) may be set; they show the first light's "
       "values.\n"
       "What was set goes to all lights on Enter.\n",
       RunSetLight},
      {"d2b7779e-7211-42a8-b349-8429ea8c6f73"_uuid, "MoveObject", "Moves lights.",
       "Takes the selected lights, or asks for them by name, id or serial number; then asks for "
       "the\n"
       "points to move from and to. Other objects can't be moved.\n",
       RunMoveObject},
  };
}
