#pragma once

#include <span>
#include <vector>

#include "host/modeling/plane_loop.h"

namespace host {

// What is filled: the inside of a loop without that of the loops directly inside it. By their
// positions.
struct PlanarRegion {
  std::size_t outer = 0;
  std::vector<std::size_t> holes;
};

// The regions that closed curves bound: the even ones of loops that lie in each other are filled.
// In the order of the outer loops. A loop that is there twice counts once; of loops that cross,
// each bounds a region of its own.
[[nodiscard]] std::vector<PlanarRegion> FindRegions(std::span<const PlaneLoop> loops);

}  // namespace host
