#pragma once

#include "export/rib_writer.h"

namespace orv {

// A block whose attributes end with it. What it holds is indented.
inline void BeginAttributes(RibWriter& writer) {
  RibPrintf(writer, "AttributeBegin\n");
  writer.Indent += 2;
}
inline void EndAttributes(RibWriter& writer) {
  writer.Indent -= 2;
  RibPrintf(writer, "AttributeEnd\n");
}

}  // namespace orv
