#pragma once

#include "host/archive/annotation_styles.h"
#include "host/archive/binary_archive.h"
#include "host/geometry/on_annotation.h"

// The classes of annotations: those of version 6 and later, of versions 3 to 5, and of version 2.

namespace host {

// True for a class that ReadAnnotation reads.
[[nodiscard]] bool IsAnnotationClass(const ON_UUID& class_id);
// The data of an annotation, called with the class's data chunk open. `styles` are those of the
// document, to which the older classes refer by position. Fails when the annotation isn't valid.
[[nodiscard]] bool ReadAnnotation(ON_BinaryArchive& archive, const ON_UUID& class_id,
                                  const AnnotationStyles& styles, ON_Annotation& annotation);
// What dimensions of version 5 carry as user data of class `class_id`; others are left alone.
// Called with the payload's chunk open.
void ReadAnnotationUserData(ON_BinaryArchive& archive, const ON_UUID& class_id,
                            ON_Annotation& annotation);

}  // namespace host
