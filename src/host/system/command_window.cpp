#include "host/system/command_window.h"

namespace host {

void CommandWindow::Print(std::string_view text) const {
  if (sink_) sink_(text);
}

void CommandWindow::ShowProgress(const Progress* progress) const {
  if (progress_sink_) progress_sink_(progress);
}

}  // namespace host
