#include <algorithm>
#include <map>

#include "host/archive/record_patches.h"
#include "host/archive/record_readers.h"
#include "host/archive/record_writers.h"
#include "host/document/save_document.h"

// The records of the tables that may be others when a document is saved.

namespace {

ONX_ModelLight LightOf(const CRhinoObject& object) {
  ONX_ModelLight light;
  const ON_Light* geometry = ON_Light::Cast(object.Geometry());
  light.m_light =
      geometry == nullptr ? std::make_shared<ON_Light>() : std::make_shared<ON_Light>(*geometry);
  light.m_attributes = object.Attributes();
  return light;
}

std::string Written(const host::WriteContent& write) {
  ON_BinaryArchive archive(NewDocumentVersion::archive, NewDocumentVersion::library);
  write(archive);
  return archive.TakeBytes();
}

// All that can be changed of a thing, as a new document holds it.
std::string ContentOf(const ON_Material& material) {
  return Written([&](ON_BinaryArchive& archive) { host::WriteMaterial(archive, material, 0); });
}

std::string ContentOf(const ON_Layer& layer) {
  return Written([&](ON_BinaryArchive& archive) { host::WriteLayer(archive, layer, 0); });
}

// Without the id, which is given to an object that the file gives none of its own.
std::string ContentOf(ON_3dmObjectAttributes attributes) {
  attributes.m_uuid = {};
  return Written([&](ON_BinaryArchive& archive) {
    host::WriteAttributeChunks(archive, attributes, TCODE_OBJECT_RECORD_ATTRIBUTES,
                               TCODE_OBJECT_RECORD_ATTRIBUTES_USERDATA);
  });
}

std::string ContentOf(ONX_ModelLight light) {
  if (light.m_light == nullptr) light.m_light = std::make_shared<ON_Light>();
  light.m_attributes.m_uuid = {};
  return Written([&](ON_BinaryArchive& archive) { host::WriteLight(archive, light, 0); });
}

}  // namespace

std::optional<host::Record> DocumentSaver::PassRecord() {
  host::Record record;
  record.span.offset = archive_.CurrentPosition();
  record.typecode = archive_.PeekAt3dmChunkType();
  if (archive_.BytesLeft() == 0 || record.typecode == TCODE_ENDOFTABLE) return std::nullopt;
  const bool isPassed = patch_.SkipChunk();
  if (!isPassed) patch_.Seek(record.span.offset);
  record.span.length = archive_.CurrentPosition() - record.span.offset;
  return isPassed ? std::optional(record) : std::nullopt;
}

// Reads the record as it is and notes in what `now` differs.
template <class T, class Read, class Patch>
void DocumentSaver::NoteRecord(ON_FileSpan span, const T& now, std::string_view what, Read read,
                               Patch patch) {
  std::uint32_t typecode = 0;
  std::int64_t value = 0;
  T before;
  patch_.Seek(span.offset);
  const int depth = archive_.ChunkDepth();
  bool ok = archive_.BeginRead3dmChunk(&typecode, &value) && read(archive_, before);
  archive_.EndRead3dmChunksTo(depth);
  patch_.Seek(span.offset);
  const host::DocumentPatch::Mark mark = patch_.Here();
  if (!ok || !patch(patch_, before, now)) {
    patch_.GoBack(mark);
    if (ContentOf(before) != ContentOf(now)) {
      patch_.Tell("The change of " + std::string(what) +
                  " isn't saved: what the file holds of it is broken.");
    }
  }
  patch_.Seek(span.offset + span.length);
  static_cast<void>(archive_.TakeProblems());
}

void DocumentSaver::NoteMaterials() {
  while (const std::optional<host::Record> record = PassRecord()) {
    if (record->typecode != TCODE_MATERIAL_RECORD) continue;
    const int index = material_position_++;
    if (index >= doc_.source_counts_.materials) continue;
    if (const ON_Material* now = doc_.m_material_table.At(index)) {
      NoteRecord(record->span, *now, "material " + now->m_name, host::ReadMaterial,
                 host::PatchMaterial);
    } else {
      // It came with a change that was undone after the last saving.
      patch_.ReplaceChunks(record->span.offset, record->span.length, {});
    }
  }
  AddRecords(TCODE_MATERIAL_TABLE);
}

void DocumentSaver::NoteLayers() {
  while (const std::optional<host::Record> record = PassRecord()) {
    if (record->typecode != TCODE_LAYER_RECORD) continue;
    const ON_Layer* now = doc_.m_layer_table.At(layer_position_++);
    if (now == nullptr) continue;
    NoteRecord(record->span, *now, "layer " + now->m_name, host::ReadLayer, host::PatchLayer);
  }
}

void DocumentSaver::NoteLights() {
  // A light that was deleted, saved and brought back stands elsewhere than in the document's order.
  std::map<std::uint64_t, const CRhinoObject*> lights;
  for (const auto& light : doc_.lights_) {
    if (light->span_.length > 0) lights.emplace(light->span_.offset, light.get());
  }
  while (const std::optional<host::Record> record = PassRecord()) {
    const auto found = lights.find(record->span.offset);
    if (found == lights.end()) continue;
    const CRhinoObject& light = *found->second;
    if (light.IsDeleted()) {
      patch_.ReplaceChunks(record->span.offset, record->span.length, {});
    } else {
      NoteRecord(record->span, LightOf(light), "light " + light.Attributes().m_name,
                 host::ReadLightRecord, host::PatchLight);
    }
  }
  AddRecords(TCODE_LIGHT_TABLE);
}

// Goes from one changed record to the next; between them may be much.
void DocumentSaver::NoteObjects() {
  const std::uint64_t start = archive_.CurrentPosition();
  const std::uint64_t end = archive_.ChunkEnd();
  for (const auto& object : doc_.objects_) {
    const bool isOfTable = object->span_.offset >= start && object->span_.offset < end;
    if (!object->edited_ || !isOfTable) continue;
    NoteRecord(object->span_, object->Attributes(), "object " + object->Attributes().m_name,
               host::ReadObjectAttributes, host::PatchObject);
  }
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
      records.push_back({light.get(), LightRecord(*light, position)});
    }
  }
  return records;
}

std::string DocumentSaver::LightRecord(const CRhinoObject& object, int position) const {
  const ONX_ModelLight light = LightOf(object);
  if (!object.removed_record_.empty()) {
    std::string record = host::PatchedLight(object.removed_record_, archive_, light);
    if (!record.empty()) return record;
  }
  return patch_.Written(
      [&](ON_BinaryArchive& archive) { host::WriteLight(archive, light, position); });
}

// New records come behind those of all tables of their kind.
void DocumentSaver::AddRecords(std::uint32_t table) {
  if (std::count(seen_tables_.begin(), seen_tables_.end(), table) <
      std::count(outline_.tables.begin(), outline_.tables.end(), table)) {
    return;
  }
  const std::uint64_t here = archive_.CurrentPosition();
  for (NewRecord& record : NewRecords(table)) {
    const std::size_t number = patch_.ReplaceChunks(here, 0, std::move(record.bytes));
    if (record.object != nullptr) added_.emplace_back(record.object, number);
  }
}
