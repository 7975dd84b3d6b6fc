#pragma once

#include <memory>
#include <string_view>

#include "host/document/doc.h"
#include "host/system/command_window.h"
#include "host/system/profile.h"

// The application: the one global object. It owns the open document, the command window and the
// user's profile.
class CRhinoApp {
 public:
  CRhinoApp();
  ~CRhinoApp();

  CRhinoDoc& ActiveDoc() { return *doc_; }
  // The view that commands work in; null when the document has none.
  CRhinoView* ActiveView() { return doc_->ActiveView(); }

  // Text into the command window; a percent sign is a percent sign.
  void Print(std::string_view text) { window_.Print(text); }
  host::CommandWindow& CommandWindow() { return window_; }

  // The user's values. Loaded by the program at its start.
  host::Profile& ProfileContext() { return profile_; }
  void SetProfile(host::Profile profile) { profile_ = std::move(profile); }

  // Opens a document in place of the open one. False, with a message in the command window and the
  // old document still open, when nothing can be made of the file. What could be read only in part,
  // and the kinds that were not read, are told in the command window.
  [[nodiscard]] bool OpenDocument(std::string_view path);
  // Merges a document into the open one; otherwise as OpenDocument.
  [[nodiscard]] bool ImportDocument(std::string_view path);

  // The plug-ins whose document data is read and written. Not owned.
  void AddPlugInData(CRhinoPlugInDocumentData& plug_in);
  void RemovePlugInData(CRhinoPlugInDocumentData& plug_in);

 private:
  void ReadPlugInData(const std::vector<ONX_PlugInData>& data, const CRhinoFileReadOptions& options);

  std::unique_ptr<CRhinoDoc> doc_;
  host::CommandWindow window_;
  host::Profile profile_;
  std::vector<CRhinoPlugInDocumentData*> plugin_data_;
};

// The one application.
CRhinoApp& RhinoApp();
