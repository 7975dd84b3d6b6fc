#include "host/archive/chunk_writer.h"
#include "host/archive/class_ids.h"
#include "host/archive/record_writers.h"

namespace host {
namespace {

void WriteLightData(ON_BinaryArchive& archive, const ON_Light& light, int index) {
  archive.Write3dmChunkVersion(1, 2);
  archive.WriteInt(light.m_bOn);
  archive.WriteInt(static_cast<std::int32_t>(light.m_style));
  archive.WriteDouble(light.m_intensity);
  archive.WriteDouble(light.m_watts);
  archive.WriteColor(light.m_ambient);
  archive.WriteColor(light.m_diffuse);
  archive.WriteColor(light.m_specular);
  archive.WriteVector(light.m_direction);
  archive.WritePoint(light.m_location);
  archive.WriteDouble(light.m_spot_angle);
  archive.WriteDouble(light.m_spot_exponent);
  archive.WriteVector(light.m_attenuation);
  archive.WriteDouble(light.m_shadow_intensity);
  archive.WriteInt(index);
  archive.WriteUuid(light.m_light_id);
  archive.WriteString(light.m_light_name);
  archive.WriteVector(light.m_length);
  archive.WriteVector(light.m_width);
  archive.WriteDouble(light.m_hotspot);
}

}  // namespace

void WriteLight(ON_BinaryArchive& archive, const ONX_ModelLight& light, int index) {
  const ChunkWriter record(archive, TCODE_LIGHT_RECORD);
  WriteClass(archive, kLightClass, light.m_light->m_user_strings,
             [&](ON_BinaryArchive& data) { WriteLightData(data, *light.m_light, index); });
  WriteAttributeChunks(archive, light.m_attributes, TCODE_LIGHT_RECORD_ATTRIBUTES,
                       TCODE_LIGHT_RECORD_ATTRIBUTES_USERDATA);
  archive.WriteShortChunk(TCODE_LIGHT_RECORD_END, 0);
}

}  // namespace host
