#include "host/document/id_map.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <random>

namespace {

using Halves = std::array<std::uint64_t, 2>;

Halves RandomSeed() {
  std::random_device random;
  const auto word = [&random] { return std::uint64_t{random()} << 32 | random(); };
  return {word(), word()};
}

// Spreads each bit over all of them; different words stay different.
std::uint64_t Mixed(std::uint64_t word) {
  word = (word ^ word >> 33) * 0xff51afd7ed558ccdU;
  word = (word ^ word >> 33) * 0xc4ceb9fe1a85ec53U;
  return word ^ word >> 33;
}

}  // namespace

std::size_t IdHash::operator()(const ON_UUID& id) const noexcept {
  static const Halves seed = RandomSeed();
  Halves halves;
  std::memcpy(halves.data(), id.bytes.data(), sizeof(halves));
  return static_cast<std::size_t>(Mixed(Mixed(halves[0] ^ seed[0]) ^ halves[1] ^ seed[1]));
}
