#include "settings/settings_chunk.h"

#include <unordered_set>
#include <utility>

#include "host/system/text.h"

namespace orv {
namespace {

constexpr std::uint32_t kSettingsChunk = 0x40008000;
constexpr int kMajorVersion = 1;
constexpr int kMinorVersion = 0;

// The entries without those whose key an earlier one has.
std::vector<ON_UserString> FirstOfEachKey(std::vector<ON_UserString> entries) {
  std::unordered_set<std::string> keys;
  std::erase_if(entries, [&keys](const ON_UserString& entry) {
    return !keys.insert(host::FoldedCase(entry.m_key)).second;
  });
  return entries;
}

}  // namespace

bool WriteSettingsChunk(ON_BinaryArchive& archive, const ON_UserStringList& list) {
  if (!archive.BeginWrite3dmChunk(kSettingsChunk, kMajorVersion, kMinorVersion)) return false;
  const bool written = ON_WriteUserStringList(archive, list);
  return archive.EndWrite3dmChunk() && written;
}

bool ReadSettingsChunk(ON_BinaryArchive& archive, bool merging, ON_UserStringList& list) {
  if (!merging) list.m_e.clear();
  int major = 0;
  int minor = 0;
  if (!archive.BeginRead3dmChunk(kSettingsChunk, &major, &minor)) return false;
  ON_UserStringList stored;
  const bool read = major == kMajorVersion && ON_ReadUserStringList(archive, stored);
  if (read && !merging) list.m_e = FirstOfEachKey(std::move(stored.m_e));
  return archive.EndRead3dmChunk() && read;
}

}  // namespace orv
