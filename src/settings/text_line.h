#pragma once

#include <cstddef>
#include <string_view>

namespace orv {

// Of a line of a text file, in bytes, without its end.
inline constexpr std::size_t kLongestTextLine = 1999;

// Takes the next line off the start of `text`, which isn't empty. The line comes without its end,
// "\n" or "\r\n"; a zero byte ends it, too. One of more than 1,999 bytes, its end not counted, goes
// on as a next one, cut between two characters.
std::string_view TakeTextLine(std::string_view& text);

}  // namespace orv
