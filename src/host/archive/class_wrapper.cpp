#include "host/archive/class_wrapper.h"

#include "host/archive/chunk_scope.h"

namespace host {
namespace {

// The fields of a header, which stand in a chunk of their own from version 2 on.
bool ReadHeaderFields(ON_BinaryArchive& archive, int major, int minor, UserDataHeader& header) {
  ON_UUID item_id, application_id;
  std::int32_t copy_count = 0;
  ON_Xform xform;
  bool saved_as_goo = false;
  if (!archive.ReadUuid(&header.class_id) || !archive.ReadUuid(&item_id) ||
      !archive.ReadInt(&copy_count) || !archive.ReadXform(&xform)) {
    return false;
  }
  if (minor >= 1 && !archive.ReadUuid(&application_id)) return false;
  if (major < 2 || minor < 2) return true;
  return archive.ReadBool(&saved_as_goo) && archive.ReadInt(&header.archive_version) &&
         archive.ReadInt(&header.opennurbs_version);
}

// Reads one item, called with its chunk open. What is broken in it stays there.
void ReadUserDataItem(ON_BinaryArchive& archive, ON_UserStringList* strings,
                      const UserDataReader& reader) {
  const ChunkScope scope(archive);
  UserDataHeader header;
  if (!ReadUserDataHeader(archive, header)) return;
  const bool is_strings = header.class_id == kUserStringListId;
  if (is_strings ? strings == nullptr : !reader) return;
  if (!BeginReadChunkOf(archive, TCODE_ANONYMOUS_CHUNK, "user data without a payload")) return;
  archive.SetArchive3dmVersion(header.archive_version);
  archive.SetArchiveOpenNURBSVersion(header.opennurbs_version);
  if (is_strings) {
    if (!ON_ReadUserStringList(archive, *strings)) return;
  } else {
    reader(archive, header.class_id);
  }
}

}  // namespace

bool ReadUserDataHeader(ON_BinaryArchive& archive, UserDataHeader& header) {
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1 && major != 2) return archive.Fail("user data of an unknown version");
  // What a writer that didn't say worked under.
  const bool wide = archive.Archive3dmVersion() >= 50;
  header.archive_version = wide ? 5 : archive.Archive3dmVersion();
  header.opennurbs_version = wide ? 200910180 : archive.ArchiveOpenNURBSVersion();
  if (major == 1) return ReadHeaderFields(archive, major, minor, header);
  if (!BeginReadChunkOf(archive, TCODE_OPENNURBS_CLASS_USERDATA_HEADER,
                        "user data without a header")) {
    return false;
  }
  const bool read = ReadHeaderFields(archive, major, minor, header);
  return archive.EndRead3dmChunk() && read;
}

bool ReadClassId(ON_BinaryArchive& archive, ON_UUID* class_id) {
  if (!BeginReadChunkOf(archive, TCODE_OPENNURBS_CLASS_UUID, "an object without a class id")) {
    return false;
  }
  const bool read = archive.ReadUuid(class_id);
  return archive.EndRead3dmChunk() && read;
}

bool BeginReadClassData(ON_BinaryArchive& archive) {
  return BeginReadChunkOf(archive, TCODE_OPENNURBS_CLASS_DATA, "an object without data");
}

bool ReadUserData(ON_BinaryArchive& archive, ON_UserStringList* strings,
                  const UserDataReader& reader) {
  while (archive.BytesLeft() > 0) {
    std::uint32_t typecode = 0;
    std::int64_t value = 0;
    if (!archive.BeginRead3dmChunk(&typecode, &value)) return false;
    if (typecode == TCODE_OPENNURBS_CLASS_USERDATA) ReadUserDataItem(archive, strings, reader);
    // A broken item takes nothing from the object that carries it.
    archive.EndRead3dmChunk();
    if (typecode == TCODE_OPENNURBS_CLASS_END) return true;
  }
  return true;
}

bool ReadWrappedClass(
    ON_BinaryArchive& archive, ON_UserStringList* strings,
    const std::function<bool(ON_BinaryArchive& archive, const ON_UUID& class_id)>& read_data,
    const UserDataReader& read_user_data) {
  const ChunkScope scope(archive);
  ON_UUID class_id;
  if (!BeginReadChunkOf(archive, TCODE_OPENNURBS_CLASS, "a record without an object") ||
      !ReadClassId(archive, &class_id)) {
    return false;
  }
  if (class_id.IsNil()) return archive.Fail("a record without an object");
  if (!BeginReadClassData(archive)) return false;
  const bool read = read_data(archive, class_id);
  return archive.EndRead3dmChunk() && read && ReadUserData(archive, strings, read_user_data);
}

}  // namespace host
