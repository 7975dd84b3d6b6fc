#include <algorithm>

#include "host/archive/read_user_table.h"
#include "host/archive/record_writers.h"
#include "host/document/save_document.h"

// What of a document is to be replaced when it is saved.

namespace {

constexpr int kFirstWideVersion = 50;
// The tables that get new records.
constexpr std::uint32_t kGrowingTables[] = {TCODE_MATERIAL_TABLE, TCODE_LIGHT_TABLE};

template <class T>
bool Contains(const std::vector<T>& list, const T& value) {
  return std::find(list.begin(), list.end(), value) != list.end();
}

// A chunk's head for content of this length.
std::string HeadOf(const host::DocumentPatch& patch, std::uint32_t typecode, std::size_t length) {
  return patch.Written([&](ON_BinaryArchive& archive) {
    archive.WriteInt(static_cast<std::int32_t>(typecode));
    if (archive.Archive3dmVersion() < kFirstWideVersion) {
      archive.WriteInt(static_cast<std::int32_t>(length));
    } else {
      archive.WriteBigInt(static_cast<std::int64_t>(length));
    }
  });
}

}  // namespace

void DocumentSaver::NoteChanges() {
  patch_.Seek(host::kFileStartSize);
  bool ended = false;
  while (!ended && archive_.BytesLeft() > 0) {
    const std::uint32_t typecode = archive_.PeekAt3dmChunkType();
    ended = typecode == TCODE_ENDOFFILE;
    AddMissingTables(typecode);
    if (ended) AddMissingUserTables();
    const std::uint64_t start = archive_.CurrentPosition();
    if (typecode == TCODE_USER_TABLE) {
      NoteUserTable();
      continue;
    }
    if (!patch_.BeginChunk()) break;
    NoteTable(typecode);
    patch_.EndChunk();
    if (archive_.CurrentPosition() == start) break;
  }
  if (ended) return;
  patch_.Seek(outline_.end);
  AddMissingTables(TCODE_ENDOFFILE);
  AddMissingUserTables();
}

void DocumentSaver::NoteTable(std::uint32_t typecode) {
  seen_tables_.push_back(typecode);
  switch (typecode) {
    case TCODE_MATERIAL_TABLE:
      return NoteMaterials();
    case TCODE_LAYER_TABLE:
      return NoteLayers();
    case TCODE_LIGHT_TABLE:
      return NoteLights();
    case TCODE_OBJECT_TABLE:
      return NoteObjects();
    case TCODE_ENDOFFILE:
      return NoteEndMark();
    default:
      return;
  }
}

void DocumentSaver::NoteUserTable() {
  const std::uint64_t start = archive_.CurrentPosition();
  ONX_PlugInData data;
  std::uint32_t typecode = 0;
  std::int64_t value = 0;
  if (!archive_.BeginRead3dmChunk(&typecode, &value)) return patch_.Seek(source_->Size());
  const int depth = archive_.ChunkDepth();
  static_cast<void>(host::ReadUserTable(archive_, data));
  archive_.EndRead3dmChunksTo(depth - 1);
  const auto plugIn = std::find_if(plug_ins_.begin(), plug_ins_.end(), [&](const PlugInContent& p) {
    return p.plugin_id == data.m_plugin_id;
  });
  if (plugIn == plug_ins_.end()) return;
  // Of several tables of a plug-in, the first takes what it has now.
  const bool isFirst = !Contains(seen_user_tables_, data.m_plugin_id);
  seen_user_tables_.push_back(data.m_plugin_id);
  patch_.ReplaceChunks(start, archive_.CurrentPosition() - start,
                       isFirst ? UserTable(*plugIn) : std::string());
}

void DocumentSaver::AddMissingUserTables() {
  for (const PlugInContent& plugIn : plug_ins_) {
    if (Contains(seen_user_tables_, plugIn.plugin_id) || !plugIn.bytes) continue;
    patch_.ReplaceChunks(archive_.CurrentPosition(), 0, UserTable(plugIn));
  }
}

std::string DocumentSaver::UserTable(const PlugInContent& plug_in) const {
  if (!plug_in.bytes) return {};
  return patch_.Written(
      [&](ON_BinaryArchive& archive) { host::WritePlugInData(archive, DataOf(plug_in)); });
}

void DocumentSaver::NoteEndMark() {
  const std::uint64_t at = archive_.CurrentPosition();
  const bool isWide = archive_.Archive3dmVersion() >= kFirstWideVersion;
  std::uint32_t narrow = 0;
  std::int64_t size = 0;
  if (isWide ? !archive_.ReadBigInt(&size) : !archive_.ReadInt(&narrow)) return;
  if (!isWide) size = narrow;
  const std::int64_t grown = size + patch_.Growth();
  if (grown == size) return;
  patch_.Replace(at, isWide ? 8 : 4, patch_.Written([&](ON_BinaryArchive& archive) {
    if (isWide) return archive.WriteBigInt(grown);
    archive.WriteInt(static_cast<std::int32_t>(static_cast<std::uint32_t>(grown)));
  }));
}

// A table that the document lacks comes before the first one that stands behind it in others.
void DocumentSaver::AddMissingTables(std::uint32_t next_table) {
  for (const std::uint32_t table : kGrowingTables) {
    if (Contains(outline_.tables, table) || Contains(seen_tables_, table) ||
        host::TableOrder(next_table) <= host::TableOrder(table)) {
      continue;
    }
    seen_tables_.push_back(table);
    std::size_t length = 0;
    for (const NewRecord& record : NewRecords(table)) length += record.bytes.size();
    if (length == 0) continue;
    const std::uint64_t here = archive_.CurrentPosition();
    const std::string end = patch_.Written(
        [](ON_BinaryArchive& archive) { archive.WriteShortChunk(TCODE_ENDOFTABLE, 0); });
    patch_.ReplaceChunks(here, 0, HeadOf(patch_, table, length + end.size()));
    AddRecords(table);
    patch_.ReplaceChunks(here, 0, end);
  }
}
