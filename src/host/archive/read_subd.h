#pragma once

#include "host/archive/binary_archive.h"
#include "host/geometry/on_subd.h"

namespace host {

inline constexpr ON_UUID kSubDClass = "f09ba4d9-455b-42c3-ba3b-e6ccacef853b"_uuid;

// The control net of a SubD, which is its first level; further levels follow from it and are
// skipped. Called with the class's data chunk open. What was read is valid (ON_SubD::IsValid), and
// the edges of each face are a ring.
[[nodiscard]] bool ReadSubD(ON_BinaryArchive& archive, ON_SubD& subd);

}  // namespace host
