#pragma once

#include "export/object_stream.h"
#include "host/document/annotation_object.h"
#include "shading/object_attributes.h"

namespace orv {

// Writes the block of an annotation, with a blank line before it: its lines as curves, its
// arrowheads and letters as filled faces. Nothing when SkipsLines, and when there is nothing to
// draw.
void WriteAnnotation(const ObjectStream& stream, const CRhinoAnnotationObject& object,
                     const ObjectAttributes& attributes);

}  // namespace orv
