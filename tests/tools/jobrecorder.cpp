#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "run_record.h"

// A stand-in for the programs of render and bake jobs, under whose names it stands in the folder of
// the tools. It notes how it was started and ends. README.md beside it tells the environment
// variables.

int main(int argc, char** argv) try {
  const std::string act = RequestedAct();
  RecordRun({argv, argv + argc}, 0);
  if (act == "print") {
    std::printf("%s prints\n", argv[0]);
    std::fprintf(stderr, "%s complains\n", argv[0]);
  }
  if (act == "hang") Hang();
  return act == "fail" ? 1 : 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "jobrecorder: %s\n", error.what());
  return 2;
}
