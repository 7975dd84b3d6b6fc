#pragma once

#include <optional>
#include <string>
#include <string_view>

// The pieces of which the lines of a material file are made.
namespace orv {

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

// A name in quotes, with the escapes of EncodeQuotedName. One that would have more than `room`
// bytes with the quotes, at least two, is cut at a whole character.
std::string Quoted(std::string_view name, std::size_t room = std::string_view::npos);

// A value in brackets, which nothing in it ends too early: "]" is left out, a control character
// becomes a blank, and a string that is left open is closed. One that would have more than `room`
// bytes with the brackets, at least four, is cut at a whole character.
std::string Bracketed(std::string_view value, std::size_t room = std::string_view::npos);

}  // namespace orv
