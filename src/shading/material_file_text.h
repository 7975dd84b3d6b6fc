#pragma once

#include <optional>
#include <string>
#include <string_view>

// The pieces of which the lines of a material file are made.
namespace orv {

// The displacement modes that a file tells.
inline constexpr int kRegularDisplacement = 2;
inline constexpr int kMeshDisplacement = 3;

// The tokens of a text, one after the other, as NextToken reads them.
class TokenReader {
 public:
  explicit TokenReader(std::string_view text) : text_(text) {}
  // Nothing at the end.
  std::optional<std::string_view> Next();

 private:
  std::string_view text_;
  std::size_t position_ = 0;
};

// A text in quotes, and one in brackets. A reader knows no escapes, so what would end either too
// early is replaced: in quotes, a double quote by an apostrophe and a backslash at the end by a
// slash; in brackets, "]" is left out, and a quote that is left open is closed. A control character
// becomes a blank.
std::string Quoted(std::string_view text);
std::string Bracketed(std::string_view text);

}  // namespace orv
