#include "host/system/program_search.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "host/system/environment.h"
#include "host/system/file.h"
#include "host/system/path.h"
#include "host/system/text.h"

namespace host {
namespace {

bool IsProgram(const std::string& path) {
  return FileExists(path) && faccessat(AT_FDCWD, NativePath(path).c_str(), X_OK, AT_EACCESS) == 0;
}

// The folders of the search path; an empty entry stands for the current folder.
std::vector<std::string> SearchFolders() {
  const std::string path = EnvironmentValue("PATH").value_or("/usr/bin:/bin");
  std::vector<std::string> folders;
  for (std::size_t begin = 0; begin <= path.size();) {
    const std::size_t end = std::min(path.find(':', begin), path.size());
    folders.push_back(end == begin ? "." : path.substr(begin, end - begin));
    begin = end + 1;
  }
  return folders;
}

// Adds the files that may be the program, in the order of the search path.
void FindProgram(const std::string& name, std::vector<std::string>& files) {
  if (name.empty()) return;
  if (name.find_first_of("/\\") != std::string::npos) {
    if (IsProgram(name)) files.push_back(name);
    return;
  }
  for (const std::string& folder : SearchFolders()) {
    std::string path = AppendPath(folder, name);
    if (IsProgram(path)) files.push_back(std::move(path));
  }
}

}  // namespace

std::vector<std::string> FindProgramFiles(const std::string& name) {
  std::vector<std::string> files;
  FindProgram(name, files);
  PathParts parts = SplitPath(name);
  if (EqualNoCase(parts.Extension, ".exe")) {
    parts.Extension.clear();
    FindProgram(JoinPath(parts), files);
  }
  for (std::string& file : files) {
    std::error_code failure;
    const std::filesystem::path path = std::filesystem::absolute(NativePath(file), failure);
    file = failure ? std::string() : path.string();
  }
  return files;
}

}  // namespace host
