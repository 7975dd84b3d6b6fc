#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "shading/shader_call.h"
#include "shading/shader_file.h"
#include "shading/shader_params.h"

namespace {

// The number of tokens of a call.
std::size_t TokenCount(std::string_view text) {
  std::size_t count = 0;
  std::size_t position = 0;
  std::string_view token;
  while (orv::NextToken(text, position, token)) ++count;
  return count;
}

}  // namespace

// Any bytes are a shader file. What is rejected leaves nothing behind; what is read is a name with
// as many parameters as the file counts, and prints what it parses.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string text = "before";
  std::string kind = "before";
  const bool read = orv::ParseShaderFile({reinterpret_cast<const char*>(data), size}, text, kind);
  if (kind.empty() != text.empty() || (!read && !text.empty())) std::abort();
  if (text.empty()) return 0;
  const std::size_t paramCount = data[60] + 256U * data[61];
  if (TokenCount(text) != 1 + 2 * paramCount) std::abort();

  std::string name;
  const auto params = orv::ParseParamList(text, name, 1);
  const std::string printed = orv::PrintParamList(name, params, 1);
  std::string nameAgain;
  const auto again = orv::ParseParamList(printed, nameAgain, 1);
  if (nameAgain != name || again.size() != params.size()) std::abort();
  if (orv::PrintParamList(nameAgain, again, 1) != printed) std::abort();
  return 0;
}
