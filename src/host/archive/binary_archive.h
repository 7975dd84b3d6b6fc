#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/archive/byte_source.h"
#include "host/archive/typecodes.h"
#include "host/geometry/on_array.h"
#include "host/geometry/on_bounding_box.h"
#include "host/geometry/on_color.h"
#include "host/geometry/on_user_string_list.h"
#include "host/geometry/on_uuid.h"

struct libdeflate_decompressor;

// A reader and writer of the .3dm container's chunks and primitive values.
//
// Reading. Every read is bounded by the innermost open chunk; a read that would leave it, and any
// other broken content, makes the archive fail: the first failure is kept with the offset and the
// typecode of the chunk, and each further read of that chunk returns false and leaves its result
// value-initialised. Ending the chunk goes on behind it, so that what follows can still be read.
// Unread bytes at the end of a chunk are skipped. Chunks nest at most kMaxChunkDepth deep.
//
// Check sums. The sum of a chunk that has one is compared when the chunk was read to its end; a
// difference is told through TakeProblems, and the values that were read stay.
class ON_BinaryArchive {
 public:
  static constexpr int kMaxChunkDepth = 256;

  // Reads what `source` holds. The lengths of chunks are 4 bytes wide for a version below 50 and 8
  // from there on.
  ON_BinaryArchive(ByteSource& source, int archive_version, unsigned opennurbs_version);
  // Writes into memory; the bytes are taken with TakeBytes.
  explicit ON_BinaryArchive(int archive_version, unsigned opennurbs_version = 201008125);

  ON_BinaryArchive(const ON_BinaryArchive&) = delete;
  ON_BinaryArchive& operator=(const ON_BinaryArchive&) = delete;

  int Archive3dmVersion() const { return archive_version_; }
  unsigned ArchiveOpenNURBSVersion() const { return opennurbs_version_; }
  // While reading, a version that is set inside a chunk holds up to the end of that chunk: so a
  // payload that was written under other versions, with lengths of another width, is read.
  void SetArchive3dmVersion(int version) { archive_version_ = version; }
  void SetArchiveOpenNURBSVersion(unsigned version) { opennurbs_version_ = version; }

  // --- Reading -------------------------------------------------------------------------------

  // Opens the next chunk, whatever it is. `value` is the body's length in bytes, or the value of a
  // short chunk (sign-extended from 4 bytes in a narrow file). Each chunk that was opened must be
  // ended, a short one too. When opening fails, the chunk around it has failed and nothing is open.
  // A chunk outside all others that leads outside the file is cut at the file's end, and told.
  [[nodiscard]] bool BeginRead3dmChunk(std::uint32_t* typecode, std::int64_t* value);
  // Opens the next chunk, which must have the typecode, and reads its version as two integers.
  [[nodiscard]] bool BeginRead3dmChunk(std::uint32_t typecode, int* major, int* minor);
  // The typecode of the next chunk, which stays unread; 0 at the end of the open chunk.
  std::uint32_t PeekAt3dmChunkType();
  // Closes the chunk that was opened last. False when reading it has failed.
  bool EndRead3dmChunk();
  // The number of open chunks; closing all above a depth that was noted before.
  int ChunkDepth() const { return static_cast<int>(chunks_.size()) - 1; }
  void EndRead3dmChunksTo(int depth);
  // The version byte at the start of most class data: major in the high half.
  [[nodiscard]] bool Read3dmChunkVersion(int* major, int* minor);

  // Offset of the next byte in the file, also while writing, and the bytes left in the open chunk
  // (without its sum).
  std::uint64_t CurrentPosition() const;
  std::uint64_t BytesLeft() const;
  // Offset of the first byte behind the open chunk.
  std::uint64_t ChunkEnd() const { return chunks_.back().end; }

  [[nodiscard]] bool ReadByte(std::span<std::byte> out);
  [[nodiscard]] bool ReadBool(bool* value);
  [[nodiscard]] bool ReadChar(std::uint8_t* value);
  [[nodiscard]] bool ReadShort(std::int16_t* value);
  [[nodiscard]] bool ReadInt(std::int32_t* value);
  [[nodiscard]] bool ReadInt(std::uint32_t* value);
  [[nodiscard]] bool ReadBigInt(std::int64_t* value);
  [[nodiscard]] bool ReadFloat(float* value);
  [[nodiscard]] bool ReadDouble(double* value);
  [[nodiscard]] bool ReadPoint(ON_3dPoint* value);
  [[nodiscard]] bool ReadVector(ON_3dVector* value);
  [[nodiscard]] bool ReadInterval(ON_Interval* value);
  [[nodiscard]] bool ReadPlane(ON_Plane* value);
  [[nodiscard]] bool ReadXform(ON_Xform* value);
  [[nodiscard]] bool ReadBoundingBox(ON_BoundingBox* value);
  [[nodiscard]] bool ReadColor(ON_Color* value);
  [[nodiscard]] bool ReadUuid(ON_UUID* value);
  [[nodiscard]] bool ReadString(std::string* value);
  // The count at the head of an array whose elements take at least `element_size` bytes each. Fails
  // when it is negative or the open chunk can't hold that many.
  [[nodiscard]] bool ReadCount(std::size_t element_size, std::size_t* count);
  [[nodiscard]] bool Skip(std::uint64_t count);

  // The uncompressed size that stands at the head of a compressed buffer. Follow it with
  // ReadCompressedBuffer of exactly that size; nothing follows a size of 0.
  [[nodiscard]] bool ReadCompressedBufferSize(std::size_t* size);
  // Inflates the buffer into `out`. Fails when the stored bytes don't give exactly out.size().
  [[nodiscard]] bool ReadCompressedBuffer(std::span<std::byte> out);
  // A compressed buffer of `count` elements; `out` stays empty when the buffer is absent. Fails
  // when its size differs from that of `count` elements, before anything is allocated.
  template <class T>
  [[nodiscard]] bool ReadCompressedArray(std::size_t count, ON_SimpleArray<T>* out) {
    std::size_t size = 0;
    if (!ReadCompressedBufferSize(&size)) return false;
    if (size == 0) return true;
    if (size % sizeof(T) != 0 || size / sizeof(T) != count) {
      return Fail("a compressed buffer has the wrong size");
    }
    out->resize(count);
    return ReadCompressedBuffer(std::as_writable_bytes(std::span(*out)));
  }

  // Marks the open chunk as broken, keeps `what` with the offset, and returns false.
  bool Fail(std::string_view what);
  // Keeps `what` as Fail does, unless a failure is told already; the chunk stays as it is.
  void Note(std::string_view what);
  // What was found wrong since the last call, one message each.
  std::vector<std::string> TakeProblems();

  // --- Writing -------------------------------------------------------------------------------

  [[nodiscard]] bool BeginWrite3dmChunk(std::uint32_t typecode, int major, int minor);
  // Without a version at its head.
  [[nodiscard]] bool BeginWrite3dmChunk(std::uint32_t typecode);
  [[nodiscard]] bool EndWrite3dmChunk();
  void WriteShortChunk(std::uint32_t typecode, std::int64_t value);
  void Write3dmChunkVersion(int major, int minor);
  void WriteByte(std::span<const std::byte> bytes);
  void WriteBool(bool value);
  void WriteChar(std::uint8_t value);
  void WriteShort(std::int16_t value);
  void WriteInt(std::int32_t value);
  void WriteBigInt(std::int64_t value);
  void WriteFloat(float value);
  void WriteDouble(double value);
  void WritePoint(ON_3dPoint value);
  void WriteVector(ON_3dVector value);
  void WriteInterval(ON_Interval value);
  void WritePlane(const ON_Plane& value);
  void WriteXform(const ON_Xform& value);
  void WriteBoundingBox(const ON_BoundingBox& value);
  void WriteColor(ON_Color value);
  void WriteUuid(const ON_UUID& value);
  void WriteString(std::string_view value);
  void WriteCompressedBuffer(std::span<const std::byte> bytes);
  std::string TakeBytes();

 private:
  // An open chunk. The first one stands for what is around all chunks: the whole source.
  struct Chunk {
    std::uint32_t typecode = 0;
    // Offset of its typecode; first byte behind what may be read; first byte behind the chunk.
    std::uint64_t start = 0;
    std::uint64_t body_end = 0;
    std::uint64_t end = 0;
    // Of the chunk's own bytes, up to the child chunk that was opened last.
    std::uint32_t sum = 0;
    bool has_sum = false;
    bool failed = false;
    // The file ends inside it.
    bool is_cut = false;
    // As they were outside.
    int archive_version = 0;
    unsigned opennurbs_version = 0;
  };
  struct ChunkHeader {
    std::uint32_t typecode = 0;
    std::int64_t value = 0;
  };
  struct CompressedHead {
    std::size_t size = 0;
    std::uint32_t sum = 0;
    std::uint8_t method = 0;
  };

  std::size_t LengthWidth() const { return archive_version_ < 50 ? 4 : 8; }
  bool ReadChunkHeader(ChunkHeader* header);
  bool OpenChunk(std::uint64_t start, const ChunkHeader& header);
  void CheckSum(const Chunk& chunk);
  void Tell(std::string problem);
  template <class T>
  bool ReadValue(T* value);
  bool CheckPackedSize(const CompressedHead& head);
  struct FreeInflater {
    void operator()(libdeflate_decompressor* inflater) const;
  };
  std::span<std::byte> HoldStored(std::size_t size);
  bool InflateWhole(std::size_t stored, std::span<std::byte> out);
  bool InflateInPieces(std::size_t stored, std::span<std::byte> out);
  template <class T>
  void WriteValue(T value);
  void BeginWriteChunk(std::uint32_t typecode);
  void SumWritten();

  ByteSource* source_ = nullptr;
  int archive_version_ = 0;
  unsigned opennurbs_version_ = 0;
  std::vector<Chunk> chunks_;
  std::vector<std::string> problems_;
  bool failure_told_ = false;
  CompressedHead compressed_;
  std::uint64_t inflated_ = 0;
  std::unique_ptr<std::byte, void (*)(void*)> stored_{nullptr, std::free};
  std::size_t stored_size_ = 0;
  std::unique_ptr<libdeflate_decompressor, FreeInflater> inflater_;

  std::string written_;
  // Where the bytes begin that aren't part of the open chunk's sum yet.
  std::size_t summed_ = 0;
  bool write_failed_ = false;
};

// The serial form of a user string list: a chunk of version 1.0 with the entries. False when the
// archive fails; `list` is then unchanged. An archive may hold a key twice.
[[nodiscard]] bool ON_ReadUserStringList(ON_BinaryArchive& archive, ON_UserStringList& list);
[[nodiscard]] bool ON_WriteUserStringList(ON_BinaryArchive& archive, const ON_UserStringList& list);
