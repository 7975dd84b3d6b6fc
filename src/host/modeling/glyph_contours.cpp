#include "host/modeling/glyph_contours.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

// Coordinates are asked for in 64ths of a unit, since points that a font leaves out lie halfway
// between its own.
constexpr int kShift = 6;

ON_2dPoint ToPoint(const FT_Vector& v) {
  constexpr double kScale = 1 << kShift;
  return {static_cast<double>(v.x) / kScale, static_cast<double>(v.y) / kScale};
}

ON_2dPoint Between(ON_2dPoint a, ON_2dPoint b, double fraction) {
  return {a.x + (b.x - a.x) * fraction, a.y + (b.y - a.y) * fraction};
}

// The points of a Bézier curve; only `degree` + 1 of them count.
struct Piece {
  int degree = 1;
  std::array<ON_2dPoint, 4> points{};
};

void Raise(Piece& piece) {
  auto& p = piece.points;
  if (piece.degree == 1) {
    p = {p[0], Between(p[0], p[1], 0.5), p[1]};
  } else {
    p = {p[0], Between(p[0], p[1], 2.0 / 3), Between(p[2], p[1], 2.0 / 3), p[2]};
  }
  ++piece.degree;
}

class ContourCollector {
 public:
  void MoveTo(ON_2dPoint p) {
    FinishContour();
    at_ = p;
  }

  void Add(int degree, std::array<ON_2dPoint, 3> points) {
    const auto end = points.begin() + degree;
    const bool stands_still = std::all_of(points.begin(), end, [&](auto p) { return p == at_; });
    if (stands_still) return;
    pieces_.push_back({degree, {at_, points[0], points[1], points[2]}});
    at_ = *(end - 1);
  }

  std::vector<GlyphContour> Finish() {
    FinishContour();
    return std::move(contours_);
  }

 private:
  void FinishContour() {
    int degree = 1;
    for (const Piece& piece : pieces_) degree = std::max(degree, piece.degree);
    // Three lines, two parabolas or one cubic can enclose something.
    if (static_cast<int>(pieces_.size()) + degree >= 4) {
      GlyphContour& contour = contours_.emplace_back();
      contour.degree = degree;
      contour.points.push_back(pieces_.front().points[0]);
      for (Piece& piece : pieces_) {
        while (piece.degree < degree) Raise(piece);
        contour.points.insert(contour.points.end(), piece.points.begin() + 1,
                              piece.points.begin() + degree + 1);
      }
    }
    pieces_.clear();
  }

  ON_2dPoint at_{0, 0};
  std::vector<Piece> pieces_;
  std::vector<GlyphContour> contours_;
};

ContourCollector& Collector(void* user) {
  return *static_cast<ContourCollector*>(user);
}

int MoveTo(const FT_Vector* to, void* user) {
  Collector(user).MoveTo(ToPoint(*to));
  return 0;
}

int LineTo(const FT_Vector* to, void* user) {
  Collector(user).Add(1, {ToPoint(*to)});
  return 0;
}

int ConicTo(const FT_Vector* control, const FT_Vector* to, void* user) {
  Collector(user).Add(2, {ToPoint(*control), ToPoint(*to)});
  return 0;
}

int CubicTo(const FT_Vector* first, const FT_Vector* second, const FT_Vector* to, void* user) {
  Collector(user).Add(3, {ToPoint(*first), ToPoint(*second), ToPoint(*to)});
  return 0;
}

}  // namespace

std::vector<GlyphContour> ContoursOf(FT_Outline& outline) {
  constexpr FT_Outline_Funcs kFunctions{MoveTo, LineTo, ConicTo, CubicTo, kShift, 0};
  ContourCollector collector;
  if (FT_Outline_Decompose(&outline, &kFunctions, &collector) != 0) return {};
  std::vector<GlyphContour> contours = collector.Finish();
  // Fonts of some formats have the inside of the letters on the right of their outlines.
  if (FT_Outline_Get_Orientation(&outline) == FT_ORIENTATION_TRUETYPE) {
    for (auto& contour : contours) std::reverse(contour.points.begin(), contour.points.end());
  }
  return contours;
}

}  // namespace host
