#include <array>

#include "host/archive/chunk_scope.h"
#include "host/archive/class_wrapper.h"
#include "host/archive/record_readers.h"
#include "host/system/text.h"

namespace host {
namespace {

constexpr ON_UUID kTextStyleClass = "4f0f51fb-35d0-4865-9998-6d2c6a99721d"_uuid;

bool ReadData(ON_BinaryArchive& archive, TextStyle& style) {
  int major = 0, minor = 0;
  std::int32_t index = 0, weight = 0, italic = 0;
  std::string name;
  // UTF-16, ended by a zero where there is room.
  std::array<char16_t, 64> face{};
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1) return archive.Fail("a text style of an unknown version");
  if (!archive.ReadInt(&index) || !archive.ReadString(&name) ||
      !archive.ReadByte(std::as_writable_bytes(std::span(face))) || !archive.ReadInt(&weight) ||
      !archive.ReadInt(&italic)) {
    return false;
  }
  const std::u16string_view whole(face.data(), face.size());
  style.face = Utf8FromUtf16(whole.substr(0, whole.find(u'\0')));
  style.bold = IsBoldWeight(weight);
  style.italic = italic != 0;
  return true;
}

}  // namespace

bool ReadTextStyle(ON_BinaryArchive& archive, TextStyle& style) {
  return ReadWrappedClass(archive, nullptr, [&](ON_BinaryArchive& data, const ON_UUID& class_id) {
    if (class_id == kTextStyleClass) return ReadData(data, style);
    return data.Fail("this is no text style");
  });
}

}  // namespace host
