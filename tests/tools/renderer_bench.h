#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/scoped_environment.h"
#include "support/temp_folder.h"

// Puts the stand-in of the interactive renderer into PATH and records what it is sent, as long as
// this lives.
class RendererBench {
 public:
  // Something that happened to the stand-in.
  struct Event {
    // "started", "listens", "accepted", "frame", "end", "cut", "closed".
    std::string event;
    // Nanoseconds of the steady clock.
    std::int64_t time = 0;
    // Of a frame.
    std::string text;
    // Of the start.
    std::vector<std::string> command;
    int process = 0;
  };

  // `act`: what the stand-in does, one of the words in README.md; empty to note the frames.
  explicit RendererBench(const std::string& act = "");

  // What has happened so far.
  std::vector<Event> Events() const;
  // The texts of the frames, after waiting for as many as that for ten seconds at most.
  std::vector<std::string> Frames(std::size_t count = 0) const;
  // Waits for an event, ten seconds at most. False when it hasn't come.
  bool Wait(const std::string& event, std::size_t count = 1) const;

  std::string RecordFile() const { return folder_.File("events.json"); }

 private:
  TempFolder folder_;
  ScopedEnvironment path_;
  ScopedEnvironment record_;
  ScopedEnvironment act_;
};
