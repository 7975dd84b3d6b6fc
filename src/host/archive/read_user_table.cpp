#include "host/archive/read_user_table.h"

#include "host/archive/file_layout.h"

namespace host {
namespace {

// From here on a header tells of the versions.
constexpr unsigned kFirstWithHeader = 200910190;

bool ReadHeader(ON_BinaryArchive& archive, ONX_PlugInData& data) {
  int major = 0;
  int minor = 0;
  bool savedAsGoo = false;
  std::int32_t archiveVersion = 0;
  std::uint32_t libraryVersion = 0;
  if (!archive.BeginRead3dmChunk(TCODE_USER_TABLE_RECORD_HEADER, &major, &minor)) return false;
  const bool ok = archive.ReadBool(&savedAsGoo) && archive.ReadInt(&archiveVersion) &&
                  archive.ReadInt(&libraryVersion);
  if (!archive.EndRead3dmChunk() || !ok) return false;
  data.m_saved_as_goo = savedAsGoo;
  data.m_archive_version = archiveVersion;
  data.m_opennurbs_version = libraryVersion;
  return true;
}

bool ReadId(ON_BinaryArchive& archive, ONX_PlugInData& data) {
  if (!archive.ReadUuid(&data.m_plugin_id)) return false;
  const bool hasHeader = archive.ArchiveOpenNURBSVersion() >= kFirstWithHeader &&
                         archive.PeekAt3dmChunkType() == TCODE_USER_TABLE_RECORD_HEADER;
  return !hasHeader || ReadHeader(archive, data);
}

bool AppendBytes(ON_BinaryArchive& archive, std::string& bytes) {
  const std::size_t before = bytes.size();
  bytes.resize(before + static_cast<std::size_t>(archive.BytesLeft()));
  return archive.ReadByte(std::as_writable_bytes(std::span(bytes).subspan(before)));
}

}  // namespace

bool ReadUserTable(ON_BinaryArchive& archive, ONX_PlugInData& data) {
  data.m_archive_version = archive.Archive3dmVersion();
  data.m_opennurbs_version = archive.ArchiveOpenNURBSVersion();
  bool ok = true;
  const bool ended = ReadRecords(archive, [&](const Record& record) {
    if (record.typecode == TCODE_USER_TABLE_UUID) ok = ReadId(archive, data) && ok;
    if (record.typecode == TCODE_USER_RECORD) ok = AppendBytes(archive, data.m_bytes) && ok;
  });
  return ended && ok;
}

}  // namespace host
