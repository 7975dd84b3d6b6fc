#pragma once

#include <optional>
#include <string_view>

namespace orv {

// What a parameter's declaration says: "float[2] TextureSize". The texts are parts of it.
struct ShaderDeclaration {
  // As it stands, and without an array's bracket.
  std::string_view Type;
  std::string_view BaseType;
  // 1 to 9999; 1 for no array, and where the bracket holds no number that fits an int.
  int Length = 1;
  std::string_view Name;
};

// Reads the inside of a declaration. Nothing when it has no second word. A storage word ("output")
// is taken for the type, so such a declaration has a type that nobody knows.
std::optional<ShaderDeclaration> ReadDeclaration(std::string_view text);

}  // namespace orv
