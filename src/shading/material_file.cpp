#include "shading/material_file.h"

#include <algorithm>
#include <array>

#include "host/system/number_text.h"
#include "host/system/path.h"
#include "host/system/text.h"
#include "settings/text_line.h"
#include "shading/call_string.h"
#include "shading/gamma.h"
#include "shading/material_file_text.h"

namespace orv {
namespace {

constexpr std::size_t kLongestName = 512;
constexpr std::size_t kLongestParam = 1000;
constexpr std::size_t kQuotes = 2;

std::string Numbers(const std::array<double, 3>& numbers) {
  return '[' + host::FormatG(numbers[0]) + ' ' + host::FormatG(numbers[1]) + ' ' +
         host::FormatG(numbers[2]) + "]\n";
}

std::string ColorStatement(ON_Color color, double gamma) {
  return "Color " +
         Numbers({ApplyGamma(color.FractionRed(), gamma), ApplyGamma(color.FractionGreen(), gamma),
                  ApplyGamma(color.FractionBlue(), gamma)});
}

std::string OpacityStatement(double transparency) {
  const double opacity = std::max(0.0, 1 - transparency);
  return "Opacity " + Numbers({opacity, opacity, opacity});
}

// A line that has begun, with a name in quotes for which there is no more room than in a line.
std::string LineWithName(std::string line, std::string_view name) {
  line += Quoted(name, kLongestTextLine - line.size());
  return line;
}

// A parameter's line. The value is cut where both together would be longer than a line.
std::string ParameterLine(std::string_view declaration, std::string_view value) {
  const std::string name = DecodeQuotedName(host::FirstBytes(declaration, kLongestParam));
  std::string line = "  " + Quoted(name, kLongestParam + kQuotes) + ' ';
  line += Bracketed(host::FirstBytes(value, kLongestParam), kLongestTextLine - line.size());
  return line + '\n';
}

// The shader with a line for each parameter; empty when the call names no shader.
std::string ShaderStatement(std::string_view keyword, std::string_view call) {
  TokenReader tokens(call);
  const auto shader = tokens.Next();
  if (!shader) return {};
  std::string text = LineWithName(std::string(keyword) + ' ', DecodeQuotedName(*shader)) + '\n';
  while (const auto declaration = tokens.Next()) {
    const auto value = tokens.Next();
    if (!value) break;
    text += ParameterLine(*declaration, *value);
  }
  return text;
}

std::string DisplacementAttributes(int mode) {
  std::string text;
  if (mode == kRegularDisplacement || mode == kMeshDisplacement) {
    text += "Attribute \"render\" \"integer truedisplacement\" [1]\n";
  }
  if (mode == kMeshDisplacement) text += "Attribute \"render\" \"integer meshdisplacement\" [1]\n";
  return text;
}

std::string InstancerStatements(const MaterialAttributes& attributes) {
  const std::string instancer = ShaderStatement("Instancer", attributes.Instancer);
  const bool isHidden = !instancer.empty() && attributes.HideInstancerBase;
  return (isHidden ? "Attribute \"visibility\" \"integer instancerbase\" [0]\n" : "") + instancer;
}

}  // namespace

bool WriteMaterialFile(host::FileWriter& file, std::string_view path, double gamma,
                       const MaterialAttributes& attributes) {
  file.Write(TextFromMaterial(path, gamma, attributes));
  return true;
}

std::string TextFromMaterial(std::string_view path, double gamma,
                             const MaterialAttributes& attributes) {
  const std::string name = attributes.Name.empty() ? host::SplitPath(path).Base : attributes.Name;
  std::string text = LineWithName("Attribute \"identifier\" \"shadinggroup\" ",
                                  host::FirstBytes(name, kLongestName)) +
                     '\n';
  text += ColorStatement(attributes.Diffuse, gamma);
  text += OpacityStatement(attributes.Transparency);
  if (attributes.ShadingSamples > 1) {
    text += "ShadingRate " + host::FormatG(1.0 / attributes.ShadingSamples) + '\n';
  }
  text += ShaderStatement("Surface", attributes.Surface);
  if (attributes.ComplexShadow) {
    text += "Attribute \"shade\" \"string transmissionhitmode\" \"shader\"\n";
  }
  text += DisplacementAttributes(attributes.DisplacementMode);
  text += ShaderStatement("Displacement", attributes.Displacement);
  text += InstancerStatements(attributes);
  return text;
}

}  // namespace orv
