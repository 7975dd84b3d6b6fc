#include "host/archive/new_document.h"

#include "host/archive/chunk_writer.h"
#include "host/archive/file_layout.h"

namespace host {
namespace {

constexpr std::uint32_t kRecordTables[] = {TCODE_BITMAP_TABLE,
                                           TCODE_TEXTURE_MAPPING_TABLE,
                                           TCODE_MATERIAL_TABLE,
                                           TCODE_LINETYPE_TABLE,
                                           TCODE_LAYER_TABLE,
                                           TCODE_GROUP_TABLE,
                                           TCODE_FONT_TABLE,
                                           TCODE_DIMSTYLE_TABLE,
                                           TCODE_LIGHT_TABLE,
                                           TCODE_HATCHPATTERN_TABLE,
                                           TCODE_INSTANCE_DEFINITION_TABLE,
                                           TCODE_OBJECT_TABLE,
                                           TCODE_HISTORYRECORD_TABLE};

void WriteUnits(ON_BinaryArchive& archive, const ON_3dmUnitsAndTolerances& units) {
  constexpr std::int32_t kVersion = 102, kDecimalNumbers = 0, kDigitsShown = 3;
  const ChunkWriter chunk(archive, TCODE_SETTINGS_UNITSANDTOLS);
  archive.WriteInt(kVersion);
  archive.WriteInt(static_cast<std::int32_t>(units.m_unit_system));
  archive.WriteDouble(units.m_absolute_tolerance);
  archive.WriteDouble(units.m_angle_tolerance);
  archive.WriteDouble(units.m_relative_tolerance);
  archive.WriteInt(kDecimalNumbers);
  archive.WriteInt(kDigitsShown);
  archive.WriteDouble(units.m_custom_meters_per_unit);
  archive.WriteString(units.m_custom_unit_name);
}

}  // namespace

std::string NewDocument(int version, unsigned opennurbs_version,
                        const ON_3dmUnitsAndTolerances& units) {
  ON_BinaryArchive archive(version, opennurbs_version);
  if (!WriteFileStart(archive, "")) return {};
  WriteTable(archive, TCODE_PROPERTIES_TABLE, [&](ON_BinaryArchive& table) {
    table.WriteShortChunk(TCODE_PROPERTIES_OPENNURBS_VERSION, opennurbs_version);
  });
  WriteTable(archive, TCODE_SETTINGS_TABLE,
             [&](ON_BinaryArchive& table) { WriteUnits(table, units); });
  for (const std::uint32_t typecode : kRecordTables) {
    WriteTable(archive, typecode, [](ON_BinaryArchive&) {});
  }
  if (!WriteEndMark(archive)) return {};
  return archive.TakeBytes();
}

}  // namespace host
