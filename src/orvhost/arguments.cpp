#include "arguments.h"

#include <cstddef>
#include <string_view>

#include "host/system/path.h"
#include "host/system/text.h"

const char kUsage[] =
    R"(Usage: orvhost [MODEL.3dm] [-c "SCRIPT"]... [--script FILE]... [--export FILE]

Opens a document, runs commands and ends. Without a script or an export it asks for commands at
a terminal, and reads a script from anything else.

  -c "SCRIPT"      runs commands, as in -c "SelAll What"
  --script FILE    runs the commands of a file
  --keep-going     goes on behind a word that a script can't use, with the next line that
                   isn't indented deeper than its command's; the status is still 3
  --export FILE    writes the document as .orib or .rib with default settings, after the scripts
  --plugin FILE    the plug-in module, instead of the one installed with this program
  --help           shows this text
  --version        shows the program's version

Exit status: 0 success, 1 a command was cancelled, 2 a command had nothing to do, 3 failure,
64 the command line was not understood. The worst command counts.
)";

namespace {

class ArgumentParser {
 public:
  explicit ArgumentParser(std::span<const char* const> words) : words_(words) {}

  Arguments Parse() {
    bool options = true;
    while (next_ < words_.size() && arguments_.Error.empty()) {
      const std::string_view word = words_[next_++];
      if (options && word == "--") {
        options = false;
      } else if (options && word.size() > 1 && word.starts_with('-')) {
        TakeOption(word);
      } else {
        TakeModel(word);
      }
    }
    return arguments_;
  }

 private:
  void TakeModel(std::string_view word) {
    if (!arguments_.Model.empty()) {
      arguments_.Error = "Only one document can be opened, not '" + std::string(word) + "' too.";
    } else if (word.empty()) {
      arguments_.Error = "The name of the document is empty.";
    }
    arguments_.Model = word;
  }

  void TakeOption(std::string_view word) {
    const std::size_t equal = word.starts_with("--") ? word.find('=') : std::string_view::npos;
    const std::string_view name = word.substr(0, equal);
    has_value_ = equal != std::string_view::npos;
    value_ = has_value_ ? word.substr(equal + 1) : std::string_view();
    if (name == "-c") {
      arguments_.Scripts.push_back({false, Value(name)});
    } else if (name == "--script") {
      arguments_.Scripts.push_back({true, Value(name)});
    } else if (name == "--export") {
      TakeExport(Value(name));
    } else if (name == "--plugin") {
      arguments_.PlugIn = Value(name);
      if (arguments_.PlugIn.empty() && arguments_.Error.empty()) {
        arguments_.Error = "The name of the plug-in module is empty.";
      }
    } else if (!has_value_ && name == "--keep-going") {
      arguments_.KeepGoing = true;
    } else if (!has_value_ && (name == "--help" || name == "-h")) {
      arguments_.Help = true;
    } else if (!has_value_ && name == "--version") {
      arguments_.Version = true;
    } else {
      arguments_.Error = "Unknown option '" + std::string(word) + "'.";
    }
  }

  void TakeExport(std::string path) {
    if (!arguments_.Error.empty()) return;
    const std::string extension = host::SplitPath(path).Extension;
    if (!host::EqualNoCase(extension, ".orib") && !host::EqualNoCase(extension, ".rib")) {
      arguments_.Error = "--export takes a file that ends in .orib or .rib, not '" + path + "'.";
    }
    arguments_.Export = std::move(path);
  }

  // What stands behind the option: after "=" or as the next word.
  std::string Value(std::string_view name) {
    if (has_value_) return std::string(value_);
    if (next_ < words_.size()) return words_[next_++];
    arguments_.Error = "Option " + std::string(name) + " needs a value.";
    return {};
  }

  std::span<const char* const> words_;
  std::size_t next_ = 0;
  bool has_value_ = false;
  std::string_view value_;
  Arguments arguments_;
};

}  // namespace

Arguments ParseArguments(std::span<const char* const> words) {
  return ArgumentParser(words).Parse();
}
