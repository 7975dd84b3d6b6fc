#include "host/archive/chunk_writer.h"

#include "host/archive/class_wrapper.h"
#include "host/archive/typecodes.h"

namespace host {

ChunkWriter::ChunkWriter(ON_BinaryArchive& archive, std::uint32_t typecode) : archive_(archive) {
  static_cast<void>(archive_.BeginWrite3dmChunk(typecode));
}

ChunkWriter::ChunkWriter(ON_BinaryArchive& archive, std::uint32_t typecode, int major, int minor)
    : archive_(archive) {
  static_cast<void>(archive_.BeginWrite3dmChunk(typecode, major, minor));
}

ChunkWriter::~ChunkWriter() {
  static_cast<void>(archive_.EndWrite3dmChunk());
}

void WriteTable(ON_BinaryArchive& archive, std::uint32_t typecode, const WriteContent& records) {
  const ChunkWriter table(archive, typecode);
  records(archive);
  archive.WriteShortChunk(TCODE_ENDOFTABLE, 0);
}

void WriteClass(ON_BinaryArchive& archive, const ON_UUID& class_id,
                const ON_UserStringList& strings, const WriteContent& data) {
  const ChunkWriter wrapper(archive, TCODE_OPENNURBS_CLASS);
  {
    const ChunkWriter id(archive, TCODE_OPENNURBS_CLASS_UUID);
    archive.WriteUuid(class_id);
  }
  {
    const ChunkWriter content(archive, TCODE_OPENNURBS_CLASS_DATA);
    data(archive);
  }
  WriteUserStrings(archive, strings);
  archive.WriteShortChunk(TCODE_OPENNURBS_CLASS_END, 0);
}

void WriteUserStrings(ON_BinaryArchive& archive, const ON_UserStringList& strings) {
  constexpr ON_UUID kApplicationId = "17b3ecda-17ba-4e45-9e67-a2b8d9be520d"_uuid;
  if (strings.IsEmpty()) return;
  const int version = archive.Archive3dmVersion();
  const int minor = version < 50 ? 1 : 2;
  const ChunkWriter item(archive, TCODE_OPENNURBS_CLASS_USERDATA);
  archive.Write3dmChunkVersion(2, minor);
  {
    const ChunkWriter header(archive, TCODE_OPENNURBS_CLASS_USERDATA_HEADER);
    archive.WriteUuid(kUserStringListId);
    archive.WriteUuid(kUserStringListId);
    archive.WriteInt(1);  // number of copies made
    archive.WriteXform(ON_Xform());
    if (minor >= 1) archive.WriteUuid(kApplicationId);
    if (minor >= 2) {
      archive.WriteBool(false);
      archive.WriteInt(version);
      archive.WriteInt(static_cast<std::int32_t>(archive.ArchiveOpenNURBSVersion()));
    }
  }
  const ChunkWriter payload(archive, TCODE_ANONYMOUS_CHUNK);
  static_cast<void>(ON_WriteUserStringList(archive, strings));
}

}  // namespace host
