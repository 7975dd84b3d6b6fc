#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/command/input_source.h"

// A script: words that are separated by blanks and line ends.
//
// A word or a part of it may stand in double quotes and then holds blanks; two double quotes inside
// are one. "#" at the start of a word begins a comment to the end of the line. The word Enter is
// the key, "!" cancels the running command.
struct ScriptToken {
  Answer answer;
  int line = 1;
  // How many blanks and tabs stand before the first word of a line; nothing for the words behind
  // it. Line ends inside quotes begin no line.
  std::optional<std::size_t> indent;
};

struct Script {
  std::vector<ScriptToken> tokens;
  // What is wrong with the script, and where; empty when it can be run.
  std::string error;
  int error_line = 0;
};

Script ParseScript(std::string_view text);
