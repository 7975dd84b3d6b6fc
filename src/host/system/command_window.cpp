#include "host/system/command_window.h"

namespace host {

void CommandWindow::Print(std::string_view text) const {
  if (sink_) sink_(text);
}

}  // namespace host
