#pragma once

#include "host/archive/binary_archive.h"
#include "host/geometry/on_user_string_list.h"

// The document's settings in a document file: one chunk of version 1.0 that holds the list.
namespace orv {

// False when the archive fails.
[[nodiscard]] bool WriteSettingsChunk(ON_BinaryArchive& archive, const ON_UserStringList& list);

// Reads the chunk. When the document is replaced, `list` is emptied first and takes the stored
// settings; when it is merged into an open one (`merging`), `list` stays and they are dropped. Of
// entries with the same key the first is taken.
// False when the chunk isn't there, has another major version, or is broken.
[[nodiscard]] bool ReadSettingsChunk(ON_BinaryArchive& archive, bool merging,
                                     ON_UserStringList& list);

}  // namespace orv
