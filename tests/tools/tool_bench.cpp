#include "tools/tool_bench.h"

#include <cstdlib>
#include <fstream>

using nlohmann::json;

static std::string PathWithTools() {
  const char* path = std::getenv("PATH");
  return ToolBench::Folder() + ":" + (path == nullptr ? "" : path);
}

NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(ToolRun, command, folder, process, group, session, grandchild,
                                   terminals, streams, descriptors, ignored_signals,
                                   blocked_signals)

ToolBench::ToolBench(const std::string& act)
    : path_("PATH", PathWithTools()),
      record_("MAPFORGE_RECORD", folder_.File("runs.json")),
      act_("MAPFORGE_ACT", act) {}

std::string ToolBench::Folder() {
  return ORV_TOOLS_FOLDER;
}

void ToolBench::SetAct(const std::string& act) const {
  setenv("MAPFORGE_ACT", act.c_str(), 1);
}

std::vector<ToolRun> ToolBench::Runs() const {
  std::vector<ToolRun> runs;
  std::ifstream lines(folder_.File("runs.json"));
  for (std::string line; std::getline(lines, line);) runs.push_back(json::parse(line));
  return runs;
}
