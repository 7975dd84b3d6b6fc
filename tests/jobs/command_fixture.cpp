#include "command_fixture.h"

#include "host/document/app.h"
#include "host/geometry/on_mesh.h"

namespace {

ONX_ModelObject Square(float z) {
  auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_V = {{0, 0, z}, {1, 0, z}, {1, 1, z}, {0, 1, z}};
  mesh->m_F = {{{0, 1, 2, 3}}};
  ONX_ModelObject object;
  object.m_geometry = std::move(mesh);
  return object;
}

}  // namespace

CommandTest::CommandTest() {
  RhinoApp().CommandWindow().SetSink([this](std::string_view text) { messages_ += text; });
  ONX_Model model;
  model.m_object_table = {Square(3), Square(7)};
  doc_.SetModel(std::move(model), "");
}

CommandTest::~CommandTest() {
  RhinoApp().CommandWindow().SetSink({});
}

std::vector<std::string> CommandTest::Rows(const orv::FilePicker& picker) {
  std::vector<std::string> rows;
  for (const CRhinoFileFilter& filter : orv::FileFiltersFromText(picker.Filter)) {
    rows.push_back(filter.Description + '|' + filter.Pattern);
  }
  return rows;
}

CommandResult CommandTest::RunWith(CRhinoCommand& command, Form form,
                                   std::vector<std::string> answers) {
  const auto by = form == Form::interactive ? TypedInput::By::person : TypedInput::By::script;
  TypedInput input(std::move(answers), by);
  CRhinoCommandContext context(doc_, input, form == Form::interactive);
  const CommandResult result = command.RunCommand(context);
  prompts_ = input.Prompts();
  EXPECT_TRUE(input.IsUsedUp());
  return result;
}
