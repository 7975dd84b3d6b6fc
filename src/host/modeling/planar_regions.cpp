#include "host/modeling/planar_regions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <optional>

namespace host {

namespace {

// Loops by the upright strips of the plane that they touch, so that only those near a loop are
// compared with it.
class Strips {
 public:
  explicit Strips(std::span<const PlaneLoop> loops) {
    ON_BoundingBox box;
    for (const PlaneLoop& loop : loops) box.Include(loop.Box());
    start_ = box.m_min.x;
    width_ = (box.m_max.x - box.m_min.x) / kCount;
  }

  void Add(std::size_t index, const PlaneLoop& loop) {
    const std::size_t last = At(loop.Box().m_max.x + loop.Stray());
    for (std::size_t i = At(loop.Box().m_min.x - loop.Stray()); i <= last; ++i) {
      strips_[i].push_back(index);
    }
  }

  // The loops that may be around another one, in the order in which they were added.
  [[nodiscard]] std::span<const std::size_t> Around(const PlaneLoop& loop) const {
    return strips_[At((loop.Box().m_min.x + loop.Box().m_max.x) / 2)];
  }

 private:
  static constexpr std::size_t kCount = 64;

  [[nodiscard]] std::size_t At(double x) const {
    const double strip = width_ > 0 ? std::floor((x - start_) / width_) : 0;
    return static_cast<std::size_t>(std::clamp(strip, 0.0, kCount - 1.0));
  }

  double start_ = 0;
  double width_ = 0;
  std::array<std::vector<std::size_t>, kCount> strips_;
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
      : loops_(loops), strips_(loops), region_(loops.size()) {
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
    const auto around = strips_.Around(loop);
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
    strips_.Add(index, loop);
  }

  std::span<const PlaneLoop> loops_;
  Strips strips_;
  // Of the loops that are outer ones.
  std::vector<std::optional<PlanarRegion>> region_;
};

}  // namespace

std::vector<PlanarRegion> FindRegions(std::span<const PlaneLoop> loops) {
  return Nest(loops).Regions();
}

}  // namespace host
