#pragma once

#include <string>

#include "host/archive/binary_archive.h"

namespace host {

// What the newer records keep of a table's member in a chunk of its own. A field that the document
// doesn't store keeps its value.
struct ComponentAttributes {
  ON_UUID id;
  int index = -1;
  std::string name;
};

// The chunk of typecode 40008002: linetypes, dimension styles, instance definitions.
[[nodiscard]] bool ReadComponentAttributes(ON_BinaryArchive& archive,
                                           ComponentAttributes& attributes);
// The older chunk, led by a mask of the fields that follow: materials.
[[nodiscard]] bool ReadMaskedComponentAttributes(ON_BinaryArchive& archive,
                                                 ComponentAttributes& attributes);

}  // namespace host
