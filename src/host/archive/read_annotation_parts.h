#pragma once

#include "host/archive/annotation_styles.h"
#include "host/archive/binary_archive.h"
#include "host/geometry/on_annotation.h"

// What the readers of single generations of annotations share. Each is called with the class's data
// chunk open and checks nothing of what it read. m_type is set before: what the class stands for,
// which the data may still tell apart in linear and aligned, radius and diameter.

namespace host {

// Of version 6 and later.
[[nodiscard]] bool ReadNewAnnotation(ON_BinaryArchive& archive, ON_Annotation& annotation);
// Of versions 3 to 5.
[[nodiscard]] bool ReadOldAnnotation(ON_BinaryArchive& archive, const AnnotationStyles& styles,
                                     ON_Annotation& annotation);
// Of version 2.
[[nodiscard]] bool ReadOldestAnnotation(ON_BinaryArchive& archive, ON_Annotation& annotation);

// The parts of older annotations that say the same in different layouts.
struct OldAnnotationPoints {
  std::vector<ON_2dPoint> points;
  bool is_text_moved = false;
  // Of angular dimensions.
  double angle = 0;
  double radius = 0;
};
// Puts them into the annotation in its own order. False when too few are there.
[[nodiscard]] bool TakeOldPoints(const OldAnnotationPoints& old, ON_Annotation& annotation);

[[nodiscard]] bool Read2dPoint(ON_BinaryArchive& archive, ON_2dPoint* point);
// Where the line from the centre of a circle bends to reach the end of a radial dimension on the
// horizontal.
[[nodiscard]] ON_2dPoint RadialBend(ON_2dPoint center, ON_2dPoint on_curve, ON_2dPoint end);
// Inserts an ordinate dimension's bends, `first` away from the leader's end and `second` further;
// nothing when they aren't given.
void AddOrdinateBends(double first, double second, ON_Annotation& annotation);

}  // namespace host
