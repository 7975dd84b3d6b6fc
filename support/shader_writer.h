#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Makes compiled shader files (.slb) for tests and fuzz seeds.
struct ShaderFileParam {
  // 0 string, 1 float, 2 color, 3 point, 4 vector, 5 normal, 6 matrix.
  std::int8_t Type = 1;
  std::string Name;
  // The bytes of the value: FloatBytes, StringBytes.
  std::string Value = {};
  std::uint16_t Length = 1;
  // 1 varying, 2 output.
  std::uint16_t Storage = 0;
  // The value index; without one, that of the value's place.
  std::optional<std::int16_t> Index = std::nullopt;
};

struct ShaderFile {
  std::int8_t Kind = 0;
  std::string Name;
  std::vector<ShaderFileParam> Params;
  // The number of words between the table and the values.
  std::uint16_t Words = 0;

  // The file. Values follow each other in the order of the parameters.
  [[nodiscard]] std::string Bytes() const;
};

std::string FloatBytes(std::initializer_list<float> values);
// A text in its field of 160 bytes.
std::string StringBytes(std::string_view text);
