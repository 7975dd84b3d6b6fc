#include "tools/renderer_bench.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <nlohmann/json.hpp>
#include <thread>

#include "tools/tool_bench.h"

using nlohmann::json;

static std::string PathWithTools() {
  const char* path = std::getenv("PATH");
  return ToolBench::Folder() + ":" + (path == nullptr ? "" : path);
}

RendererBench::RendererBench(const std::string& act)
    : path_("PATH", PathWithTools()),
      record_("TWEAKORV_RECORD", RecordFile()),
      act_("TWEAKORV_ACT", act) {}

std::vector<RendererBench::Event> RendererBench::Events() const {
  std::vector<Event> events;
  std::ifstream lines(RecordFile());
  for (std::string line; std::getline(lines, line);) {
    // The last line may not be whole yet.
    const json note = json::parse(line, nullptr, false);
    if (note.is_discarded()) break;
    events.push_back({note.value("event", ""), note.value("time", std::int64_t{0}),
                      note.value("text", ""), note.value("command", std::vector<std::string>()),
                      note.value("process", 0)});
  }
  return events;
}

std::vector<std::string> RendererBench::Frames(std::size_t count) const {
  if (count > 0) Wait("frame", count);
  std::vector<std::string> texts;
  for (const Event& event : Events()) {
    if (event.event == "frame") texts.push_back(event.text);
  }
  return texts;
}

bool RendererBench::Wait(const std::string& event, std::size_t count) const {
  constexpr std::chrono::seconds kLongest{10};
  constexpr std::chrono::milliseconds kBetweenLooks{5};
  const auto end = std::chrono::steady_clock::now() + kLongest;
  const auto has_come = [&] {
    const std::vector<Event> events = Events();
    return std::count_if(events.begin(), events.end(), [&](const Event& have) {
             return have.event == event;
           }) >= static_cast<std::ptrdiff_t>(count);
  };
  while (!has_come()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(kBetweenLooks);
  }
  return true;
}
