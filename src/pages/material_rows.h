#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/command/dialog_page.h"
#include "jobs/shader_draft.h"

namespace orv {

// The parameters of a slot's shader as rows of the material page: a caption, a value and a ".."
// button each.
class MaterialRows {
 public:
  static constexpr std::size_t kMostRows = 20;
  enum Part : std::size_t { kCaption = 0, kValue = 1, kButton = 2, kPartCount = 3 };

  // Takes the parameters of a call. `layout` tells which groups are open.
  void Read(std::string_view call, std::string_view layout, double gamma);

  ShaderDraft& Draft() { return draft_; }
  // The positions of the parameters that are shown; of all that aren't closed away, the first.
  std::vector<std::size_t> Shown() const;
  // Opens or closes the group that the parameter at `index` heads, and notes that in `layout`.
  void Toggle(std::size_t index, std::string& layout);
  // kPartCount controls for each row that is shown. Their ids begin with the slot and the
  // parameter's name: "Surface.SpecularColor" is the value.
  std::vector<CRhinoControl> Controls(std::string_view slot) const;

 private:
  ShaderDraft draft_{"", 1};
};

// What stands before a row: a mark for a group's head, blanks and the label.
std::string RowCaption(const std::vector<ShaderParam>& params, std::size_t index);

}  // namespace orv
