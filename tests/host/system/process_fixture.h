#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "tools/tool_bench.h"

// Programs that are started for real: the stand-in of a converter, which tells how it was started,
// and scripts.
class ProcessTest : public testing::Test {
 protected:
  // Far longer than anything here takes.
  static constexpr std::chrono::seconds kLong{30};

  // The command line of a conversion of a file that is there.
  std::vector<std::string> Conversion(const std::string& program = "mapforge.exe") const;
  std::string Target() const { return folder_.File("wood.tx"); }
  // A file that can be executed.
  static void WriteScript(const std::string& path, std::string_view text);
  // Neither a running child nor one that waits to be reaped.
  static void ExpectNoChild();

  TempFolder folder_;
};
