#include "support/model_writer.h"

#include "host/archive/chunk_writer.h"
#include "host/archive/file_layout.h"
#include "host/archive/typecodes.h"
#include "support/record_writers.h"

namespace model_writer {
namespace {

// A table whose records tell their position.
template <class T>
void WriteIndexedTable(ON_BinaryArchive& archive, std::uint32_t typecode,
                       const std::vector<T>& records,
                       void (*write)(ON_BinaryArchive&, const T&, int)) {
  WriteTable(archive, typecode, [&](ON_BinaryArchive& table) {
    int index = 0;
    for (const T& record : records) write(table, record, index++);
  });
}

template <class T>
void WritePlainTable(ON_BinaryArchive& archive, std::uint32_t typecode,
                     const std::vector<T>& records, void (*write)(ON_BinaryArchive&, const T&)) {
  WriteTable(archive, typecode, [&](ON_BinaryArchive& table) {
    for (const T& record : records) write(table, record);
  });
}

void WriteEmptyTable(ON_BinaryArchive& archive, std::uint32_t typecode) {
  WriteTable(archive, typecode, [](ON_BinaryArchive&) {});
}

// The tables in the order in which documents have them.
void WriteTables(ON_BinaryArchive& archive, const ONX_Model& model) {
  WriteProperties(archive, model.m_properties);
  WriteSettings(archive, model.m_settings);
  WriteEmptyTable(archive, TCODE_BITMAP_TABLE);
  WriteEmptyTable(archive, TCODE_TEXTURE_MAPPING_TABLE);
  WriteIndexedTable(archive, TCODE_MATERIAL_TABLE, model.m_material_table, host::WriteMaterial);
  WriteIndexedTable(archive, TCODE_LINETYPE_TABLE, model.m_linetype_table, WriteLinetype);
  WriteIndexedTable(archive, TCODE_LAYER_TABLE, model.m_layer_table, host::WriteLayer);
  WritePlainTable(archive, TCODE_GROUP_TABLE, model.m_group_table, WriteGroup);
  WriteIndexedTable(archive, TCODE_FONT_TABLE, model.m_dimstyle_table, WriteTextStyle);
  WriteIndexedTable(archive, TCODE_DIMSTYLE_TABLE, model.m_dimstyle_table, WriteDimStyle);
  WriteIndexedTable(archive, TCODE_LIGHT_TABLE, model.m_light_table, host::WriteLight);
  WriteEmptyTable(archive, TCODE_HATCHPATTERN_TABLE);
  WritePlainTable(archive, TCODE_INSTANCE_DEFINITION_TABLE, model.m_idef_table,
                  WriteInstanceDefinition);
  WriteTable(archive, TCODE_OBJECT_TABLE, [&model](ON_BinaryArchive& table) {
    for (const ONX_ModelObject& object : model.m_object_table) {
      WriteObject(table, object, model.m_dimstyle_table);
    }
  });
  WriteEmptyTable(archive, TCODE_HISTORYRECORD_TABLE);
  host::WriteDocumentUserStrings(archive, model.m_document_user_strings);
  for (const ONX_PlugInData& data : model.m_userdata_table) host::WritePlugInData(archive, data);
}

}  // namespace
}  // namespace model_writer

std::string WriteModel(const ONX_Model& model) {
  const int version = model.m_3dm_file_version;
  if (version != 4 && version != 50 && version != 80) return {};
  ON_BinaryArchive archive(version);
  if (!host::WriteFileStart(archive, model.m_start_section_comments)) return {};
  model_writer::WriteTables(archive, model);
  if (!host::WriteEndMark(archive)) return {};
  return archive.TakeBytes();
}
