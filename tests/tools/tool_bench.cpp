#include "tools/tool_bench.h"

#include <cstdlib>
#include <fstream>
#include <thread>

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
      record_("ORV_TOOL_RECORD", folder_.File("runs.json")),
      act_("ORV_TOOL_ACT", act) {}

std::string ToolBench::Folder() {
  return ORV_TOOLS_FOLDER;
}

void ToolBench::SetAct(const std::string& act) const {
  setenv("ORV_TOOL_ACT", act.c_str(), 1);
}

std::vector<ToolRun> ToolBench::Runs() const {
  std::vector<ToolRun> runs;
  std::ifstream lines(folder_.File("runs.json"));
  for (std::string line; std::getline(lines, line);) runs.push_back(json::parse(line));
  return runs;
}

std::vector<ToolRun> ToolBench::WaitForRuns(std::size_t count,
                                            std::chrono::milliseconds limit) const {
  const auto begin = std::chrono::steady_clock::now();
  std::vector<ToolRun> runs = Runs();
  while (runs.size() < count && std::chrono::steady_clock::now() - begin < limit) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    runs = Runs();
  }
  return runs;
}
