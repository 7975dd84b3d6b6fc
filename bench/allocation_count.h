#pragma once

#include <cstdint>

// How many times the program has allocated memory with new.
std::int64_t AllocationCount();
