#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/command/command.h"
#include "host/command/dialog_page.h"
#include "host/document/doc.h"
#include "host/document/plugin_data.h"

// A kind of file that a plug-in writes.
struct CRhinoFileType {
  ON_UUID PlugInId;
  // "Orv RIB Files (*.orib)"
  std::string Description;
  // Without its point.
  std::string Extension;
};

// The base of a plug-in that adds a file type to the host's export. One object of a module; making
// it tells the host which module is being loaded.
class CRhinoFileExportPlugIn : public CRhinoPlugInDocumentData {
 public:
  CRhinoFileExportPlugIn();
  ~CRhinoFileExportPlugIn() override;
  CRhinoFileExportPlugIn(const CRhinoFileExportPlugIn&) = delete;
  CRhinoFileExportPlugIn& operator=(const CRhinoFileExportPlugIn&) = delete;

  virtual std::string_view PlugInName() const = 0;
  virtual std::string_view PlugInVersion() const = 0;
  // The plug-in's commands; they live as long as the plug-in.
  virtual std::span<CRhinoCommand* const> Commands() = 0;
  // False keeps the plug-in from being used.
  virtual bool OnLoadPlugIn() { return true; }
  virtual void OnUnloadPlugIn() {}
  virtual bool AddToPlugInHelpMenu() const { return false; }
  // 0: handled.
  virtual int OnDisplayPlugInHelp() { return 0; }
  // Adds the pages for the properties of objects and of the document, in their order; the first
  // page of the document is the parent of the others. They live no longer than the plug-in.
  using Pages = std::vector<std::unique_ptr<CRhinoDialogPage>>;
  virtual void AddPagesToObjectPropertiesDialog(Pages& /*pages*/) {}
  virtual void AddPagesToDocumentPropertiesDialog(Pages& /*pages*/) {}
  virtual void AddFileType(std::vector<CRhinoFileType>& types) = 0;
  // Writes `doc` to a file of the plug-in's type; 1 on success, 0 on failure.
  virtual int WriteFile(std::string_view file_name, CRhinoDoc& doc,
                        const CRhinoFileWriteOptions& options) = 0;

  // The plug-in that was made since the last call, for the loader of modules; null when none was.
  static CRhinoFileExportPlugIn* TakeLastMade();

  // The file that the plug-in's module was loaded from; empty when it is linked.
  const std::string& PlugInFileName() const { return file_name_; }
  void SetPlugInFileName(std::string file_name) { file_name_ = std::move(file_name); }

 private:
  std::string file_name_;
};
