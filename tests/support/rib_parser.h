#pragma once

#include <string_view>

#include "support/rib_checker.h"

// Fills the report's statements and complains about the stream's text.
void ParseRib(std::string_view rib, RibReport& report);

// Adds "line 12: what".
void ComplainAboutLine(RibReport& report, int line, std::string_view what);
