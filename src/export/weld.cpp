#include "export/weld.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>

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

// New vertices by position, in a table with open addressing.
class PositionTable {
 public:
  // Room for `count` positions.
  explicit PositionTable(std::size_t count) : slots_(std::bit_ceil(count + count / 2 + 1), kFree) {}

  // The slot of the new vertex at `position`, or the free one where it belongs.
  int& Find(ON_3fPoint position, std::span<const ON_3fPoint> vertices,
            const std::vector<int>& unique) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t i = Hash(position) & mask;
    while (slots_[i] != kFree && vertices[unique[slots_[i]]] != position) i = (i + 1) & mask;
    return slots_[i];
  }

 private:
  std::vector<int> slots_;
};

}  // namespace

WeldedVertices WeldVertices(std::span<const ON_3fPoint> vertices) {
  WeldedVertices welded;
  welded.remap.reserve(vertices.size());
  welded.unique.reserve(vertices.size());
  PositionTable table(vertices.size());
  for (std::size_t old = 0; old < vertices.size(); ++old) {
    const int next = static_cast<int>(welded.unique.size());
    int none = kFree;
    // What equals nothing stays out of the table.
    int& found = HasNan(vertices[old]) ? none : table.Find(vertices[old], vertices, welded.unique);
    if (found == kFree) {
      found = next;
      welded.unique.push_back(static_cast<int>(old));
    }
    welded.remap.push_back(found);
  }
  return welded;
}

}  // namespace orv
