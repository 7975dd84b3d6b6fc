#include "export/weld.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace orv {
namespace {

constexpr int kFree = -1;

bool HasNan(ON_3fPoint p) {
  return std::isnan(p.x) || std::isnan(p.y) || std::isnan(p.z);
}

// Equal for equal positions. Adding 0 turns -0 into 0.
std::uint64_t Hash(ON_3fPoint p) {
  const std::uint64_t x = std::bit_cast<std::uint32_t>(p.x + 0.0f);
  const std::uint64_t y = std::bit_cast<std::uint32_t>(p.y + 0.0f);
  const std::uint64_t z = std::bit_cast<std::uint32_t>(p.z + 0.0f);
  std::uint64_t hash = (x << 32 | y) * 0x9E3779B97F4A7C15;
  hash = (hash ^ hash >> 32 ^ z) * 0xD6E8FEB86659FD93;
  return hash ^ hash >> 32;
}

// The lowest vertices of the positions found so far, in a table with open addressing.
class PositionTable {
 public:
  explicit PositionTable(std::span<const ON_3fPoint> vertices)
      : vertices_(vertices), slots_(std::bit_ceil(vertices.size() * 3 / 2 + 1), kFree) {}

  // Where to look for a position first.
  int FirstSlot(ON_3fPoint position) const {
    return static_cast<int>(Hash(position) & (slots_.size() - 1) & std::numeric_limits<int>::max());
  }

  // Has the processor fetch a slot that will be looked up soon: the table is far larger than its
  // caches, and waiting for memory is most of the work.
  void Fetch(int slot) const { __builtin_prefetch(&slots_[slot]); }

  // The slot of the vertex at the position of `vertex`, or the free one where it belongs.
  int& Find(std::size_t vertex, int firstSlot) {
    auto slot = static_cast<std::size_t>(firstSlot);
    while (slots_[slot] != kFree && vertices_[slots_[slot]] != vertices_[vertex]) {
      slot = (slot + 1) & (slots_.size() - 1);
    }
    return slots_[slot];
  }

 private:
  std::span<const ON_3fPoint> vertices_;
  std::vector<int> slots_;
};

}  // namespace

WeldedVertices WeldVertices(std::span<const ON_3fPoint> vertices) {
  constexpr std::size_t kAhead = 16;
  const std::size_t count = vertices.size();
  PositionTable table(vertices);
  WeldedVertices welded;
  // Holds the first slot of each vertex until its new index is known.
  std::vector<int>& remap = welded.remap;
  remap.resize(count);
  std::transform(vertices.begin(), vertices.end(), remap.begin(),
                 [&](ON_3fPoint position) { return static_cast<int>(table.FirstSlot(position)); });
  welded.unique.reserve(count);
  for (std::size_t old = 0; old < count; ++old) {
    if (old + kAhead < count) table.Fetch(remap[old + kAhead]);
    int none = kFree;
    // What equals nothing stays out of the table.
    int& lowest = HasNan(vertices[old]) ? none : table.Find(old, remap[old]);
    if (lowest == kFree) {
      lowest = static_cast<int>(old);
      remap[old] = static_cast<int>(welded.unique.size());
      welded.unique.push_back(lowest);
    } else {
      remap[old] = remap[static_cast<std::size_t>(lowest)];
    }
  }
  return welded;
}

}  // namespace orv
