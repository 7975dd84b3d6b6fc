#include "shading/texture_converter.h"

#include <algorithm>
#include <cmath>

#include "host/document/app.h"
#include "host/system/file.h"
#include "host/system/interrupt.h"
#include "host/system/number_text.h"
#include "host/system/path.h"
#include "host/system/process.h"
#include "host/system/text.h"
#include "shading/call_string.h"

namespace orv {
namespace {

constexpr std::string_view kConverter = "mapforge.exe";

// Textures already, and files that are no images.
bool NeedsNoConversion(std::string_view name) {
  constexpr std::size_t kEndingLength = 3;
  if (name.size() <= kEndingLength) return false;
  const std::string_view ending = name.substr(name.size() - kEndingLength);
  return ending == ".tx" || ending == "eps" || host::EqualNoCase(ending, ".ai");
}

double UsableGamma(double gamma) {
  return gamma > 0 && std::isfinite(gamma) && std::isfinite(1 / gamma) ? gamma : 1;
}

// Settings are kept in single precision, in which 1.8 times ten is 18 and not a little less.
int GammaTenths(double gamma) {
  return static_cast<int>(std::clamp(static_cast<float>(gamma) * 10.0F, 1.0F, 99.0F));
}

// Only a short ending is an extension.
std::string WithoutExtension(const host::PathParts& parts) {
  constexpr std::size_t kLongestExtension = 4;
  const bool isExtension = host::CodePointCount(parts.Extension) <= kLongestExtension + 1;
  return isExtension ? parts.Base : parts.Base + parts.Extension;
}

std::string TargetName(const std::string& source, const std::string& mode, double gamma,
                       const std::string& cacheDir) {
  const host::PathParts parts = host::SplitPath(source);
  const std::string name = WithoutExtension(parts);
  std::string target =
      cacheDir.empty() ? parts.Drive + parts.Folder + name : host::AppendPath(cacheDir, name);
  target += '_' + mode;
  if (gamma != 1) target += host::Format("_g%d", GammaTenths(gamma));
  target += ".tx";
  std::replace(target.begin(), target.end(), '\\', '/');
  return target;
}

bool IsUpToDate(const std::string& target, const std::string& source) {
  if (!host::FileExists(target)) return false;
  const auto sourceTime = host::ModificationTime(source);
  const auto targetTime = host::ModificationTime(target);
  return !sourceTime || !targetTime || *sourceTime <= *targetTime;
}

// The name of a file such that no program takes it for an option.
std::string ArgumentOf(const std::string& file) {
  return file.starts_with('-') ? "./" + file : file;
}

void Tell(const char* message, const std::string& name) {
  constexpr std::size_t kLongestName = 1000;
  std::string told(host::FirstBytes(name, kLongestName));
  if (told.size() < name.size()) told += "...";
  RhinoApp().Print(message + told + "\n");
}

}  // namespace

std::string TextureConverter::ConvertTexture(std::string_view source, std::string_view mode,
                                             bool convertTextures, double gamma) {
  if (!convertTextures || failed_.contains(source) || NeedsNoConversion(source)) {
    return std::string(source);
  }
  const Request request{std::string(source), std::string(mode), UsableGamma(gamma)};
  const auto known = textures_.find(request);
  if (known != textures_.end()) return known->second;
  std::string texture = FindOrMakeTexture(request);
  if (isExporting_) textures_.emplace(request, texture);
  return texture;
}

bool TextureConverter::ConvertTextureParam(std::string_view name, std::string& converted,
                                           std::string_view mode, bool convertTextures,
                                           double gamma) {
  if (!convertTextures || name.empty()) return false;
  const std::string source = RealName(name);
  if (NeedsNoConversion(source)) return false;
  converted = EncodeCallString(ConvertTexture(source, mode, convertTextures, gamma));
  return true;
}

void TextureConverter::BeginExport() {
  ForgetAnswers();
  isExporting_ = true;
}

void TextureConverter::EndExport() {
  ForgetAnswers();
  isExporting_ = false;
}

void TextureConverter::ForgetFailures() {
  failed_.clear();
  ForgetAnswers();
}

void TextureConverter::ForgetAnswers() {
  textures_.clear();
  realNames_.clear();
}

std::string TextureConverter::FindOrMakeTexture(const Request& request) {
  const auto& [source, mode, gamma] = request;
  if (!host::FileExists(source)) {
    Tell("Texture file not found: ", source);
    failed_.insert(source);
    return source;
  }
  std::string target = TargetName(source, mode, gamma, TextureCacheDir);
  if (IsUpToDate(target, source)) return target;
  if (MakeTexture(request, target)) {
    Tell("Converted texture to ", target);
    return target;
  }
  // The user has broken off; that is no failure of the image.
  if (host::InterruptRequested()) return source;
  Tell("Texture conversion failed for ", source);
  failed_.insert(source);
  return source;
}

// Runs the converter. What an interrupted one has written of its target is removed: it would be
// taken for a whole texture from then on.
bool TextureConverter::MakeTexture(const Request& request, const std::string& target) const {
  const auto& [source, mode, gamma] = request;
  const auto oldTime = host::ModificationTime(target);
  host::ProcessStart start;
  // The converter knows only the system's own separators.
  const std::string image = host::NativePath(source).string();
  start.Arguments = {
      std::string(kConverter), "-mode",           mode, "-g", host::FormatG(1 / gamma),
      ArgumentOf(image),       ArgumentOf(target)};
  start.Hidden = true;
  const bool hasRun = host::RunProcess(start, TimeLimit);
  if (host::InterruptRequested()) {
    if (host::ModificationTime(target) != oldTime) host::DeleteFile(target);
    return false;
  }
  return hasRun && host::FileExists(target);
}

// The file that a parameter's value names. "maps\012.jpg" may be an escape or a file in a folder;
// it is the file when that is there.
std::string TextureConverter::RealName(std::string_view value) {
  std::string name = DecodeCallString(value);
  if (name == value) return name;
  const auto known = realNames_.find(value);
  if (known != realNames_.end()) return known->second;
  if (host::FileExists(value)) name = value;
  if (isExporting_) realNames_.emplace(value, name);
  return name;
}

}  // namespace orv
