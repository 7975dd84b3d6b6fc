#pragma once

#include "export/rib_writer.h"

namespace orv {

// A block whose attributes end with it. What it holds is indented.
inline void BeginAttributes(RibWriter& writer) {
  RibPrintf(writer, "AttributeBegin\n");
  writer.Indent += 2;
}
// The same for an object, with a blank line before it.
inline void BeginObjectBlock(RibWriter& writer) {
  RibPrintf(writer, "\n");
  BeginAttributes(writer);
}
inline void EndAttributes(RibWriter& writer) {
  writer.Indent -= 2;
  RibPrintf(writer, "AttributeEnd\n");
}

}  // namespace orv
