#include "host/archive/chunk_scope.h"
#include "host/archive/record_patches.h"
#include "host/archive/record_readers.h"

namespace host {
namespace {

constexpr AttributeTypecodes kLightTypecodes{
    TCODE_LIGHT_RECORD_ATTRIBUTES, TCODE_LIGHT_RECORD_ATTRIBUTES_USERDATA, TCODE_LIGHT_RECORD_END};

bool PatchLightData(DocumentPatch& patch, const ON_Light& before, const ON_Light& now) {
  // The position in the table and the id.
  constexpr std::uint64_t kIndexAndIdSize = 4 + 16;
  int major = 0, minor = 0;
  const bool first =
      patch.Archive().Read3dmChunkVersion(&major, &minor) && patch.Int(before.m_bOn, now.m_bOn) &&
      patch.Int(static_cast<int>(before.m_style), static_cast<int>(now.m_style)) &&
      patch.Double(before.m_intensity, now.m_intensity) &&
      patch.Double(before.m_watts, now.m_watts) && patch.Color(before.m_ambient, now.m_ambient) &&
      patch.Color(before.m_diffuse, now.m_diffuse) &&
      patch.Color(before.m_specular, now.m_specular) &&
      patch.Vector(before.m_direction, now.m_direction) &&
      patch.Vector(ON_FromOrigin(before.m_location), ON_FromOrigin(now.m_location)) &&
      patch.Double(before.m_spot_angle, now.m_spot_angle) &&
      patch.Double(before.m_spot_exponent, now.m_spot_exponent) &&
      patch.Vector(before.m_attenuation, now.m_attenuation) &&
      patch.Double(before.m_shadow_intensity, now.m_shadow_intensity) &&
      patch.Archive().Skip(kIndexAndIdSize) && patch.String(before.m_light_name, now.m_light_name);
  if (!first) return false;
  if (minor >= 1 &&
      !(patch.Vector(before.m_length, now.m_length) && patch.Vector(before.m_width, now.m_width))) {
    return false;
  }
  return minor < 2 || patch.Double(before.m_hotspot, now.m_hotspot);
}

bool ReadLight(ON_BinaryArchive& archive, ONX_ModelLight& light) {
  const ChunkScope scope(archive);
  return BeginReadChunkOf(archive, TCODE_LIGHT_RECORD, "no light") &&
         ReadLightRecord(archive, light);
}

}  // namespace

bool PatchLight(DocumentPatch& patch, const ONX_ModelLight& before, const ONX_ModelLight& now) {
  if (!patch.BeginChunkOf(TCODE_LIGHT_RECORD) || !BeginPatchClass(patch) ||
      !PatchLightData(patch, *before.m_light, *now.m_light) ||
      !EndPatchClass(patch, before.m_light->m_user_strings, now.m_light->m_user_strings) ||
      !PatchAttributeChunks(patch, kLightTypecodes, before.m_attributes, now.m_attributes)) {
    return false;
  }
  patch.EndChunk();
  return true;
}

std::string PatchedLight(std::string record, const ON_BinaryArchive& archive,
                         const ONX_ModelLight& now) {
  const auto source = DocumentSource::FromBytes(std::move(record));
  DocumentPatch patch(*source, archive.Archive3dmVersion(), archive.ArchiveOpenNURBSVersion());
  ONX_ModelLight before;
  if (!ReadLight(patch.Archive(), before)) return {};
  patch.Seek(0);
  if (!PatchLight(patch, before, now)) return {};
  std::string bytes;
  for (const DocumentPatch::Piece& piece : patch.Finish()) {
    bytes += piece.kept.length > 0 ? source->Bytes(piece.kept) : piece.bytes;
  }
  return bytes;
}

}  // namespace host
