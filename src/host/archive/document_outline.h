#pragma once

#include <cstdint>
#include <vector>

#include "host/archive/document_source.h"

namespace host {

// The chunks of a document that stand in no other one.
struct DocumentOutline {
  // Their typecodes, up to the end mark or the first one that is cut short.
  std::vector<std::uint32_t> tables;
  // Where a document without an end mark is added to: its end, or the start of what is cut short
  // there, which would take in what stands behind it.
  std::uint64_t end = 0;
};

DocumentOutline OutlineOf(const DocumentSource& source, int version);

}  // namespace host
