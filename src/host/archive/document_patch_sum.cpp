#include <libdeflate.h>

#include <algorithm>
#include <cstring>

#include "host/archive/document_patch.h"

// The check sum of a chunk whose own bytes have changed.

namespace host {
namespace {

constexpr std::size_t kTypecodeSize = 4;
constexpr std::size_t kSumSize = 4;

std::uint64_t EndOf(const ON_FileSpan& span) {
  return span.offset + span.length;
}

// The chunks among the bytes of a newer version that nobody has read: the typecodes are those that
// stand in chunks of other kinds.
std::vector<ON_FileSpan> ChunksIn(std::string_view bytes, std::size_t width) {
  std::vector<ON_FileSpan> found;
  const std::size_t head = kTypecodeSize + width;
  for (std::size_t at = 0; at + head <= bytes.size();) {
    std::uint32_t typecode = 0;
    std::uint64_t length = 0;
    std::memcpy(&typecode, bytes.data() + at, kTypecodeSize);
    std::memcpy(&length, bytes.data() + at + kTypecodeSize, width);
    const bool isChunk =
        (typecode == TCODE_ANONYMOUS_CHUNK || typecode == TCODE_UTF8_STRING_CHUNK ||
         typecode == TCODE_COMPONENT_ATTRIBUTES_CHUNK || typecode == TCODE_OPENNURBS_CLASS) &&
        length <= bytes.size() - at - head;
    if (isChunk) found.push_back({at, head + length});
    at += isChunk ? head + static_cast<std::size_t>(length) : 1;
  }
  return found;
}

std::uint32_t SumOutside(std::string_view bytes, const std::vector<ON_FileSpan>& chunks) {
  std::uint32_t sum = 0;
  std::size_t at = 0;
  for (const ON_FileSpan& chunk : chunks) {
    sum = libdeflate_crc32(sum, bytes.data() + at, static_cast<std::size_t>(chunk.offset) - at);
    at = static_cast<std::size_t>(EndOf(chunk));
  }
  return libdeflate_crc32(sum, bytes.data() + at, bytes.size() - at);
}

// What stands behind that which is known of a chunk may hold chunks, and the stored sum tells:
// those with which it comes out are added to `chunks`.
void AddUnreadChunks(std::string_view body, std::uint64_t known, std::uint64_t width,
                     std::uint32_t stored, std::vector<ON_FileSpan>& chunks) {
  const auto start = static_cast<std::size_t>(known);
  std::vector<ON_FileSpan> more = chunks;
  for (const ON_FileSpan& unread : ChunksIn(body.substr(start), static_cast<std::size_t>(width))) {
    more.push_back({unread.offset + known, unread.length});
  }
  if (SumOutside(body, more) == stored) chunks = std::move(more);
}

// The sum of a chunk's own bytes as they will be, from front to back.
class OwnSum {
 public:
  OwnSum(std::string_view body, const std::vector<ON_FileSpan>& chunks)
      : body_(body), chunks_(chunks) {}

  // What stays, up to an offset, without the chunks in it.
  void AddKept(std::uint64_t to) {
    for (; next_ < chunks_.size() && chunks_[next_].offset < to; ++next_) {
      AddBytes(chunks_[next_].offset);
      at_ = std::max(at_, EndOf(chunks_[next_]));
    }
    AddBytes(to);
  }
  void AddChanged(std::uint64_t length, std::string_view bytes) {
    sum_ = libdeflate_crc32(sum_, bytes.data(), bytes.size());
    at_ += length;
  }
  std::uint32_t Value() const { return sum_; }

 private:
  void AddBytes(std::uint64_t to) {
    if (to <= at_) return;
    sum_ = libdeflate_crc32(sum_, body_.data() + at_, static_cast<std::size_t>(to - at_));
    at_ = to;
  }

  std::string_view body_;
  const std::vector<ON_FileSpan>& chunks_;
  std::size_t next_ = 0;
  std::uint64_t at_ = 0;
  std::uint32_t sum_ = 0;
};

}  // namespace

void DocumentPatch::MendSum(OpenChunk& chunk, std::uint64_t read_to, std::uint64_t end) {
  if ((chunk.typecode & TCODE_CRC) == 0) return;
  const std::uint64_t sumAt = end - kSumSize;
  std::string own = source_.Bytes({chunk.body, end - chunk.body});
  if (own.size() != end - chunk.body || own.size() < kSumSize) return;
  std::uint32_t stored = 0;
  std::memcpy(&stored, own.data() + own.size() - kSumSize, kSumSize);
  own.resize(own.size() - kSumSize);
  for (ON_FileSpan& child : chunk.children) child.offset -= chunk.body;
  if (SumOutside(own, chunk.children) != stored && read_to < sumAt) {
    AddUnreadChunks(own, read_to - chunk.body, chunk.body - chunk.start - kTypecodeSize, stored,
                    chunk.children);
  }

  OwnSum sum(own, chunk.children);
  std::vector<const Edit*> changes;
  for (std::size_t i = chunk.first_edit; i < edits_.size(); ++i) {
    if (edits_[i].owner == chunk.start) changes.push_back(&edits_[i]);
  }
  std::stable_sort(changes.begin(), changes.end(),
                   [](const Edit* a, const Edit* b) { return a->offset < b->offset; });
  for (const Edit* change : changes) {
    sum.AddKept(change->offset - chunk.body);
    sum.AddChanged(change->length, change->bytes);
  }
  sum.AddKept(own.size());
  const std::uint32_t value = sum.Value();
  std::string bytes(kSumSize, '\0');
  std::memcpy(bytes.data(), &value, kSumSize);
  Add({sumAt, kSumSize, bytes, std::nullopt});
}

}  // namespace host
