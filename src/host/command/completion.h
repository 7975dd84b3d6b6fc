#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/command/input_source.h"

// What may stand at the cursor of an input line.
struct Completion {
  // The place in the line from which a candidate replaces the text.
  std::size_t start = 0;
  // Sorted. A folder ends in a slash, an option that has a value in "=".
  std::vector<std::string> candidates;

  // The longest beginning that all candidates share; empty when there is none.
  std::string CommonPrefix() const;
};

// Completes `line`, the text before the cursor, by what the prompt accepts: option names and their
// values, words that are at hand, names of files.
Completion Complete(const Prompt& prompt, std::string_view line);
