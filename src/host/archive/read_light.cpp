#include "host/archive/chunk_scope.h"
#include "host/archive/class_ids.h"
#include "host/archive/class_wrapper.h"
#include "host/archive/read_attributes.h"
#include "host/archive/record_readers.h"

namespace host {
namespace {

ON_LightStyle StyleFromStored(std::int32_t stored) {
  const bool known = stored >= static_cast<int>(ON_LightStyle::camera_directional) &&
                     stored <= static_cast<int>(ON_LightStyle::world_rectangular);
  return known ? static_cast<ON_LightStyle>(stored) : ON_LightStyle::unknown;
}

bool ReadLightData(ON_BinaryArchive& archive, ON_Light& light) {
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1) return archive.Fail("a light of an unknown version");
  std::int32_t on = 0, style = 0, index = 0;
  if (!archive.ReadInt(&on) || !archive.ReadInt(&style) ||
      !archive.ReadDouble(&light.m_intensity) || !archive.ReadDouble(&light.m_watts) ||
      !archive.ReadColor(&light.m_ambient) || !archive.ReadColor(&light.m_diffuse) ||
      !archive.ReadColor(&light.m_specular) || !archive.ReadVector(&light.m_direction) ||
      !archive.ReadPoint(&light.m_location) || !archive.ReadDouble(&light.m_spot_angle) ||
      !archive.ReadDouble(&light.m_spot_exponent) || !archive.ReadVector(&light.m_attenuation) ||
      !archive.ReadDouble(&light.m_shadow_intensity) || !archive.ReadInt(&index) ||
      !archive.ReadUuid(&light.m_light_id) || !archive.ReadString(&light.m_light_name)) {
    return false;
  }
  light.m_bOn = on != 0;
  light.m_style = StyleFromStored(style);
  if (minor >= 1 && !(archive.ReadVector(&light.m_length) && archive.ReadVector(&light.m_width))) {
    return false;
  }
  return minor < 2 || archive.ReadDouble(&light.m_hotspot);
}

bool ReadLightClass(ON_BinaryArchive& archive, ON_Light& light) {
  return ReadWrappedClass(archive, &light.m_user_strings,
                          [&light](ON_BinaryArchive& data, const ON_UUID& class_id) {
                            if (class_id != kLightClass) return data.Fail("this is no light");
                            return ReadLightData(data, light);
                          });
}

// A chunk of the record that is open, of the kind `typecode`.
bool ReadLightPart(ON_BinaryArchive& archive, std::uint32_t typecode,
                   ON_3dmObjectAttributes& attributes) {
  if (typecode == TCODE_LIGHT_RECORD_ATTRIBUTES) return ReadAttributes(archive, attributes);
  if (typecode == TCODE_LIGHT_RECORD_ATTRIBUTES_USERDATA) {
    return ReadUserData(archive, &attributes.m_user_strings);
  }
  return true;
}

}  // namespace

bool ReadLightRecord(ON_BinaryArchive& archive, ONX_ModelLight& light) {
  light.m_light = std::make_shared<ON_Light>();
  if (!ReadLightClass(archive, *light.m_light)) return false;
  while (archive.BytesLeft() > 0) {
    std::uint32_t typecode = 0;
    std::int64_t value = 0;
    if (!archive.BeginRead3dmChunk(&typecode, &value)) return false;
    const bool read = ReadLightPart(archive, typecode, light.m_attributes);
    if (!archive.EndRead3dmChunk() || !read) return false;
    if (typecode == TCODE_LIGHT_RECORD_END) break;
  }
  return true;
}

}  // namespace host
