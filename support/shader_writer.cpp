#include "support/shader_writer.h"

#include <bit>

namespace {

constexpr std::size_t kHeaderSize = 236;
constexpr std::size_t kStringSize = 160;
constexpr char kSkipped = '\x5A';

void AppendUnsigned(std::string& bytes, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> 8 * i & 0xFF);
}

// A text that ends with a zero byte when it doesn't fill its field.
std::string Field(std::string_view text, std::size_t size) {
  std::string field(text.substr(0, size));
  if (field.size() < size) field += '\0';
  field.resize(size, kSkipped);
  return field;
}

std::string Record(const ShaderFileParam& param, std::size_t valueOffset) {
  std::string bytes{static_cast<char>(param.Type), kSkipped};
  const auto index = param.Index.value_or(static_cast<std::int16_t>((valueOffset + 200) / 4));
  AppendUnsigned(bytes, static_cast<std::uint16_t>(index), 2);
  AppendUnsigned(bytes, param.Length, 2);
  AppendUnsigned(bytes, param.Storage, 2);
  return bytes + Field(param.Name, 24);
}

}  // namespace

std::string ShaderFile::Bytes() const {
  std::string bytes = "SLB\x01" + std::string(6, kSkipped);
  bytes += static_cast<char>(Kind);
  bytes += kSkipped;
  bytes += Field(Name, 48);
  AppendUnsigned(bytes, static_cast<std::uint32_t>(Params.size()), 2);
  AppendUnsigned(bytes, Words, 2);
  bytes.resize(kHeaderSize, kSkipped);
  std::string values;
  for (const ShaderFileParam& param : Params) {
    bytes += Record(param, values.size());
    values += param.Value;
  }
  bytes.append(std::size_t{Words} * 4, kSkipped);
  return bytes + values;
}

std::string FloatBytes(std::initializer_list<float> values) {
  std::string bytes;
  for (const float value : values) AppendUnsigned(bytes, std::bit_cast<std::uint32_t>(value), 4);
  return bytes;
}

std::string StringBytes(std::string_view text) {
  return Field(text, kStringSize);
}
