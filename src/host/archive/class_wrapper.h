#pragma once

#include <functional>

#include "host/archive/binary_archive.h"

// The wrapper in which a document keeps an object of a class: the class id, a chunk with its data,
// items of user data, an end mark.

namespace host {

inline constexpr ON_UUID kUserStringListId = "ce28de29-f4c5-4faa-a50a-c3a6849b6329"_uuid;

// What stands before the payload of an item of user data.
struct UserDataHeader {
  ON_UUID class_id;
  // Under which the payload was written.
  int archive_version = 0;
  unsigned opennurbs_version = 0;
};
[[nodiscard]] bool ReadUserDataHeader(ON_BinaryArchive& archive, UserDataHeader& header);

// Reads the payload of an item of user data whose class is `class_id`, when it knows that class. It
// is called with the payload's chunk open; what it leaves unread is skipped. A payload that turns
// out broken marks its own chunk as failed and nothing else.
using UserDataReader = std::function<void(ON_BinaryArchive& archive, const ON_UUID& class_id)>;

// Reads the class id of the wrapper that is the open chunk. A nil id stands for no object; nothing
// follows it then.
[[nodiscard]] bool ReadClassId(ON_BinaryArchive& archive, ON_UUID* class_id);
// Opens the data chunk behind the class id. The caller ends it.
[[nodiscard]] bool BeginReadClassData(ON_BinaryArchive& archive);
// Reads items of user data up to the end mark or the end of the open chunk: behind the class data,
// or in a chunk of their own behind the attributes of an object. User strings go into `strings`
// unless it is null; other items go to `reader` where there is one.
[[nodiscard]] bool ReadUserData(ON_BinaryArchive& archive, ON_UserStringList* strings,
                                const UserDataReader& reader = nullptr);

// The next chunk is a wrapper: opens it, reads the class id, the data with `read_data`, called with
// that id and the data chunk open, and the user data as ReadUserData does.
[[nodiscard]] bool ReadWrappedClass(
    ON_BinaryArchive& archive, ON_UserStringList* strings,
    const std::function<bool(ON_BinaryArchive& archive, const ON_UUID& class_id)>& read_data,
    const UserDataReader& read_user_data = nullptr);

}  // namespace host
