#pragma once

#include <cstdint>
#include <string_view>

// The CRC-32 by its definition, a bit at a time, to check the fast one against.
inline std::uint32_t SlowCrc32(std::string_view bytes) {
  std::uint32_t sum = 0xffffffff;
  for (const char c : bytes) {
    sum ^= static_cast<std::uint8_t>(c);
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xedb88320 : 0);
  }
  return ~sum;
}
