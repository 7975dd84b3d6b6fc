#pragma once

#include <memory>
#include <vector>

#include "host/geometry/on_annotation.h"
#include "host/geometry/on_curve.h"

namespace host {

struct ExplodedAnnotation {
  // Lines of the drawing, and closed curves in the annotation's plane that are to be filled: the
  // arrowheads.
  std::vector<std::shared_ptr<const ON_Curve>> curves;
  std::vector<ON_TextEntity2> texts;
};

// What a person sees of an annotation in the given style: extension lines, dimension line or arc,
// arrowheads, and the text at its place, with what is measured in the place of "<>". Nothing for an
// annotation whose points make no drawing.
[[nodiscard]] ExplodedAnnotation ExplodeAnnotation(const ON_Annotation& annotation,
                                                   const ON_DimStyle& style);

}  // namespace host
