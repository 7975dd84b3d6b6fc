#include "host/archive/chunk_scope.h"
#include "host/archive/class_wrapper.h"
#include "host/archive/file_layout.h"
#include "host/archive/record_patches.h"

namespace host {
namespace {

// True when the open item holds user strings that can be read. What it opens stays open.
bool HoldsUserStrings(ON_BinaryArchive& archive) {
  UserDataHeader header;
  if (!ReadUserDataHeader(archive, header) || header.class_id != kUserStringListId) return false;
  if (!BeginReadChunkOf(archive, TCODE_ANONYMOUS_CHUNK, "user data without a payload"))
    return false;
  archive.SetArchive3dmVersion(header.archive_version);
  archive.SetArchiveOpenNURBSVersion(header.opennurbs_version);
  ON_UserStringList strings;
  return ON_ReadUserStringList(archive, strings);
}

}  // namespace

bool PatchUserStrings(DocumentPatch& patch, const ON_UserStringList& before,
                      const ON_UserStringList& now) {
  if (before.m_e == now.m_e) return true;
  ON_BinaryArchive& archive = patch.Archive();
  std::string bytes = patch.Written([&](ON_BinaryArchive& a) { WriteUserStrings(a, now); });
  // Behind all items: in front of the mark that ends them, where there is one.
  std::uint64_t end = archive.CurrentPosition();
  while (archive.BytesLeft() > 0) {
    const std::uint32_t typecode = patch.BeginChunk();
    if (typecode == 0) return false;
    const ON_FileSpan item{patch.ChunkStart(), archive.ChunkEnd() - patch.ChunkStart()};
    const int depth = archive.ChunkDepth();
    const bool isOld = typecode == TCODE_OPENNURBS_CLASS_USERDATA && HoldsUserStrings(archive);
    archive.EndRead3dmChunksTo(depth);
    patch.EndChunk();
    if (typecode == TCODE_OPENNURBS_CLASS_END) break;
    end = archive.CurrentPosition();
    // The first one is replaced, more of them are removed.
    if (isOld) patch.ReplaceChunks(item.offset, item.length, std::exchange(bytes, {}));
  }
  if (!bytes.empty()) patch.ReplaceChunks(end, 0, std::move(bytes));
  return true;
}

bool HoldsOnlyUserStrings(DocumentPatch& patch) {
  ON_BinaryArchive& archive = patch.Archive();
  const std::uint64_t start = archive.CurrentPosition();
  std::uint32_t typecode = 0;
  std::int64_t value = 0;
  bool only = archive.BeginRead3dmChunk(&typecode, &value);
  if (!only) return false;
  const int depth = archive.ChunkDepth();
  only = ReadChunks(archive,
                    [&](const Record& item) {
                      only = item.typecode == TCODE_OPENNURBS_CLASS_END ||
                             (item.typecode == TCODE_OPENNURBS_CLASS_USERDATA &&
                              HoldsUserStrings(archive));
                      return only;
                    }) &&
         only;
  archive.EndRead3dmChunksTo(depth - 1);
  patch.Seek(start);
  return only;
}

bool BeginPatchClass(DocumentPatch& patch) {
  return patch.BeginChunkOf(TCODE_OPENNURBS_CLASS) && patch.SkipChunk() &&
         patch.BeginChunkOf(TCODE_OPENNURBS_CLASS_DATA);
}

bool EndPatchClass(DocumentPatch& patch, const ON_UserStringList& before,
                   const ON_UserStringList& now) {
  patch.EndChunk();
  if (!PatchUserStrings(patch, before, now)) return false;
  patch.EndChunk();
  return true;
}

}  // namespace host
