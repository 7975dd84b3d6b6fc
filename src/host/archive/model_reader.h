#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "host/archive/model.h"

struct ON_ReadResult {
  // False when nothing can be made of the file; `error` then says why, without the file's name:
  // "it is empty", or the kind and the offset of what is broken. A file that was read in part is a
  // success with m_problems in the model.
  bool ok = false;
  std::string error;
};

// Reads a .3dm document of version 2 to 8 from a file. `model` is empty at first. Memory beyond the
// model stays below 64 MB whatever the file's size.
[[nodiscard]] ON_ReadResult ON_ReadModel(std::string_view path, ONX_Model& model);

// The same from bytes.
[[nodiscard]] ON_ReadResult ON_ReadModel(std::span<const std::byte> bytes, ONX_Model& model);
