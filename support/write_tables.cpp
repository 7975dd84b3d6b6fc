#include "host/archive/typecodes.h"
#include "support/chunk_writer.h"
#include "support/record_writers.h"

namespace model_writer {
namespace {

// A line style that was never used stands in several records.
void WriteNoLineStyle(ON_BinaryArchive& archive) {
  archive.WriteShort(0);
  archive.WriteShort(0);
  archive.WriteDouble(0);
  archive.WriteDouble(1);
}

void WriteLayerData(ON_BinaryArchive& archive, const ON_Layer& layer, int index) {
  constexpr int kNormal = 0, kOff = 1, kLocked = 2;
  archive.Write3dmChunkVersion(1, 6);
  const int mode = !layer.m_visible ? kOff : layer.m_locked ? kLocked : kNormal;
  archive.WriteInt(mode);
  archive.WriteInt(index);
  archive.WriteInt(layer.m_iges_level);
  archive.WriteInt(layer.m_render_material_index);
  archive.WriteInt(0);
  archive.WriteColor(layer.m_color);
  WriteNoLineStyle(archive);
  archive.WriteString(layer.m_name);
  archive.WriteBool(layer.m_visible);
  archive.WriteInt(layer.m_linetype_index);
  archive.WriteColor(layer.m_plot_color);
  archive.WriteDouble(layer.m_plot_weight_mm);
  archive.WriteBool(layer.m_locked);
  archive.WriteUuid(layer.m_id);
  archive.WriteUuid(layer.m_parent_id);
  archive.WriteBool(layer.m_expanded);
}

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

void WriteTextures(ON_BinaryArchive& archive, const std::vector<ON_Texture>& textures) {
  constexpr ON_UUID kTextureClass = "d6ff106d-329b-4f29-97e2-fd282a618020"_uuid;
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
  archive.WriteInt(static_cast<std::int32_t>(textures.size()));
  for (const ON_Texture& texture : textures) {
    WriteClass(archive, kTextureClass, texture.m_user_strings,
               [&](ON_BinaryArchive& data) { WriteTextureData(data, texture); });
  }
}

void WriteMaterialData(ON_BinaryArchive& archive, const ON_Material& material, int index) {
  archive.Write3dmChunkVersion(2, 0);
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
  archive.WriteUuid(material.m_id);
  archive.WriteInt(index);
  archive.WriteString(material.m_name);
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
  WriteTextures(archive, material.m_textures);
}

void WriteLinetypeData(ON_BinaryArchive& archive, const ON_Linetype& linetype, int index) {
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK, 1, 1);
  archive.WriteInt(index);
  archive.WriteString(linetype.m_name);
  archive.WriteInt(static_cast<std::int32_t>(linetype.m_segments.size()));
  for (const ON_Linetype::Segment& segment : linetype.m_segments) {
    archive.WriteDouble(segment.m_length);
    archive.WriteInt(segment.m_is_gap);
  }
  archive.WriteUuid(linetype.m_id);
}

void WriteDefinitionData(ON_BinaryArchive& archive, const ON_InstanceDefinition& definition) {
  archive.Write3dmChunkVersion(1, 0);
  archive.WriteUuid(definition.m_id);
  archive.WriteInt(static_cast<std::int32_t>(definition.m_object_ids.size()));
  for (const ON_UUID& id : definition.m_object_ids) archive.WriteUuid(id);
  archive.WriteString(definition.m_name);
  archive.WriteString(definition.m_description);
  archive.WriteString(definition.m_url);
  archive.WriteString(definition.m_url_tag);
  archive.WriteBoundingBox(definition.m_bbox);
  archive.WriteInt(definition.m_kind);
  archive.WriteString(definition.m_linked_file);
}

}  // namespace

void WriteLayer(ON_BinaryArchive& archive, const ON_Layer& layer, int index) {
  constexpr ON_UUID kLayerClass = "95809813-e985-11d3-bfe5-0010830122f0"_uuid;
  const ChunkWriter record(archive, TCODE_LAYER_RECORD);
  WriteClass(archive, kLayerClass, layer.m_user_strings,
             [&](ON_BinaryArchive& data) { WriteLayerData(data, layer, index); });
}

void WriteMaterial(ON_BinaryArchive& archive, const ON_Material& material, int index) {
  constexpr ON_UUID kMaterialClass = "60b5dbbc-e660-11d3-bfe4-0010830122f0"_uuid;
  const ChunkWriter record(archive, TCODE_MATERIAL_RECORD);
  WriteClass(archive, kMaterialClass, material.m_user_strings,
             [&](ON_BinaryArchive& data) { WriteMaterialData(data, material, index); });
}

void WriteLinetype(ON_BinaryArchive& archive, const ON_Linetype& linetype, int index) {
  constexpr ON_UUID kLinetypeClass = "26f10a24-7d13-4f05-8fda-8e364daf8ea6"_uuid;
  const ChunkWriter record(archive, TCODE_LINETYPE_RECORD);
  WriteClass(archive, kLinetypeClass, linetype.m_user_strings,
             [&](ON_BinaryArchive& data) { WriteLinetypeData(data, linetype, index); });
}

void WriteGroup(ON_BinaryArchive& archive, const ON_Group& group) {
  constexpr ON_UUID kGroupClass = "721d9f97-3645-44c4-8be6-b2cf697d25ce"_uuid;
  const ChunkWriter record(archive, TCODE_GROUP_RECORD);
  WriteClass(archive, kGroupClass, {}, [&](ON_BinaryArchive& data) {
    data.Write3dmChunkVersion(1, 1);
    data.WriteInt(group.m_index);
    data.WriteString(group.m_name);
    data.WriteUuid(group.m_id);
  });
}

void WriteInstanceDefinition(ON_BinaryArchive& archive, const ON_InstanceDefinition& definition) {
  constexpr ON_UUID kDefinitionClass = "26f8bff6-2618-417f-a158-153d64a94989"_uuid;
  const ChunkWriter record(archive, TCODE_INSTANCE_DEFINITION_RECORD);
  WriteClass(archive, kDefinitionClass, definition.m_user_strings,
             [&](ON_BinaryArchive& data) { WriteDefinitionData(data, definition); });
}

}  // namespace model_writer
