#include "host/archive/chunk_writer.h"
#include "host/archive/record_readers.h"
#include "host/archive/record_writers.h"

namespace host {

void WritePlugInData(ON_BinaryArchive& archive, const ONX_PlugInData& data) {
  // From here on a header tells of the versions; before, its place was not known.
  constexpr unsigned kFirstWithHeader = 200910190;
  WriteTable(archive, TCODE_USER_TABLE, [&](ON_BinaryArchive& table) {
    {
      const ChunkWriter id(table, TCODE_USER_TABLE_UUID);
      table.WriteUuid(data.m_plugin_id);
      if (table.Archive3dmVersion() >= 50 && table.ArchiveOpenNURBSVersion() >= kFirstWithHeader) {
        const ChunkWriter header(table, TCODE_USER_TABLE_RECORD_HEADER, 1, 0);
        table.WriteBool(data.m_saved_as_goo);
        table.WriteInt(data.m_archive_version);
        table.WriteInt(static_cast<std::int32_t>(data.m_opennurbs_version));
      }
    }
    const ChunkWriter record(table, TCODE_USER_RECORD);
    table.WriteByte(std::as_bytes(std::span(data.m_bytes)));
  });
}

ONX_PlugInData DocumentUserStringsData(int version, unsigned opennurbs_version,
                                       const ON_UserStringList& strings) {
  ON_BinaryArchive bytes(version, opennurbs_version);
  WriteClass(bytes, kDocumentUserStringsId, strings, [](ON_BinaryArchive& data) {
    const ChunkWriter empty(data, TCODE_ANONYMOUS_CHUNK, 1, 0);
  });
  ONX_PlugInData data;
  data.m_plugin_id = kDocumentUserStringsId;
  data.m_archive_version = version;
  data.m_opennurbs_version = opennurbs_version;
  data.m_bytes = bytes.TakeBytes();
  return data;
}

void WriteDocumentUserStrings(ON_BinaryArchive& archive, const ON_UserStringList& strings) {
  if (strings.IsEmpty()) return;
  WritePlugInData(archive, DocumentUserStringsData(archive.Archive3dmVersion(),
                                                   archive.ArchiveOpenNURBSVersion(), strings));
}

}  // namespace host
