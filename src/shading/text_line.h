#pragma once

#include <string_view>

namespace orv {

// Takes the next line off the start of `text`, which isn't empty. The line comes without its end; a
// zero byte ends it, too. One of more than 1,999 bytes goes on as a next one, cut between two
// characters.
std::string_view TakeTextLine(std::string_view& text);

}  // namespace orv
