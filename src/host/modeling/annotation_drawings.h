#pragma once

#include "host/modeling/annotation_sketch.h"

// The drawings of the kinds of annotations. Each adds to the sketch of its annotation, and adds
// nothing when the annotation's points make no drawing.

namespace host {

// Linear and aligned ones.
void DrawLinearDimension(AnnotationSketch& sketch);
void DrawAngularDimension(AnnotationSketch& sketch);
// Those of radii and diameters.
void DrawRadialDimension(AnnotationSketch& sketch);
void DrawOrdinateDimension(AnnotationSketch& sketch);
void DrawLeader(AnnotationSketch& sketch);
void DrawTextObject(AnnotationSketch& sketch);

// The drawing of any annotation.
[[nodiscard]] ExplodedAnnotation DrawAnnotation(const ON_Annotation& annotation,
                                                const ON_DimStyle& style,
                                                const MeasureText& measure);

// The length of the line behind an arrowhead that stands outside the extension lines, in sizes of
// the arrowhead.
inline constexpr double kOutsideArrowLength = 2;
// What an arrowhead and a bit of line behind it take up, in sizes of the arrowhead.
inline constexpr double kArrowRoom = 1.1;

// An arrowhead of a kind of ON_DimStyle whose tip is at a point and looks along a direction of
// length 1. Nothing for a direction of length 0.
void DrawArrowhead(AnnotationSketch& sketch, int kind, ON_2dPoint tip, ON_2dPoint direction,
                   double size);

// What stands outside because there is no room between the extension lines.
struct DimensionFit {
  bool arrows_outside = false;
  bool text_outside = false;
  bool text_left = false;
};
// For a dimension line of that length, and a text that takes so much of it.
[[nodiscard]] DimensionFit FitDimension(const AnnotationSketch& sketch, double length,
                                        double text_length);

// How far a text reaches to both sides of its middle along a direction.
[[nodiscard]] double HalfExtent(const AnnotationSketch& sketch, const std::string& text,
                                const TextFrame& frame, ON_2dPoint direction);
// Puts a text's middle at a point of the dimension line, or above or below it as the style asks.
// True when it stands in the line, which then leaves a gap for it.
bool PlaceDimensionText(AnnotationSketch& sketch, const std::string& text, ON_2dPoint at,
                        const TextFrame& frame);

// Where a text stands at the end of a line.
struct TextAtEnd {
  ON_2dPoint end;
  // In which direction the line ends; of length 1.
  ON_2dPoint direction;
  TextFrame frame;
  // Above the line, which is then drawn on under the text.
  bool is_above = false;
  ON_Annotation::VerticalAlignment valign = ON_Annotation::VerticalAlignment::middle;
};
void DrawTextAtEnd(AnnotationSketch& sketch, const std::string& text, const TextAtEnd& place);

}  // namespace host
