#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/document/app_settings.h"
#include "host/document/display_conduit.h"
#include "host/document/doc.h"
#include "host/document/event_watcher.h"
#include "host/document/listener_list.h"
#include "host/system/command_window.h"
#include "host/system/profile.h"

// The application: the one global object. It owns the open document, the command window and the
// user's profile.
class CRhinoApp {
 public:
  CRhinoApp();
  ~CRhinoApp();
  CRhinoApp(const CRhinoApp&) = delete;
  CRhinoApp& operator=(const CRhinoApp&) = delete;

  CRhinoDoc& ActiveDoc() { return doc_; }
  // The view that commands work in.
  CRhinoView* ActiveView() { return doc_.ActiveView(); }

  // Text into the command window; a percent sign is a percent sign.
  void Print(std::string_view text) { window_.Print(text); }
  host::CommandWindow& CommandWindow() { return window_; }

  const CRhinoAppSettings& AppSettings() const { return settings_; }
  // The render application whose texture mappings of objects count: the host's own.
  ON_UUID GetDefaultRenderApp() const { return "5dc0192d-73dc-44f5-9141-8e72542e792d"_uuid; }

  // Those that are told of changes of the document. Never null.
  const std::shared_ptr<ListenerList<CRhinoEventWatcher>>& EventWatchers() const {
    return watchers_;
  }
  // Those that are told when a view is shown anew. Never null.
  const std::shared_ptr<ListenerList<CRhinoDisplayConduit>>& DisplayConduits() const {
    return conduits_;
  }

  // The user's values. Loaded by the program at its start.
  host::Profile& ProfileContext() { return profile_; }
  void SetProfile(host::Profile profile) { profile_ = std::move(profile); }

  // Opens a document in place of the open one. False, with a message in the command window and the
  // old document still open, when nothing can be made of the file, and while watchers are told of a
  // change. What could be read only in part, and the kinds that were not read, are told in the
  // command window.
  [[nodiscard]] bool OpenDocument(std::string_view path);
  // Merges a document into the open one; otherwise as OpenDocument.
  [[nodiscard]] bool ImportDocument(std::string_view path);

  // Saves the document in place of the file at `path`, which is then its own. False, with a message
  // in the command window and the file as it was, when that can't be done. What a document of its
  // version can't hold is told there too.
  [[nodiscard]] bool SaveDocument(std::string_view path);

  // The plug-ins whose document data is read and written. Not owned. A plug-in that is added reads
  // its data of the open document at once, so it is added when it is ready for that.
  void AddPlugInData(CRhinoPlugInDocumentData& plug_in);
  void RemovePlugInData(CRhinoPlugInDocumentData& plug_in);

  // The next number for an object of any document.
  unsigned NewRuntimeSerialNumber() { return ++last_serial_number_; }

 private:
  struct PlugInEntry {
    CRhinoPlugInDocumentData* plug_in = nullptr;
    // What it would have written right after the document was opened or saved: as long as it
    // writes the same, the document's data stays. Nothing for a new document.
    std::optional<std::optional<std::string>> content;
  };
  [[nodiscard]] bool ReadFile(std::string_view path, ONX_Model& model);
  void ReadPlugInData(std::span<const PlugInEntry> plug_ins,
                      const std::vector<ONX_PlugInData>& data,
                      const CRhinoFileReadOptions& options);

  unsigned last_serial_number_ = 0;
  CRhinoAppSettings settings_;
  std::shared_ptr<ListenerList<CRhinoEventWatcher>> watchers_ =
      std::make_shared<ListenerList<CRhinoEventWatcher>>();
  std::shared_ptr<ListenerList<CRhinoDisplayConduit>> conduits_ =
      std::make_shared<ListenerList<CRhinoDisplayConduit>>();
  CRhinoDoc doc_;
  host::CommandWindow window_;
  host::Profile profile_;
  // False when the plug-in fails to write what it has.
  [[nodiscard]] bool WrittenBy(CRhinoPlugInDocumentData& plug_in,
                               std::optional<std::string>* bytes);
  // After the document was opened or saved.
  void KeepContent(PlugInEntry& entry);

  std::vector<PlugInEntry> plugin_data_;
};

// The one application.
CRhinoApp& RhinoApp();
