#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/command/dialog_page.h"
#include "pages/page_row.h"

namespace orv {

// A page of the document's properties, as its table says. Nothing is stored until it is accepted:
// then fresh records are loaded, every control is read and held to the page's bounds, and they are
// stored.
class DocumentPage : public CRhinoDialogPage {
 public:
  std::string_view Title() const override { return table_.Title; }
  bool IsOffered(CRhinoDoc&) const override { return true; }
  void Open(CRhinoDoc& doc) override;
  std::vector<CRhinoControl> Controls() const override { return controls_; }
  // Any text is a value of an edit or combo. The value "..." of a path asks for the file. A live
  // session is sent at once what the change means for it.
  std::string Change(CRhinoCommandContext& context, std::string_view control,
                     std::string_view value) override;
  void Accept(CRhinoDoc& doc) override;

 protected:
  // The table outlives the page.
  DocumentPage(CSceneOutPlugIn& plugIn, const DocumentPageTable& table)
      : plug_in_(plugIn), table_(table) {}

 private:
  std::string ChangeRow(CRhinoCommandContext& context, std::size_t row, std::string_view value);
  std::string Press(CRhinoCommandContext& context, const PageButton& button,
                    std::string_view value);
  void SetPreset(const PagePresets& presets, std::string_view name);
  void SetNumber(const PageField<int>& field, int value);
  // What would be stored.
  PageRecords Read() const;
  void ShowAndEnable();

  CSceneOutPlugIn& plug_in_;
  const DocumentPageTable& table_;
  // One for each row.
  std::vector<CRhinoControl> controls_;
};

}  // namespace orv
