#pragma once

#include <string>
#include <string_view>

// How a RIB stream puts its texts into lines, as plain as can be: what the writer is compared with.
class LineModel {
 public:
  // One text; never longer than 4,094 bytes.
  void Add(std::string_view text);

  int indent = 0;
  // What was written so far.
  std::string written;

 private:
  void WriteLine();

  std::string line_;
};
