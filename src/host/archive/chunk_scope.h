#pragma once

#include "host/archive/binary_archive.h"

namespace host {

// Ends the chunks that were opened since it was made, however its block is left.
class ChunkScope {
 public:
  explicit ChunkScope(ON_BinaryArchive& archive)
      : archive_(archive), depth_(archive.ChunkDepth()) {}
  ~ChunkScope() { archive_.EndRead3dmChunksTo(depth_); }
  ChunkScope(const ChunkScope&) = delete;
  ChunkScope& operator=(const ChunkScope&) = delete;

 private:
  ON_BinaryArchive& archive_;
  int depth_;
};

// Opens the next chunk if it has the typecode; any other fails as `what`.
[[nodiscard]] inline bool BeginReadChunkOf(ON_BinaryArchive& archive, std::uint32_t expected,
                                           std::string_view what) {
  std::uint32_t typecode = 0;
  std::int64_t value = 0;
  if (archive.PeekAt3dmChunkType() != expected) return archive.Fail(what);
  return archive.BeginRead3dmChunk(&typecode, &value);
}

// The version byte at the head of class data, whose major number must be `expected`; any other
// fails as `what`.
[[nodiscard]] inline bool ReadVersionOf(ON_BinaryArchive& archive, int expected,
                                        std::string_view what, int* minor = nullptr) {
  int major = 0, unused = 0;
  if (!archive.Read3dmChunkVersion(&major, minor != nullptr ? minor : &unused)) return false;
  return major == expected || archive.Fail(what);
}

// Passes over the next chunk, whatever it is.
[[nodiscard]] inline bool SkipChunk(ON_BinaryArchive& archive) {
  std::uint32_t typecode = 0;
  std::int64_t value = 0;
  return archive.BeginRead3dmChunk(&typecode, &value) && archive.EndRead3dmChunk();
}

// An uncompressed array of plain values behind its count.
template <class T>
[[nodiscard]] bool ReadArray(ON_BinaryArchive& archive, ON_SimpleArray<T>& out) {
  std::size_t count = 0;
  if (!archive.ReadCount(sizeof(T), &count)) return false;
  out.resize(count);
  return archive.ReadByte(std::as_writable_bytes(std::span(out)));
}

}  // namespace host
