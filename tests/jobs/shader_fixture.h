#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "command_fixture.h"
#include "support/scoped_environment.h"
#include "support/shader_writer.h"

class CRhinoObject;

// Commands that edit shaders, with a renderer's folder that has some. Its path has backslashes in
// messages.
class ShaderCommandTest : public CommandTest {
 protected:
  ShaderCommandTest();

  // The folder of the renderer as messages spell it, with a separator at its end.
  std::string Home() const;
  // Writes a shader with a float and a text parameter: "Diffuse" of 0.5 and "ColorMapName".
  void WriteShader(const std::string& folder, const std::string& name, std::int8_t kind = 0) const;

  // Replaces the document by one of three meshes and a curve, which are called a to d. The first
  // two have the material Oak, the others that of their layer, which has none. Oak is blue, has
  // three tenths of transparency and a map that is tiled 2 by 4 times.
  void MakeMaterials();
  CRhinoObject& Object(std::size_t index) { return *doc_.Objects()[index]; }
  void Select(std::initializer_list<std::size_t> indices);
  // A text of an object's material, or of the object; nothing when it has none.
  std::optional<std::string> MaterialText(std::size_t index, std::string_view key);
  std::optional<std::string> ObjectText(std::size_t index, std::string_view key);
  void SetMaterialText(std::size_t index, std::string_view key, std::string_view text);

  // Edits a shader call with the answers to the prompts, none of which may be left over. Points are
  // picked on `object`.
  CommandResult Edit(Form form, std::string call, std::vector<std::string> answers,
                     std::string_view kind = "Surface", const CRhinoObject* object = nullptr);
  // What a person who accepts at the first prompt gets.
  std::string Accepted(const std::string& call);

  ScopedEnvironment home_{"ORVHOME", folder_.File("home")};
  // The call that Edit has given.
  std::string call_;
  // What was refused.
  std::vector<std::string> refusals_;
};
