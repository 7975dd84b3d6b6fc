#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "shading/shader_call.h"
#include "shading/shader_params.h"

namespace {

void Check(bool holds) {
  if (!holds) std::abort();
}

void CheckTokens(std::string_view text) {
  std::size_t position = 0;
  std::string_view token;
  while (true) {
    const std::size_t before = position;
    if (!orv::NextToken(text, position, token)) break;
    Check(position > before && position <= text.size());
  }
}

// What is set is there, and a call without the parameter stays.
void CheckString(std::string text, std::string_view name) {
  const std::string before = text;
  const bool isSet = orv::SetStringParam(text, name, "a [\\ b");
  std::string value;
  Check(orv::GetStringParam(text, name, value) == isSet);
  Check(isSet ? value == "a [\\ b" : text == before);
}

void CheckFloat(std::string text, std::string_view name) {
  const std::string before = text;
  const bool isSet = orv::SetFloatParam(text, name, 0.1);
  double value = 0;
  Check(orv::GetFloatParam(text, name, value) == isSet);
  Check(isSet ? value == 0.1 : text == before);
}

// An array is set, but not read.
void CheckColor(std::string text, std::string_view name) {
  const std::string before = text;
  double parts[] = {7, 7, 7};
  const bool isThere = orv::GetColorParam(text, name, parts[0], parts[1], parts[2]);
  const bool isSet = orv::SetColorParam(text, name, {255, 0, 255});
  Check(isSet ? !text.empty() : text == before && !isThere);
  Check(orv::GetColorParam(text, name, parts[0], parts[1], parts[2]) == isThere);
}

void CheckParam(const std::string& text, const orv::ShaderParam& param) {
  CheckString(text, param.Name);
  CheckFloat(text, param.Name);
  CheckColor(text, param.Name);
  Check(param.Count >= 1 && param.Count <= static_cast<int>(param.Values.size()));
  static_cast<void>(orv::ParamDisplayText(param));
}

}  // namespace

// Any bytes are a shader call.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  CheckTokens(text);
  std::string name;
  const auto params = orv::ParseParamList(text, name, 1.8);
  Check(params.size() <= orv::kMaxShaderParams);
  Check(name == orv::ShaderNameOf(text));
  const std::size_t checked = std::min<std::size_t>(params.size(), 4);
  for (std::size_t i = 0; i < checked; ++i) CheckParam(text, params[i]);
  CheckTokens(orv::PrintParamList(name, params, 1.8));
  return 0;
}
