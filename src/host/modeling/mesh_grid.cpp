#include "host/modeling/mesh_grid.h"

#include <TColStd_Array1OfReal.hxx>
#include <algorithm>
#include <array>
#include <cmath>
#include <gp_Pnt.hxx>
#include <gp_Vec.hxx>

#include "host/modeling/divide_range.h"

namespace host {
namespace {

constexpr std::size_t kMostLines = 500;
// Places on a piece at which it is compared with the surface.
constexpr std::size_t kSamples = 5;

// Divides one direction of a surface.
class LineDivider {
 public:
  // `across` is the range of the other direction.
  LineDivider(const Adaptor3d_Surface& surface, int direction, ON_Interval across,
              const MeshGridLimits& limits)
      : surface_(surface), direction_(direction), limits_(limits) {
    constexpr int kAcross = 9;
    for (int i = 0; i < kAcross; ++i) across_.push_back(across.ParameterAt(i / (kAcross - 1.0)));
  }

  std::vector<double> Divide(ON_Interval range);

 private:
  struct Place {
    gp_Pnt point;
    gp_Vec normal;
    bool has_normal = false;
  };

  Place At(double t, double across) const;
  int PiecesOn(double a, double b, double across) const;
  // The most that any place across asks for.
  int PiecesOn(double a, double b) const;
  std::vector<double> Corners(ON_Interval range) const;

  const Adaptor3d_Surface& surface_;
  const int direction_;
  const MeshGridLimits limits_;
  std::vector<double> across_;
  std::vector<double> lines_;
};

LineDivider::Place LineDivider::At(double t, double across) const {
  constexpr double kLeastNormal = 1e-9;
  Place place;
  gp_Vec du;
  gp_Vec dv;
  surface_.D1(direction_ == 0 ? t : across, direction_ == 0 ? across : t, place.point, du, dv);
  place.normal = du.Crossed(dv);
  const double length = place.normal.Magnitude();
  place.has_normal = length > kLeastNormal && std::isfinite(length);
  if (place.has_normal) place.normal /= length;
  return place;
}

// How many pieces the stretch must be divided into along one line.
int LineDivider::PiecesOn(double a, double b, double across) const {
  constexpr double kMostPieces = 200;
  // What is hardly too much isn't divided again.
  constexpr double kSlack = 1.05;
  std::array<Place, kSamples> places;
  double length = 0;
  for (std::size_t i = 0; i < kSamples; ++i) {
    const double fraction = static_cast<double>(i) / (kSamples - 1);
    places[i] = At(a + (b - a) * fraction, across);
    if (i > 0) length += places[i].point.Distance(places[i - 1].point);
  }
  if (!(length > limits_.min_size)) return 1;
  double sag = 0;
  double turn = 0;
  const gp_Vec chord(places.front().point, places.back().point);
  for (std::size_t i = 1; i < kSamples; ++i) {
    const Place& place = places[i];
    const double fraction = static_cast<double>(i) / (kSamples - 1);
    const gp_Vec off = gp_Vec(places.front().point, place.point) - chord * fraction;
    if (place.has_normal) sag = std::max(sag, std::abs(off.Dot(place.normal)));
    if (place.has_normal && places[i - 1].has_normal) {
      turn += place.normal.Angle(places[i - 1].normal);
    }
  }
  const double pieces = std::max(std::sqrt(sag / limits_.tolerance), turn / limits_.angle);
  if (!(pieces > kSlack)) return 1;
  // A little more, since the pieces of an arc are flatter than the square root says.
  return static_cast<int>(std::ceil(std::min(pieces * kSlack, kMostPieces)));
}

int LineDivider::PiecesOn(double a, double b) const {
  int pieces = 1;
  for (const double across : across_) pieces = std::max(pieces, PiecesOn(a, b, across));
  return pieces;
}

// The ends of the range and the places inside it at which the surface has an edge.
std::vector<double> LineDivider::Corners(ON_Interval range) const {
  std::vector<double> corners{range.Min};
  const int count =
      direction_ == 0 ? surface_.NbUIntervals(GeomAbs_C1) : surface_.NbVIntervals(GeomAbs_C1);
  TColStd_Array1OfReal ends(1, count + 1);
  direction_ == 0 ? surface_.UIntervals(ends, GeomAbs_C1) : surface_.VIntervals(ends, GeomAbs_C1);
  const double least = range.Length() * 1e-6;
  for (int i = 2; i <= count; ++i) {
    if (ends(i) > corners.back() + least && ends(i) < range.Max - least) {
      corners.push_back(ends(i));
    }
  }
  corners.push_back(range.Max);
  return corners;
}

std::vector<double> LineDivider::Divide(ON_Interval range) {
  const std::vector<double> corners = Corners(range);
  lines_ = {range.Min};
  // Pieces so short that what they run through is no more than a wave.
  const std::size_t parts = corners.size() < 4 ? 4 : 1;
  for (std::size_t i = 1; i < corners.size(); ++i) {
    const ON_Interval smooth{corners[i - 1], corners[i]};
    const std::size_t before = lines_.size();
    for (std::size_t part = 0; part < parts; ++part) {
      const auto at = [&](std::size_t n) {
        return smooth.ParameterAt(static_cast<double>(n) / static_cast<double>(parts));
      };
      DivideRange(
          at(part), at(part + 1), kMostLines, [this](double a, double b) { return PiecesOn(a, b); },
          lines_);
    }
    // Where all of it is flat, the parts aren't needed.
    if (lines_.size() == before + parts && PiecesOn(smooth.Min, smooth.Max) == 1) {
      lines_.resize(before);
      lines_.push_back(smooth.Max);
    }
  }
  return std::move(lines_);
}

}  // namespace

MeshGrid MakeMeshGrid(const Adaptor3d_Surface& surface, ON_Interval u, ON_Interval v,
                      const MeshGridLimits& limits) {
  MeshGrid grid{LineDivider(surface, 0, v, limits).Divide(u),
                LineDivider(surface, 1, u, limits).Divide(v)};
  if (grid.u.size() < 3 || grid.v.size() < 3) return grid;
  // Where the surface is bent in both directions, each of them gets its part of the tolerance.
  MeshGridLimits half = limits;
  half.tolerance *= 0.45;
  return {LineDivider(surface, 0, v, half).Divide(u), LineDivider(surface, 1, u, half).Divide(v)};
}

}  // namespace host
