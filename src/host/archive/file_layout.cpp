#include "host/archive/file_layout.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "host/archive/chunk_scope.h"
#include "host/system/text.h"

namespace host {
namespace {

constexpr std::string_view kMagic = "3D Geometry File Format ";
constexpr std::size_t kVersionSize = 8;
static_assert(kMagic.size() + kVersionSize == kFileStartSize);
// Ends the text of the comment block.
constexpr char kEndOfComments = '\x1a';

constexpr std::size_t kMaxProblems = 100;

// The number in a field of digits with blanks before it; -1 for anything else.
int VersionFromField(std::string_view field) {
  const std::string_view digits = Trimmed(field);
  if (digits.empty()) return -1;
  int version = 0;
  for (const char c : digits) {
    if (c < '0' || c > '9') return -1;
    version = version * 10 + (c - '0');
  }
  return version;
}

std::string WhyNotReadable(int version) {
  constexpr const char* kReadable = "versions 2 to 8 can be read";
  if (version < 0) return Format("it has no version in its header (offset 24); %s", kReadable);
  const int generation = version < 10 ? version : version / 10;
  return Format("it is a version %d document; %s", generation, kReadable);
}

struct TableKind {
  std::uint32_t typecode;
  const char* name;
};

// In the order in which they stand in documents.
constexpr std::array kTables{
    TableKind{TCODE_COMMENTBLOCK, "comment block"},
    TableKind{TCODE_PROPERTIES_TABLE, "properties"},
    TableKind{TCODE_SETTINGS_TABLE, "settings"},
    TableKind{TCODE_BITMAP_TABLE, "bitmap table"},
    TableKind{TCODE_TEXTURE_MAPPING_TABLE, "texture mapping table"},
    TableKind{TCODE_MATERIAL_TABLE, "material table"},
    TableKind{TCODE_LINETYPE_TABLE, "linetype table"},
    TableKind{TCODE_LAYER_TABLE, "layer table"},
    TableKind{TCODE_GROUP_TABLE, "group table"},
    TableKind{TCODE_FONT_TABLE, "text style table"},
    TableKind{TCODE_DIMSTYLE_TABLE, "dimension style table"},
    TableKind{TCODE_LIGHT_TABLE, "light table"},
    TableKind{TCODE_HATCHPATTERN_TABLE, "hatch pattern table"},
    TableKind{TCODE_INSTANCE_DEFINITION_TABLE, "block definition table"},
    TableKind{TCODE_OBJECT_TABLE, "object table"},
    TableKind{TCODE_HISTORYRECORD_TABLE, "history table"},
    TableKind{TCODE_USER_TABLE, "plug-in data"},
    TableKind{TCODE_ENDOFFILE, "end mark"},
};

unsigned LibraryVersionIn(ON_BinaryArchive& archive) {
  unsigned version = 0;
  ReadRecords(archive, [&](const Record& record) {
    if (record.typecode == TCODE_PROPERTIES_OPENNURBS_VERSION) {
      version = static_cast<unsigned>(record.value);
    }
  });
  return version;
}

}  // namespace

bool ReadFileStart(ByteSource& source, int* version, std::string* error) {
  std::array<char, kFileStartSize> start{};
  const auto size =
      static_cast<std::size_t>(std::min<std::uint64_t>(source.Size(), kFileStartSize));
  *version = 0;
  if (size == 0) {
    *error = "it is empty";
    return false;
  }
  if (!source.Read(std::as_writable_bytes(std::span(start)).first(size))) {
    *error = "it can't be read";
    return false;
  }
  const std::string_view text(start.data(), size);
  if (!text.starts_with(kMagic.substr(0, std::min(size, kMagic.size())))) {
    *error = "it is no 3dm document: it doesn't begin as one";
    return false;
  }
  if (size < kFileStartSize) {
    *error = Format("it ends inside its header (offset %zu)", size);
    return false;
  }
  const int found = VersionFromField(text.substr(kMagic.size()));
  const bool readable = (found >= 2 && found <= 5) || (found >= 50 && found < 90);
  if (!readable) {
    *error = WhyNotReadable(found);
    return false;
  }
  *version = found;
  return true;
}

unsigned FindLibraryVersion(ByteSource& source, int version) {
  const std::uint64_t start = source.Position();
  ON_BinaryArchive archive(source, version, 0);
  unsigned found = 0;
  ReadChunks(archive, [&](const Record& table) {
    const bool isProperties = table.typecode == TCODE_PROPERTIES_TABLE;
    if (isProperties) found = LibraryVersionIn(archive);
    return !isProperties;
  });
  source.Seek(start);
  return found;
}

std::string ReadCommentBlock(ON_BinaryArchive& archive) {
  // Real ones have some hundred characters.
  constexpr std::uint64_t kMaxComments = 1 << 20;
  std::string text(static_cast<std::size_t>(std::min(archive.BytesLeft(), kMaxComments)), '\0');
  if (!archive.ReadByte(std::as_writable_bytes(std::span(text)))) return {};
  text.resize(std::min(text.find(kEndOfComments), text.size()));
  text.resize(std::min(text.find('\0'), text.size()));
  return text;
}

void ReadEndMark(ON_BinaryArchive& archive, std::uint64_t file_size) {
  std::uint64_t size = 0;
  std::uint32_t narrow = 0;
  std::int64_t wide = 0;
  if (archive.Archive3dmVersion() < 50) {
    if (!archive.ReadInt(&narrow)) return;
    size = narrow;
  } else {
    if (!archive.ReadBigInt(&wide)) return;
    size = static_cast<std::uint64_t>(wide);
  }
  if (size == file_size) return;
  archive.Fail(Format("it tells of %llu bytes, the file has %llu",
                      static_cast<unsigned long long>(size),
                      static_cast<unsigned long long>(file_size)));
}

bool ReadChunks(ON_BinaryArchive& archive, const std::function<bool(const Record&)>& read) {
  while (archive.BytesLeft() > 0) {
    const ChunkScope scope(archive);
    Record record;
    record.span.offset = archive.CurrentPosition();
    if (!archive.BeginRead3dmChunk(&record.typecode, &record.value)) return false;
    record.span.length = archive.ChunkEnd() - record.span.offset;
    if (!read(record)) break;
  }
  return true;
}

bool ReadRecords(ON_BinaryArchive& archive, const std::function<void(const Record&)>& read) {
  bool ended = false;
  ReadChunks(archive, [&](const Record& record) {
    ended = record.typecode == TCODE_ENDOFTABLE;
    if (!ended) read(record);
    return !ended;
  });
  return ended;
}

std::optional<std::size_t> TableOrder(std::uint32_t typecode) {
  const auto found = std::find_if(kTables.begin(), kTables.end(), [typecode](const TableKind& t) {
    return t.typecode == typecode;
  });
  if (found == kTables.end()) return std::nullopt;
  return static_cast<std::size_t>(found - kTables.begin());
}

std::string TableName(std::uint32_t typecode) {
  const std::optional<std::size_t> order = TableOrder(typecode);
  if (order) return kTables[*order].name;
  return Format("table %08x", static_cast<unsigned>(typecode));
}

void ProblemList::Take(ON_BinaryArchive& archive, std::string_view kind, std::uint64_t offset) {
  for (const std::string& problem : archive.TakeProblems()) {
    Add(std::string(kind) + " at offset " + std::to_string(offset) + ": " + problem);
  }
}

void ProblemList::Add(std::string problem) {
  if (problems_.size() < kMaxProblems) {
    problems_.push_back(std::move(problem));
  } else {
    ++left_out_;
  }
}

void ProblemList::Close() {
  if (left_out_ > 0) problems_.push_back(Format("%zu more problems", left_out_));
  left_out_ = 0;
}

bool WriteFileStart(ON_BinaryArchive& archive, std::string_view comments) {
  const std::string version = Format("%8d", archive.Archive3dmVersion());
  archive.WriteByte(std::as_bytes(std::span(kMagic)));
  archive.WriteByte(std::as_bytes(std::span(version)));
  if (!archive.BeginWrite3dmChunk(TCODE_COMMENTBLOCK)) return false;
  archive.WriteByte(std::as_bytes(std::span(comments)));
  archive.WriteChar(static_cast<std::uint8_t>(kEndOfComments));
  archive.WriteChar(0);
  return archive.EndWrite3dmChunk();
}

bool WriteEndMark(ON_BinaryArchive& archive) {
  if (!archive.BeginWrite3dmChunk(TCODE_ENDOFFILE)) return false;
  // The mark is the end of the file: what stands before its only number, and the number.
  const std::uint64_t size = archive.CurrentPosition();
  if (archive.Archive3dmVersion() < 50) {
    archive.WriteInt(static_cast<std::int32_t>(size + 4));
  } else {
    archive.WriteBigInt(static_cast<std::int64_t>(size + 8));
  }
  return archive.EndWrite3dmChunk();
}

}  // namespace host
