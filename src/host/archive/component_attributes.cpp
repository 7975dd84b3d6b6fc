#include "host/archive/component_attributes.h"

#include "host/archive/chunk_scope.h"

namespace host {
namespace {

// Each field is led by a byte that is 1 when a value follows.
template <class Read>
bool ReadField(ON_BinaryArchive& archive, const Read& read) {
  std::uint8_t status = 0;
  if (!archive.ReadChar(&status)) return false;
  return status != 1 || read();
}

}  // namespace

bool ReadComponentAttributes(ON_BinaryArchive& archive, ComponentAttributes& attributes) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  if (!archive.BeginRead3dmChunk(TCODE_COMPONENT_ATTRIBUTES_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("component attributes of an unknown version");
  const auto skip_serial_numbers = [&] { return archive.Skip(3 * sizeof(std::uint32_t)); };
  const auto skip_type = [&] { return archive.Skip(sizeof(std::uint32_t)); };
  return ReadField(archive, skip_serial_numbers) &&
         ReadField(archive, [&] { return archive.ReadUuid(&attributes.id); }) &&
         ReadField(archive, skip_type) &&
         ReadField(archive, [&] { return archive.ReadInt(&attributes.index); }) &&
         ReadField(archive, [&] { return archive.ReadString(&attributes.name); });
}

bool ReadMaskedComponentAttributes(ON_BinaryArchive& archive, ComponentAttributes& attributes) {
  constexpr std::uint32_t kId = 1, kParentId = 2, kIndex = 4, kName = 8;
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  std::uint32_t mask = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("component attributes of an unknown version");
  if (!archive.ReadInt(&mask)) return false;
  return ((mask & kId) == 0 || archive.ReadUuid(&attributes.id)) &&
         ((mask & kParentId) == 0 || archive.Skip(sizeof(ON_UUID))) &&
         ((mask & kIndex) == 0 || archive.ReadInt(&attributes.index)) &&
         ((mask & kName) == 0 || archive.ReadString(&attributes.name));
}

}  // namespace host
