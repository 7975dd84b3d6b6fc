#include <algorithm>

#include "host/archive/record_patches.h"
#include "host/archive/record_writers.h"

namespace host {
namespace {

std::string TextureBytes(const DocumentPatch& patch, const ON_Texture& texture) {
  return patch.Written([&](ON_BinaryArchive& a) { WriteTexture(a, texture); });
}

// The records of the textures as they are to be: of one that stands in the document, what the
// document has.
class TextureRecords {
 public:
  TextureRecords(const DocumentPatch& patch, const std::vector<ON_Texture>& before,
                 const std::vector<std::string>& records)
      : patch_(patch), records_(records) {
    for (const ON_Texture& texture : before) present_.push_back(TextureBytes(patch, texture));
  }

  std::string For(const std::vector<ON_Texture>& textures) {
    std::string bytes;
    for (const ON_Texture& texture : textures) bytes += For(texture);
    return bytes;
  }
  bool Hold(const std::vector<ON_Texture>& textures) const {
    return std::equal(
        present_.begin(), present_.end(), textures.begin(), textures.end(),
        [this](const std::string& a, const ON_Texture& b) { return a == TextureBytes(patch_, b); });
  }

 private:
  std::string For(const ON_Texture& texture) const {
    std::string bytes = TextureBytes(patch_, texture);
    const auto found = std::find(present_.begin(), present_.end(), bytes);
    if (found == present_.end()) return bytes;
    return records_[static_cast<std::size_t>(found - present_.begin())];
  }

  const DocumentPatch& patch_;
  const std::vector<std::string>& records_;
  // As they would be written.
  std::vector<std::string> present_;
};

bool PatchTextures(DocumentPatch& patch, const std::vector<ON_Texture>& before,
                   const std::vector<ON_Texture>& now) {
  ON_BinaryArchive& archive = patch.Archive();
  constexpr std::uint64_t kVersionSize = 8;
  if (!patch.BeginChunkOf(TCODE_ANONYMOUS_CHUNK) || !archive.Skip(kVersionSize) ||
      !patch.Int(static_cast<int>(before.size()), static_cast<int>(now.size()))) {
    return false;
  }
  const std::uint64_t at = archive.CurrentPosition();
  std::vector<std::string> records;
  while (records.size() < before.size()) {
    const std::uint64_t start = archive.CurrentPosition();
    if (!patch.SkipChunk()) return false;
    records.push_back(patch.Source().Bytes({start, archive.CurrentPosition() - start}));
  }
  TextureRecords textures(patch, before, records);
  if (!textures.Hold(now)) {
    patch.ReplaceChunks(at, archive.CurrentPosition() - at, textures.For(now));
  }
  patch.EndChunk();
  return true;
}

bool PatchAppearance(DocumentPatch& patch, const ON_Material& before, const ON_Material& now) {
  return patch.Archive().Skip(sizeof(ON_UUID)) && patch.Color(before.m_ambient, now.m_ambient) &&
         patch.Color(before.m_diffuse, now.m_diffuse) &&
         patch.Color(before.m_emission, now.m_emission) &&
         patch.Color(before.m_specular, now.m_specular) &&
         patch.Color(before.m_reflection, now.m_reflection) &&
         patch.Color(before.m_transparent, now.m_transparent) &&
         patch.Double(before.m_index_of_refraction, now.m_index_of_refraction) &&
         patch.Double(before.m_reflectivity, now.m_reflectivity) &&
         patch.Double(before.m_shine, now.m_shine) &&
         patch.Double(before.m_transparency, now.m_transparency) &&
         PatchTextures(patch, before.m_textures, now.m_textures);
}

// The name in the attributes of a new material; one that has none yet gets a place.
bool PatchComponentName(DocumentPatch& patch, const std::string& before, const std::string& now) {
  constexpr std::uint32_t kId = 1, kParentId = 2, kIndex = 4, kName = 8;
  constexpr std::uint64_t kVersionSize = 8;
  ON_BinaryArchive& archive = patch.Archive();
  if (!patch.BeginChunkOf(TCODE_ANONYMOUS_CHUNK) || !archive.Skip(kVersionSize)) return false;
  const std::uint64_t maskAt = archive.CurrentPosition();
  std::uint32_t mask = 0;
  if (!archive.ReadInt(&mask)) return false;
  const std::uint64_t skipped = ((mask & kId) != 0 ? sizeof(ON_UUID) : 0) +
                                ((mask & kParentId) != 0 ? sizeof(ON_UUID) : 0) +
                                ((mask & kIndex) != 0 ? 4 : 0);
  if (!archive.Skip(skipped)) return false;
  if ((mask & kName) != 0) {
    if (!patch.String(before, now)) return false;
  } else if (before != now) {
    patch.Replace(maskAt, 4, patch.Written([mask](ON_BinaryArchive& a) {
      a.WriteInt(static_cast<std::int32_t>(mask | kName));
    }));
    patch.Replace(archive.CurrentPosition(), 0,
                  patch.Written([&now](ON_BinaryArchive& a) { a.WriteString(now); }));
  }
  patch.EndChunk();
  return true;
}

bool PatchNewMaterial(DocumentPatch& patch, const ON_Material& before, const ON_Material& now) {
  constexpr std::uint64_t kVersionSize = 8;
  if (!patch.BeginChunkOf(TCODE_ANONYMOUS_CHUNK) || !patch.Archive().Skip(kVersionSize) ||
      !PatchComponentName(patch, before.m_name, now.m_name) ||
      !PatchAppearance(patch, before, now)) {
    return false;
  }
  patch.EndChunk();
  return true;
}

bool PatchMiddleMaterial(DocumentPatch& patch, const ON_Material& before, const ON_Material& now) {
  constexpr std::uint64_t kVersionSize = 8, kIdAndIndexSize = 16 + 4;
  // What stands there may be read as the diffuse colour: it is written when that changes.
  ON_Material stored = before;
  if (before.m_diffuse != now.m_diffuse) stored.m_transparent = ON_UNSET_COLOR;
  if (!patch.BeginChunkOf(TCODE_ANONYMOUS_CHUNK) ||
      !patch.Archive().Skip(kVersionSize + kIdAndIndexSize) ||
      !patch.String(before.m_name, now.m_name) || !PatchAppearance(patch, stored, now)) {
    return false;
  }
  patch.EndChunk();
  return true;
}

bool PatchOldTexture(DocumentPatch& patch, ON_Texture::Type type, const ON_Material& before,
                     const ON_Material& now) {
  const ON_Texture* old = OldTexture(before, type);
  const ON_Texture* present = OldTexture(now, type);
  const auto fileOf = [](const ON_Texture* t) {
    return t == nullptr ? std::string_view() : t->m_image_file;
  };
  const auto depthOf = [](const ON_Texture* t) { return t == nullptr ? 0 : t->m_bump_scale[1]; };
  constexpr std::uint64_t kIndexSize = 4;
  return patch.String(fileOf(old), fileOf(present)) &&
         patch.Int(OldTextureMode(old), OldTextureMode(present)) &&
         patch.Archive().Skip(kIndexSize) &&
         (type != ON_Texture::Type::bump || patch.Double(depthOf(old), depthOf(present)));
}

// Tells of textures for which materials of these versions have no place.
void TellLostTextures(DocumentPatch& patch, const ON_Material& before, const ON_Material& now) {
  if (now.m_textures.size() == before.m_textures.size()) return;
  for (const ON_Texture& texture : now.m_textures) {
    const bool isKept =
        std::any_of(kOldTextureTypes.begin(), kOldTextureTypes.end(),
                    [&](ON_Texture::Type type) { return OldTexture(now, type) == &texture; });
    if (!isKept) {
      patch.Tell("The texture " + texture.m_image_file + " of material " + now.m_name +
                 " has no place in a document of this version.");
    }
  }
}

bool PatchOldMaterial(DocumentPatch& patch, int minor, const ON_Material& before,
                      const ON_Material& now) {
  constexpr std::uint64_t kUnusedSize = 4 + 4 + 20, kIndexAndIdSize = 4 + 16;
  const bool first =
      patch.Color(before.m_ambient, now.m_ambient) &&
      patch.Color(before.m_diffuse, now.m_diffuse) &&
      patch.Color(before.m_emission, now.m_emission) &&
      patch.Color(before.m_specular, now.m_specular) && patch.Double(before.m_shine, now.m_shine) &&
      patch.Double(before.m_transparency, now.m_transparency) &&
      patch.Archive().Skip(kUnusedSize) &&
      std::all_of(kOldTextureTypes.begin(), kOldTextureTypes.end(),
                  [&](ON_Texture::Type type) { return PatchOldTexture(patch, type, before, now); });
  std::string library;
  if (!first || !patch.Archive().Skip(kIndexAndIdSize) || !patch.Archive().ReadString(&library) ||
      !patch.String(before.m_name, now.m_name)) {
    return false;
  }
  TellLostTextures(patch, before, now);
  return minor < 1 || (patch.Archive().Skip(sizeof(ON_UUID)) &&
                       patch.Color(before.m_reflection, now.m_reflection) &&
                       patch.Color(before.m_transparent, now.m_transparent) &&
                       patch.Double(before.m_index_of_refraction, now.m_index_of_refraction));
}

bool PatchMaterialData(DocumentPatch& patch, const ON_Material& before, const ON_Material& now) {
  if (patch.Archive().PeekAt3dmChunkType() == TCODE_ANONYMOUS_CHUNK) {
    return PatchNewMaterial(patch, before, now);
  }
  int major = 0, minor = 0;
  if (!patch.Archive().Read3dmChunkVersion(&major, &minor)) return false;
  return major == 1 ? PatchOldMaterial(patch, minor, before, now)
                    : PatchMiddleMaterial(patch, before, now);
}

}  // namespace

bool PatchMaterial(DocumentPatch& patch, const ON_Material& before, const ON_Material& now) {
  if (!patch.BeginChunkOf(TCODE_MATERIAL_RECORD) || !BeginPatchClass(patch) ||
      !PatchMaterialData(patch, before, now) ||
      !EndPatchClass(patch, before.m_user_strings, now.m_user_strings)) {
    return false;
  }
  patch.EndChunk();
  return true;
}

}  // namespace host
