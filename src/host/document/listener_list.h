#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

// Those that are told of something, in the order of their registration. Not owned. A listener has
// IsEnabled().
template <class Listener>
class ListenerList {
 public:
  void Add(Listener& listener) { listeners_.push_back(&listener); }
  void Remove(Listener& listener) {
    const auto found = std::find(listeners_.begin(), listeners_.end(), &listener);
    if (found == listeners_.end()) return;
    if (IsRaising()) {
      *found = nullptr;
    } else {
      listeners_.erase(found);
    }
  }

  // Calls each enabled listener. Listeners may come and go meanwhile: one that goes isn't called
  // any more, one that comes isn't called yet.
  void Raise(const std::function<void(Listener&)>& call) {
    const Scope scope(*this);
    const std::size_t count = listeners_.size();
    for (std::size_t i = 0; i < count; ++i) {
      Listener* listener = listeners_[i];
      if (listener != nullptr && listener->IsEnabled()) call(*listener);
    }
  }
  // Whether a listener is being called.
  bool IsRaising() const { return depth_ > 0; }

 private:
  // Counts the calls of Raise that run; the outermost one takes away the gaps at its end.
  class Scope {
   public:
    explicit Scope(ListenerList& list) : list_(list) { ++list_.depth_; }
    ~Scope() {
      if (--list_.depth_ == 0) std::erase(list_.listeners_, nullptr);
    }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    ListenerList& list_;
  };

  // Null where a listener went while others were called.
  std::vector<Listener*> listeners_;
  std::size_t depth_ = 0;
};
