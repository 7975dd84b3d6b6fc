#pragma once

#include <map>
#include <string>

// What users are told of the classes whose geometry isn't read, by the names that the facts about
// the real documents give them.
const std::map<std::string, std::string>& ClassWords();
