#pragma once

#include <string>

#include "host/geometry/on_settings.h"

namespace host {

// The bytes of a document that holds nothing but its units, with an empty table of each kind, which
// saving fills. 0 for `opennurbs_version` is no number.
[[nodiscard]] std::string NewDocument(int version, unsigned opennurbs_version,
                                      const ON_3dmUnitsAndTolerances& units);

}  // namespace host
