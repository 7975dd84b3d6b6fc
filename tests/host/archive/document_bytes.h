#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/archive/model.h"

// The bytes of small documents of version 4, taken apart and put together again, for tests of what
// a reader makes of broken ones.

struct TopChunk {
  std::uint32_t typecode = 0;
  // Head and body.
  std::string bytes;
};

struct DocumentBytes {
  // The first 32 bytes.
  std::string start;
  // All but the end mark.
  std::vector<TopChunk> chunks;
};

// A document with layers, materials, views, objects, user strings and plug-in data.
ONX_Model SmallModel();
DocumentBytes TakeApart(const std::string& document);
// With an end mark that tells the right size.
std::string PutTogether(const DocumentBytes& document);
TopChunk& ChunkOf(DocumentBytes& document, std::uint32_t typecode);

// The offsets of the records of a table, which is a top-level chunk, from the chunk's first byte.
std::vector<std::size_t> RecordOffsets(const TopChunk& table);
