#include "host/modeling/edge_points.h"

#include <GeomAdaptor_Curve.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <algorithm>
#include <array>
#include <cmath>

#include "host/modeling/divide_range.h"

namespace host {
namespace {

constexpr std::size_t kMostPoints = 5000;

// Divides the curve of an edge in space.
class CurveDivider {
 public:
  CurveDivider(const Geom_Curve& curve, const EdgeLimits& limits)
      : curve_(curve), limits_(limits) {}

  std::vector<double> Divide(const std::vector<double>& corners);

 private:
  int PiecesOn(double a, double b) const;

  const Geom_Curve& curve_;
  const EdgeLimits& limits_;
  std::vector<double> parameters_;
};

// How many pieces the stretch must be divided into.
int CurveDivider::PiecesOn(double a, double b) const {
  constexpr int kSamples = 4;
  constexpr double kMostPieces = 200;
  // What is hardly too much isn't divided again.
  constexpr double kSlack = 1.05;
  std::array<gp_Pnt, kSamples + 1> points;
  std::array<gp_Vec, kSamples + 1> slopes;
  double length = 0;
  for (std::size_t i = 0; i <= kSamples; ++i) {
    curve_.D1(a + (b - a) * static_cast<double>(i) / kSamples, points[i], slopes[i]);
    if (i > 0) length += points[i].Distance(points[i - 1]);
  }
  if (!(length > limits_.min_size)) return 1;
  double sag = 0;
  double turn = 0;
  const gp_Vec chord(points.front(), points.back());
  const double square = chord.SquareMagnitude();
  for (std::size_t i = 1; i <= kSamples; ++i) {
    const gp_Vec off(points.front(), points[i]);
    const double along = square > 0 ? std::clamp(off.Dot(chord) / square, 0.0, 1.0) : 0;
    sag = std::max(sag, (off - chord * along).Magnitude());
    const double lengths = slopes[i].Magnitude() * slopes[i - 1].Magnitude();
    if (lengths > 1e-18) {
      turn += std::acos(std::clamp(slopes[i].Dot(slopes[i - 1]) / lengths, -1.0, 1.0));
    }
  }
  double pieces = std::max(std::sqrt(sag / limits_.tolerance), turn / limits_.angle);
  if (limits_.max_size > 0) pieces = std::max(pieces, length / limits_.max_size);
  if (!(pieces > kSlack)) return 1;
  return static_cast<int>(std::ceil(std::min(pieces * kSlack, kMostPieces)));
}

std::vector<double> CurveDivider::Divide(const std::vector<double>& corners) {
  parameters_ = {corners.front()};
  for (std::size_t i = 1; i < corners.size(); ++i) {
    const double a = corners[i - 1];
    const double b = corners[i];
    const std::size_t before = parameters_.size();
    // In parts, so that a wave isn't missed.
    constexpr int kParts = 4;
    for (int part = 1; part <= kParts; ++part) {
      DivideRange(
          a + (b - a) * (part - 1) / kParts, part == kParts ? b : a + (b - a) * part / kParts,
          kMostPoints, [this](double from, double to) { return PiecesOn(from, to); }, parameters_);
    }
    if (parameters_.size() > before + kParts || PiecesOn(a, b) > 1) continue;
    // All of it is straight.
    parameters_.resize(before);
    parameters_.push_back(b);
  }
  return std::move(parameters_);
}

// The ends of the range and the corners between them.
std::vector<double> CornersOf(const Handle(Geom_Curve) & curve, double first, double last) {
  const GeomAdaptor_Curve adaptor(curve, first, last);
  const int count = adaptor.NbIntervals(GeomAbs_C1);
  TColStd_Array1OfReal ends(1, count + 1);
  adaptor.Intervals(ends, GeomAbs_C1);
  std::vector<double> corners{first};
  const double least = (last - first) * 1e-9;
  for (int i = 2; i <= count; ++i) {
    if (ends(i) > corners.back() + least && ends(i) < last - least) corners.push_back(ends(i));
  }
  corners.push_back(last);
  return corners;
}

// Finds points of an edge on one of its sides.
class SideMatcher {
 public:
  SideMatcher(const EdgeSide& side, double last, double tolerance)
      : side_(side), last_(last), tolerance_(tolerance) {}

  // Of points in their order: none lies before one that was asked for earlier.
  double ParameterOf(const gp_Pnt& point, double guess);

 private:
  double DistanceAt(double t, const gp_Pnt& point) const;
  double Approach(double t, const gp_Pnt& point) const;
  double NearestSample(const gp_Pnt& point) const;

  const EdgeSide& side_;
  const double last_;
  const double tolerance_;
  double before_ = 0;
};

double SideMatcher::DistanceAt(double t, const gp_Pnt& point) const {
  const gp_Pnt2d uv = side_.curve->Value(t);
  return side_.surface->Value(uv.X(), uv.Y()).Distance(point);
}

// The parameter of the nearest point in the neighbourhood.
double SideMatcher::Approach(double t, const gp_Pnt& point) const {
  constexpr int kSteps = 12;
  for (int i = 0; i < kSteps; ++i) {
    gp_Pnt2d uv;
    gp_Vec2d slope;
    side_.curve->D1(t, uv, slope);
    gp_Pnt on_face;
    gp_Vec du;
    gp_Vec dv;
    side_.surface->D1(uv.X(), uv.Y(), on_face, du, dv);
    const gp_Vec way = du * slope.X() + dv * slope.Y();
    const double step = gp_Vec(on_face, point).Dot(way) / way.SquareMagnitude();
    if (!std::isfinite(step)) break;
    const double next = std::clamp(t + step, before_, last_);
    if (std::abs(next - t) < last_ * 1e-12) return next;
    t = next;
  }
  return t;
}

double SideMatcher::NearestSample(const gp_Pnt& point) const {
  constexpr int kSamples = 64;
  double nearest = before_;
  double least = DistanceAt(before_, point);
  for (int i = 1; i <= kSamples; ++i) {
    const double t = before_ + (last_ - before_) * i / kSamples;
    const double distance = DistanceAt(t, point);
    if (distance < least) {
      least = distance;
      nearest = t;
    }
  }
  return nearest;
}

double SideMatcher::ParameterOf(const gp_Pnt& point, double guess) {
  // As a part of the tolerance.
  constexpr double kSame = 0.02;
  constexpr double kClose = 0.25;
  double t = std::clamp(guess, before_, last_);
  double distance = DistanceAt(t, point);
  const auto take = [&](double other) {
    const double other_distance = DistanceAt(other, point);
    if (!(other_distance < distance)) return;
    t = other;
    distance = other_distance;
  };
  if (distance > kSame * tolerance_) take(Approach(t, point));
  if (distance > kClose * tolerance_) take(Approach(NearestSample(point), point));
  return before_ = t;
}

// The two ends are given: a closed curve has them at the same place.
std::vector<double> MatchSide(const Geom_Curve& curve, const std::vector<double>& parameters,
                              const EdgeSide& side, double tolerance) {
  const double first = parameters.front();
  const double last = parameters.back();
  SideMatcher matcher(side, last, tolerance);
  std::vector<double> matched{first};
  for (std::size_t i = 1; i + 1 < parameters.size(); ++i) {
    const double step = parameters[i] - parameters[i - 1];
    // With the speed that is left, the end is reached in time.
    const double pace = (last - matched.back()) / (last - parameters[i - 1]);
    matched.push_back(
        matcher.ParameterOf(curve.Value(parameters[i]), matched.back() + step * pace));
  }
  matched.push_back(last);
  return matched;
}

// True when the straight line between two points of a side, in its parameters, is farther from the
// edge than the tolerance is.
bool IsBentOnSide(const EdgeSide& side, double a, double b, double tolerance) {
  const gp_Pnt2d start = side.curve->Value(a);
  const gp_Pnt2d end = side.curve->Value(b);
  const gp_Pnt2d middle = side.curve->Value((a + b) / 2);
  const gp_Pnt2d straight((start.XY() + end.XY()) / 2);
  return side.surface->Value(straight.X(), straight.Y())
             .Distance(side.surface->Value(middle.X(), middle.Y())) > 2 * tolerance;
}

}  // namespace

EdgePoints DivideEdge(const Handle(Geom_Curve) & curve, double first, double last,
                      const std::vector<EdgeSide>& sides, const EdgeLimits& limits) {
  constexpr int kPasses = 6;
  EdgePoints points;
  points.parameters = CurveDivider(*curve, limits).Divide(CornersOf(curve, first, last));
  for (int pass = 0; pass <= kPasses; ++pass) {
    points.side_parameters.clear();
    for (const EdgeSide& side : sides) {
      points.side_parameters.push_back(
          MatchSide(*curve, points.parameters, side, limits.tolerance));
    }
    std::vector<double> refined{first};
    for (std::size_t i = 1; i < points.parameters.size(); ++i) {
      const double a = points.parameters[i - 1];
      const double b = points.parameters[i];
      bool is_bent = false;
      for (std::size_t s = 0; s < sides.size() && !is_bent; ++s) {
        const auto& at = points.side_parameters[s];
        is_bent = IsBentOnSide(sides[s], at[i - 1], at[i], limits.tolerance);
      }
      if (is_bent) refined.push_back((a + b) / 2);
      refined.push_back(b);
    }
    if (pass == kPasses || refined.size() == points.parameters.size() ||
        refined.size() > kMostPoints) {
      break;
    }
    points.parameters = std::move(refined);
  }
  return points;
}

}  // namespace host
