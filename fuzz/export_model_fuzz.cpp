#include <unistd.h>

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>

#include "export/scene_export.h"
#include "host/archive/model_reader.h"
#include "host/document/app.h"

namespace {

std::string StreamPath() {
  const std::string name = "export_model_fuzz." + std::to_string(getpid()) + ".rib";
  return (std::filesystem::temp_directory_path() / name).string();
}

// Numbers stand outside of quotes; each is one that a renderer can read.
bool HasOnlyNumbers(const std::string& rib) {
  bool isQuoted = false, isEscaped = false;
  std::string word;
  for (const char c : rib) {
    if (c == '"' && !isEscaped) isQuoted = !isQuoted;
    isEscaped = c == '\\' && !isEscaped;
    const bool isPart = !isQuoted && (std::isalpha(static_cast<unsigned char>(c)) != 0);
    if (isPart) word += c;
    if (isPart || word.empty()) continue;
    if (word == "nan" || word == "inf") return false;
    word.clear();
  }
  return true;
}

// Exports the open document with everything that can go out.
void Export(int renderMesh) {
  static const std::string path = StreamPath();
  orv::RenderSettings settings;
  settings.RenderMesh = renderMesh;
  settings.RenderCurves = true;
  settings.RenderDimensions = true;
  settings.ConvertTextures = false;
  orv::TextureConverter textures;
  CRhinoDoc& doc = RhinoApp().ActiveDoc();
  if (orv::ExportSceneRib(path, doc, {}, 1, {}, settings, nullptr, textures) != 1) {
    __builtin_trap();
  }
  std::ifstream stream(path, std::ios::binary);
  const std::string rib{std::istreambuf_iterator<char>(stream), {}};
  if (!HasOnlyNumbers(rib)) __builtin_trap();
  std::filesystem::remove(path);
}

}  // namespace

// Documents of foreign bytes: what can be read can be exported, as NURBS and as meshes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ONX_Model model;
  if (!ON_ReadModel(std::as_bytes(std::span(data, size)), model).ok) return 0;
  RhinoApp().ActiveDoc().SetModel(std::move(model), "");
  Export(0);
  // Meshing takes a hundred times longer.
  if (size % 16 == 0) Export(2);
  return 0;
}
