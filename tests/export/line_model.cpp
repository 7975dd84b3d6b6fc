#include "line_model.h"

#include <algorithm>

namespace {

std::string Blanks(int count) {
  return std::string(static_cast<std::size_t>(std::clamp(count, 0, 40)), ' ');
}

}  // namespace

void LineModel::Add(std::string_view text) {
  if (line_.empty()) {
    if (text == "\n") {
      written += "\n";
      return;
    }
    line_ = Blanks(indent);
  }
  if (line_.size() + text.size() < 4094) {
    line_ += text;
  } else {
    line_ += '\n';
    WriteLine();
    line_ = Blanks(indent + 2);
    if (line_.size() + text.size() >= 4094) {
      WriteLine();
      written += text;
      return;
    }
    line_ += text;
  }
  if (line_.ends_with('\n')) WriteLine();
}

void LineModel::WriteLine() {
  for (std::size_t i = 0; i < line_.size(); ++i) {
    written += line_[i];
    if (line_.compare(i, 2, "%%") == 0) ++i;
  }
  line_.clear();
}
