#include <utility>

#include "host/archive/binary_archive.h"

namespace {

bool ReadEntry(ON_BinaryArchive& archive, ON_UserString& entry) {
  int major = 0;
  int minor = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  const bool ok = archive.ReadString(&entry.m_key) && archive.ReadString(&entry.m_string_value);
  return archive.EndRead3dmChunk() && ok;
}

bool ReadEntries(ON_BinaryArchive& archive, std::vector<ON_UserString>& entries) {
  // The smallest entry: a chunk's head, its version, two empty texts and the sum.
  constexpr std::size_t kMinEntry = 8 + 8 + 8 + 4;
  std::size_t count = 0;
  if (!archive.ReadCount(kMinEntry, &count)) return false;
  entries.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    if (!ReadEntry(archive, entries.emplace_back())) return false;
  }
  return true;
}

bool WriteEntry(ON_BinaryArchive& archive, const ON_UserString& entry) {
  if (!archive.BeginWrite3dmChunk(TCODE_ANONYMOUS_CHUNK, 1, 0)) return false;
  archive.WriteString(entry.m_key);
  archive.WriteString(entry.m_string_value);
  return archive.EndWrite3dmChunk();
}

}  // namespace

bool ON_ReadUserStringList(ON_BinaryArchive& archive, ON_UserStringList& list) {
  int major = 0;
  int minor = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  std::vector<ON_UserString> entries;
  const bool ok = major == 1 ? ReadEntries(archive, entries)
                             : archive.Fail("a user string list has an unknown version");
  if (!archive.EndRead3dmChunk() || !ok) return false;
  list.m_e = std::move(entries);
  return true;
}

bool ON_WriteUserStringList(ON_BinaryArchive& archive, const ON_UserStringList& list) {
  if (!archive.BeginWrite3dmChunk(TCODE_ANONYMOUS_CHUNK, 1, 0)) return false;
  archive.WriteInt(static_cast<std::int32_t>(list.m_e.size()));
  for (const ON_UserString& entry : list.m_e) {
    if (!WriteEntry(archive, entry)) return false;
  }
  return archive.EndWrite3dmChunk();
}
