#include "property_fixture.h"

#include "host/document/object.h"
#include "host/geometry/on_light.h"
#include "host/geometry/on_mesh.h"

namespace {

std::string KindWord(CRhinoControlKind kind) {
  switch (kind) {
    case CRhinoControlKind::text:
      return "text";
    case CRhinoControlKind::edit:
      return "edit";
    case CRhinoControlKind::list:
      return "list";
    case CRhinoControlKind::combo:
      return "combo";
    case CRhinoControlKind::check:
      return "check";
    case CRhinoControlKind::three_state:
      return "three states";
    case CRhinoControlKind::color:
      return "colour";
    case CRhinoControlKind::path:
      return "path";
    case CRhinoControlKind::button:
      return "button";
  }
  return {};
}

std::string Described(const CRhinoControl& control) {
  std::string text = control.Id + ": " + control.Label + ", " + KindWord(control.Kind);
  for (std::size_t i = 0; i < control.Choices.size(); ++i) {
    text += (i == 0 ? ": " : "|") + control.Choices[i];
  }
  return text;
}

}  // namespace

void PropertyPageTest::MakeLights() {
  ONX_Model model;
  model.m_layer_table.resize(1);
  for (int i = 0; i < 3; ++i) {
    const auto light = std::make_shared<ON_Light>();
    light->m_style = ON_LightStyle::world_point;
    if (i == 1) light->m_diffuse = {0, 0, 255};
    model.m_light_table.emplace_back().m_light = light;
  }
  const auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_V = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
  mesh->m_F = {{{0, 1, 2, 2}}};
  model.m_object_table.resize(2);
  for (ONX_ModelObject& object : model.m_object_table) object.m_geometry = mesh;
  doc_.SetModel(std::move(model), "");
}

std::optional<std::string> PropertyPageTest::LightText(std::size_t index, std::string_view key) {
  const auto text = ON_Light::Cast(Light(index).Geometry())->GetUserString(key);
  return text ? std::optional<std::string>(*text) : std::nullopt;
}

std::string PropertyPageTest::Change(CRhinoDialogPage& page, std::string_view control,
                                     std::string_view value, std::vector<std::string> answers,
                                     Form form) {
  const bool isInteractive = form == Form::interactive;
  TypedInput input(std::move(answers),
                   isInteractive ? TypedInput::By::person : TypedInput::By::script);
  CRhinoCommandContext context(doc_, input, isInteractive);
  std::string problem = page.Change(context, control, value);
  prompts_ = input.Prompts();
  EXPECT_TRUE(input.IsUsedUp());
  return problem;
}

CRhinoControl PropertyPageTest::Control(const CRhinoDialogPage& page, std::string_view id) {
  for (const CRhinoControl& control : page.Controls()) {
    if (control.Id == id) return control;
  }
  ADD_FAILURE() << "no control " << id;
  return {};
}

std::vector<std::string> PropertyPageTest::Described(const std::vector<CRhinoControl>& controls) {
  std::vector<std::string> described;
  for (const CRhinoControl& control : controls) described.push_back(::Described(control));
  return described;
}
