#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "host/modeling/annotation_drawings.h"

// Drawings of annotations for tests, with letters that are all 0.5 of their height wide.

struct DrawnLine {
  ON_3dPoint from;
  ON_3dPoint to;
};

struct Drawing {
  std::vector<DrawnLine> lines;
  std::vector<const ON_Curve*> arcs;
  // Closed curves.
  std::vector<const ON_Curve*> areas;
  std::vector<ON_TextEntity2> texts;
  // Owns them.
  host::ExplodedAnnotation parts;

  bool IsEmpty() const { return parts.curves.empty() && parts.texts.empty(); }
};

double WidthOfLetters(const ON_TextEntity2& text);
// Fails the test for a curve that isn't valid or a text whose plane is none.
Drawing Draw(const ON_Annotation& annotation, const ON_DimStyle& style);

ON_Annotation MakeAnnotation(ON_Annotation::Type type, std::vector<ON_2dPoint> points,
                             std::string text = "<>");
// Sizes that can be told apart: text 2, gap 0.5, arrow 1, offset 0.25, extension 0.75, and one
// digit behind the point.
ON_DimStyle SampleStyle();

// Whether there is such a line, in either direction.
bool HasLine(const Drawing& drawing, ON_3dPoint a, ON_3dPoint b);
std::string ToText(const Drawing& drawing);
// The corners of an area of straight lines, without the last one, which is the first.
std::vector<ON_3dPoint> CornersOf(const ON_Curve& area);
// Of its box.
ON_3dPoint CenterOf(const ON_Curve& curve);
void ExpectPoint(ON_3dPoint expected, ON_3dPoint found);
