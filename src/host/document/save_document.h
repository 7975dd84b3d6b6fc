#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/archive/document_outline.h"
#include "host/archive/document_patch.h"
#include "host/archive/file_layout.h"
#include "host/document/doc.h"

// What a plug-in wants the document to hold of its own: nothing for no data.
struct PlugInContent {
  ON_UUID plugin_id;
  std::optional<std::string> bytes;
};

struct SaveResult {
  // False when nothing was saved; `error` then says why, without the file's name.
  bool ok = false;
  std::string error;
  // What the document has that a file of its version can't hold, a sentence each.
  std::vector<std::string> losses;
};

// The version under which a document is saved that came from no file, and the number of the library
// whose layouts it has.
struct NewDocumentVersion {
  static constexpr int archive = 70;
  static constexpr unsigned library = 0x8E0072B4;
};

// Saves a document: copies the file that it was opened from but for the records that are others
// now. A document that wasn't changed gives the same bytes.
class DocumentSaver {
 public:
  // An archive to write data into that goes into the document when it is saved.
  static ON_BinaryArchive ArchiveFor(const CRhinoDoc& doc);

  // `plug_ins` are those whose data has changed; that of all others stays.
  DocumentSaver(CRhinoDoc& doc, std::vector<PlugInContent> plug_ins);

  // The file at `path` is replaced whole or stays as it is. The document is then the one of that
  // file.
  [[nodiscard]] SaveResult Save(std::string_view path);

 private:
  // Why the document can't be saved; empty when it can.
  std::string Objection() const;
  void NoteChanges();
  void NoteTable(std::uint32_t typecode);
  void NoteMaterials();
  void NoteLayers();
  void NoteLights();
  void NoteObjects();
  void NoteUserTable();
  void NoteEndMark();
  template <class T, class Read, class Patch>
  void NoteRecord(ON_FileSpan span, const T& now, std::string_view what, Read read, Patch patch);
  // Passes over the next record of the open table. Nothing at its end, and in front of a record
  // that leads out of the table: nothing is read from there on.
  std::optional<host::Record> PassRecord();

  // New records of a table, noted at the place where the document now is read.
  void AddRecords(std::uint32_t table);
  void AddMissingTables(std::uint32_t next_table);
  void AddMissingUserTables();
  // A record of a light, or of what is no object.
  struct NewRecord {
    CRhinoObject* object = nullptr;
    std::string bytes;
  };
  std::vector<NewRecord> NewRecords(std::uint32_t table) const;
  // Of a light that the file doesn't have. One that it had keeps what was around it there.
  std::string LightRecord(const CRhinoObject& object, int position) const;
  ONX_PlugInData DataOf(const PlugInContent& plug_in) const;
  // Its table; no bytes when it has nothing.
  std::string UserTable(const PlugInContent& plug_in) const;

  // The new file; null when it can't be written.
  std::shared_ptr<const DocumentSource> Write(std::string_view path, std::string* error);
  void Adopt(std::string_view path, std::shared_ptr<const DocumentSource> written);

  CRhinoDoc& doc_;
  std::vector<PlugInContent> plug_ins_;
  std::shared_ptr<const DocumentSource> source_;
  host::DocumentPatch patch_;
  ON_BinaryArchive& archive_;
  host::DocumentOutline outline_;
  std::vector<std::uint32_t> seen_tables_;
  // Of the next record; a document may have several tables of a kind.
  int material_position_ = 0;
  int layer_position_ = 0;
  std::vector<ON_UUID> seen_user_tables_;
  // New objects and the numbers of their records in the patch.
  std::vector<std::pair<CRhinoObject*, std::size_t>> added_;
};
