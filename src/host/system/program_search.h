#pragma once

#include <string>
#include <vector>

namespace host {

// The files that may be the program of this name, the best one first, with their full paths. One
// without a folder in its name is looked for along the search path; "name.exe" is found as "name",
// too, behind all that has the longer name. A relative name counts from this program's folder.
std::vector<std::string> FindProgramFiles(const std::string& name);

}  // namespace host
