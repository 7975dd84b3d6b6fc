#include "shader_fixture.h"

#include <algorithm>
#include <filesystem>

#include "jobs/edit_shader_call.h"

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
