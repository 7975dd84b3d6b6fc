#include "host/document/event_watcher_list.h"

#include <algorithm>

#include "host/document/event_watcher.h"

// Counts the calls of Raise that run; the outermost one takes away the gaps at its end.
class EventWatcherList::Scope {
 public:
  explicit Scope(EventWatcherList& list) : list_(list) { ++list_.depth_; }
  ~Scope() {
    if (--list_.depth_ == 0) std::erase(list_.watchers_, nullptr);
  }
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;

 private:
  EventWatcherList& list_;
};

void EventWatcherList::Remove(CRhinoEventWatcher& watcher) {
  const auto found = std::find(watchers_.begin(), watchers_.end(), &watcher);
  if (found == watchers_.end()) return;
  if (IsRaising()) {
    *found = nullptr;
  } else {
    watchers_.erase(found);
  }
}

void EventWatcherList::Raise(const std::function<void(CRhinoEventWatcher&)>& call) {
  const Scope scope(*this);
  const std::size_t count = watchers_.size();
  for (std::size_t i = 0; i < count; ++i) {
    CRhinoEventWatcher* watcher = watchers_[i];
    if (watcher != nullptr && watcher->IsEnabled()) call(*watcher);
  }
}
