#include "host/geometry/on_surface_point.h"

#include <algorithm>
#include <limits>

#include "host/geometry/on_nurbs_surface.h"

namespace {

using Place = std::array<double, 2>;
using Part = std::array<ON_Interval, 2>;

// The parameters of one direction: where the search begins, and where the surface may have a
// crease.
struct Grid {
  std::vector<double> parameters;
  std::vector<double> creases;
};

constexpr std::size_t kMaxGrid = 300;
constexpr std::size_t kMaxStarts = 24;

// The parameters of `part` between spans, its ends included, and of these the creases.
Grid SpanEnds(const ON_NurbsSurface* form, int direction, ON_Interval part) {
  Grid grid{{part.Min}, {part.Min}};
  if (form != nullptr) {
    const auto& knots = form->Knots(direction);
    for (std::size_t i = 0; i < knots.size();) {
      std::size_t next = i;
      while (next < knots.size() && knots[next] == knots[i]) ++next;
      if (knots[i] > part.Min && knots[i] < part.Max) {
        grid.parameters.push_back(knots[i]);
        const bool is_crease = next - i >= static_cast<std::size_t>(form->Degree(direction));
        if (is_crease) grid.creases.push_back(knots[i]);
      }
      i = next;
    }
  }
  grid.parameters.push_back(part.Max);
  grid.creases.push_back(part.Max);
  return grid;
}

// Of a row of many, so many that stand far from each other, the first and the last one included.
std::vector<double> Thinned(const std::vector<double>& row, std::size_t count) {
  if (row.size() <= count) return row;
  std::vector<double> some;
  for (std::size_t i = 0; i < count; ++i) some.push_back(row[i * (row.size() - 1) / (count - 1)]);
  return some;
}

Grid GridOf(const ON_NurbsSurface* form, int direction, ON_Interval part) {
  Grid grid = SpanEnds(form, direction, part);
  const std::vector<double> ends = Thinned(grid.parameters, kMaxGrid);
  constexpr int kStepsWithoutForm = 32, kMostSteps = 16;
  const int wanted =
      form == nullptr ? kStepsWithoutForm : std::min(2 * form->Degree(direction), kMostSteps);
  const int allowed = static_cast<int>(kMaxGrid / ends.size());
  const int steps = std::clamp(wanted, 1, std::max(1, allowed));
  grid.parameters = {ends.front()};
  for (std::size_t i = 1; i < ends.size(); ++i) {
    for (int k = 1; k <= steps; ++k) {
      const double fraction = static_cast<double>(k) / steps;
      grid.parameters.push_back(ON_Interval{ends[i - 1], ends[i]}.ParameterAt(fraction));
    }
  }
  return grid;
}

// A walk over a smooth patch of a surface to the point that is closest to `p`: Newton's method for
// half the squared distance, whose second derivatives are taken from differences of the first ones.
class Descent {
 public:
  Descent(const ON_Surface& surface, const Part& patch, ON_3dPoint p)
      : surface_(surface), patch_(patch), p_(p) {}

  ON_SurfacePoint From(Place x) const {
    constexpr int kMaxSteps = 60;
    for (int i = 0; i < kMaxSteps; ++i) {
      const Place next = Next(x);
      const bool has_ended = IsAt(next, x);
      x = next;
      if (has_ended) break;
    }
    return {x[0], x[1], surface_.PointAt(x[0], x[1])};
  }

 private:
  // Slope of half the squared distance, and the squares of the speeds along the parameters.
  struct Slopes {
    Place slope;
    Place speed2;
  };
  using Matrix = std::array<Place, 2>;

  bool IsAt(const Place& a, const Place& b) const {
    constexpr double kSame = 1e-15;
    return std::abs(a[0] - b[0]) <= kSame * patch_[0].Length() &&
           std::abs(a[1] - b[1]) <= kSame * patch_[1].Length();
  }

  double Distance(const Place& x) const { return surface_.PointAt(x[0], x[1]).DistanceTo(p_); }

  // At the end of a patch there may be a crease, and the slopes are those before it.
  Slopes SlopesAt(const Place& x) const {
    ON_3dPoint point;
    ON_3dVector du, dv;
    const auto inside = [&](std::size_t d) {
      return x[d] < patch_[d].Max ? x[d] : std::nextafter(patch_[d].Max, patch_[d].Min);
    };
    surface_.Ev1Der(inside(0), inside(1), &point, &du, &dv);
    const ON_3dVector away = point - p_;
    return {{ON_DotProduct(away, du), ON_DotProduct(away, dv)},
            {ON_DotProduct(du, du), ON_DotProduct(dv, dv)}};
  }

  // The second derivatives.
  Matrix CurvatureAt(const Place& x) const {
    constexpr double kDifference = 1e-5;
    Matrix rows{};
    for (std::size_t d = 0; d < 2; ++d) {
      const double step = kDifference * patch_[d].Length();
      Place low = x, high = x;
      low[d] = std::max(patch_[d].Min, x[d] - step);
      high[d] = std::min(patch_[d].Max, x[d] + step);
      const Place a = SlopesAt(low).slope, b = SlopesAt(high).slope;
      const double width = high[d] - low[d];
      if (width > 0) rows[d] = {(b[0] - a[0]) / width, (b[1] - a[1]) / width};
    }
    return rows;
  }

  // Whether a step against the slope stays in the patch.
  bool IsFree(const Place& x, const Place& slope, std::size_t d) const {
    return !(x[d] <= patch_[d].Min && slope[d] >= 0) && !(x[d] >= patch_[d].Max && slope[d] <= 0);
  }

  // The step to where the slope vanishes; nothing where the distance doesn't bend upwards.
  Place NewtonStep(const Place& x, const Slopes& at) const {
    const Matrix h = CurvatureAt(x);
    const bool free_u = IsFree(x, at.slope, 0), free_v = IsFree(x, at.slope, 1);
    if (free_u && free_v) {
      constexpr double kRegular = 1e-12;
      const double mixed = (h[0][1] + h[1][0]) / 2;
      const double determinant = h[0][0] * h[1][1] - mixed * mixed;
      const bool is_bowl = h[0][0] > 0 && determinant > kRegular * h[0][0] * h[1][1];
      if (!is_bowl) return {0, 0};
      return {(mixed * at.slope[1] - h[1][1] * at.slope[0]) / determinant,
              (mixed * at.slope[0] - h[0][0] * at.slope[1]) / determinant};
    }
    Place step{0, 0};
    if (free_u && h[0][0] > 0) step[0] = -at.slope[0] / h[0][0];
    if (free_v && h[1][1] > 0) step[1] = -at.slope[1] / h[1][1];
    return step;
  }

  // The step downhill that would do on a flat surface.
  Place DownhillStep(const Place& x, const Slopes& at) const {
    Place step{0, 0};
    for (std::size_t d = 0; d < 2; ++d) {
      if (IsFree(x, at.slope, d) && at.speed2[d] > 0) step[d] = -at.slope[d] / at.speed2[d];
    }
    return step;
  }

  // Goes so much of a step that the distance doesn't grow; stays where none of it will do.
  Place Gone(const Place& x, const Place& step) const {
    if (!std::isfinite(step[0]) || !std::isfinite(step[1])) return x;
    constexpr int kHalvings = 40;
    constexpr double kRounding = 1 + 1e-15;
    const double most = Distance(x) * kRounding;
    for (double part = 1; part > std::ldexp(1, -kHalvings); part /= 2) {
      Place next;
      for (std::size_t d = 0; d < 2; ++d) {
        next[d] = std::clamp(x[d] + part * step[d], patch_[d].Min, patch_[d].Max);
      }
      if (Distance(next) <= most) return next;
    }
    return x;
  }

  Place Next(const Place& x) const {
    const Slopes at = SlopesAt(x);
    const Place newton = Gone(x, NewtonStep(x, at));
    return IsAt(newton, x) ? Gone(x, DownhillStep(x, at)) : newton;
  }

  const ON_Surface& surface_;
  Part patch_;
  ON_3dPoint p_;
};

// The distances of a grid's points, v fastest.
class Distances {
 public:
  Distances(const ON_Surface& surface, const Grid& u, const Grid& v, ON_3dPoint p)
      : rows_(u.parameters.size()), columns_(v.parameters.size()) {
    values_.reserve(rows_ * columns_);
    for (const double a : u.parameters) {
      for (const double b : v.parameters) values_.push_back(surface.PointAt(a, b).DistanceTo(p));
    }
  }

  double At(std::size_t i, std::size_t j) const { return values_[i * columns_ + j]; }

  bool IsLeastAround(std::size_t i, std::size_t j) const {
    for (std::size_t k = i - (i > 0); k <= std::min(i + 1, rows_ - 1); ++k) {
      for (std::size_t l = j - (j > 0); l <= std::min(j + 1, columns_ - 1); ++l) {
        if (At(k, l) < At(i, j)) return false;
      }
    }
    return true;
  }

  // The positions of the points from which to search, the closest first.
  std::vector<std::array<std::size_t, 2>> Starts() const {
    std::vector<std::array<std::size_t, 2>> starts;
    for (std::size_t i = 0; i < rows_; ++i) {
      for (std::size_t j = 0; j < columns_; ++j) {
        if (std::isfinite(At(i, j)) && IsLeastAround(i, j)) starts.push_back({i, j});
      }
    }
    std::stable_sort(starts.begin(), starts.end(), [this](const auto& a, const auto& b) {
      return At(a[0], a[1]) < At(b[0], b[1]);
    });
    if (starts.size() > kMaxStarts) starts.resize(kMaxStarts);
    return starts;
  }

 private:
  std::size_t rows_, columns_;
  std::vector<double> values_;
};

// The intervals between creases that a parameter belongs to: two on a crease.
std::vector<ON_Interval> Around(const std::vector<double>& creases, double t) {
  std::vector<ON_Interval> intervals;
  for (std::size_t i = 1; i < creases.size(); ++i) {
    if (creases[i - 1] <= t && t <= creases[i]) intervals.push_back({creases[i - 1], creases[i]});
  }
  return intervals;
}

// A walk over patches, down to a point from which none of those around leads farther down.
class Walk {
 public:
  Walk(const ON_Surface& surface, const Grid& u, const Grid& v, ON_3dPoint p)
      : surface_(surface), creases_{u.creases, v.creases}, p_(p) {}

  ON_SurfacePoint From(Place start) const {
    constexpr int kMaxPatches = 1000;
    ON_SurfacePoint at{start[0], start[1], surface_.PointAt(start[0], start[1])};
    for (int i = 0; i < kMaxPatches; ++i) {
      const ON_SurfacePoint next = LeastAround(at);
      constexpr double kLess = 1 - 1e-12;
      const bool has_ended =
          !(next.point.DistanceTo(p_) < kLess * at.point.DistanceTo(p_)) || !IsOnCrease(next);
      at = next;
      if (has_ended) break;
    }
    return at;
  }

 private:
  ON_SurfacePoint LeastAround(const ON_SurfacePoint& at) const {
    ON_SurfacePoint least = at;
    for (const ON_Interval& u : Around(creases_[0], at.u)) {
      for (const ON_Interval& v : Around(creases_[1], at.v)) {
        const ON_SurfacePoint end = Descent(surface_, {u, v}, p_).From({at.u, at.v});
        if (end.point.DistanceTo(p_) < least.point.DistanceTo(p_)) least = end;
      }
    }
    return least;
  }

  bool IsOnCrease(const ON_SurfacePoint& at) const {
    return Around(creases_[0], at.u).size() > 1 || Around(creases_[1], at.v).size() > 1;
  }

  const ON_Surface& surface_;
  std::array<std::vector<double>, 2> creases_;
  ON_3dPoint p_;
};

}  // namespace

std::vector<ON_SurfacePoint> ON_ClosestSurfacePoints(const ON_Surface& surface, const Part& part,
                                                     ON_3dPoint p) {
  ON_NurbsSurface made;
  const ON_NurbsSurface* form = ON_NurbsSurface::Cast(&surface);
  if (form == nullptr && surface.GetNurbForm(made)) form = &made;
  const Grid u = GridOf(form, 0, part[0]), v = GridOf(form, 1, part[1]);
  const Walk walk(surface, u, v, p);
  std::vector<ON_SurfacePoint> points;
  for (const auto& [i, j] : Distances(surface, u, v, p).Starts()) {
    points.push_back(walk.From({u.parameters[i], v.parameters[j]}));
  }
  if (points.empty()) {
    points.push_back({part[0].Min, part[1].Min, surface.PointAt(part[0].Min, part[1].Min)});
  }
  std::stable_sort(points.begin(), points.end(),
                   [p](const ON_SurfacePoint& a, const ON_SurfacePoint& b) {
                     return a.point.DistanceTo(p) < b.point.DistanceTo(p);
                   });
  return points;
}
