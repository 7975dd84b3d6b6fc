#pragma once

#include <string>

#include "host/geometry/on_annotation.h"

namespace host {

// The text of a dimension: its own, with what is measured in the place of each "<>", in the format
// of the style. Other annotations have their own text alone.
[[nodiscard]] std::string MeasurementText(const ON_Annotation& annotation,
                                          const ON_DimStyle& style);

}  // namespace host
