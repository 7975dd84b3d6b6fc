#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/archive/binary_archive.h"
#include "host/archive/model.h"

// What is around the records of a document: the start of the file, its tables, its end mark.

namespace host {

// How many bytes stand before the first chunk.
inline constexpr std::size_t kFileStartSize = 32;

// Reads the first bytes of a document. True when its version is one of 2 to 8, given in `version`
// as the file spells it: 2, 3, 4, 5, 50, 60, 70, 80. Otherwise `error` says why not: "it is a
// version 1 document; versions 2 to 8 can be read".
[[nodiscard]] bool ReadFileStart(ByteSource& source, int* version, std::string* error);

// The number of the library that wrote the document, from its properties, wherever they stand: the
// layout of many records depends on it. 0 when there is none. The source stands behind the start of
// the file before and after.
[[nodiscard]] unsigned FindLibraryVersion(ByteSource& source, int version);

// The text of the comment block, which is the open chunk.
[[nodiscard]] std::string ReadCommentBlock(ON_BinaryArchive& archive);

// Reads the end mark, which is the open chunk. Tells when the size in it isn't the file's.
void ReadEndMark(ON_BinaryArchive& archive, std::uint64_t file_size);

// A chunk of a table. `value` is its length, or the value of a short chunk; the span is all of it.
struct Record {
  std::uint32_t typecode = 0;
  std::int64_t value = 0;
  ON_FileSpan span;
};

// Calls `read` for each chunk in the open one, with the chunk open, until it returns false. Chunks
// that `read` leaves open are closed. False when a chunk could not be opened.
bool ReadChunks(ON_BinaryArchive& archive, const std::function<bool(const Record& record)>& read);

// The same for the records of a table, up to the mark that ends it. True when the mark was found.
bool ReadRecords(ON_BinaryArchive& archive, const std::function<void(const Record& record)>& read);

// A table in words: "layer table", "table 10000099".
std::string TableName(std::uint32_t typecode);

// Where tables of this kind stand among the others, counted up; nothing for an unknown one.
std::optional<std::size_t> TableOrder(std::uint32_t typecode);

// The problems of a document, a sentence each; of a very broken one only the first are kept.
class ProblemList {
 public:
  explicit ProblemList(std::vector<std::string>& problems) : problems_(problems) {}

  // Adds what the archive has to tell of the record of this kind that begins at `offset`.
  void Take(ON_BinaryArchive& archive, std::string_view kind, std::uint64_t offset);
  void Add(std::string problem);
  // Ends the list; adds how many were left out, if any.
  void Close();

 private:
  std::vector<std::string>& problems_;
  std::size_t left_out_ = 0;
};

// Writes the first bytes of a document and its comment block.
[[nodiscard]] bool WriteFileStart(ON_BinaryArchive& archive, std::string_view comments);
// Writes the end mark; the document is then whole.
[[nodiscard]] bool WriteEndMark(ON_BinaryArchive& archive);

}  // namespace host
