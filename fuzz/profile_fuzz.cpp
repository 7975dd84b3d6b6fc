#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "host/system/profile.h"

// Any bytes are a profile, and writing what was read gives a file that reads and writes the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  host::Profile profile("");
  profile.Parse({reinterpret_cast<const char*>(data), size});
  const std::string text = profile.Text();
  host::Profile again("");
  again.Parse(text);
  if (again.Text() != text) std::abort();

  // A value that is stored is there, whatever stood before, and is still there when read again.
  const std::string_view key(reinterpret_cast<const char*>(data), size / 2);
  profile.SaveProfileString(key, key, key);
  if (profile.LoadProfileString(key, key) != key) std::abort();
  again.Parse(profile.Text());
  if (again.LoadProfileString(key, key) != key) std::abort();
  static_cast<void>(again.LoadProfileInt("A", "key"));
  static_cast<void>(again.LoadProfileDouble("A", "key"));
  static_cast<void>(again.LoadProfileBool("A", "key"));
  return 0;
}
