#pragma once

#include <cstdint>

#include "host/geometry/on_uuid.h"

// An id for a thing that has none or whose id is taken: the first one made of `number` for which
// `is_taken` is false. The same numbers give the same ids in each run.
template <class IsTaken>
ON_UUID NewId(std::uint32_t number, IsTaken is_taken) {
  constexpr ON_UUID kFrame = "00000000-0000-8000-8000-000000000000"_uuid;
  for (std::uint32_t attempt = 0;; ++attempt) {
    ON_UUID id = kFrame;
    for (unsigned i = 0; i < 4; ++i) {
      id.bytes[i] = static_cast<std::uint8_t>(attempt >> (24 - 8 * i));
      id.bytes[12 + i] = static_cast<std::uint8_t>(number >> (24 - 8 * i));
    }
    if (!is_taken(id)) return id;
  }
}
