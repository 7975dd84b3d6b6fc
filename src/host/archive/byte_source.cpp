#include "host/archive/byte_source.h"

#include <libdeflate.h>

#include <algorithm>

namespace {

constexpr std::size_t kWindowSize = std::size_t{64} << 10;

}  // namespace

ByteSource::ByteSource(std::span<const std::byte> bytes) : window_(bytes), size_(bytes.size()) {}

ByteSource::ByteSource(const host::FileReader& file) : file_(&file), size_(file.Size()) {
  buffer_.resize(static_cast<std::size_t>(std::min<std::uint64_t>(size_, kWindowSize)));
}

void ByteSource::Seek(std::uint64_t position) {
  Sum();
  position = std::min(position, size_);
  if (position >= window_start_ && position - window_start_ <= window_.size()) {
    cursor_ = static_cast<std::size_t>(position - window_start_);
  } else {
    window_ = {};
    window_start_ = position;
    cursor_ = 0;
  }
  summed_ = cursor_;
}

bool ByteSource::ReadOver(std::uint64_t count) {
  if (count > size_ - Position()) return false;
  const std::uint64_t start = Position();
  while (count > 0) {
    if (cursor_ == window_.size() && !FillWindow(Position())) {
      Seek(start);
      return false;
    }
    const auto step = std::min<std::uint64_t>(count, window_.size() - cursor_);
    cursor_ += static_cast<std::size_t>(step);
    count -= step;
  }
  return true;
}

void ByteSource::StartSum(std::uint32_t sum) {
  sum_ = sum;
  summed_ = cursor_;
}

std::uint32_t ByteSource::Sum() {
  if (cursor_ > summed_) {
    sum_ = libdeflate_crc32(sum_, window_.data() + summed_, cursor_ - summed_);
    summed_ = cursor_;
  }
  return sum_;
}

bool ByteSource::FillWindow(std::uint64_t position) {
  if (file_ == nullptr) return false;
  Sum();
  const std::size_t count = file_->ReadAt(position, buffer_);
  window_ = std::span(buffer_).first(count);
  window_start_ = position;
  cursor_ = 0;
  summed_ = 0;
  return count > 0;
}

// Small reads go through a new window, large ones straight into their destination.
bool ByteSource::ReadPastWindow(std::span<std::byte> out) {
  if (file_ == nullptr || out.size() > size_ - Position()) return false;
  const std::uint64_t start = Position();
  const std::size_t head = window_.size() - cursor_;
  if (head > 0) std::memcpy(out.data(), window_.data() + cursor_, head);
  cursor_ += head;
  const auto rest = out.subspan(head);
  if (rest.size() < kWindowSize / 2) {
    if (FillWindow(start + head) && rest.size() <= window_.size()) {
      std::memcpy(rest.data(), window_.data(), rest.size());
      cursor_ = rest.size();
      return true;
    }
  } else if (file_->ReadAt(start + head, rest) == rest.size()) {
    sum_ = libdeflate_crc32(Sum(), rest.data(), rest.size());
    window_ = {};
    window_start_ = start + out.size();
    cursor_ = 0;
    summed_ = 0;
    return true;
  }
  Seek(start);
  return false;
}
