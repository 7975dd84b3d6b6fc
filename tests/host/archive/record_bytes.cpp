#include "record_bytes.h"

#include <gtest/gtest.h>

std::string RecordBytes(int archive_version, unsigned opennurbs_version,
                        const WriteContent& write) {
  ON_BinaryArchive archive(archive_version, opennurbs_version);
  write(archive);
  return archive.TakeBytes();
}

void WriteChunk(ON_BinaryArchive& archive, std::uint32_t typecode, const WriteContent& content) {
  ASSERT_TRUE(archive.BeginWrite3dmChunk(typecode));
  content(archive);
  ASSERT_TRUE(archive.EndWrite3dmChunk());
}

void WriteVersioned(ON_BinaryArchive& archive, int major, int minor, const WriteContent& content) {
  ASSERT_TRUE(archive.BeginWrite3dmChunk(TCODE_ANONYMOUS_CHUNK, major, minor));
  content(archive);
  ASSERT_TRUE(archive.EndWrite3dmChunk());
}

void WriteClass(ON_BinaryArchive& archive, const ON_UUID& class_id, const WriteContent& data,
                const WriteContent& user_data) {
  WriteChunk(archive, TCODE_OPENNURBS_CLASS, [&](ON_BinaryArchive& a) {
    WriteChunk(a, TCODE_OPENNURBS_CLASS_UUID, [&](ON_BinaryArchive& b) { b.WriteUuid(class_id); });
    WriteChunk(a, TCODE_OPENNURBS_CLASS_DATA, data);
    if (user_data) user_data(a);
    a.WriteShortChunk(TCODE_OPENNURBS_CLASS_END, 0);
  });
}

static void WriteUserDataHeader(ON_BinaryArchive& archive, const ON_UUID& class_id,
                                const UserDataVersions& versions) {
  archive.WriteUuid(class_id);
  archive.WriteUuid(class_id);
  archive.WriteInt(1);
  archive.WriteXform(ON_Xform{});
  if (versions.minor >= 1) archive.WriteUuid(ON_UUID{});
  if (versions.minor < 2) return;
  archive.WriteBool(false);
  archive.WriteInt(versions.archive_version);
  archive.WriteInt(static_cast<std::int32_t>(versions.opennurbs_version));
}

void WriteUserData(ON_BinaryArchive& archive, const ON_UUID& class_id,
                   const UserDataVersions& versions, const WriteContent& payload) {
  WriteChunk(archive, TCODE_OPENNURBS_CLASS_USERDATA, [&](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(2, versions.minor);
    WriteChunk(a, TCODE_OPENNURBS_CLASS_USERDATA_HEADER,
               [&](ON_BinaryArchive& b) { WriteUserDataHeader(b, class_id, versions); });
    WriteChunk(a, TCODE_ANONYMOUS_CHUNK, payload);
  });
}

Reading ReadBytes(const std::string& bytes, int archive_version, unsigned opennurbs_version,
                  const std::function<bool(ON_BinaryArchive& archive)>& read) {
  ByteSource source(std::as_bytes(std::span(bytes)));
  ON_BinaryArchive archive(source, archive_version, opennurbs_version);
  Reading reading;
  reading.ok = read(archive);
  EXPECT_EQ(0, archive.ChunkDepth()) << "a reader left a chunk open";
  reading.problems = archive.TakeProblems();
  return reading;
}
