#include <cstdio>
#include <string>

#include "host/system/file.h"
#include "host/system/path.h"
#include "support/camera_paths.h"
#include "support/model_writer.h"
#include "support/still_life.h"

static bool Write(const ONX_Model& model, const std::string& path) {
  const std::string bytes = WriteModel(model);
  if (!bytes.empty() && host::ReplaceFile(path, bytes)) return true;
  std::fprintf(stderr, "Unable to save %s: %s\n", path.c_str(), host::LastSystemError().c_str());
  return false;
}

// Writes the example documents: example_model FOLDER.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: example_model FOLDER\n");
    return 2;
  }
  const bool written = Write(StillLife(), host::AppendPath(argv[1], "still_life.3dm")) &&
                       Write(CameraPaths(), host::AppendPath(argv[1], "camera_paths.3dm"));
  return written ? 0 : 1;
}
