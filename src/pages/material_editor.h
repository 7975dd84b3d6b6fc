#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "host/command/command.h"
#include "jobs/material_page_state.h"
#include "jobs/material_preview.h"
#include "pages/material_rows.h"
#include "pages/material_slots.h"
#include "shading/material_attributes.h"

namespace orv {

class CSceneOutPlugIn;

// The material of the first selected object that is no light, while a page shows it. What is
// changed of it is stored at once in the materials of all such objects.
class MaterialEditor : private PrintedPreview {
 public:
  explicit MaterialEditor(CSceneOutPlugIn& plugIn);

  // Reads the material. Without such an object it stays.
  void RefreshPage(CRhinoDoc& doc);

  const MaterialAttributes& Current() const { return current_; }
  // Where the object takes it from: "Layer material".
  std::string_view SourceCaption() const { return source_caption_; }
  // The place whose parameters are shown.
  std::size_t ActiveSlot() const { return state_.ActiveSlot; }
  const std::string& ShaderName(std::size_t slot) const { return shader_names_[slot]; }
  // The picture of the preview; empty as long as there is none.
  const std::string& Picture() const { return picture_; }
  const MaterialRows& Rows() const { return rows_; }

  // Whether objects get a material of their own before some changes.
  bool IsBasicForced() const { return state_.IsBasicForced; }
  void SetBasicForced(bool isForced) { state_.IsBasicForced = isForced; }
  // Whether there can be a preview now, and whether it is switched on.
  bool HasPreview() const;
  bool IsPreviewOn() const { return is_preview_on_; }

  void SwitchTo(std::size_t slot);
  void SwitchPreview(bool isOn);
  // Stores what `change` marks.
  void Apply(CRhinoDoc& doc, const MaterialAttributes& change);
  // Gives each object without a material of its own a new one, when that is wanted.
  void ForceBasicMaterial(CRhinoDoc& doc);
  // Gives each object a new one.
  void MakeNew(CRhinoDoc& doc);
  // To and from the material that all pages share.
  void Copy();
  void Paste(CRhinoDoc& doc);
  // A material file that `value` names or that a dialog asks for.
  void Load(CRhinoCommandContext& context, std::string_view value);
  void Save(CRhinoCommandContext& context, std::string_view value);

  // Takes a shader of a slot's list; nothing happens when it has no file.
  void ChooseListed(CRhinoDoc& doc, std::size_t slot, const CatalogueRow& row);
  // The same for a shader's file, as Load.
  void ChooseFile(CRhinoCommandContext& context, std::size_t slot, std::string_view value);

  // Opens or closes the group that the parameter at `index` heads.
  void ToggleGroup(CRhinoDoc& doc, std::size_t index);
  // Gives the parameter at `index` a value; what is wrong with it, empty when nothing is.
  std::string ChangeParam(CRhinoDoc& doc, std::size_t index, std::string_view value);
  // What the ".." button of its row does.
  void PickParam(CRhinoCommandContext& context, std::size_t index, std::string_view value);

 private:
  void ShowPicture(std::string_view path) override;
  // Replaces the material by another.
  void Replace(CRhinoDoc& doc, const MaterialAttributes& other);
  // False when there is no object.
  bool ReadFirst(CRhinoDoc& doc);
  void RefreshParams();
  // Reads a shader into a slot. `isListed` says that it was chosen by its name.
  void TakeShader(CRhinoDoc& doc, std::size_t slot, const std::string& path, bool isListed);
  // Sets a slot's shader and closes all its groups.
  void StoreShader(CRhinoDoc& doc, std::size_t slot, std::string_view call);
  // Stores the parameters that are shown.
  void Commit(CRhinoDoc& doc, bool refreshesTweaks);
  double Gamma() const;

  CSceneOutPlugIn& plug_in_;
  MaterialPageState& state_;
  MaterialPreview preview_;
  MaterialAttributes current_;
  std::string_view source_caption_;
  std::array<std::string, kMaterialSlotCount> shader_names_;
  MaterialRows rows_;
  bool is_preview_on_ = false;
  std::string picture_;
};

}  // namespace orv
