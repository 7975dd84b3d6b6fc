#include <algorithm>

#include "host/archive/file_layout.h"
#include "host/archive/read_user_table.h"
#include "host/archive/record_patches.h"
#include "host/archive/record_readers.h"
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

ONX_ModelLight LightOf(const CRhinoObject& object) {
  ONX_ModelLight light;
  const ON_Light* geometry = ON_Light::Cast(object.Geometry());
  light.m_light =
      geometry == nullptr ? std::make_shared<ON_Light>() : std::make_shared<ON_Light>(*geometry);
  light.m_attributes = object.Attributes();
  return light;
}

bool LooksChanged(const ON_Object& before, const ON_Object& now) {
  return before.m_user_strings.m_e != now.m_user_strings.m_e;
}

bool LooksChanged(const ONX_ModelLight& before, const ONX_ModelLight& now) {
  return LooksChanged(*before.m_light, *now.m_light) ||
         LooksChanged(before.m_attributes, now.m_attributes);
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
    if (patch_.BeginChunk() == 0) break;
    NoteTable(typecode);
    patch_.EndChunk();
    if (archive_.CurrentPosition() == start) break;
  }
  if (ended) return;
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

bool DocumentSaver::IsAtRecord(std::uint32_t typecode) {
  return archive_.PeekAt3dmChunkType() == typecode;
}

ON_FileSpan DocumentSaver::PassRecord() {
  const std::uint64_t start = archive_.CurrentPosition();
  if (!patch_.SkipChunk()) return {start, 0};
  return {start, archive_.CurrentPosition() - start};
}

// Reads the record as it is and notes in what `now` differs.
template <class T, class Read, class Patch>
void DocumentSaver::NoteRecord(const T& now, std::string_view what, Read read, Patch patch) {
  const std::uint64_t start = archive_.CurrentPosition();
  std::uint32_t typecode = 0;
  std::int64_t value = 0;
  T before;
  bool ok = archive_.BeginRead3dmChunk(&typecode, &value);
  if (!ok) return;
  const int depth = archive_.ChunkDepth();
  ok = read(archive_, before);
  archive_.EndRead3dmChunksTo(depth - 1);
  patch_.Seek(start);
  const host::DocumentPatch::Mark mark = patch_.Here();
  if (!ok || !patch(patch_, before, now)) {
    patch_.GoBack(mark);
    patch_.Seek(start);
    static_cast<void>(patch_.SkipChunk());
    if (LooksChanged(before, now)) {
      patch_.Tell("The change of " + std::string(what) +
                  " isn't saved: what the file holds of it is broken.");
    }
  }
  static_cast<void>(archive_.TakeProblems());
}

void DocumentSaver::NoteMaterials() {
  int position = 0;
  while (archive_.BytesLeft() > 0 && !IsAtRecord(TCODE_ENDOFTABLE)) {
    const bool isMaterial = IsAtRecord(TCODE_MATERIAL_RECORD);
    const int index = isMaterial ? position++ : doc_.source_counts_.materials;
    const ON_Material* now = doc_.m_material_table.At(index);
    if (index >= doc_.source_counts_.materials) {
      if (PassRecord().length == 0) break;
    } else if (now == nullptr) {
      // It came with a change that was undone after the last saving.
      const ON_FileSpan record = PassRecord();
      patch_.ReplaceChunks(record.offset, record.length, {});
    } else {
      NoteRecord(*now, "material " + now->m_name, host::ReadMaterial, host::PatchMaterial);
    }
  }
  AddRecords(TCODE_MATERIAL_TABLE);
}

void DocumentSaver::NoteLayers() {
  int position = 0;
  while (archive_.BytesLeft() > 0 && !IsAtRecord(TCODE_ENDOFTABLE)) {
    const ON_Layer* now =
        IsAtRecord(TCODE_LAYER_RECORD) ? doc_.m_layer_table.At(position++) : nullptr;
    if (now != nullptr) {
      NoteRecord(*now, "layer " + now->m_name, host::ReadLayer, host::PatchLayer);
    } else if (PassRecord().length == 0) {
      break;
    }
  }
}

void DocumentSaver::NoteLights() {
  auto light = doc_.lights_.begin();
  while (archive_.BytesLeft() > 0 && !IsAtRecord(TCODE_ENDOFTABLE)) {
    const std::uint64_t start = archive_.CurrentPosition();
    // The lights stand in the order of the file.
    while (light != doc_.lights_.end() && (*light)->span_.offset < start) ++light;
    const bool isKnown = light != doc_.lights_.end() && (*light)->span_.length > 0 &&
                         (*light)->span_.offset == start;
    if (isKnown && !(*light)->IsDeleted()) {
      NoteRecord(LightOf(**light), "light " + (*light)->Attributes().m_name, host::ReadLightRecord,
                 host::PatchLight);
      continue;
    }
    const ON_FileSpan record = PassRecord();
    if (record.length == 0) break;
    if (isKnown) patch_.ReplaceChunks(record.offset, record.length, {});
  }
  AddRecords(TCODE_LIGHT_TABLE);
}

// Goes from one changed record to the next; between them may be much.
void DocumentSaver::NoteObjects() {
  for (const auto& object : doc_.objects_) {
    if (!object->edited_) continue;
    patch_.Seek(object->span_.offset);
    NoteRecord(object->Attributes(), "object " + object->Attributes().m_name,
               host::ReadObjectAttributes, host::PatchObject);
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

std::vector<DocumentSaver::NewRecord> DocumentSaver::NewRecords(std::uint32_t table) const {
  std::vector<NewRecord> records;
  if (table == TCODE_MATERIAL_TABLE) {
    for (int i = doc_.source_counts_.materials; i < doc_.m_material_table.Count(); ++i) {
      records.push_back({nullptr, patch_.Written([&](ON_BinaryArchive& archive) {
                           host::WriteMaterial(archive, *doc_.m_material_table.At(i), i);
                         })});
    }
  } else if (table == TCODE_LIGHT_TABLE) {
    int index = 0;
    for (const auto& light : doc_.lights_) {
      if (light->IsDeleted()) continue;
      const int position = index++;
      if (light->span_.length > 0) continue;
      records.push_back({light.get(), patch_.Written([&](ON_BinaryArchive& archive) {
                           host::WriteLight(archive, LightOf(*light), position);
                         })});
    }
  }
  return records;
}

void DocumentSaver::AddRecords(std::uint32_t table) {
  const std::uint64_t here = archive_.CurrentPosition();
  for (NewRecord& record : NewRecords(table)) {
    const std::size_t number = patch_.ReplaceChunks(here, 0, std::move(record.bytes));
    if (record.object != nullptr) added_.emplace_back(record.object, number);
  }
}

// A table that the document lacks comes before the first one that stands behind it in others.
void DocumentSaver::AddMissingTables(std::uint32_t next_table) {
  for (const std::uint32_t table : kGrowingTables) {
    if (Contains(seen_tables_, table) || host::TableOrder(next_table) <= host::TableOrder(table))
      continue;
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
