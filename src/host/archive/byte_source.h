#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

#include "host/system/file.h"

// Bytes to be read from front to back, with jumps: a file through a small window, or memory.
//
// A file is never held whole, so that opening needs no memory in proportion to it, and never
// mapped, so that another program that cuts it short meanwhile gives a short read and no fault.
class ByteSource {
 public:
  explicit ByteSource(std::span<const std::byte> bytes);
  explicit ByteSource(const host::FileReader& file);

  ByteSource(const ByteSource&) = delete;
  ByteSource& operator=(const ByteSource&) = delete;

  std::uint64_t Size() const { return size_; }
  std::uint64_t Position() const { return window_start_ + cursor_; }
  // Moves to `position`, at most Size.
  void Seek(std::uint64_t position);
  // Fills `out`; false, with the position unchanged, when fewer bytes are left or the file can't be
  // read.
  [[nodiscard]] bool Read(std::span<std::byte> out) {
    if (out.size() > window_.size() - cursor_) return ReadPastWindow(out);
    if (!out.empty()) std::memcpy(out.data(), window_.data() + cursor_, out.size());
    cursor_ += out.size();
    return true;
  }
  // Moves over `count` bytes as if they had been read. False as Read.
  [[nodiscard]] bool ReadOver(std::uint64_t count);

  // The CRC-32 of the bytes that were read since StartSum, continued from its `sum`. Bytes that
  // Seek jumped over don't count.
  void StartSum(std::uint32_t sum);
  std::uint32_t Sum();

 private:
  [[nodiscard]] bool ReadPastWindow(std::span<std::byte> out);
  [[nodiscard]] bool FillWindow(std::uint64_t position);

  const host::FileReader* file_ = nullptr;
  std::vector<std::byte> buffer_;
  std::span<const std::byte> window_;
  std::uint64_t window_start_ = 0;
  std::size_t cursor_ = 0;
  std::uint64_t size_ = 0;
  std::uint32_t sum_ = 0;
  // Where the bytes of the window begin that aren't part of `sum_` yet.
  std::size_t summed_ = 0;
};
