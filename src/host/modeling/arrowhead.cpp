#include <array>

#include "host/modeling/annotation_drawings.h"

namespace host {
namespace {

// A closed area in sizes of the arrowhead; the tip is at the origin and looks along the x axis.
template <std::size_t N>
void DrawArea(AnnotationSketch& sketch, const std::array<ON_2dPoint, N>& corners, ON_2dPoint tip,
              ON_2dPoint direction, double size) {
  const ON_2dPoint along = direction * size;
  const ON_2dPoint across{-along.y, along.x};
  std::array<ON_2dPoint, N> placed;
  for (std::size_t i = 0; i < N; ++i)
    placed[i] = tip + along * corners[i].x + across * corners[i].y;
  sketch.AddPolygon(placed);
}

void DrawTriangle(AnnotationSketch& sketch, ON_2dPoint tip, ON_2dPoint direction, double size,
                  double length, double half_width) {
  const std::array<ON_2dPoint, 3> corners{{{0, 0}, {-length, half_width}, {-length, -half_width}}};
  DrawArea(sketch, corners, tip, direction, size);
}

}  // namespace

void DrawArrowhead(AnnotationSketch& sketch, int kind, ON_2dPoint tip, ON_2dPoint direction,
                   double size) {
  // Of a right angle's half.
  constexpr double kSlope = 0.7071067811865476;
  if (!(size > 0) || Length(direction) == 0) return;
  const ON_2dPoint along = direction * size;
  const ON_2dPoint across{-along.y, along.x};
  switch (kind) {
    // The block of a user's is replaced by the usual arrowhead.
    case 1:
    case 2:
      return DrawTriangle(sketch, tip, direction, size, 1, 0.25);
    case 3:
      return sketch.AddDisc(tip, 0.5 * size);
    case 4:
      return sketch.AddLine(tip - (along + across) * 0.5, tip + (along + across) * 0.5);
    case 5:
      return DrawTriangle(sketch, tip, direction, size, 0.5, 0.5);
    case 6:
      sketch.AddLine(tip - (along - across) * kSlope, tip);
      return sketch.AddLine(tip - (along + across) * kSlope, tip);
    case 7:
      return DrawArea(sketch, std::array<ON_2dPoint, 4>{{{0, 0}, {-1, 0}, {-1, 0.2}, {0, 0.2}}},
                      tip, direction, size);
    case 8:
      return DrawTriangle(sketch, tip, direction, size, 1, 1.0 / 8);
    case 9:
      return DrawTriangle(sketch, tip, direction, size, 1, 1.0 / 12);
    default:
      return;
  }
}

}  // namespace host
