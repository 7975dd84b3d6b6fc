#pragma once

#include <string_view>

// True when `name` fits `pattern`, without regard to case: "*" stands for any text, "?" for one
// character.
bool FitsNamePattern(std::string_view name, std::string_view pattern);
