#include <algorithm>
#include <array>

#include "host/system/text.h"
#include "settings/number_list.h"
#include "settings/setting_text.h"
#include "settings/text_line.h"
#include "shading/call_string.h"
#include "shading/gamma.h"
#include "shading/material_file.h"
#include "shading/material_file_text.h"

namespace orv {
namespace {

constexpr std::uint64_t kLargestFile = 16 << 20;

// Makes a material of the lines of a file.
class MaterialReader {
 public:
  explicit MaterialReader(double gamma) : gamma_(gamma) {}

  void TakeLine(std::string_view line);
  [[nodiscard]] const MaterialAttributes& Material() const { return material_; }

 private:
  struct Statement {
    std::string_view Keyword;
    void (MaterialReader::*Take)(TokenReader& tokens);
  };
  static const std::array<Statement, 7> kStatements;

  void TakeParameter(TokenReader tokens);
  void TakeStatement(TokenReader tokens);
  void BeginCall(std::string MaterialAttributes::*call, TokenReader& tokens);

  void TakeSurface(TokenReader& tokens) { BeginCall(&MaterialAttributes::Surface, tokens); }
  void TakeDisplacement(TokenReader& tokens) {
    BeginCall(&MaterialAttributes::Displacement, tokens);
  }
  void TakeInstancer(TokenReader& tokens) { BeginCall(&MaterialAttributes::Instancer, tokens); }
  void TakeColor(TokenReader& tokens);
  void TakeOpacity(TokenReader& tokens);
  void TakeShadingRate(TokenReader& tokens);
  void TakeAttribute(TokenReader& tokens);
  void TakeRenderAttribute(std::string_view name);

  double gamma_;
  MaterialAttributes material_;
  // The call that parameter lines belong to; null for none.
  std::string MaterialAttributes::*call_ = nullptr;
};

const std::array<MaterialReader::Statement, 7> MaterialReader::kStatements{{
    {"Surface", &MaterialReader::TakeSurface},
    {"Displacement", &MaterialReader::TakeDisplacement},
    {"Instancer", &MaterialReader::TakeInstancer},
    {"Color", &MaterialReader::TakeColor},
    {"Opacity", &MaterialReader::TakeOpacity},
    {"ShadingRate", &MaterialReader::TakeShadingRate},
    {"Attribute", &MaterialReader::TakeAttribute},
}};

void MaterialReader::TakeLine(std::string_view line) {
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  if (line.starts_with('"')) {
    TakeParameter(TokenReader(line));
  } else {
    TakeStatement(TokenReader(line));
  }
}

void MaterialReader::TakeParameter(TokenReader tokens) {
  const auto declaration = tokens.Next();
  const auto value = tokens.Next();
  if (call_ == nullptr || !declaration || !value) return;
  material_.*call_ += ' ' + Quoted(DecodeQuotedName(*declaration)) + ' ' + Bracketed(*value);
}

// Any statement ends the parameters of a surface or displacement, but not those of an instancer.
void MaterialReader::TakeStatement(TokenReader tokens) {
  if (call_ != &MaterialAttributes::Instancer) call_ = nullptr;
  const auto keyword = tokens.Next();
  if (!keyword) return;
  for (const Statement& statement : kStatements) {
    if (host::EqualNoCase(*keyword, statement.Keyword)) return (this->*statement.Take)(tokens);
  }
}

void MaterialReader::BeginCall(std::string MaterialAttributes::*call, TokenReader& tokens) {
  const auto shader = tokens.Next();
  if (!shader) return;
  call_ = call;
  material_.*call_ = Quoted(DecodeQuotedName(*shader));
}

void MaterialReader::TakeColor(TokenReader& tokens) {
  const auto list = tokens.Next();
  if (!list) return;
  std::array<double, 3> color{1, 1, 1};
  ParseNumberList(*list, color);
  for (double& part : color) part = ApplyGamma(part, 1 / gamma_);
  material_.Diffuse.SetFractionalRGB(color[0], color[1], color[2]);
}

void MaterialReader::TakeOpacity(TokenReader& tokens) {
  constexpr SettingBounds kBounds{0, 1};
  const auto list = tokens.Next();
  if (!list) return;
  std::array<double, 3> opacity{1, 1, 1};
  ParseNumberList(*list, opacity);
  material_.Transparency = kBounds.Hold(1 - opacity[0]);
}

void MaterialReader::TakeShadingRate(TokenReader& tokens) {
  constexpr SettingBounds kBounds{0.01, 100};
  const auto token = tokens.Next();
  const auto rate = token ? ParseNumber(*token, kBounds) : std::nullopt;
  if (rate) material_.ShadingSamples = static_cast<int>(1 / *rate);
}

void MaterialReader::TakeAttribute(TokenReader& tokens) {
  const auto category = tokens.Next();
  const auto name = tokens.Next();
  if (!name) return;
  const auto contains = [&](std::string_view word) {
    return name->find(word) != std::string_view::npos;
  };
  if (*category == "render") {
    TakeRenderAttribute(*name);
  } else if (*category == "identifier" && contains("shadinggroup")) {
    if (const auto group = tokens.Next()) material_.Name = DecodeQuotedName(*group);
  } else if (*category == "shade" && contains("transmissionhitmode")) {
    if (tokens.Next() == "shader") material_.ComplexShadow = true;
  }
}

// What is written for the mesh mode has its type in front of the name, so it reads as regular.
void MaterialReader::TakeRenderAttribute(std::string_view name) {
  int& mode = material_.DisplacementMode;
  if (name.find("truedisplacement") != std::string_view::npos && mode != kMeshDisplacement) {
    mode = kRegularDisplacement;
  }
  if (host::EqualNoCase(name, "meshdisplacement")) mode = kMeshDisplacement;
}

}  // namespace

bool ReadMaterialFile(std::string_view path, double gamma, MaterialAttributes& attributes) {
  const auto text = host::ReadWholeFile(path, kLargestFile);
  if (!text) return false;
  attributes = MaterialFromText(*text, gamma);
  return true;
}

MaterialAttributes MaterialFromText(std::string_view text, double gamma) {
  MaterialReader reader(gamma);
  while (!text.empty()) reader.TakeLine(TakeTextLine(text));
  return reader.Material();
}

}  // namespace orv
