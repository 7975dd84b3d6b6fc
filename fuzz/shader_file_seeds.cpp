#include <cstdio>
#include <string>

#include "host/system/file_replacement.h"
#include "host/system/path.h"
#include "support/shader_writer.h"

// Makes the seeds of shader_file_fuzz anew: shader_file_seeds FOLDER.

namespace {

ShaderFile Null() {
  ShaderFile file;
  file.Kind = 1;
  file.Name = "null";
  return file;
}

ShaderFile Plastic() {
  ShaderFile file;
  file.Name = "VPlastic";
  file.Words = 3;
  file.Params = {{1, "Diffuse", FloatBytes({0.5F})},
                 {2, "SpecularColor", FloatBytes({1, 1, 1})},
                 {0, "ColorMapName", StringBytes("wood.tx")},
                 {1, "TextureSizeXY", FloatBytes({1, 1}), 2}};
  return file;
}

// Each type with each storage, and an array of each.
ShaderFile Everything() {
  ShaderFile file;
  file.Kind = 7;
  file.Name = "All \xE9 \"types\"";
  for (std::int8_t type = -1; type <= 7; ++type) {
    const std::string value =
        type == 0 ? StringBytes("a") + StringBytes("\"]") : std::string(128, '?');
    const auto storage = static_cast<std::uint16_t>(type & 3);
    file.Params.push_back({type, "P" + std::to_string(type), value, 1, storage});
    file.Params.push_back({type, "Q" + std::to_string(type), value, 2, storage});
  }
  return file;
}

ShaderFile Outside() {
  ShaderFile file = Plastic();
  file.Params[1].Index = static_cast<std::int16_t>(-20);
  return file;
}

bool Write(const std::string& folder, const char* name, const std::string& bytes) {
  const std::string path = host::AppendPath(folder, name);
  if (host::ReplaceFile(path, bytes)) return true;
  std::fprintf(stderr, "Can't write %s\n", path.c_str());
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: shader_file_seeds FOLDER\n");
    return 2;
  }
  const std::string folder = argv[1];
  const std::string plastic = Plastic().Bytes();
  const bool ok = Write(folder, "null.slb", Null().Bytes()) &&
                  Write(folder, "plastic.slb", plastic) &&
                  Write(folder, "everything.slb", Everything().Bytes()) &&
                  Write(folder, "outside.slb", Outside().Bytes()) &&
                  Write(folder, "cut.slb", plastic.substr(0, plastic.size() - 5));
  return ok ? 0 : 1;
}
