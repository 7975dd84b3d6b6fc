#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/archive/model.h"
#include "host/document/file_options.h"
#include "host/document/id_map.h"
#include "host/document/object.h"
#include "host/document/plugin_data.h"
#include "host/document/tables.h"
#include "host/document/undo_list.h"
#include "host/document/view.h"
#include "host/geometry/on_settings.h"

class BlockContents;

class CRhinoDocProperties {
 public:
  const ON_3dmUnitsAndTolerances& ModelUnitsAndTolerances() const {
    return settings_.m_model_units;
  }
  const ON_3dmRenderSettings& RenderSettings() const { return settings_.m_render_settings; }
  const ON_3dmSettings& Settings() const { return settings_; }

 private:
  friend class CRhinoDoc;
  ON_3dmSettings settings_;
};

// The open document.
class CRhinoDoc {
 public:
  CRhinoDoc();
  ~CRhinoDoc();
  CRhinoDoc(const CRhinoDoc&) = delete;
  CRhinoDoc& operator=(const CRhinoDoc&) = delete;

  // Replaces the content by that of `model`, read from `path`. Views that the model lacks are made:
  // a document always has at least one. Neither this nor ImportModel is called while watchers are
  // told of a change.
  void SetModel(ONX_Model model, std::string path);
  // Adds the objects, tables and block definitions of `model` to the open ones: layers are matched
  // by their full path, everything else is appended, and what has an id that is taken gets a new
  // one. Nothing is scaled. Views, settings, document strings and the data of plug-ins stay; views
  // in perspective see as deep as the added objects reach.
  void ImportModel(ONX_Model model);

  // The file that the document was opened from; empty for a new one.
  const std::string& PathName() const { return path_; }
  // The file itself, as it was then; null for a new document.
  const std::shared_ptr<const DocumentSource>& Source() const { return source_; }
  // 2, 3, 4, 50, 60, 70, 80; 0 for a new document. The number of the library that wrote it.
  int FileVersion() const { return file_version_; }
  unsigned LibraryVersion() const { return written_by_library_; }

  const CRhinoDocProperties& Properties() const { return properties_; }
  ON_UnitSystem ModelUnits() const { return properties_.ModelUnitsAndTolerances().m_unit_system; }
  const ON_3dmProperties& FileProperties() const { return file_properties_; }

  CRhinoLayerTable m_layer_table{{}, this};
  CRhinoMaterialTable m_material_table{{}, this};
  CRhinoLightTable m_light_table{*this};
  CRhinoGroupTable m_group_table;
  CRhinoLinetypeTable m_linetype_table{{}, this};
  CRhinoDimStyleTable m_dimstyle_table;
  CRhinoInstanceDefinitionTable m_instance_definition_table;
  ON_UserStringList m_user_strings;

  // All objects in the order of the document, members of block definitions included, and all
  // lights, deleted ones included.
  std::span<const std::unique_ptr<CRhinoObject>> Objects() const { return objects_; }
  std::span<const std::unique_ptr<CRhinoObject>> Lights() const { return lights_; }
  // A number that changes whenever objects come or go.
  unsigned ContentNumber() const { return content_number_; }
  // An object or light; null when there is none.
  CRhinoObject* LookupObject(const ON_UUID& id) const;
  CRhinoObject* LookupObject(unsigned runtime_serial_number) const;
  // What the block definitions show. Valid until the document changes.
  const BlockContents& Blocks() const;
  // The box of all visible objects, lights not counted; not valid when there is none.
  ON_BoundingBox BoundingBox() const;
  // Replaces the attributes of an object or light; its id stays. An object that can't be selected
  // any more is deselected. False for a deleted object and for one of another document.
  bool ModifyObjectAttributes(CRhinoObject& object, const ON_3dmObjectAttributes& attributes);
  // The position of the material to edit for an object. A layer that gives its objects their
  // material and has none gets a new one, a copy of the host's default material. -1 when there is
  // none.
  int MaterialToEdit(const CRhinoObject& object);
  // Objects and lights.
  int SelectedCount() const { return selected_count_; }

  // Changes of materials, layers, lights and attributes, hiding and showing included, from here to
  // EndUndoRecord are undone in one step. 0 when a record is open already: it then takes what
  // follows. A change outside of records is one of its own. Opening and importing can't be undone,
  // and what was done before can't be undone after it.
  unsigned BeginUndoRecord(std::string_view caption);
  // False when the open record is not the one of this number. A record without changes is dropped.
  bool EndUndoRecord(unsigned number);
  // Undoes the last record, or redoes the one that was undone last; a new change ends redoing. The
  // watchers are told afterwards. False when there is none, while a record is open, and while
  // watchers are told of a change.
  bool Undo();
  bool Redo();
  // The captions of the records that Undo and Redo take next; nothing when there is none.
  std::optional<std::string> UndoCaption() const;
  std::optional<std::string> RedoCaption() const;

  // Fills `list` with the model views, the page views or both, in the document's order.
  void GetViewList(std::vector<CRhinoView*>& list, bool model_views, bool page_views) const;
  // The view that commands work in. On opening: the view that the document names as the active one;
  // else a maximised model view, the first one of them; else the first perspective model view; else
  // the first view.
  CRhinoView* ActiveView() const { return active_view_; }
  void SetActiveView(CRhinoView* view) { active_view_ = view; }

  // The data of plug-ins that the document holds.
  const std::vector<ONX_PlugInData>& PlugInData() const { return plugin_data_; }

  // Counts of records that weren't read, and what is wrong with the file; for the user.
  const std::vector<ONX_UnreadKind>& UnreadKinds() const { return unread_; }
  const std::vector<std::string>& Problems() const { return problems_; }

 private:
  friend class CRhinoLayerTable;
  friend class CRhinoLightTable;
  friend class CRhinoMaterialTable;
  friend class CRhinoObject;
  friend class DocStates;
  friend class DocumentSaver;
  using ObjectList = std::vector<std::unique_ptr<CRhinoObject>>;

  // Appends the objects. The result has the new id of each object whose stored one was taken.
  IdMap<ON_UUID> AddObjects(std::vector<ONX_ModelObject> objects,
                            std::vector<ONX_ModelLight> lights);
  const ON_UUID& AddObject(ObjectList& list, ONX_ModelObject object);
  void MarkDefinitionMembers();
  // After anything that changes what is to be seen.
  void ForgetWhatIsShown();
  void MakeViews(const ON_3dmSettings& settings);
  // Lets the views see as deep as the objects from `first_object` on reach.
  void ShowInDepth(std::size_t first_object);
  CRhinoView* ChooseActiveView(const ON_UUID& named_id) const;

  // Makes a change: puts `state` into the document, keeps what it replaces for undo, and tells the
  // watchers.
  void Change(DocState state);
  bool MayReplay() const;
  void Replay(UndoStates record, bool backwards);
  // After layers or their places have changed.
  void DeselectUnselectable();

  // How many records of each table stand in the file that the document was opened from.
  struct SourceCounts {
    int materials = 0;
    int layers = 0;
    int linetypes = 0;
    int groups = 0;
    int dimstyles = 0;
    int definitions = 0;
  };
  SourceCounts TableCounts() const;

  std::string path_;
  // The file that it was opened from or saved to last; null for a new document.
  std::shared_ptr<const DocumentSource> source_;
  SourceCounts source_counts_;
  ON_UserStringList source_user_strings_;
  int file_version_ = 0;
  unsigned written_by_library_ = 0;
  ON_3dmProperties file_properties_;
  CRhinoDocProperties properties_;
  ObjectList objects_;
  ObjectList lights_;
  unsigned content_number_ = 0;
  IdMap<CRhinoObject*> by_id_;
  std::unordered_map<unsigned, CRhinoObject*> by_serial_number_;
  int selected_count_ = 0;
  UndoList undo_;
  // Of the visible objects; empty until it is asked for and after a change.
  mutable std::optional<ON_BoundingBox> visible_box_;
  // Null until it is asked for and after a change.
  mutable std::unique_ptr<BlockContents> blocks_;
  std::vector<std::unique_ptr<CRhinoView>> views_;
  CRhinoView* active_view_ = nullptr;
  std::vector<ONX_PlugInData> plugin_data_;
  std::vector<ONX_UnreadKind> unread_;
  std::vector<std::string> problems_;
};
