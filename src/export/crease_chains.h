#pragma once

#include <vector>

#include "host/geometry/on_subd.h"

namespace orv {

// How sharp a crease is that no subdivision softens.
inline constexpr double kInfinitelySharp = 10;

// Sharp edges one behind the other.
struct CreaseChain {
  // One more than edges. A chain that closes ends with the vertex that it begins with.
  std::vector<int> Vertices;
  double Sharpness = 0;
};

// The sharp edges inside a valid net, each in one chain. Chains end where there isn't exactly one
// edge of the same sharpness to go on with; their order is that of their first edges in the net.
std::vector<CreaseChain> FindCreaseChains(const ON_SubD& subd);

}  // namespace orv
