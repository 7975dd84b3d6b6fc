#include <libdeflate.h>

#include <cstring>
#include <limits>
#include <utility>

#include "host/archive/binary_archive.h"

ON_BinaryArchive::ON_BinaryArchive(int archive_version, unsigned opennurbs_version)
    : archive_version_(archive_version), opennurbs_version_(opennurbs_version) {
  chunks_.emplace_back();
}

// Adds to the open chunk's sum what was written into it since the last call.
void ON_BinaryArchive::SumWritten() {
  Chunk& chunk = chunks_.back();
  if (chunk.has_sum) {
    chunk.sum = libdeflate_crc32(chunk.sum, written_.data() + summed_, written_.size() - summed_);
  }
  summed_ = written_.size();
}

void ON_BinaryArchive::BeginWriteChunk(std::uint32_t typecode) {
  SumWritten();
  Chunk chunk;
  chunk.typecode = typecode;
  chunk.start = written_.size();
  chunk.has_sum = (typecode & TCODE_CRC) != 0;
  WriteInt(static_cast<std::int32_t>(typecode));
  // The length follows when the chunk is ended.
  written_.append(LengthWidth(), '\0');
  summed_ = written_.size();
  chunks_.push_back(chunk);
}

bool ON_BinaryArchive::BeginWrite3dmChunk(std::uint32_t typecode) {
  if ((typecode & TCODE_SHORT) != 0 || ChunkDepth() >= kMaxChunkDepth) {
    write_failed_ = true;
    return false;
  }
  BeginWriteChunk(typecode);
  return true;
}

bool ON_BinaryArchive::BeginWrite3dmChunk(std::uint32_t typecode, int major, int minor) {
  if (!BeginWrite3dmChunk(typecode)) return false;
  WriteInt(major);
  WriteInt(minor);
  return true;
}

bool ON_BinaryArchive::EndWrite3dmChunk() {
  if (ChunkDepth() == 0) {
    write_failed_ = true;
    return false;
  }
  SumWritten();
  const Chunk chunk = chunks_.back();
  if (chunk.has_sum) WriteInt(static_cast<std::int32_t>(chunk.sum));
  const std::size_t width = LengthWidth();
  const auto lengthAt = static_cast<std::size_t>(chunk.start) + sizeof chunk.typecode;
  const std::uint64_t length = written_.size() - lengthAt - width;
  std::memcpy(written_.data() + lengthAt, &length, width);
  if (width == 4 && length > std::numeric_limits<std::uint32_t>::max()) write_failed_ = true;
  chunks_.pop_back();
  summed_ = written_.size();
  return !write_failed_;
}

void ON_BinaryArchive::WriteShortChunk(std::uint32_t typecode, std::int64_t value) {
  SumWritten();
  WriteInt(static_cast<std::int32_t>(typecode));
  if (LengthWidth() == 8) {
    WriteBigInt(value);
  } else {
    WriteInt(static_cast<std::int32_t>(value));
  }
  summed_ = written_.size();
}

void ON_BinaryArchive::Write3dmChunkVersion(int major, int minor) {
  WriteChar(static_cast<std::uint8_t>(major << 4 | minor));
}

std::string ON_BinaryArchive::TakeBytes() {
  summed_ = 0;
  chunks_.resize(1);
  return std::exchange(written_, {});
}
