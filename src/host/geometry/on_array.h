#pragma once

#include <memory>
#include <utility>
#include <vector>

// An allocator that leaves trivially constructible elements unset, so that a buffer that is about
// to be filled isn't cleared first.
template <class T>
class ON_UnsetAllocator : public std::allocator<T> {
 public:
  template <class U>
  struct rebind {
    using other = ON_UnsetAllocator<U>;
  };
  using std::allocator<T>::allocator;

  template <class U>
  void construct(U* element) noexcept(noexcept(::new (static_cast<void*>(element)) U)) {
    ::new (static_cast<void*>(element)) U;
  }
  template <class U, class... Args>
  void construct(U* element, Args&&... args) {
    ::new (static_cast<void*>(element)) U(std::forward<Args>(args)...);
  }
};

// The host's array of plain values. resize() leaves new elements unset; read them only after they
// were written.
template <class T>
using ON_SimpleArray = std::vector<T, ON_UnsetAllocator<T>>;
