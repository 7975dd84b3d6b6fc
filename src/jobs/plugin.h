#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "host/command/plugin.h"
#include "host/geometry/on_user_string_list.h"
#include "interactive/interactive_render.h"
#include "jobs/material_page_state.h"
#include "settings/render_settings.h"
#include "settings/user_values.h"
#include "shading/texture_converter.h"

namespace orv {

// The plug-in: the document's settings, the user's values and the commands. There is one object of
// it in the module; everything that outlives a command is kept in it.
class CSceneOutPlugIn : public CRhinoFileExportPlugIn {
 public:
  // Makes a command of the plug-in, with the plug-in as its argument.
  template <class Command>
  void AddCommand() {
    commands_.push_back(owned_commands_.emplace_back(std::make_unique<Command>(*this)).get());
  }

  // Adds a page to the properties of objects or of the document, with the plug-in as its argument.
  template <class Page>
  void AddObjectPage() {
    object_pages_.push_back([this] { return std::make_unique<Page>(*this); });
  }
  template <class Page>
  void AddDocumentPage() {
    document_pages_.push_back([this] { return std::make_unique<Page>(*this); });
  }

  // The settings of the open document.
  ON_UserStringList& UserStrings() { return user_strings_; }
  const ON_UserStringList& UserStrings() const { return user_strings_; }
  // The values that the user keeps across documents.
  UserValues& User() { return user_; }
  const UserValues& User() const { return user_; }

  // Converts the images of exports, into the user's folder for textures.
  TextureConverter& Textures();

  // What all material pages share.
  MaterialPageState& MaterialPages() { return material_pages_; }

  // The live connection to an interactive renderer.
  InteractiveRender& Live() { return live_; }

  // A record of the document's settings and the user's values.
  RenderSettings LoadSettings() const;
  // Puts a record into the document's settings and the user's values.
  void StoreSettings(const RenderSettings& settings);

  ON_UUID PlugInID() const override;
  std::string_view PlugInName() const override;
  // When the plug-in was built: "Feb 22 2011  14:05:09".
  std::string_view PlugInVersion() const override;
  std::span<CRhinoCommand* const> Commands() override { return commands_; }
  // Reads the user's values and the gammas of new documents from the profile.
  bool OnLoadPlugIn() override;
  // Writes them back.
  void OnUnloadPlugIn() override;
  bool AddToPlugInHelpMenu() const override { return true; }
  // Opens nothing.
  int OnDisplayPlugInHelp() override { return 0; }

  // True when the whole document is written and it has settings.
  bool CallWriteDocument(const CRhinoFileWriteOptions& options) override;
  bool WriteDocument(CRhinoDoc& doc, ON_BinaryArchive& archive,
                     const CRhinoFileWriteOptions& options) override;
  bool ReadDocument(CRhinoDoc& doc, ON_BinaryArchive& archive,
                    const CRhinoFileReadOptions& options) override;

  void AddPagesToObjectPropertiesDialog(Pages& pages) override;
  void AddPagesToDocumentPropertiesDialog(Pages& pages) override;
  void AddFileType(std::vector<CRhinoFileType>& types) override;
  // The host's own export: with default settings, not the document's.
  int WriteFile(std::string_view fileName, CRhinoDoc& doc,
                const CRhinoFileWriteOptions& options) override;

 private:
  ON_UserStringList user_strings_;
  UserValues user_;
  TextureConverter textures_;
  MaterialPageState material_pages_;
  InteractiveRender live_{user_strings_, user_, textures_};
  std::vector<std::unique_ptr<CRhinoCommand>> owned_commands_;
  std::vector<CRhinoCommand*> commands_;
  using MakePage = std::function<std::unique_ptr<CRhinoDialogPage>()>;
  std::vector<MakePage> object_pages_;
  std::vector<MakePage> document_pages_;
};

}  // namespace orv
