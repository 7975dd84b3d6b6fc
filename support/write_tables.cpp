#include "host/archive/chunk_writer.h"
#include "host/archive/typecodes.h"
#include "support/record_writers.h"

namespace model_writer {
namespace {

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
