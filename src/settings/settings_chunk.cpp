#include "settings/settings_chunk.h"

namespace orv {
namespace {

constexpr std::uint32_t kSettingsChunk = 0x40008000;
constexpr int kMajorVersion = 1;
constexpr int kMinorVersion = 0;

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
  if (read && !merging) list.m_e.insert(list.m_e.end(), stored.m_e.begin(), stored.m_e.end());
  return archive.EndRead3dmChunk() && read;
}

}  // namespace orv
