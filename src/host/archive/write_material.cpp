#include <algorithm>

#include "host/archive/chunk_writer.h"
#include "host/archive/class_ids.h"
#include "host/archive/record_writers.h"

namespace host {
namespace {

constexpr int kDecal = 2, kModulate = 1;

// How a texture is blended with the one below: not at all.
void WriteNoBlending(ON_BinaryArchive& archive) {
  for (int i = 0; i < 5; ++i) archive.WriteDouble(0);
  archive.WriteColor(ON_Color());
  for (int i = 0; i < 4; ++i) archive.WriteDouble(0);
  archive.WriteInt(0);
}

void WriteTextureData(ON_BinaryArchive& archive, const ON_Texture& texture) {
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
  archive.WriteUuid(texture.m_texture_id);
  archive.WriteInt(texture.m_mapping_channel_id);
  archive.WriteString(texture.m_image_file);
  archive.WriteBool(texture.m_bOn);
  archive.WriteInt(static_cast<std::int32_t>(texture.m_type));
  archive.WriteInt(texture.m_mode);
  archive.WriteInt(texture.m_minfilter);
  archive.WriteInt(texture.m_magfilter);
  for (const int wrap : texture.m_wrap) archive.WriteInt(wrap);
  archive.WriteXform(texture.m_uvw);
  archive.WriteColor(texture.m_border_color);
  archive.WriteColor(texture.m_transparent_color);
  archive.WriteUuid(texture.m_transparency_texture_id);
  archive.WriteInterval({texture.m_bump_scale[0], texture.m_bump_scale[1]});
  WriteNoBlending(archive);
}

// What the forms since version 4 share.
void WriteAppearance(ON_BinaryArchive& archive, const ON_Material& material) {
  archive.WriteUuid(material.m_plugin_id);
  for (const ON_Color& color :
       {material.m_ambient, material.m_diffuse, material.m_emission, material.m_specular,
        material.m_reflection, material.m_transparent}) {
    archive.WriteColor(color);
  }
  archive.WriteDouble(material.m_index_of_refraction);
  archive.WriteDouble(material.m_reflectivity);
  archive.WriteDouble(material.m_shine);
  archive.WriteDouble(material.m_transparency);
  const ChunkWriter textures(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
  archive.WriteInt(static_cast<std::int32_t>(material.m_textures.size()));
  for (const ON_Texture& texture : material.m_textures) WriteTexture(archive, texture);
}

// Since version 6.
void WriteNewMaterial(ON_BinaryArchive& archive, const ON_Material& material, int index) {
  constexpr std::int32_t kIdIndexAndName = 1 | 4 | 8;
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
  {
    const ChunkWriter attributes(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
    archive.WriteInt(kIdIndexAndName);
    archive.WriteUuid(material.m_id);
    archive.WriteInt(index);
    archive.WriteString(material.m_name);
  }
  WriteAppearance(archive, material);
  // What a material may have beside: materials by channel; whether it is shared, unlit, and has
  // Fresnel's reflections; how rough its reflections and what is seen through it are, and the index
  // of refraction for them; the render kit's name for it; whether it has diffuse transparency.
  constexpr double kFresnelIndex = 1.56;
  archive.WriteInt(0);
  for (int i = 0; i < 3; ++i) archive.WriteBool(false);
  for (const double value : {0.0, 0.0, kFresnelIndex}) archive.WriteDouble(value);
  archive.WriteUuid(ON_UUID());
  archive.WriteBool(false);
}

// Versions 4 and 5.
void WriteMiddleMaterial(ON_BinaryArchive& archive, const ON_Material& material, int index) {
  archive.Write3dmChunkVersion(2, 0);
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
  archive.WriteUuid(material.m_id);
  archive.WriteInt(index);
  archive.WriteString(material.m_name);
  WriteAppearance(archive, material);
}

void WriteOldTexture(ON_BinaryArchive& archive, const ON_Material& material,
                     ON_Texture::Type type) {
  const ON_Texture* texture = OldTexture(material, type);
  archive.WriteString(texture == nullptr ? std::string_view() : texture->m_image_file);
  archive.WriteInt(OldTextureMode(texture));
  archive.WriteInt(0);  // an index that was never used
  if (type == ON_Texture::Type::bump) {
    archive.WriteDouble(texture == nullptr ? 0 : texture->m_bump_scale[1]);
  }
}

// Versions 2 and 3.
void WriteOldMaterial(ON_BinaryArchive& archive, const ON_Material& material, int index) {
  archive.Write3dmChunkVersion(1, 1);
  for (const ON_Color& color :
       {material.m_ambient, material.m_diffuse, material.m_emission, material.m_specular}) {
    archive.WriteColor(color);
  }
  archive.WriteDouble(material.m_shine);
  archive.WriteDouble(material.m_transparency);
  // Shadow flags, wire mode and density; a wire colour; a line style: none of them was ever used.
  for (int i = 0; i < 4; ++i) archive.WriteChar(0);
  archive.WriteColor(ON_Color());
  archive.WriteShort(0);
  archive.WriteShort(0);
  archive.WriteDouble(0);
  archive.WriteDouble(0);
  for (const ON_Texture::Type type : kOldTextureTypes) WriteOldTexture(archive, material, type);
  archive.WriteInt(index);
  archive.WriteUuid(material.m_plugin_id);
  archive.WriteString({});  // the library that it comes from
  archive.WriteString(material.m_name);
  archive.WriteUuid(material.m_id);
  archive.WriteColor(material.m_reflection);
  archive.WriteColor(material.m_transparent);
  archive.WriteDouble(material.m_index_of_refraction);
}

void WriteMaterialData(ON_BinaryArchive& archive, const ON_Material& material, int index) {
  // The first writer of the newest form.
  constexpr unsigned kFirstNewWriter = 2348833910;
  if (archive.Archive3dmVersion() < 4) {
    WriteOldMaterial(archive, material, index);
  } else if (archive.Archive3dmVersion() < 60 ||
             archive.ArchiveOpenNURBSVersion() < kFirstNewWriter) {
    WriteMiddleMaterial(archive, material, index);
  } else {
    WriteNewMaterial(archive, material, index);
  }
}

}  // namespace

const ON_Texture* OldTexture(const ON_Material& material, ON_Texture::Type type) {
  const auto found =
      std::find_if(material.m_textures.begin(), material.m_textures.end(),
                   [type](const ON_Texture& t) { return t.m_type == type && t.m_bOn; });
  return found == material.m_textures.end() ? nullptr : &*found;
}

int OldTextureMode(const ON_Texture* texture) {
  return texture != nullptr && texture->m_mode == kDecal ? kDecal : kModulate;
}

void WriteTexture(ON_BinaryArchive& archive, const ON_Texture& texture) {
  WriteClass(archive, kTextureClass, texture.m_user_strings,
             [&](ON_BinaryArchive& data) { WriteTextureData(data, texture); });
}

void WriteMaterial(ON_BinaryArchive& archive, const ON_Material& material, int index) {
  const ChunkWriter record(archive, TCODE_MATERIAL_RECORD);
  WriteClass(archive, kMaterialClass, material.m_user_strings,
             [&](ON_BinaryArchive& data) { WriteMaterialData(data, material, index); });
}

}  // namespace host
