#pragma once

#include "host/command/dialog_page.h"
#include "pages/material_editor.h"

namespace orv {

// The renderer's attributes of the materials of objects: name, colour, samples, a shader in each of
// three slots, the parameters of one of them as rows, and a preview. Each change is stored at once.
class CMatDlg : public CRhinoDialogPage {
 public:
  explicit CMatDlg(CSceneOutPlugIn& plugIn) : editor_(plugIn) {}

  std::string_view Title() const override { return "OrvMaterial"; }
  bool IsOffered(CRhinoDoc& doc) const override;
  void Open(CRhinoDoc& doc) override { editor_.RefreshPage(doc); }
  std::vector<CRhinoControl> Controls() const override;
  // A text that is one of a combo's choices counts as picked from its list. The buttons of rows
  // that pick points ask for them in any case.
  std::string Change(CRhinoCommandContext& context, std::string_view control,
                     std::string_view value) override;
  // Nothing is left to store.
  void Accept(CRhinoDoc&) override {}

 private:
  MaterialEditor editor_;
};

}  // namespace orv
