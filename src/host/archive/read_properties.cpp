#include <array>

#include "host/archive/document_readers.h"

namespace host {
namespace {

// A time is eight integers: seconds, minutes, hours, day, month from 0, years since 1900, and two
// that follow from these.
bool ReadTime(ON_BinaryArchive& archive, std::array<int, 6>& time) {
  std::array<std::int32_t, 8> stored{};
  for (std::int32_t& part : stored) {
    if (!archive.ReadInt(&part)) return false;
  }
  const bool isSet =
      stored[3] > 0 && stored[4] >= 0 && stored[4] < 12 && stored[5] > 0 && stored[5] < 10000;
  time = {};
  if (isSet) time = {stored[5] + 1900, stored[4] + 1, stored[3], stored[2], stored[1], stored[0]};
  return true;
}

bool ReadRevisionHistory(ON_BinaryArchive& archive, ON_3dmProperties& properties) {
  int major = 0;
  int minor = 0;
  return archive.Read3dmChunkVersion(&major, &minor) &&
         archive.ReadString(&properties.m_created_by) &&
         ReadTime(archive, properties.m_create_time) &&
         archive.ReadString(&properties.m_last_edited_by) &&
         ReadTime(archive, properties.m_last_edit_time) &&
         archive.ReadInt(&properties.m_revision_count);
}

bool ReadNotes(ON_BinaryArchive& archive, ON_3dmProperties& properties) {
  int major = 0;
  int minor = 0;
  std::int32_t isHtml = 0;
  return archive.Read3dmChunkVersion(&major, &minor) && archive.ReadInt(&isHtml) &&
         archive.ReadString(&properties.m_notes);
}

bool ReadApplication(ON_BinaryArchive& archive, ON_3dmProperties& properties) {
  int major = 0;
  int minor = 0;
  return archive.Read3dmChunkVersion(&major, &minor) &&
         archive.ReadString(&properties.m_application_name) &&
         archive.ReadString(&properties.m_application_url) &&
         archive.ReadString(&properties.m_application_details);
}

bool ReadPreviewSize(ON_BinaryArchive& archive, ON_3dmProperties& properties) {
  std::int32_t headerSize = 0;
  return archive.ReadInt(&headerSize) && archive.ReadInt(&properties.m_preview_width) &&
         archive.ReadInt(&properties.m_preview_height);
}

bool ReadInto(ON_BinaryArchive& archive, std::uint32_t typecode, ON_3dmProperties& properties) {
  switch (typecode) {
    case TCODE_PROPERTIES_REVISIONHISTORY:
      return ReadRevisionHistory(archive, properties);
    case TCODE_PROPERTIES_NOTES:
      return ReadNotes(archive, properties);
    case TCODE_PROPERTIES_APPLICATION:
      return ReadApplication(archive, properties);
    case TCODE_PROPERTIES_PREVIEWIMAGE:
    case TCODE_PROPERTIES_COMPRESSED_PREVIEWIMAGE:
      return ReadPreviewSize(archive, properties);
    case TCODE_PROPERTIES_AS_FILE_NAME:
      return archive.ReadString(&properties.m_archive_full_path);
    default:
      return true;
  }
}

}  // namespace

bool ReadPropertiesRecord(ON_BinaryArchive& archive, std::uint32_t typecode,
                          ON_3dmProperties& properties) {
  ON_3dmProperties read = properties;
  if (!ReadInto(archive, typecode, read)) return false;
  properties = std::move(read);
  return true;
}

}  // namespace host
