#include "export/shader_statement.h"

#include <string>

#include "export/rib_text.h"
#include "shading/shader_call.h"

namespace orv {
namespace {

// What is left of a line behind the deepest indentation.
constexpr std::size_t kLineRoom = RibWriter::kLineLimit - RibWriter::kDeepestIndent - 4;

void WriteParameterByParameter(RibWriter& writer, const char* keyword, std::string_view call) {
  std::size_t position = 0;
  std::string_view name;
  NextToken(call, position, name);
  RibPrintf(writer, "%s \"%s\"", keyword, RibString(name).c_str());
  std::string_view declaration;
  std::string_view value;
  while (NextToken(call, position, declaration) && NextToken(call, position, value)) {
    std::string parameter = " \"";
    parameter.append(declaration).append("\" [").append(value).append("]");
    if (parameter.size() < kLineRoom) RibPrintf(writer, "%s", parameter.c_str());
  }
  RibPrintf(writer, "\n");
}

}  // namespace

void WriteShaderStatement(RibWriter& writer, const char* keyword, std::string_view call) {
  const std::size_t size = std::string_view(keyword).size() + call.size() + 2;
  if (size < kLineRoom) {
    RibPrintf(writer, "%s %s\n", keyword, std::string(call).c_str());
  } else {
    WriteParameterByParameter(writer, keyword, call);
  }
}

}  // namespace orv
