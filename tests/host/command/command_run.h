#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "host/command/command_runner.h"
#include "host/command/host_commands.h"
#include "host/command/script_input.h"
#include "recorded_window.h"
#include "sample_document.h"
#include "support/typed_input.h"

// Runs the host's commands in the sample document with a light "Lamp" and a material "brick" on the
// layer House.
class CommandRun : public testing::Test {
 protected:
  CommandRun() {
    ONX_Model model = SampleModel();
    model.m_material_table.resize(1);
    model.m_material_table[0].m_name = "brick";
    model.m_layer_table[1].m_render_material_index = 0;
    model.m_light_table.resize(1);
    model.m_light_table[0].m_light = std::make_shared<ON_Light>();
    model.m_light_table[0].m_attributes.m_name = "Lamp";
    Doc().SetModel(std::move(model), "sample.3dm");
  }
  ~CommandRun() override { Doc().SetModel({}, {}); }

  static CRhinoDoc& Doc() { return RhinoApp().ActiveDoc(); }
  static const CRhinoObject& Object(std::size_t index) { return *Doc().Objects()[index]; }
  // The light at a position; the test fails when there is none.
  static const ON_Light& Light(int index) {
    const CRhinoObject* object = Doc().m_light_table.At(index);
    const ON_Light* light = object == nullptr ? nullptr : ON_Light::Cast(object->Geometry());
    static const ON_Light none;
    EXPECT_NE(light, nullptr) << index;
    return light == nullptr ? none : *light;
  }

  CommandResult Run(std::string_view script) {
    const RecordedWindow window;
    ScriptInput input(script, "-c");
    const CommandResult result = CommandRunner(registry_, input).RunAll(commands_.ExitRequested());
    told_ = window.Text();
    error_ = input.Error();
    return result;
  }
  // What a person types; what was asked and refused.
  CommandResult Type(std::vector<std::string> answers) {
    const RecordedWindow window;
    TypedInput input(std::move(answers));
    const CommandResult result = CommandRunner(registry_, input).RunAll(commands_.ExitRequested());
    told_ = window.Text();
    prompts_ = input.Prompts();
    refusals_ = input.Refusals();
    return result;
  }

  CommandRegistry registry_;
  HostCommands commands_{registry_};
  std::string told_;
  std::string error_;
  std::vector<std::string> prompts_;
  std::vector<std::string> refusals_;
};
