#include "host/archive/document_patch.h"

#include <algorithm>
#include <cstring>

namespace host {
namespace {

constexpr std::size_t kTypecodeSize = 4;

std::int64_t GrowthOf(std::size_t bytes, std::uint64_t length) {
  return static_cast<std::int64_t>(bytes) - static_cast<std::int64_t>(length);
}

std::uint64_t EndOf(const ON_FileSpan& span) {
  return span.offset + span.length;
}

}  // namespace

DocumentPatch::DocumentPatch(const DocumentSource& source, int version, unsigned opennurbs_version)
    : source_(source), reader_(source.Read()), archive_(reader_, version, opennurbs_version) {
  open_.emplace_back();
}

bool DocumentPatch::BeginChunk() {
  OpenChunk chunk;
  chunk.start = archive_.CurrentPosition();
  if (archive_.BytesLeft() == 0 || !archive_.BeginRead3dmChunk(&chunk.typecode, &chunk.value)) {
    return false;
  }
  chunk.body = archive_.CurrentPosition();
  chunk.first_edit = edits_.size();
  open_.push_back(std::move(chunk));
  return true;
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
  return archive_.PeekAt3dmChunkType() == typecode && BeginChunk();
}

bool DocumentPatch::SkipChunk() {
  if (!BeginChunk()) return false;
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
