#include <libdeflate.h>
#include <zlib.h>

#include <algorithm>
#include <limits>
#include <memory>

#include "host/archive/binary_archive.h"

namespace {

// Stored bytes up to here are held and inflated in one go, which is about twice as fast as the
// streaming library; more would take memory in proportion to the file.
constexpr std::size_t kMaxHeld = std::size_t{32} << 20;
// The tightest that the method can pack is 1032 to 1; the rest is for its frame.
constexpr std::uint64_t kMaxPacking = 1100;
// What the buffers of one file may unpack to: this much, and so many times the file's size. Packing
// far beyond what real documents reach is an attack on memory.
constexpr std::uint64_t kFreeInflated = std::uint64_t{64} << 20;
constexpr std::uint64_t kMaxFilePacking = 50;
// Writers leave short buffers as they are.
constexpr std::size_t kMinDeflated = 128;

constexpr std::uint8_t kStoredAsIs = 0;
constexpr std::uint8_t kDeflated = 1;

struct FreeCompressor {
  void operator()(libdeflate_compressor* c) const { libdeflate_free_compressor(c); }
};

// The packed bytes behind the two bytes of a zlib header; empty when it is none. What follows them,
// a sum of zlib's own, needs no comparing: the content's CRC-32 says more.
std::span<const std::byte> WithoutZlibHeader(std::span<const std::byte> stream) {
  constexpr unsigned kDeflateMethod = 8;
  constexpr unsigned kNeedsDictionary = 0x20;
  if (stream.size() < 2) return {};
  const auto method = std::to_integer<unsigned>(stream[0]);
  const auto flags = std::to_integer<unsigned>(stream[1]);
  const bool isHeader = (method & 15) == kDeflateMethod && (method * 256 + flags) % 31 == 0 &&
                        (flags & kNeedsDictionary) == 0;
  return isHeader ? stream.subspan(2) : std::span<const std::byte>{};
}

}  // namespace

bool ON_BinaryArchive::CheckPackedSize(const CompressedHead& head) {
  if (head.method > kDeflated) return Fail("a compressed buffer has an unknown method");
  if (head.method == kStoredAsIs) {
    return head.size <= BytesLeft() || Fail("a buffer leads outside its chunk");
  }
  if (head.size / kMaxPacking > BytesLeft()) {
    return Fail("a compressed buffer claims more bytes than its data can hold");
  }
  inflated_ += head.size;
  if (inflated_ > kFreeInflated && inflated_ / kMaxFilePacking > source_->Size()) {
    return Fail("the compressed buffers unpack to more than 50 times the size of the file");
  }
  return true;
}

bool ON_BinaryArchive::ReadCompressedBufferSize(std::size_t* size) {
  *size = 0;
  compressed_ = {};
  std::uint32_t stored = 0;
  if (!ReadInt(&stored)) return false;
  if (stored == 0) return true;
  CompressedHead head;
  head.size = stored;
  if (!ReadInt(&head.sum) || !ReadChar(&head.method) || !CheckPackedSize(head)) return false;
  compressed_ = head;
  *size = stored;
  return true;
}

void ON_BinaryArchive::FreeInflater::operator()(libdeflate_decompressor* inflater) const {
  libdeflate_free_decompressor(inflater);
}

// Room for `size` bytes, kept for the next buffer; empty without memory. Growing moves the pages
// that are there, which takes less time than getting new ones from the system.
std::span<std::byte> ON_BinaryArchive::HoldStored(std::size_t size) {
  if (size > stored_size_) {
    void* grown = std::realloc(stored_.get(), size);
    if (grown == nullptr) return {};
    static_cast<void>(stored_.release());
    stored_.reset(static_cast<std::byte*>(grown));
    stored_size_ = size;
  }
  return {stored_.get(), size};
}

bool ON_BinaryArchive::InflateWhole(std::size_t stored, std::span<std::byte> out) {
  const auto in = HoldStored(stored);
  if (in.size() != stored) return Fail("there is no memory for a compressed buffer");
  if (!ReadByte(in)) return false;
  if (!inflater_) inflater_.reset(libdeflate_alloc_decompressor());
  const auto packed = WithoutZlibHeader(in);
  std::size_t given = 0;
  const bool ok =
      inflater_ && !packed.empty() &&
      libdeflate_deflate_decompress(inflater_.get(), packed.data(), packed.size(), out.data(),
                                    out.size(), &given) == LIBDEFLATE_SUCCESS;
  return (ok && given == out.size()) || Fail("a compressed buffer is damaged");
}

bool ON_BinaryArchive::InflateInPieces(std::size_t stored, std::span<std::byte> out) {
  constexpr std::size_t kPiece = std::size_t{256} << 10;
  const auto held = HoldStored(kPiece);
  if (held.size() != kPiece) return Fail("there is no memory for a compressed buffer");
  z_stream stream{};
  if (inflateInit(&stream) != Z_OK) return Fail("a compressed buffer can't be unpacked");
  const std::unique_ptr<z_stream, decltype(&inflateEnd)> owner(&stream, inflateEnd);
  std::size_t given = 0;
  int state = Z_OK;
  while (stored > 0 && state == Z_OK) {
    const auto piece = held.first(std::min(stored, kPiece));
    if (!ReadByte(piece)) return false;
    stored -= piece.size();
    stream.next_in = reinterpret_cast<Bytef*>(piece.data());
    stream.avail_in = static_cast<uInt>(piece.size());
    // A buffer's size has 32 bits, and so it fits what is left to fill.
    stream.next_out = reinterpret_cast<Bytef*>(out.data() + given);
    stream.avail_out = static_cast<uInt>(out.size() - given);
    state = inflate(&stream, Z_NO_FLUSH);
    given = out.size() - stream.avail_out;
  }
  const bool ok = state == Z_STREAM_END && given == out.size();
  return ok || Fail("a compressed buffer is damaged");
}

bool ON_BinaryArchive::ReadCompressedBuffer(std::span<std::byte> out) {
  const CompressedHead head = std::exchange(compressed_, {});
  if (out.size() != head.size) return Fail("a compressed buffer has the wrong size");
  if (out.empty()) return true;
  if (head.method == kStoredAsIs) {
    if (!ReadByte(out)) return false;
  } else {
    std::uint32_t typecode = 0;
    std::int64_t length = 0;
    if (!BeginRead3dmChunk(&typecode, &length)) return false;
    const auto stored = static_cast<std::size_t>(BytesLeft());
    const bool inflated = typecode != TCODE_ANONYMOUS_CHUNK
                              ? Fail("a compressed buffer has no data")
                          : stored <= kMaxHeld ? InflateWhole(stored, out)
                                               : InflateInPieces(stored, out);
    if (!EndRead3dmChunk() || !inflated) return Fail("a compressed buffer is damaged");
  }
  if (libdeflate_crc32(0, out.data(), out.size()) != head.sum) {
    // As with a chunk's sum, what was read stays.
    Tell("the check sum of a compressed buffer's content is wrong (offset " +
         std::to_string(CurrentPosition()) + ")");
  }
  return true;
}

void ON_BinaryArchive::WriteCompressedBuffer(std::span<const std::byte> bytes) {
  if (bytes.size() > std::numeric_limits<std::uint32_t>::max()) {
    write_failed_ = true;
    return;
  }
  WriteInt(static_cast<std::int32_t>(bytes.size()));
  if (bytes.empty()) return;
  WriteInt(static_cast<std::int32_t>(libdeflate_crc32(0, bytes.data(), bytes.size())));
  const bool deflated = bytes.size() > kMinDeflated;
  WriteChar(deflated ? kDeflated : kStoredAsIs);
  if (!deflated) {
    WriteByte(bytes);
    return;
  }
  constexpr int kLevel = 6;
  const std::unique_ptr<libdeflate_compressor, FreeCompressor> packer(
      libdeflate_alloc_compressor(kLevel));
  std::string packed(libdeflate_zlib_compress_bound(packer.get(), bytes.size()), '\0');
  packed.resize(libdeflate_zlib_compress(packer.get(), bytes.data(), bytes.size(), packed.data(),
                                         packed.size()));
  BeginWriteChunk(TCODE_ANONYMOUS_CHUNK);
  WriteByte(std::as_bytes(std::span(packed)));
  if (!EndWrite3dmChunk()) write_failed_ = true;
}
