#include "host/modeling/planar_regions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <optional>

namespace host {

namespace {

// Loops by the cells of a grid that they touch, so that only those near a loop are compared with
// it.
class Cells {
 public:
  explicit Cells(std::span<const PlaneLoop> loops) {
    ON_BoundingBox box;
    for (const PlaneLoop& loop : loops) box.Include(loop.Box());
    x_ = {box.m_min.x, (box.m_max.x - box.m_min.x) / kCount};
    y_ = {box.m_min.y, (box.m_max.y - box.m_min.y) / kCount};
  }

  void Add(std::size_t index, const PlaneLoop& loop) {
    const ON_BoundingBox& box = loop.Box();
    const double stray = loop.Stray();
    const std::size_t last_i = x_.At(box.m_max.x + stray), last_j = y_.At(box.m_max.y + stray);
    for (std::size_t i = x_.At(box.m_min.x - stray); i <= last_i; ++i) {
      for (std::size_t j = y_.At(box.m_min.y - stray); j <= last_j; ++j) {
        cells_[i][j].push_back(index);
      }
    }
  }

  // The loops that may be around another one, in the order in which they were added.
  [[nodiscard]] std::span<const std::size_t> Around(const PlaneLoop& loop) const {
    const ON_BoundingBox& box = loop.Box();
    return cells_[x_.At((box.m_min.x + box.m_max.x) / 2)][y_.At((box.m_min.y + box.m_max.y) / 2)];
  }

 private:
  static constexpr std::size_t kCount = 32;

  // A side of the grid.
  struct Side {
    double start = 0;
    double width = 0;

    [[nodiscard]] std::size_t At(double t) const {
      const double cell = width > 0 ? std::floor((t - start) / width) : 0;
      return static_cast<std::size_t>(std::clamp(cell, 0.0, kCount - 1.0));
    }
  };

  Side x_;
  Side y_;
  std::array<std::array<std::vector<std::size_t>, kCount>, kCount> cells_;
};

// So many loops that nearly agree with a loop are told apart from it: one that crosses more of them
// would take too long.
constexpr int kMaxCloserLooks = 16;

bool BoxIsAround(const PlaneLoop& outer, const PlaneLoop& inner) {
  const double slack = outer.Stray() + inner.Stray();
  const ON_BoundingBox& a = outer.Box();
  const ON_BoundingBox& b = inner.Box();
  return a.m_min.x - slack <= b.m_min.x && b.m_max.x <= a.m_max.x + slack &&
         a.m_min.y - slack <= b.m_min.y && b.m_max.y <= a.m_max.y + slack;
}

class Nest {
 public:
  explicit Nest(std::span<const PlaneLoop> loops)
      : loops_(loops), cells_(loops), region_(loops.size()) {
    std::vector<std::size_t> order(loops.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
      return loops[a].Area() > loops[b].Area();
    });
    for (const std::size_t index : order) Place(index);
  }

  std::vector<PlanarRegion> Regions() {
    std::vector<PlanarRegion> regions;
    for (std::optional<PlanarRegion>& region : region_) {
      if (!region.has_value()) continue;
      std::sort(region->holes.begin(), region->holes.end());
      regions.push_back(std::move(*region));
    }
    return regions;
  }

 private:
  // All that may be around a loop have been placed before it, and of these the smaller ones last.
  void Place(std::size_t index) {
    const PlaneLoop& loop = loops_[index];
    const auto around = cells_.Around(loop);
    std::optional<std::size_t> parent;
    int closer_looks = 0;
    for (auto at = around.rbegin(); at != around.rend() && !parent.has_value(); ++at) {
      if (!BoxIsAround(loops_[*at], loop)) continue;
      PlaneLoop::Place place = loop.PlaceIn(loops_[*at]);
      if (place == PlaneLoop::Place::close && closer_looks < kMaxCloserLooks) {
        place = loop.ClosePlaceIn(loops_[*at]);
        ++closer_looks;
      }
      if (place == PlaneLoop::Place::same) return;
      if (place == PlaneLoop::Place::inside) parent = *at;
    }
    // A loop that is no hole itself bounds a region.
    if (parent.has_value() && region_[*parent].has_value()) {
      region_[*parent]->holes.push_back(index);
    } else {
      region_[index] = PlanarRegion{index, {}};
    }
    cells_.Add(index, loop);
  }

  std::span<const PlaneLoop> loops_;
  Cells cells_;
  // Of the loops that are outer ones.
  std::vector<std::optional<PlanarRegion>> region_;
};

}  // namespace

std::vector<PlanarRegion> FindRegions(std::span<const PlaneLoop> loops) {
  return Nest(loops).Regions();
}

}  // namespace host
