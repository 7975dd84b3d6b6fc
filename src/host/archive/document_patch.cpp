#include "host/archive/document_patch.h"

#include <libdeflate.h>

#include <algorithm>
#include <cstring>

namespace host {
namespace {

constexpr std::size_t kTypecodeSize = 4;
constexpr std::size_t kSumSize = 4;

std::int64_t GrowthOf(std::size_t bytes, std::uint64_t length) {
  return static_cast<std::int64_t>(bytes) - static_cast<std::int64_t>(length);
}

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

DocumentPatch::DocumentPatch(const DocumentSource& source, int version, unsigned opennurbs_version)
    : source_(source), reader_(source.Read()), archive_(reader_, version, opennurbs_version) {
  open_.emplace_back();
}

std::uint32_t DocumentPatch::BeginChunk() {
  OpenChunk chunk;
  chunk.start = archive_.CurrentPosition();
  if (archive_.BytesLeft() == 0 || !archive_.BeginRead3dmChunk(&chunk.typecode, &chunk.value)) {
    return 0;
  }
  chunk.body = archive_.CurrentPosition();
  chunk.first_edit = edits_.size();
  open_.push_back(std::move(chunk));
  return open_.back().typecode;
}

void DocumentPatch::EndChunk() {
  OpenChunk chunk = std::move(open_.back());
  open_.pop_back();
  const std::uint64_t readTo = archive_.CurrentPosition();
  const std::uint64_t end = archive_.ChunkEnd();
  archive_.EndRead3dmChunk();
  open_.back().children.push_back({chunk.start, end - chunk.start});
  if (edits_.size() == chunk.first_edit) return;
  MendLength(chunk);
  if (chunk.own_changed) MendSum(chunk, readTo, end);
}

bool DocumentPatch::BeginChunkOf(std::uint32_t typecode) {
  return archive_.PeekAt3dmChunkType() == typecode && BeginChunk() == typecode;
}

bool DocumentPatch::SkipChunk() {
  if (BeginChunk() == 0) return false;
  EndChunk();
  return true;
}

void DocumentPatch::GoBack(Mark mark) {
  edits_.resize(mark.edits);
  while (open_.size() > mark.depth) {
    open_.back().first_edit = mark.edits;
    open_.back().own_changed = false;
    EndChunk();
  }
}

// What a length says is kept where it is wrong; it changes by as much as the chunk does.
void DocumentPatch::MendLength(const OpenChunk& chunk) {
  std::int64_t length = chunk.value;
  for (std::size_t i = chunk.first_edit; i < edits_.size(); ++i) {
    length += GrowthOf(edits_[i].bytes.size(), edits_[i].length);
  }
  if (length == chunk.value) return;
  const std::uint64_t at = chunk.start + kTypecodeSize;
  std::string bytes(static_cast<std::size_t>(chunk.body - at), '\0');
  std::memcpy(bytes.data(), &length, bytes.size());
  Add({at, bytes.size(), bytes, std::nullopt});
}

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

std::size_t DocumentPatch::Add(Edit edit) {
  edit.number = edits_.size();
  edits_.push_back(std::move(edit));
  return edits_.back().number;
}

void DocumentPatch::Replace(std::uint64_t offset, std::uint64_t length, std::string bytes) {
  open_.back().own_changed = true;
  Add({offset, length, std::move(bytes), open_.back().start});
}

std::size_t DocumentPatch::ReplaceChunks(std::uint64_t offset, std::uint64_t length,
                                         std::string bytes) {
  return Add({offset, length, std::move(bytes), std::nullopt});
}

std::string DocumentPatch::Written(const WriteContent& write) const {
  ON_BinaryArchive archive(archive_.Archive3dmVersion(), archive_.ArchiveOpenNURBSVersion());
  write(archive);
  return archive.TakeBytes();
}

bool DocumentPatch::Field(bool differs, std::uint64_t size, const WriteContent& write) {
  const std::uint64_t at = archive_.CurrentPosition();
  if (!archive_.Skip(size)) return false;
  if (differs) Replace(at, size, Written(write));
  return true;
}

bool DocumentPatch::Int(std::int32_t before, std::int32_t now) {
  return Field(before != now, 4, [now](ON_BinaryArchive& a) { a.WriteInt(now); });
}

bool DocumentPatch::Char(int before, int now) {
  return Field(before != now, 1,
               [now](ON_BinaryArchive& a) { a.WriteChar(static_cast<std::uint8_t>(now)); });
}

bool DocumentPatch::Bool(bool before, bool now) {
  return Char(before ? 1 : 0, now ? 1 : 0);
}

bool DocumentPatch::Double(double before, double now) {
  // The same bits, so that what is no number equals itself.
  const bool differs = std::memcmp(&before, &now, sizeof now) != 0;
  return Field(differs, 8, [now](ON_BinaryArchive& a) { a.WriteDouble(now); });
}

bool DocumentPatch::Color(ON_Color before, ON_Color now) {
  return Field(before != now, 4, [now](ON_BinaryArchive& a) { a.WriteColor(now); });
}

bool DocumentPatch::Vector(ON_3dVector before, ON_3dVector now) {
  return Double(before.x, now.x) && Double(before.y, now.y) && Double(before.z, now.z);
}

bool DocumentPatch::String(std::string_view before, std::string_view now) {
  const std::uint64_t at = archive_.CurrentPosition();
  std::string stored;
  if (!archive_.ReadString(&stored)) return false;
  if (before == now) return true;
  Replace(at, archive_.CurrentPosition() - at,
          Written([now](ON_BinaryArchive& a) { a.WriteString(now); }));
  return true;
}

std::int64_t DocumentPatch::Growth() const {
  std::int64_t growth = 0;
  for (const Edit& edit : edits_) growth += GrowthOf(edit.bytes.size(), edit.length);
  return growth;
}

std::vector<DocumentPatch::Piece> DocumentPatch::Finish() {
  // What is added at an offset comes before what is replaced there.
  std::stable_sort(edits_.begin(), edits_.end(), [](const Edit& a, const Edit& b) {
    return std::pair(a.offset, a.length != 0) < std::pair(b.offset, b.length != 0);
  });
  std::vector<Piece> pieces;
  places_.assign(edits_.size(), {});
  growth_before_.assign(1, 0);
  std::uint64_t at = 0, written = 0;
  const auto keep = [&](std::uint64_t to) {
    if (to > at) pieces.push_back({{at, to - at}, {}});
    written += to - at;
    at = to;
  };
  for (const Edit& edit : edits_) {
    keep(edit.offset);
    places_[edit.number] = {written, edit.bytes.size()};
    if (!edit.bytes.empty()) pieces.push_back({{}, edit.bytes});
    written += edit.bytes.size();
    at += edit.length;
    growth_before_.push_back(growth_before_.back() + GrowthOf(edit.bytes.size(), edit.length));
  }
  keep(source_.Size());
  return pieces;
}

ON_FileSpan DocumentPatch::Moved(ON_FileSpan span) const {
  const auto first = std::partition_point(edits_.begin(), edits_.end(), [&](const Edit& edit) {
    return edit.offset < span.offset || (edit.offset == span.offset && edit.length == 0);
  });
  const auto last = std::partition_point(
      first, edits_.end(), [&](const Edit& edit) { return edit.offset < EndOf(span); });
  const auto growth = [this](auto edit) {
    return growth_before_[static_cast<std::size_t>(edit - edits_.begin())];
  };
  const auto grown = [](std::uint64_t value, std::int64_t by) {
    return static_cast<std::uint64_t>(static_cast<std::int64_t>(value) + by);
  };
  return {grown(span.offset, growth(first)), grown(span.length, growth(last) - growth(first))};
}

ON_FileSpan DocumentPatch::PlaceOf(std::size_t number) const {
  return places_[number];
}

}  // namespace host
