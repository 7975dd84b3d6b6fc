#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shading/shader_param.h"

namespace orv {

// A shader call while a user edits it. What an editor doesn't show of a call is not kept.
class ShaderDraft {
 public:
  // `gamma` is the one that colours were chosen for.
  ShaderDraft(std::string_view call, double gamma) : gamma_(gamma) { Read(call); }

  // Takes name and parameters of a call in the place of those it has; none of an empty one.
  void Read(std::string_view call);
  // The call; empty without a name.
  std::string CallText() const;

  std::string Name;
  std::vector<ShaderParam> Params;

 private:
  double gamma_;
};

}  // namespace orv
