#pragma once

#include <string>
#include <string_view>

namespace host {

// What a reader sees of an annotation's text: lines parted by \n, without the commands of rich text
// where it is such (it then begins with "{\rtf").
[[nodiscard]] std::string PlainTextFromRichText(std::string_view text);

}  // namespace host
