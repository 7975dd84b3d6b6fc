#include <array>
#include <cstring>

#include "host/archive/binary_archive.h"
#include "host/system/text.h"

bool ON_BinaryArchive::ReadByte(std::span<std::byte> out) {
  const bool fits = !chunks_.back().failed && out.size() <= BytesLeft();
  if (fits && source_->Read(out)) return true;
  if (!out.empty()) std::memset(out.data(), 0, out.size());
  if (chunks_.back().failed) return false;
  return Fail(fits ? "the file can't be read" : "a value leads outside its chunk");
}

template <class T>
bool ON_BinaryArchive::ReadValue(T* value) {
  return ReadByte(std::as_writable_bytes(std::span(value, 1)));
}

bool ON_BinaryArchive::ReadBool(bool* value) {
  // Old writers leave other values than 0 and 1.
  std::uint8_t byte = 0;
  const bool ok = ReadValue(&byte);
  *value = byte != 0;
  return ok;
}

bool ON_BinaryArchive::ReadChar(std::uint8_t* value) {
  return ReadValue(value);
}
bool ON_BinaryArchive::ReadShort(std::int16_t* value) {
  return ReadValue(value);
}
bool ON_BinaryArchive::ReadInt(std::int32_t* value) {
  return ReadValue(value);
}
bool ON_BinaryArchive::ReadInt(std::uint32_t* value) {
  return ReadValue(value);
}
bool ON_BinaryArchive::ReadBigInt(std::int64_t* value) {
  return ReadValue(value);
}
bool ON_BinaryArchive::ReadFloat(float* value) {
  return ReadValue(value);
}
bool ON_BinaryArchive::ReadDouble(double* value) {
  return ReadValue(value);
}
bool ON_BinaryArchive::ReadPoint(ON_3dPoint* value) {
  return ReadValue(value);
}
bool ON_BinaryArchive::ReadVector(ON_3dVector* value) {
  return ReadValue(value);
}
bool ON_BinaryArchive::ReadInterval(ON_Interval* value) {
  return ReadValue(value);
}
bool ON_BinaryArchive::ReadXform(ON_Xform* value) {
  return ReadValue(value);
}
bool ON_BinaryArchive::ReadBoundingBox(ON_BoundingBox* value) {
  return ReadValue(value);
}

bool ON_BinaryArchive::ReadPlane(ON_Plane* value) {
  // The equation follows from the rest.
  std::array<double, 4> equation{};
  return ReadPoint(&value->origin) && ReadVector(&value->xaxis) && ReadVector(&value->yaxis) &&
         ReadVector(&value->zaxis) && ReadValue(&equation);
}

bool ON_BinaryArchive::ReadColor(ON_Color* value) {
  std::array<std::uint8_t, 4> rgba{};
  const bool ok = ReadValue(&rgba);
  *value = ON_Color(rgba[0], rgba[1], rgba[2], rgba[3]);
  return ok;
}

// The first three fields of an id are numbers, and so their bytes stand in reverse.
static void SwapUuidFields(ON_UUID* id) {
  auto& b = id->bytes;
  std::swap(b[0], b[3]);
  std::swap(b[1], b[2]);
  std::swap(b[4], b[5]);
  std::swap(b[6], b[7]);
}

bool ON_BinaryArchive::ReadUuid(ON_UUID* value) {
  const bool ok = ReadValue(&value->bytes);
  SwapUuidFields(value);
  return ok;
}

bool ON_BinaryArchive::ReadString(std::string* value) {
  value->clear();
  std::uint32_t count = 0;
  if (!ReadInt(&count)) return false;
  if (count > BytesLeft() / sizeof(char16_t)) return Fail("a text leads outside its chunk");
  std::u16string text(count, u'\0');
  if (!ReadByte(std::as_writable_bytes(std::span(text)))) return false;
  // The count includes a terminating zero.
  *value = host::Utf8FromUtf16(std::u16string_view(text).substr(0, text.find(u'\0')));
  return true;
}

bool ON_BinaryArchive::ReadCount(std::size_t element_size, std::size_t* count) {
  *count = 0;
  std::int32_t stored = 0;
  if (!ReadInt(&stored)) return false;
  if (stored < 0) return Fail("a count is negative");
  if (element_size > 0 && static_cast<std::uint64_t>(stored) > BytesLeft() / element_size) {
    return Fail("a count exceeds what its chunk can hold");
  }
  *count = static_cast<std::size_t>(stored);
  return true;
}

bool ON_BinaryArchive::Skip(std::uint64_t count) {
  if (chunks_.back().failed) return false;
  if (count > BytesLeft()) return Fail("a value leads outside its chunk");
  return source_->ReadOver(count) || Fail("the file can't be read");
}

template <class T>
void ON_BinaryArchive::WriteValue(T value) {
  WriteByte(std::as_bytes(std::span(&value, 1)));
}

void ON_BinaryArchive::WriteByte(std::span<const std::byte> bytes) {
  written_.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}

void ON_BinaryArchive::WriteBool(bool value) {
  WriteChar(value ? 1 : 0);
}
void ON_BinaryArchive::WriteChar(std::uint8_t value) {
  WriteValue(value);
}
void ON_BinaryArchive::WriteShort(std::int16_t value) {
  WriteValue(value);
}
void ON_BinaryArchive::WriteInt(std::int32_t value) {
  WriteValue(value);
}
void ON_BinaryArchive::WriteBigInt(std::int64_t value) {
  WriteValue(value);
}
void ON_BinaryArchive::WriteFloat(float value) {
  WriteValue(value);
}
void ON_BinaryArchive::WriteDouble(double value) {
  WriteValue(value);
}
void ON_BinaryArchive::WritePoint(ON_3dPoint value) {
  WriteValue(value);
}
void ON_BinaryArchive::WriteVector(ON_3dVector value) {
  WriteValue(value);
}
void ON_BinaryArchive::WriteInterval(ON_Interval value) {
  WriteValue(value);
}
void ON_BinaryArchive::WriteXform(const ON_Xform& value) {
  WriteValue(value);
}
void ON_BinaryArchive::WriteBoundingBox(const ON_BoundingBox& value) {
  WriteValue(value);
}

void ON_BinaryArchive::WritePlane(const ON_Plane& value) {
  WritePoint(value.origin);
  WriteVector(value.xaxis);
  WriteVector(value.yaxis);
  WriteVector(value.zaxis);
  WriteVector(value.zaxis);
  WriteDouble(-ON_DotProduct(ON_FromOrigin(value.origin), value.zaxis));
}

void ON_BinaryArchive::WriteColor(ON_Color value) {
  for (const int channel : {value.Red(), value.Green(), value.Blue(), value.Alpha()}) {
    WriteChar(static_cast<std::uint8_t>(channel));
  }
}

void ON_BinaryArchive::WriteUuid(const ON_UUID& value) {
  ON_UUID stored = value;
  SwapUuidFields(&stored);
  WriteValue(stored.bytes);
}

void ON_BinaryArchive::WriteString(std::string_view value) {
  if (value.empty()) {
    WriteInt(0);
    return;
  }
  const std::u16string text = host::Utf16FromUtf8(value);
  WriteInt(static_cast<std::int32_t>(text.size() + 1));
  WriteByte(std::as_bytes(std::span(text.c_str(), text.size() + 1)));
}
