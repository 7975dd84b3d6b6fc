#include <cstddef>
#include <cstdint>
#include <span>

#include "host/archive/model_reader.h"

// Documents of foreign bytes: whatever they are, reading ends with a result.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ONX_Model model;
  const ON_ReadResult result = ON_ReadModel(std::as_bytes(std::span(data, size)), model);
  // An error has words, a success has none.
  if (result.ok != result.error.empty()) __builtin_trap();
  return 0;
}
