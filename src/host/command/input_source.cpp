#include "host/command/input_source.h"

#include <utility>

#include "host/system/text.h"

namespace {

// The prompt's words without what Line writes itself.
std::string_view Bare(std::string_view text) {
  text = host::Trimmed(text);
  if (text.ends_with(':')) text.remove_suffix(1);
  return host::Trimmed(text);
}

}  // namespace

std::string Prompt::Line() const {
  std::string line(Bare(Text));
  if (!Default.empty()) line += " <" + Default + ">";
  if (!Options.empty()) {
    line += " (";
    for (const PromptOption& option : Options) {
      line += &option == &Options.front() ? " " : "  ";
      line += option.Name;
      if (!option.Value.empty()) line += "=" + option.Value;
    }
    line += " )";
  }
  return line + ": ";
}

Answer InputSource::Ask(const Prompt& prompt) {
  if (known_.empty()) return Read(prompt);
  Answer answer = std::move(known_.front());
  known_.pop_front();
  return answer;
}
