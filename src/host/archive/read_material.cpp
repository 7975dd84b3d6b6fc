#include <algorithm>

#include "host/archive/chunk_scope.h"
#include "host/archive/class_ids.h"
#include "host/archive/class_wrapper.h"
#include "host/archive/component_attributes.h"
#include "host/archive/record_readers.h"

namespace host {
namespace {

constexpr double kMaxShine = 255;

// Reads a number that is held to 0..`max`; one that is none counts as 0.
bool ReadHeld(ON_BinaryArchive& archive, double max, double& value) {
  if (!archive.ReadDouble(&value)) return false;
  value = value >= 0 ? std::min(value, max) : 0;
  return true;
}

// The path of a file: in a chunk with the full one first, which is empty when it isn't known.
bool ReadFilePath(ON_BinaryArchive& archive, std::string& path) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  std::string full_path;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor) ||
      !archive.ReadString(&full_path)) {
    return false;
  }
  if (!full_path.empty()) path = full_path;
  return true;
}

bool ReadTextureData(ON_BinaryArchive& archive, ON_Texture& texture) {
  // How the texture is blended with the one below: 9 factors, a colour, an order.
  constexpr std::uint64_t kBlendSize = 5 * 8 + 4 + 4 * 8 + 4;
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  std::int32_t type = 0;
  ON_Interval bump_scale;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("a texture of an unknown version");
  if (!archive.ReadUuid(&texture.m_texture_id) || !archive.ReadInt(&texture.m_mapping_channel_id) ||
      !archive.ReadString(&texture.m_image_file) || !archive.ReadBool(&texture.m_bOn) ||
      !archive.ReadInt(&type) || !archive.ReadInt(&texture.m_mode) ||
      !archive.ReadInt(&texture.m_minfilter) || !archive.ReadInt(&texture.m_magfilter) ||
      !archive.ReadInt(&texture.m_wrap[0]) || !archive.ReadInt(&texture.m_wrap[1]) ||
      !archive.ReadInt(&texture.m_wrap[2]) || !archive.ReadXform(&texture.m_uvw) ||
      !archive.ReadColor(&texture.m_border_color) ||
      !archive.ReadColor(&texture.m_transparent_color) ||
      !archive.ReadUuid(&texture.m_transparency_texture_id) || !archive.ReadInterval(&bump_scale) ||
      !archive.Skip(kBlendSize)) {
    return false;
  }
  texture.m_type = static_cast<ON_Texture::Type>(type);
  texture.m_bump_scale = {bump_scale.Min, bump_scale.Max};
  return minor < 1 || ReadFilePath(archive, texture.m_image_file);
}

bool ReadTexture(ON_BinaryArchive& archive, ON_Texture& texture) {
  return ReadWrappedClass(archive, &texture.m_user_strings,
                          [&texture](ON_BinaryArchive& data, const ON_UUID& class_id) {
                            if (class_id == kTextureClass) return ReadTextureData(data, texture);
                            return data.Fail("a material's texture is none");
                          });
}

bool ReadTextures(ON_BinaryArchive& archive, std::vector<ON_Texture>& textures) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  std::size_t count = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor) ||
      !archive.ReadCount(1, &count)) {
    return false;
  }
  for (std::size_t i = 0; i < count; ++i) {
    if (!ReadTexture(archive, textures.emplace_back())) return false;
  }
  return true;
}

// What the forms since version 4 share.
bool ReadAppearance(ON_BinaryArchive& archive, ON_Material& material) {
  return archive.ReadUuid(&material.m_plugin_id) && archive.ReadColor(&material.m_ambient) &&
         archive.ReadColor(&material.m_diffuse) && archive.ReadColor(&material.m_emission) &&
         archive.ReadColor(&material.m_specular) && archive.ReadColor(&material.m_reflection) &&
         archive.ReadColor(&material.m_transparent) &&
         archive.ReadDouble(&material.m_index_of_refraction) &&
         ReadHeld(archive, 1, material.m_reflectivity) &&
         ReadHeld(archive, kMaxShine, material.m_shine) &&
         ReadHeld(archive, 1, material.m_transparency) &&
         ReadTextures(archive, material.m_textures);
}

// Since version 6.
bool ReadNewMaterial(ON_BinaryArchive& archive, ON_Material& material) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  ComponentAttributes attributes;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("a material of an unknown version");
  if (!ReadMaskedComponentAttributes(archive, attributes)) return false;
  material.m_id = attributes.id;
  material.m_name = attributes.name;
  return ReadAppearance(archive, material);
}

// Writers of version 4 left this grey where they meant nothing in particular.
void ReplaceOldDefault(const ON_BinaryArchive& archive, ON_Material& material) {
  constexpr unsigned kFirstGoodWriter = 200912010;
  const ON_Color& c = material.m_transparent;
  const bool is_grey = c.Red() == 128 && c.Green() == 128 && c.Blue() == 128;
  if (is_grey && archive.ArchiveOpenNURBSVersion() < kFirstGoodWriter) {
    material.m_transparent = material.m_diffuse;
  }
}

// Versions 4 and 5.
bool ReadMiddleMaterial(ON_BinaryArchive& archive, ON_Material& material) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  std::int32_t index = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("a material of an unknown version");
  if (!archive.ReadUuid(&material.m_id) || !archive.ReadInt(&index) ||
      !archive.ReadString(&material.m_name) || !ReadAppearance(archive, material)) {
    return false;
  }
  ReplaceOldDefault(archive, material);
  return true;
}

// A texture of a material before version 4: a file, a mode, and a bump's depth.
bool ReadOldTexture(ON_BinaryArchive& archive, ON_Texture::Type type, ON_Material& material) {
  constexpr std::int32_t kStoredDecal = 2;
  constexpr int kDecal = 2, kModulate = 1;
  ON_Texture texture;
  std::int32_t mode = 0, index = 0;
  if (!archive.ReadString(&texture.m_image_file) || !archive.ReadInt(&mode) ||
      !archive.ReadInt(&index)) {
    return false;
  }
  texture.m_type = type;
  texture.m_mode = mode == kStoredDecal ? kDecal : kModulate;
  if (type == ON_Texture::Type::bump) {
    texture.m_bump_scale = {0, 0};
    if (!archive.ReadDouble(&texture.m_bump_scale[1])) return false;
  }
  if (!texture.m_image_file.empty()) material.m_textures.push_back(std::move(texture));
  return true;
}

// Versions 2 and 3, behind the version byte.
bool ReadOldMaterial(ON_BinaryArchive& archive, int minor, ON_Material& material) {
  // Shadow flags, wire mode and density; a wire colour; a line style: none of them was ever used.
  constexpr std::uint64_t kUnusedSize = 4 + 4 + 20;
  std::int32_t index = 0;
  std::string library;
  if (!archive.ReadColor(&material.m_ambient) || !archive.ReadColor(&material.m_diffuse) ||
      !archive.ReadColor(&material.m_emission) || !archive.ReadColor(&material.m_specular) ||
      !ReadHeld(archive, kMaxShine, material.m_shine) ||
      !ReadHeld(archive, 1, material.m_transparency) || !archive.Skip(kUnusedSize) ||
      !ReadOldTexture(archive, ON_Texture::Type::bitmap, material) ||
      !ReadOldTexture(archive, ON_Texture::Type::bump, material) ||
      !ReadOldTexture(archive, ON_Texture::Type::environment, material) ||
      !archive.ReadInt(&index) || !archive.ReadUuid(&material.m_plugin_id) ||
      !archive.ReadString(&library) || !archive.ReadString(&material.m_name)) {
    return false;
  }
  return minor < 1 ||
         (archive.ReadUuid(&material.m_id) && archive.ReadColor(&material.m_reflection) &&
          archive.ReadColor(&material.m_transparent) &&
          archive.ReadDouble(&material.m_index_of_refraction));
}

bool ReadMaterialData(ON_BinaryArchive& archive, ON_Material& material) {
  if (archive.PeekAt3dmChunkType() == TCODE_ANONYMOUS_CHUNK) {
    return ReadNewMaterial(archive, material);
  }
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major == 1) return ReadOldMaterial(archive, minor, material);
  if (major == 2) return ReadMiddleMaterial(archive, material);
  return archive.Fail("a material of an unknown version");
}

}  // namespace

bool ReadMaterial(ON_BinaryArchive& archive, ON_Material& material) {
  return ReadWrappedClass(archive, &material.m_user_strings,
                          [&material](ON_BinaryArchive& data, const ON_UUID& class_id) {
                            if (class_id == kMaterialClass) return ReadMaterialData(data, material);
                            return data.Fail("this is no material");
                          });
}

}  // namespace host
