#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/archive/binary_archive.h"
#include "host/archive/chunk_writer.h"
#include "host/archive/document_source.h"

namespace host {

// Walks through a document and notes what of it is replaced; every other byte stays. The lengths
// of the chunks around a change are mended when they are ended, and so is the check sum of a chunk
// whose own bytes have changed. Those of the chunks around it don't change: a sum leaves out nested
// chunks.
//
// Offsets are those of the document as it is. Stretches to replace don't overlap.
class DocumentPatch {
 public:
  // A stretch of the document as it will be: bytes of the old one, or new ones.
  struct Piece {
    ON_FileSpan kept;
    std::string bytes;
  };

  DocumentPatch(const DocumentSource& source, int version, unsigned opennurbs_version);

  const DocumentSource& Source() const { return source_; }
  // Reads the document; chunks are opened and ended with the functions below.
  ON_BinaryArchive& Archive() { return archive_; }
  // Goes on at `offset`, which lies in the open chunk.
  void Seek(std::uint64_t offset) { reader_.Seek(offset); }
  // Opens the next chunk; false when there is none. The chunk's own end is Archive().ChunkEnd().
  [[nodiscard]] bool BeginChunk();
  // Where the open chunk begins.
  std::uint64_t ChunkStart() const { return open_.back().start; }
  // Ends the open chunk.
  void EndChunk();
  // Opens the next chunk if it has the typecode.
  [[nodiscard]] bool BeginChunkOf(std::uint32_t typecode);
  [[nodiscard]] bool SkipChunk();
  // For a record that can't be walked through: ends the chunks that were opened in it, and takes
  // back what was noted since the mark.
  struct Mark {
    std::size_t depth;
    std::size_t edits;
  };
  Mark Here() const { return {open_.size(), edits_.size()}; }
  void GoBack(Mark mark);

  // Replaces bytes of the open chunk that belong to no chunk in it.
  void Replace(std::uint64_t offset, std::uint64_t length, std::string bytes);
  // Replaces whole chunks in the open one; `length` 0 adds, no bytes remove. Gives a number for
  // PlaceOf.
  std::size_t ReplaceChunks(std::uint64_t offset, std::uint64_t length, std::string bytes);
  // The bytes that `write` writes under the document's versions.
  std::string Written(const WriteContent& write) const;

  // The next field of the open chunk: replaced by `now` when that isn't `before`, which is what
  // the document holds. False when the document ends there.
  [[nodiscard]] bool Int(std::int32_t before, std::int32_t now);
  [[nodiscard]] bool Char(int before, int now);
  [[nodiscard]] bool Bool(bool before, bool now);
  [[nodiscard]] bool Double(double before, double now);
  [[nodiscard]] bool Color(ON_Color before, ON_Color now);
  [[nodiscard]] bool Vector(ON_3dVector before, ON_3dVector now);
  [[nodiscard]] bool String(std::string_view before, std::string_view now);

  // What can't be kept in this document, a sentence each.
  void Tell(std::string loss) { losses_.push_back(std::move(loss)); }
  const std::vector<std::string>& Losses() const { return losses_; }

  // How many bytes more the document will have.
  std::int64_t Growth() const;
  // The document as it will be. Ends the noting.
  std::vector<Piece> Finish();
  // After Finish: where a stretch of the old document that was not removed comes to stand, and
  // where the chunks of that number do.
  ON_FileSpan Moved(ON_FileSpan span) const;
  ON_FileSpan PlaceOf(std::size_t number) const;

 private:
  struct Edit {
    std::uint64_t offset = 0;
    std::uint64_t length = 0;
    std::string bytes;
    // Of the chunk whose own bytes they are; nothing for whole chunks.
    std::optional<std::uint64_t> owner;
    std::size_t number = 0;
  };
  struct OpenChunk {
    std::uint32_t typecode = 0;
    std::int64_t value = 0;
    std::uint64_t start = 0;
    std::uint64_t body = 0;
    std::vector<ON_FileSpan> children;
    std::size_t first_edit = 0;
    bool own_changed = false;
  };

  std::size_t Add(Edit edit);
  bool Field(bool differs, std::uint64_t size, const WriteContent& write);
  void MendLength(const OpenChunk& chunk);
  void MendSum(OpenChunk& chunk, std::uint64_t read_to, std::uint64_t end);

  const DocumentSource& source_;
  ByteSource reader_;
  ON_BinaryArchive archive_;
  std::vector<OpenChunk> open_;
  std::vector<Edit> edits_;
  // After Finish: by number, and how much the edits before each one add.
  std::vector<ON_FileSpan> places_;
  std::vector<std::int64_t> growth_before_;
  std::vector<std::string> losses_;
};

}  // namespace host
