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

// Puts `now` in the place of the list in the item that is the next chunk; its head stays.
void ReplaceList(DocumentPatch& patch, const ON_UserStringList& now) {
  ON_BinaryArchive& archive = patch.Archive();
  UserDataHeader header;
  // It has been read before, and so has all that is opened here.
  if (!patch.BeginChunk()) return;
  if (ReadUserDataHeader(archive, header) && patch.BeginChunkOf(TCODE_ANONYMOUS_CHUNK)) {
    archive.SetArchive3dmVersion(header.archive_version);
    archive.SetArchiveOpenNURBSVersion(header.opennurbs_version);
    const std::uint64_t at = archive.CurrentPosition();
    if (patch.SkipChunk()) {
      patch.ReplaceChunks(at, archive.CurrentPosition() - at, patch.Written([&](auto& list) {
        static_cast<void>(ON_WriteUserStringList(list, now));
      }));
    }
    patch.EndChunk();
  }
  patch.EndChunk();
}

// True when the next chunk is an item of user strings that can be read.
bool IsUserStrings(DocumentPatch& patch) {
  ON_BinaryArchive& archive = patch.Archive();
  const std::uint64_t start = archive.CurrentPosition();
  std::uint32_t typecode = 0;
  std::int64_t value = 0;
  if (archive.PeekAt3dmChunkType() != TCODE_OPENNURBS_CLASS_USERDATA) return false;
  if (!archive.BeginRead3dmChunk(&typecode, &value)) return false;
  const int depth = archive.ChunkDepth();
  const bool holds = HoldsUserStrings(archive);
  archive.EndRead3dmChunksTo(depth - 1);
  patch.Seek(start);
  return holds;
}

}  // namespace

bool PatchUserStrings(DocumentPatch& patch, const ON_UserStringList& before,
                      const ON_UserStringList& now) {
  return before.m_e == now.m_e || ReplaceUserStrings(patch, now);
}

bool ReplaceUserStrings(DocumentPatch& patch, const ON_UserStringList& now) {
  ON_BinaryArchive& archive = patch.Archive();
  bool isWritten = now.IsEmpty();
  // Up to the mark that ends the items, where there is one.
  while (archive.BytesLeft() > 0) {
    const std::uint64_t start = archive.CurrentPosition();
    if (archive.PeekAt3dmChunkType() == TCODE_OPENNURBS_CLASS_END) break;
    // The first list is replaced, more of them are removed.
    const bool isOld = IsUserStrings(patch);
    if (isOld && !isWritten) {
      ReplaceList(patch, now);
      isWritten = true;
      continue;
    }
    if (!patch.SkipChunk()) return false;
    if (isOld) patch.ReplaceChunks(start, archive.CurrentPosition() - start, {});
  }
  if (!isWritten) {
    patch.ReplaceChunks(archive.CurrentPosition(), 0, patch.Written([&](ON_BinaryArchive& item) {
      WriteUserStrings(item, now);
    }));
  }
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
