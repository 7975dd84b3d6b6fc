#pragma once

#include <functional>
#include <string>

#include "export/rib_writer.h"

// What a function writes into a stream of its own, which must be RIB that a renderer takes.
std::string WrittenRib(const std::function<void(orv::RibWriter&)>& write);
