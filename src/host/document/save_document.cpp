#include "host/document/save_document.h"

#include <algorithm>
#include <limits>

#include "host/archive/new_document.h"
#include "host/archive/record_readers.h"
#include "host/archive/record_writers.h"
#include "host/system/file_replacement.h"

namespace {

constexpr int kFirstWideVersion = 50;
std::shared_ptr<const DocumentSource> SourceOf(const CRhinoDoc& doc) {
  if (doc.Source() != nullptr) return doc.Source();
  return DocumentSource::FromBytes(host::NewDocument(NewDocumentVersion::archive,
                                                     NewDocumentVersion::library,
                                                     doc.Properties().ModelUnitsAndTolerances()));
}

int VersionOf(const CRhinoDoc& doc) {
  return doc.Source() != nullptr ? doc.FileVersion() : NewDocumentVersion::archive;
}

unsigned LibraryOf(const CRhinoDoc& doc) {
  return doc.Source() != nullptr ? doc.LibraryVersion() : NewDocumentVersion::library;
}

}  // namespace

ON_BinaryArchive DocumentSaver::ArchiveFor(const CRhinoDoc& doc) {
  return ON_BinaryArchive(VersionOf(doc), LibraryOf(doc));
}

DocumentSaver::DocumentSaver(CRhinoDoc& doc, std::vector<PlugInContent> plug_ins)
    : doc_(doc),
      plug_ins_(std::move(plug_ins)),
      source_(SourceOf(doc)),
      patch_(*source_, VersionOf(doc), LibraryOf(doc)),
      archive_(patch_.Archive()),
      outline_(host::OutlineOf(*source_, VersionOf(doc))) {
  if (doc.m_user_strings.m_e == doc.source_user_strings_.m_e) return;
  PlugInContent& strings = plug_ins_.emplace_back();
  strings.plugin_id = host::kDocumentUserStringsId;
  if (doc.m_user_strings.IsEmpty()) return;
  strings.bytes =
      host::DocumentUserStringsData(VersionOf(doc), LibraryOf(doc), doc.m_user_strings).m_bytes;
}

SaveResult DocumentSaver::Save(std::string_view path) {
  SaveResult result;
  result.error = Objection();
  if (!result.error.empty()) return result;
  NoteChanges();
  const std::uint64_t size = source_->Size() + static_cast<std::uint64_t>(patch_.Growth());
  if (VersionOf(doc_) < kFirstWideVersion && size > std::numeric_limits<std::uint32_t>::max()) {
    result.error = "a document of its version can't be larger than 4 gigabytes";
    return result;
  }
  std::shared_ptr<const DocumentSource> written = Write(path, &result.error);
  if (written == nullptr) return result;
  Adopt(path, std::move(written));
  result.ok = true;
  result.losses = patch_.Losses();
  return result;
}

std::string DocumentSaver::Objection() const {
  if (source_->File() != nullptr && !source_->File()->IsUnchanged()) {
    return "the file that it was opened from has been changed by another program since";
  }
  const bool hasForeign = std::any_of(doc_.objects_.begin(), doc_.objects_.end(),
                                      [](const auto& object) { return object->span_.length == 0; });
  const CRhinoDoc::SourceCounts present = doc_.TableCounts();
  const CRhinoDoc::SourceCounts& stored = doc_.source_counts_;
  const bool hasForeignTables =
      present.layers > stored.layers || present.linetypes > stored.linetypes ||
      present.groups > stored.groups || present.dimstyles > stored.dimstyles ||
      present.definitions > stored.definitions;
  if (hasForeign || hasForeignTables) {
    return "it holds what was imported from other documents, which can't be saved";
  }
  return {};
}

std::shared_ptr<const DocumentSource> DocumentSaver::Write(std::string_view path,
                                                           std::string* error) {
  const host::FileReader* file = source_->File();
  host::FileReplacement out(path);
  for (const host::DocumentPatch::Piece& piece : patch_.Finish()) {
    if (out.HasError()) break;
    if (piece.kept.length == 0) {
      out.Write(piece.bytes);
    } else if (file != nullptr) {
      out.Copy(*file, piece.kept.offset, piece.kept.length);
    } else {
      out.Write(source_->Bytes(piece.kept));
    }
  }
  if (file != nullptr && !file->IsUnchanged()) {
    *error = "the file that it was opened from is being changed by another program";
    return nullptr;
  }
  if (out.Commit()) return DocumentSource::FromFile(out);
  *error = host::LastSystemError();
  return nullptr;
}

void DocumentSaver::Adopt(std::string_view path, std::shared_ptr<const DocumentSource> written) {
  for (auto* const list : {&doc_.objects_, &doc_.lights_}) {
    for (const auto& object : *list) {
      object->edited_ = false;
      if (!object->IsDeleted()) {
        object->span_ = patch_.Moved(object->span_);
      } else if (object->span_.length > 0) {
        object->removed_record_ = source_->Bytes(std::exchange(object->span_, {}));
      }
    }
  }
  for (const auto& [object, number] : added_) {
    object->span_ = patch_.PlaceOf(number);
    object->removed_record_.clear();
  }
  for (PlugInContent& plugIn : plug_ins_) {
    std::erase_if(doc_.plugin_data_,
                  [&](const ONX_PlugInData& data) { return data.m_plugin_id == plugIn.plugin_id; });
    const bool isOfPlugIn = plugIn.plugin_id != host::kDocumentUserStringsId;
    if (plugIn.bytes && isOfPlugIn) doc_.plugin_data_.push_back(DataOf(plugIn));
  }
  doc_.file_version_ = VersionOf(doc_);
  doc_.written_by_library_ = LibraryOf(doc_);
  doc_.source_counts_ = doc_.TableCounts();
  doc_.source_user_strings_ = doc_.m_user_strings;
  doc_.source_ = std::move(written);
  doc_.path_ = path;
}

ONX_PlugInData DocumentSaver::DataOf(const PlugInContent& plug_in) const {
  ONX_PlugInData data;
  data.m_plugin_id = plug_in.plugin_id;
  data.m_archive_version = VersionOf(doc_);
  data.m_opennurbs_version = LibraryOf(doc_);
  data.m_bytes = plug_in.bytes.value_or("");
  return data;
}
