#include "jobs/choose_shader.h"

#include <string>

#include "host/command/get_string.h"
#include "host/document/app.h"
#include "host/system/file.h"
#include "host/system/text.h"
#include "jobs/plugin.h"
#include "shading/shader_file.h"
#include "shading/shader_path.h"

namespace orv {
namespace {

// Success with an empty path when a dialog was cancelled.
CommandResult AskForPath(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn,
                         std::string_view kind, std::string_view name, std::string& path) {
  if (context.IsInteractive()) {
    std::string file = ListedShaderPath(name);
    if (PickFileToOpen(context, kShaderPicker, plugIn.User().ShaderDir, file)) path = file;
    return CommandResult::success;
  }
  CRhinoGetString get(context);
  get.SetCommandPrompt(std::string(kind) + " shader:");
  get.SetDefaultString(name);
  get.AcceptNothing();
  if (get.GetString() != CRhinoGet::Result::string) return get.CommandResult();
  path = ResolveShaderPath(get.String());
  return CommandResult::success;
}

void ReadShader(std::string_view path, std::string_view kind, ShaderDraft& draft) {
  if (!host::FileExists(path)) {
    RhinoApp().Print("Shader file not found: " + std::string(path) + ".\n");
    draft.Read("");
    return;
  }
  std::string call;
  std::string kindOfFile;
  if (!ReadShaderFile(path, call, kindOfFile)) return;
  if (kindOfFile != kind && !host::Contains(path, "null.slb")) {
    RhinoApp().Print("Selected shader is not correct type.");
    return;
  }
  draft.Read(call);
}

}  // namespace

CommandResult ChooseShader(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn,
                           std::string_view kind, ShaderDraft& draft) {
  std::string path;
  const CommandResult asked = AskForPath(context, plugIn, kind, draft.Name, path);
  if (asked == CommandResult::success && !path.empty()) ReadShader(path, kind, draft);
  return asked;
}

}  // namespace orv
