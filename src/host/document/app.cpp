#include "host/document/app.h"

#include <span>

#include "host/archive/binary_archive.h"
#include "host/archive/model_reader.h"
#include "host/document/read_report.h"
#include "host/document/save_document.h"

namespace {

// What the document calls a plug-in; its id where the document has no name for it.
std::string PlugInName(const CRhinoDoc& doc, const ON_UUID& id) {
  for (const ON_3dmPlugInRef& plugIn : doc.Properties().Settings().m_plugin_list) {
    if (plugIn.m_plugin_id == id && !plugIn.m_plugin_name.empty()) return plugIn.m_plugin_name;
  }
  return id.ToString();
}

bool ReadDocumentData(CRhinoPlugInDocumentData& plug_in, CRhinoDoc& doc, const ONX_PlugInData& data,
                      const CRhinoFileReadOptions& options) {
  ByteSource source(std::as_bytes(std::span(data.m_bytes)));
  ON_BinaryArchive archive(source, data.m_archive_version, data.m_opennurbs_version);
  return plug_in.ReadDocument(doc, archive, options);
}

}  // namespace

CRhinoApp::CRhinoApp() : profile_(std::string()) {}

CRhinoApp::~CRhinoApp() = default;

bool CRhinoApp::ReadFile(std::string_view path, ONX_Model& model) {
  if (watchers_->IsRaising()) {
    Print("Unable to open " + std::string(path) + " during a change of the open document.\n");
    return false;
  }
  const ON_ReadResult result = ON_ReadModel(path, model);
  if (!result.ok) {
    Print("Unable to open " + std::string(path) + ": " + result.error + "\n");
    return false;
  }
  Print(ReadReport(model));
  return true;
}

bool CRhinoApp::OpenDocument(std::string_view path) {
  ONX_Model model;
  if (!ReadFile(path, model)) return false;
  doc_.SetModel(std::move(model), std::string(path));
  ReadPlugInData(plugin_data_, doc_.PlugInData(), {});
  for (PlugInEntry& entry : plugin_data_) KeepContent(entry);
  return true;
}

bool CRhinoApp::ImportDocument(std::string_view path) {
  ONX_Model model;
  if (!ReadFile(path, model)) return false;
  const double unit = model.m_settings.m_model_units.MetersPerUnit();
  if (unit != doc_.Properties().ModelUnitsAndTolerances().MetersPerUnit()) {
    Print("The imported document has other units; its objects were not scaled.\n");
  }
  const std::vector<ONX_PlugInData> data = std::move(model.m_userdata_table);
  doc_.ImportModel(std::move(model));
  CRhinoFileReadOptions options;
  options.SetMode(0, true);
  ReadPlugInData(plugin_data_, data, options);
  return true;
}

bool CRhinoApp::SaveDocument(std::string_view path) {
  std::vector<PlugInContent> changed;
  const auto refuse = [&](const std::string& why) {
    Print("Unable to save " + std::string(path) + ": " + why + ".\n");
    return false;
  };
  for (const PlugInEntry& entry : plugin_data_) {
    std::optional<std::string> bytes;
    const ON_UUID id = entry.plug_in->PlugInID();
    if (!WrittenBy(*entry.plug_in, &bytes)) {
      return refuse("the data of plug-in " + PlugInName(doc_, id) + " can't be written");
    }
    const bool isUnchanged = entry.content.has_value() && *entry.content == bytes;
    if (!isUnchanged) changed.push_back({id, std::move(bytes)});
  }
  DocumentSaver saver(doc_, std::move(changed));
  const SaveResult result = saver.Save(path);
  if (!result.ok) return refuse(result.error);
  for (const std::string& loss : result.losses) Print(loss + "\n");
  for (PlugInEntry& entry : plugin_data_) KeepContent(entry);
  return true;
}

bool CRhinoApp::WrittenBy(CRhinoPlugInDocumentData& plug_in, std::optional<std::string>* bytes) {
  bytes->reset();
  const CRhinoFileWriteOptions wholeFile;
  if (!plug_in.CallWriteDocument(wholeFile)) return true;
  ON_BinaryArchive archive = DocumentSaver::ArchiveFor(doc_);
  if (!plug_in.WriteDocument(doc_, archive, wholeFile)) return false;
  *bytes = archive.TakeBytes();
  return true;
}

void CRhinoApp::KeepContent(PlugInEntry& entry) {
  std::optional<std::string> bytes;
  const bool isKept = doc_.Source() != nullptr && WrittenBy(*entry.plug_in, &bytes);
  entry.content = isKept ? std::optional(std::move(bytes)) : std::nullopt;
}

void CRhinoApp::ReadPlugInData(std::span<const PlugInEntry> plug_ins,
                               const std::vector<ONX_PlugInData>& data,
                               const CRhinoFileReadOptions& options) {
  for (const ONX_PlugInData& record : data) {
    for (const PlugInEntry& entry : plug_ins) {
      if (entry.plug_in->PlugInID() != record.m_plugin_id) continue;
      if (!ReadDocumentData(*entry.plug_in, doc_, record, options)) {
        Print("The document data of plug-in " + PlugInName(doc_, record.m_plugin_id) +
              " could not be read.\n");
      }
    }
  }
}

void CRhinoApp::AddPlugInData(CRhinoPlugInDocumentData& plug_in) {
  plugin_data_.push_back({&plug_in, std::nullopt});
  ReadPlugInData(std::span(plugin_data_).last(1), doc_.PlugInData(), {});
  KeepContent(plugin_data_.back());
}

void CRhinoApp::RemovePlugInData(CRhinoPlugInDocumentData& plug_in) {
  std::erase_if(plugin_data_,
                [&plug_in](const PlugInEntry& entry) { return entry.plug_in == &plug_in; });
}

CRhinoApp& RhinoApp() {
  static CRhinoApp app;
  return app;
}
