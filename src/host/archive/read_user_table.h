#pragma once

#include "host/archive/binary_archive.h"
#include "host/archive/model.h"

namespace host {

// Reads the document data of a plug-in, whose table is the open chunk: its id, the versions under
// which it was written, its bytes. What stands before broken content is kept. True when the table
// was read to its end.
[[nodiscard]] bool ReadUserTable(ON_BinaryArchive& archive, ONX_PlugInData& data);

}  // namespace host
