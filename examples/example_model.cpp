#include <cstdio>

#include "host/system/file.h"
#include "support/model_writer.h"
#include "support/still_life.h"

// Writes the example document: example_model PATH.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: example_model PATH\n");
    return 2;
  }
  const std::string bytes = WriteModel(StillLife());
  if (bytes.empty() || !host::ReplaceFile(argv[1], bytes)) {
    std::fprintf(stderr, "Unable to save %s: %s\n", argv[1], host::LastSystemError().c_str());
    return 1;
  }
  return 0;
}
