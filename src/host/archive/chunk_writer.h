#pragma once

#include <cstdint>
#include <functional>

#include "host/archive/binary_archive.h"

// How the parts of a document are put together out of chunks.

namespace host {

// A chunk that is open while this lives. A chunk that could not be written makes the archive fail;
// the end mark of the document tells.
class ChunkWriter {
 public:
  ChunkWriter(ON_BinaryArchive& archive, std::uint32_t typecode);
  // With a version of two integers at its head.
  ChunkWriter(ON_BinaryArchive& archive, std::uint32_t typecode, int major, int minor);
  ~ChunkWriter();
  ChunkWriter(const ChunkWriter&) = delete;
  ChunkWriter& operator=(const ChunkWriter&) = delete;

 private:
  ON_BinaryArchive& archive_;
};

using WriteContent = std::function<void(ON_BinaryArchive& archive)>;

// A table: its records and the mark at its end.
void WriteTable(ON_BinaryArchive& archive, std::uint32_t typecode, const WriteContent& records);

// An object of a class, with user strings when there are any.
void WriteClass(ON_BinaryArchive& archive, const ON_UUID& class_id,
                const ON_UserStringList& strings, const WriteContent& data);

// User strings as an item of user data; nothing when there are none.
void WriteUserStrings(ON_BinaryArchive& archive, const ON_UserStringList& strings);

// The count of an array and its elements as they stand in memory.
template <class Elements>
void WriteArray(ON_BinaryArchive& archive, const Elements& elements) {
  archive.WriteInt(static_cast<std::int32_t>(elements.size()));
  archive.WriteByte(std::as_bytes(std::span(elements)));
}

}  // namespace host
