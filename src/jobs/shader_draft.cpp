#include "jobs/shader_draft.h"

#include "shading/shader_params.h"

namespace orv {

void ShaderDraft::Read(std::string_view call) {
  Params = ParseParamList(call, Name, gamma_);
}

std::string ShaderDraft::CallText() const {
  return Name.empty() ? std::string() : PrintParamList(Name, Params, gamma_);
}

}  // namespace orv
