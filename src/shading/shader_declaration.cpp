#include "shading/shader_declaration.h"

#include <algorithm>

#include "host/system/number_text.h"
#include "shading/shader_call.h"

namespace orv {
namespace {

constexpr int kLongestArray = 9999;

int LengthOf(std::string_view type, std::size_t bracket) {
  std::string_view token;
  if (!NextToken(type, bracket, token)) return 1;
  return std::clamp(host::ParseIntInRange(token).value_or(1), 1, kLongestArray);
}

}  // namespace

std::optional<ShaderDeclaration> ReadDeclaration(std::string_view text) {
  ShaderDeclaration declaration;
  std::size_t position = 0;
  if (!NextToken(text, position, declaration.Type)) return std::nullopt;
  if (!NextToken(text, position, declaration.Name)) return std::nullopt;
  const std::size_t bracket = declaration.Type.find('[');
  declaration.BaseType = declaration.Type;
  if (bracket != std::string_view::npos && bracket > 0) {
    declaration.BaseType = declaration.Type.substr(0, bracket);
    declaration.Length = LengthOf(declaration.Type, bracket);
  }
  return declaration;
}

}  // namespace orv
