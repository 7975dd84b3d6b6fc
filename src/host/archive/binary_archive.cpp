#include "host/archive/binary_archive.h"

#include <algorithm>
#include <bit>
#include <limits>

#include "host/system/text.h"

static_assert(std::endian::native == std::endian::little,
              "documents are little endian, and values are copied as they stand");

namespace {

constexpr std::size_t kSumSize = 4;
// A broken file may hold millions of broken records; more than this is no help to anybody.
constexpr std::size_t kMaxProblems = 64;

}  // namespace

ON_BinaryArchive::ON_BinaryArchive(ByteSource& source, int archive_version,
                                   unsigned opennurbs_version)
    : source_(&source), archive_version_(archive_version), opennurbs_version_(opennurbs_version) {
  Chunk whole;
  whole.body_end = source.Size();
  whole.end = source.Size();
  chunks_.push_back(whole);
}

std::uint64_t ON_BinaryArchive::CurrentPosition() const {
  return source_ != nullptr ? source_->Position() : written_.size();
}

std::uint64_t ON_BinaryArchive::BytesLeft() const {
  const std::uint64_t position = source_->Position();
  const std::uint64_t end = chunks_.back().body_end;
  return position < end ? end - position : 0;
}

bool ON_BinaryArchive::Fail(std::string_view what) {
  chunks_.back().failed = true;
  Note(what);
  return false;
}

void ON_BinaryArchive::Note(std::string_view what) {
  const Chunk& chunk = chunks_.back();
  // What follows a failure is mostly its consequence: only the first is told, and what a cut chunk
  // lacks was told when it was opened.
  if (failure_told_ || chunk.is_cut) return;
  failure_told_ = true;
  const std::string where =
      ChunkDepth() == 0 ? ""
                        : host::Format(" of chunk %08x", static_cast<unsigned>(chunk.typecode));
  Tell(std::string(what) + " (offset " + std::to_string(source_->Position()) + where + ")");
}

void ON_BinaryArchive::Tell(std::string problem) {
  if (problems_.size() < kMaxProblems) problems_.push_back(std::move(problem));
}

std::vector<std::string> ON_BinaryArchive::TakeProblems() {
  failure_told_ = false;
  return std::exchange(problems_, {});
}

bool ON_BinaryArchive::ReadChunkHeader(ChunkHeader* header) {
  *header = {};
  if (!ReadInt(&header->typecode)) return false;
  if (LengthWidth() == 8) return ReadBigInt(&header->value);
  std::int32_t value = 0;
  if (!ReadInt(&value)) return false;
  const bool isShort = (header->typecode & TCODE_SHORT) != 0;
  header->value = isShort ? value : static_cast<std::int64_t>(static_cast<std::uint32_t>(value));
  return true;
}

bool ON_BinaryArchive::OpenChunk(std::uint64_t start, const ChunkHeader& header) {
  const bool isShort = (header.typecode & TCODE_SHORT) != 0;
  std::uint64_t length = isShort ? 0 : static_cast<std::uint64_t>(header.value);
  Chunk chunk;
  chunk.typecode = header.typecode;
  chunk.start = start;
  chunk.has_sum = !isShort && (header.typecode & TCODE_CRC) != 0;
  chunk.archive_version = archive_version_;
  chunk.opennurbs_version = opennurbs_version_;
  if (length > BytesLeft()) {
    if (ChunkDepth() > 0) return Fail("a chunk leads outside the one around it");
    Tell(host::Format("the file ends inside chunk %08x (offset %llu)",
                      static_cast<unsigned>(header.typecode),
                      static_cast<unsigned long long>(start)));
    length = BytesLeft();
    chunk.has_sum = false;
    chunk.is_cut = true;
  }
  if (chunk.has_sum && length < kSumSize) return Fail("a chunk is too short for its check sum");
  chunk.end = source_->Position() + length;
  chunk.body_end = chunk.end - (chunk.has_sum ? kSumSize : 0);
  source_->StartSum(0);
  chunks_.push_back(chunk);
  return true;
}

bool ON_BinaryArchive::BeginRead3dmChunk(std::uint32_t* typecode, std::int64_t* value) {
  *typecode = 0;
  *value = 0;
  if (chunks_.back().failed) return false;
  if (ChunkDepth() >= kMaxChunkDepth) return Fail("chunks are nested too deep");
  const std::uint64_t start = source_->Position();
  chunks_.back().sum = source_->Sum();
  ChunkHeader header;
  if (!ReadChunkHeader(&header) || !OpenChunk(start, header)) return false;
  *typecode = header.typecode;
  *value = header.value;
  return true;
}

bool ON_BinaryArchive::BeginRead3dmChunk(std::uint32_t typecode, int* major, int* minor) {
  *major = 0;
  *minor = 0;
  std::uint32_t found = 0;
  std::int64_t length = 0;
  if (!BeginRead3dmChunk(&found, &length)) return false;
  std::int32_t version[2] = {0, 0};
  const bool isRight = found == typecode;
  const bool hasVersion = isRight && ReadInt(&version[0]) && ReadInt(&version[1]);
  if (!hasVersion) {
    EndRead3dmChunk();
    return Fail(isRight
                    ? "a chunk is too short for its version"
                    : host::Format("chunk %08x was expected and %08x found",
                                   static_cast<unsigned>(typecode), static_cast<unsigned>(found)));
  }
  *major = version[0];
  *minor = version[1];
  return true;
}

std::uint32_t ON_BinaryArchive::PeekAt3dmChunkType() {
  std::uint32_t typecode = 0;
  if (chunks_.back().failed || BytesLeft() < sizeof typecode) return 0;
  const std::uint64_t start = source_->Position();
  const std::uint32_t sum = source_->Sum();
  if (!ReadInt(&typecode)) return 0;
  source_->Seek(start);
  source_->StartSum(sum);
  return typecode;
}

void ON_BinaryArchive::CheckSum(const Chunk& chunk) {
  const std::uint32_t sum = source_->Sum();
  std::uint32_t stored = 0;
  if (!source_->Read(std::as_writable_bytes(std::span(&stored, 1)))) return;
  if (stored == sum) return;
  Tell(host::Format(
      "the check sum of chunk %08x is wrong (offset %llu): %08x is stored, the bytes have %08x",
      static_cast<unsigned>(chunk.typecode), static_cast<unsigned long long>(chunk.start),
      static_cast<unsigned>(stored), static_cast<unsigned>(sum)));
}

bool ON_BinaryArchive::EndRead3dmChunk() {
  if (ChunkDepth() == 0) return Fail("no chunk is open");
  const Chunk chunk = chunks_.back();
  if (chunk.has_sum && !chunk.failed && source_->Position() == chunk.body_end) CheckSum(chunk);
  source_->Seek(chunk.end);
  chunks_.pop_back();
  source_->StartSum(chunks_.back().sum);
  archive_version_ = chunk.archive_version;
  opennurbs_version_ = chunk.opennurbs_version;
  return !chunk.failed;
}

void ON_BinaryArchive::EndRead3dmChunksTo(int depth) {
  while (ChunkDepth() > std::max(depth, 0)) EndRead3dmChunk();
}

bool ON_BinaryArchive::Read3dmChunkVersion(int* major, int* minor) {
  std::uint8_t version = 0;
  const bool ok = ReadChar(&version);
  *major = version >> 4;
  *minor = version & 15;
  return ok;
}
