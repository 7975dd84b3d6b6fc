#include "shader_fixture.h"

#include <algorithm>
#include <filesystem>

#include "host/document/object.h"
#include "host/geometry/on_line_curve.h"
#include "jobs/edit_shader_call.h"

namespace {

std::optional<std::string> TextOf(const ON_Object& carrier, std::string_view key) {
  const auto text = carrier.GetUserString(key);
  return text ? std::optional<std::string>(*text) : std::nullopt;
}

ON_Material Oak() {
  ON_Material oak;
  oak.m_name = "Oak";
  oak.m_diffuse = {0, 0, 255};
  oak.m_transparency = 0.3;
  ON_Texture& map = oak.m_textures.emplace_back();
  map.m_image_file = "C:\\maps\\oak.jpg";
  map.m_uvw.m_xform[0] = {2, 0, 0, 0.25};
  map.m_uvw.m_xform[1] = {0, 4, 0, 0};
  return oak;
}

}  // namespace

ShaderCommandTest::ShaderCommandTest() {
  for (const char* name : {"home/shaders", "home/usershaders"}) {
    std::filesystem::create_directories(folder_.File(name));
  }
}

std::string ShaderCommandTest::Home() const {
  std::string home = folder_.File("home") + '/';
  std::replace(home.begin(), home.end(), '/', '\\');
  return home;
}

void ShaderCommandTest::WriteShader(const std::string& folder, const std::string& name,
                                    std::int8_t kind) const {
  ShaderFile shader;
  shader.Kind = kind;
  shader.Name = name;
  shader.Params = {{1, "Diffuse", FloatBytes({0.5F})}, {0, "ColorMapName", StringBytes("")}};
  WriteFileContent(folder_.File("home/" + folder + '/' + name + ".slb"), shader.Bytes());
}

void ShaderCommandTest::MakeMaterials() {
  ONX_Model model;
  model.m_layer_table.resize(1);
  model.m_material_table.push_back(Oak());
  const auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_V = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
  mesh->m_F = {{{0, 1, 2, 2}}};
  model.m_object_table.resize(4);
  for (std::size_t i = 0; i < 4; ++i) {
    ONX_ModelObject& object = model.m_object_table[i];
    object.m_attributes.m_name = static_cast<char>('a' + i);
    object.m_geometry = mesh;
    if (i >= 2) continue;
    object.m_attributes.m_material_source = ON_AttributeSource::object;
    object.m_attributes.m_material_index = 0;
  }
  model.m_object_table[3].m_geometry =
      std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{1, 1, 0});
  doc_.SetModel(std::move(model), "");
}

void ShaderCommandTest::Select(std::initializer_list<std::size_t> indices) {
  for (const auto& object : doc_.Objects()) object->Select(false);
  for (const std::size_t index : indices) EXPECT_TRUE(Object(index).Select());
}

std::optional<std::string> ShaderCommandTest::MaterialText(std::size_t index,
                                                           std::string_view key) {
  return TextOf(Object(index).ObjectMaterial(), key);
}

std::optional<std::string> ShaderCommandTest::ObjectText(std::size_t index, std::string_view key) {
  return TextOf(Object(index).Attributes(), key);
}

void ShaderCommandTest::SetMaterialText(std::size_t index, std::string_view key,
                                        std::string_view text) {
  ON_Material material = Object(index).ObjectMaterial();
  material.SetUserString(key, text);
  EXPECT_TRUE(doc_.m_material_table.ModifyMaterial(material, material.MaterialIndex()));
}

CommandResult ShaderCommandTest::Edit(Form form, std::string call, std::vector<std::string> answers,
                                      std::string_view kind, const CRhinoObject* object) {
  TypedInput input(std::move(answers),
                   form == Form::interactive ? TypedInput::By::person : TypedInput::By::script);
  CRhinoCommandContext context(doc_, input, form == Form::interactive);
  const CommandResult result = orv::EditShaderCall(context, plugIn_, kind, call, object);
  EXPECT_TRUE(input.IsUsedUp());
  prompts_ = input.Prompts();
  refusals_ = input.Refusals();
  call_ = std::move(call);
  return result;
}

std::string ShaderCommandTest::Accepted(const std::string& call) {
  EXPECT_EQ(Edit(Form::scripted, call, {"Enter"}), CommandResult::success);
  return call_;
}
