#include "host/archive/model_reader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "host/archive/chunk_scope.h"
#include "host/archive/document_readers.h"
#include "host/archive/document_source.h"
#include "host/archive/file_layout.h"
#include "host/archive/read_user_table.h"
#include "host/archive/record_readers.h"

namespace host {
namespace {

// After so many broken records a table is given up.
constexpr int kMaxBrokenRecords = 1000;

// What happens to a record that can't be used. Objects refer to some tables by position, in which a
// broken record keeps its place.
enum class BrokenRecord { left_out, keeps_place };

// A table of which nothing is read yet: its records are counted.
struct UnreadTable {
  std::uint32_t typecode;
  const char* record;
};

constexpr std::array kUnreadTables{
    UnreadTable{TCODE_BITMAP_TABLE, "embedded bitmap"},
    UnreadTable{TCODE_TEXTURE_MAPPING_TABLE, "texture mapping"},
    UnreadTable{TCODE_HATCHPATTERN_TABLE, "hatch pattern"},
    UnreadTable{TCODE_HISTORYRECORD_TABLE, "history record"},
};

class ModelReader {
 public:
  ModelReader(ByteSource& source, int version, unsigned opennurbs_version, ONX_Model& model)
      : archive_(source, version, opennurbs_version),
        file_size_(source.Size()),
        model_(model),
        problems_(model.m_problems) {}

  // True when anything could be read.
  bool ReadTables();

 private:
  void ReadTable(const Record& table);
  bool ReadTableContent(const Record& table);
  template <class T, class Reader>
  bool ReadRecordTable(std::uint32_t record_typecode, const char* kind, std::vector<T>& table,
                       BrokenRecord broken, Reader read);
  bool ReadProperties();
  bool ReadSettings();
  bool ReadPlugInData(ON_FileSpan span);
  bool CountRecords(std::uint32_t typecode);

  ON_BinaryArchive archive_;
  std::uint64_t file_size_;
  ONX_Model& model_;
  ProblemList problems_;
  UnreadCounter unread_;
  std::vector<TextStyle> text_styles_;
  int whole_tables_ = 0;
  bool ended_ = false;
};

bool ModelReader::ReadTables() {
  ReadChunks(archive_, [this](const Record& table) {
    const std::string name = TableName(table.typecode);
    problems_.Take(archive_, name, table.span.offset);
    ReadTable(table);
    problems_.Take(archive_, name, table.span.offset);
    return !ended_;
  });
  problems_.Take(archive_, "document", archive_.CurrentPosition());
  if (!ended_ && model_.m_problems.empty()) {
    problems_.Add("the file has no end mark (offset " + std::to_string(file_size_) + ")");
  }
  problems_.Close();
  model_.m_unread = unread_.Take();
  return ended_ || whole_tables_ > 0;
}

void ModelReader::ReadTable(const Record& table) {
  switch (table.typecode) {
    case TCODE_COMMENTBLOCK:
      model_.m_start_section_comments = ReadCommentBlock(archive_);
      return;
    case TCODE_ENDOFFILE:
      ReadEndMark(archive_, file_size_);
      ended_ = true;
      return;
    default:
      break;
  }
  if (ReadTableContent(table)) {
    ++whole_tables_;
  } else {
    archive_.Fail("it has no end");
  }
}

// True when the table was read to its end.
bool ModelReader::ReadTableContent(const Record& table) {
  using enum BrokenRecord;
  switch (table.typecode) {
    case TCODE_PROPERTIES_TABLE:
      return ReadProperties();
    case TCODE_SETTINGS_TABLE:
      return ReadSettings();
    case TCODE_MATERIAL_TABLE:
      return ReadRecordTable(TCODE_MATERIAL_RECORD, "material", model_.m_material_table,
                             keeps_place, ReadMaterial);
    case TCODE_LINETYPE_TABLE:
      return ReadRecordTable(TCODE_LINETYPE_RECORD, "linetype", model_.m_linetype_table,
                             keeps_place, ReadLinetype);
    case TCODE_LAYER_TABLE:
      return ReadRecordTable(TCODE_LAYER_RECORD, "layer", model_.m_layer_table, keeps_place,
                             ReadLayer);
    case TCODE_GROUP_TABLE:
      return ReadRecordTable(TCODE_GROUP_RECORD, "group", model_.m_group_table, left_out,
                             ReadGroup);
    case TCODE_FONT_TABLE:
      return ReadRecordTable(TCODE_FONT_RECORD, "text style", text_styles_, keeps_place,
                             ReadTextStyle);
    case TCODE_DIMSTYLE_TABLE:
      return ReadRecordTable(TCODE_DIMSTYLE_RECORD, "dimension style", model_.m_dimstyle_table,
                             keeps_place, [this](ON_BinaryArchive& archive, ON_DimStyle& style) {
                               return ReadDimStyle(archive, style, text_styles_);
                             });
    case TCODE_INSTANCE_DEFINITION_TABLE:
      return ReadRecordTable(TCODE_INSTANCE_DEFINITION_RECORD, "block definition",
                             model_.m_idef_table, left_out, ReadInstanceDefinition);
    case TCODE_LIGHT_TABLE:
      return ReadRecordTable(TCODE_LIGHT_RECORD, "light", model_.m_light_table, left_out,
                             ReadLightRecord);
    case TCODE_OBJECT_TABLE:
      return ReadRecordTable(TCODE_OBJECT_RECORD, "object", model_.m_object_table, left_out,
                             [this](ON_BinaryArchive& archive, ONX_ModelObject& object) {
                               return ReadObjectRecord(archive, object, unread_,
                                                       {model_.m_dimstyle_table, text_styles_});
                             });
    case TCODE_USER_TABLE:
      return ReadPlugInData(table.span);
    default:
      return CountRecords(table.typecode);
  }
}

// Reads the records of one kind; other chunks of the table are passed over.
template <class T, class Reader>
bool ModelReader::ReadRecordTable(std::uint32_t record_typecode, const char* kind,
                                  std::vector<T>& table, BrokenRecord broken, Reader read) {
  int brokenCount = 0;
  return ReadRecords(archive_, [&](const Record& chunk) {
    if (chunk.typecode != record_typecode || brokenCount >= kMaxBrokenRecords) return;
    T record;
    const bool ok = read(archive_, record);
    if constexpr (requires { record.m_span; }) record.m_span = chunk.span;
    problems_.Take(archive_, kind, chunk.span.offset);
    if (!ok) ++brokenCount;
    if (ok || broken == BrokenRecord::keeps_place) table.push_back(std::move(record));
  });
}

bool ModelReader::ReadProperties() {
  return ReadRecords(archive_, [&](const Record& record) {
    if (ReadPropertiesRecord(archive_, record.typecode, model_.m_properties)) return;
    problems_.Take(archive_, "properties record", record.span.offset);
  });
}

bool ModelReader::ReadSettings() {
  return ReadRecords(archive_, [&](const Record& record) {
    if (ReadSettingsRecord(archive_, record.typecode, record.value, model_.m_settings)) return;
    problems_.Take(archive_, "settings record", record.span.offset);
  });
}

bool ModelReader::ReadPlugInData(ON_FileSpan span) {
  ONX_PlugInData data;
  data.m_span = span;
  const bool whole = ReadUserTable(archive_, data);
  if (data.m_plugin_id != kDocumentUserStringsId) {
    model_.m_userdata_table.push_back(std::move(data));
  } else if (!ReadDocumentUserStrings(data, model_.m_document_user_strings)) {
    archive_.Fail("the document's user strings are broken");
  }
  return whole;
}

bool ModelReader::CountRecords(std::uint32_t typecode) {
  const auto table =
      std::find_if(kUnreadTables.begin(), kUnreadTables.end(),
                   [typecode](const UnreadTable& t) { return t.typecode == typecode; });
  if (table == kUnreadTables.end()) {
    unread_.Add("unknown table");
    return true;
  }
  return ReadRecords(archive_, [&](const Record&) { unread_.Add(table->record); });
}

ON_ReadResult ReadModel(ByteSource& source, ONX_Model& model) {
  std::string error;
  int version = 0;
  if (!ReadFileStart(source, &version, &error)) return {false, error};
  const unsigned libraryVersion = FindLibraryVersion(source, version);
  model.m_3dm_file_version = version;
  model.m_3dm_opennurbs_version = libraryVersion;
  ModelReader reader(source, version, libraryVersion, model);
  if (reader.ReadTables()) return {true, {}};
  return {false, "it holds nothing that can be read: " + model.m_problems.front()};
}

}  // namespace
}  // namespace host

ON_ReadResult ON_ReadModel(std::string_view path, ONX_Model& model) {
  model.m_source = DocumentSource::FromFile(path);
  if (!model.m_source->IsOpen()) return {false, model.m_source->Error()};
  ByteSource source = model.m_source->Read();
  return host::ReadModel(source, model);
}

ON_ReadResult ON_ReadModel(std::span<const std::byte> bytes, ONX_Model& model) {
  ByteSource source(bytes);
  return host::ReadModel(source, model);
}
