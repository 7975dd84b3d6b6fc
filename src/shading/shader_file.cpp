#include "shading/shader_file.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <span>

#include "host/system/file.h"
#include "host/system/number_text.h"
#include "shading/call_string.h"
#include "shading/foreign_text.h"

namespace orv {
namespace {

constexpr std::size_t kMostBytes = 256236;
constexpr std::size_t kTagSize = 4;
constexpr std::size_t kHeaderSize = 236;
constexpr std::size_t kRecordSize = 32;
constexpr std::size_t kWordSize = 4;
constexpr std::size_t kStringSize = 160;
// More than the values of a whole file give. Parameters that share their values could give more
// without end.
constexpr std::size_t kMostText = std::size_t{1} << 20;

constexpr std::array<std::string_view, 8> kKinds = {"Surface",   "Displacement", "Atmosphere",
                                                    "Imager",    "LightSource",  "Deformation",
                                                    "Procedure", "Instancer"};

// A type of values. An element is text or so many 32-bit floats.
struct ValueType {
  std::string_view Word;
  bool IsText = false;
  std::size_t Floats = 0;

  [[nodiscard]] std::size_t ElementSize() const { return IsText ? kStringSize : Floats * 4; }
};

constexpr std::array<ValueType, 7> kTypes = {{{"string", true, 0},
                                              {"float", false, 1},
                                              {"color", false, 3},
                                              {"point", false, 3},
                                              {"vector", false, 3},
                                              {"normal", false, 3},
                                              {"matrix", false, 16}}};

enum StorageBit : unsigned { kVarying = 1, kOutput = 2 };

std::uint8_t ByteAt(std::string_view bytes, std::size_t offset) {
  return static_cast<std::uint8_t>(bytes[offset]);
}

std::uint32_t UnsignedAt(std::string_view bytes, std::size_t offset, std::size_t size) {
  std::uint32_t value = 0;
  for (std::size_t i = size; i > 0; --i) value = value << 8 | ByteAt(bytes, offset + i - 1);
  return value;
}

std::string NameAt(std::string_view bytes, std::size_t offset, std::size_t size) {
  return CallTextOf(TextFromField(bytes.substr(offset, size)));
}

// A parameter's record in the table.
struct ParamRecord {
  // One that takes no room and says nothing for an unknown type.
  ValueType Type;
  std::ptrdiff_t ValueIndex = 0;
  std::size_t Length = 0;
  unsigned Storage = 0;
  std::string Name;
};

ParamRecord RecordAt(std::string_view bytes, std::size_t offset) {
  ParamRecord record;
  const std::size_t type = ByteAt(bytes, offset);
  if (type < kTypes.size()) record.Type = kTypes[type];
  record.ValueIndex = static_cast<std::int16_t>(UnsignedAt(bytes, offset + 2, 2));
  record.Length = UnsignedAt(bytes, offset + 4, 2);
  record.Storage = UnsignedAt(bytes, offset + 6, 2);
  record.Name = NameAt(bytes, offset + 8, 24);
  return record;
}

void AppendDeclaration(const ParamRecord& record, std::string& text) {
  text += " \"";
  if (record.Storage == kOutput || record.Storage == (kOutput | kVarying)) text += "output ";
  if (record.Storage == kVarying || record.Storage == (kOutput | kVarying)) text += "varying ";
  text += record.Type.Word;
  if (record.Length > 1) text += '[' + std::to_string(record.Length) + ']';
  text += ' ' + record.Name + '"';
}

void AppendElement(std::string_view bytes, const ValueType& type, std::size_t offset,
                   std::string& text) {
  if (type.IsText) {
    text += '"' + EncodeCallString(TextFromField(bytes.substr(offset, kStringSize))) + '"';
  }
  for (std::size_t i = 0; i < type.Floats; ++i) {
    if (i > 0) text += ' ';
    const auto value = std::bit_cast<float>(UnsignedAt(bytes, offset + i * 4, 4));
    text += host::FormatG(static_cast<double>(value));
  }
}

// The values of a parameter, and false when they aren't all within the bytes.
bool AppendValues(std::string_view bytes, std::size_t valueArea, const ParamRecord& record,
                  std::string& text) {
  const auto first = static_cast<std::ptrdiff_t>(valueArea) + 4 * record.ValueIndex - 200;
  const std::size_t elementSize = record.Type.ElementSize();
  const std::size_t size = record.Length * elementSize;
  if (size > 0 && (first < 0 || static_cast<std::size_t>(first) > bytes.size() ||
                   size > bytes.size() - static_cast<std::size_t>(first))) {
    return false;
  }
  text += " [";
  for (std::size_t i = 0; i < record.Length; ++i) {
    if (i > 0) text += ' ';
    AppendElement(bytes, record.Type, static_cast<std::size_t>(first) + i * elementSize, text);
  }
  text += ']';
  return true;
}

// The shader's call; empty when a count, an index or a length leads outside.
std::string CallText(std::string_view bytes) {
  const std::size_t paramCount = UnsignedAt(bytes, 60, 2);
  const std::size_t wordCount = UnsignedAt(bytes, 62, 2);
  const std::size_t valueArea = kHeaderSize + paramCount * kRecordSize + wordCount * kWordSize;
  if (valueArea > bytes.size()) return {};
  std::string text = '"' + NameAt(bytes, 12, 48) + '"';
  for (std::size_t i = 0; i < paramCount; ++i) {
    const ParamRecord record = RecordAt(bytes, kHeaderSize + i * kRecordSize);
    AppendDeclaration(record, text);
    if (!AppendValues(bytes, valueArea, record, text) || text.size() > kMostText) return {};
  }
  return text;
}

}  // namespace

bool ReadShaderFile(std::string_view path, std::string& callText, std::string& kind) {
  callText.clear();
  kind.clear();
  const host::FileReader file(path);
  if (!file.IsOpen()) return false;
  std::string bytes(std::min<std::uint64_t>(file.Size(), kMostBytes), '\0');
  bytes.resize(file.ReadAt(0, std::as_writable_bytes(std::span(bytes))));
  return ParseShaderFile(bytes, callText, kind);
}

bool ParseShaderFile(std::string_view bytes, std::string& callText, std::string& kind) {
  callText.clear();
  kind.clear();
  if (bytes.size() <= kTagSize) return true;
  bytes = bytes.substr(0, kMostBytes);
  if (bytes.size() < kHeaderSize || ByteAt(bytes, 10) >= kKinds.size()) return false;
  callText = CallText(bytes);
  if (callText.empty()) return false;
  kind = kKinds[ByteAt(bytes, 10)];
  return true;
}

}  // namespace orv
