#pragma once

#include <cstddef>
#include <functional>
#include <vector>

class CRhinoEventWatcher;

// The registered watchers, in the order of their registration. Not owned.
class EventWatcherList {
 public:
  void Add(CRhinoEventWatcher& watcher) { watchers_.push_back(&watcher); }
  void Remove(CRhinoEventWatcher& watcher);

  // Calls each enabled watcher. Watchers may come and go meanwhile: one that goes isn't called any
  // more, one that comes isn't called yet.
  void Raise(const std::function<void(CRhinoEventWatcher&)>& call);
  // Whether a watcher is being called.
  bool IsRaising() const { return depth_ > 0; }

 private:
  class Scope;

  // Null where a watcher went while others were called.
  std::vector<CRhinoEventWatcher*> watchers_;
  std::size_t depth_ = 0;
};
