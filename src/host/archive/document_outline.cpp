#include "host/archive/document_outline.h"

#include "host/archive/file_layout.h"

namespace host {

DocumentOutline OutlineOf(const DocumentSource& source, int version) {
  DocumentOutline outline;
  ByteSource reader = source.Read();
  reader.Seek(kFileStartSize);
  outline.end = reader.Position();
  ON_BinaryArchive archive(reader, version, 0);
  ReadChunks(archive, [&](const Record& table) {
    const bool hasLength = (table.typecode & TCODE_SHORT) == 0;
    const std::uint64_t present = archive.ChunkEnd() - archive.CurrentPosition();
    const bool isCut = hasLength && static_cast<std::uint64_t>(table.value) > present;
    outline.tables.push_back(table.typecode);
    outline.end = isCut ? table.span.offset : archive.ChunkEnd();
    return !isCut && table.typecode != TCODE_ENDOFFILE;
  });
  return outline;
}

}  // namespace host
