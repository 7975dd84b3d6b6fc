#pragma once

#include <string>
#include <string_view>

#include "host/archive/model.h"

// What the user is told after a file was read: one line of the kinds that were not read,
// "Not read: 12 breps, 1 hatch pattern.", then a line for each thing that is wrong with the file,
// at most ten and the count of the rest. Empty for a file that was read whole.
std::string ReadReport(const ONX_Model& model);

// The plural of an English noun, of the last one of several words, or of the one before "of":
// "meshes", "text dots", "surfaces of revolution".
std::string Plural(std::string_view noun);
