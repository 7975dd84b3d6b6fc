#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// A folder of its own for one test, with a blank and letters outside ASCII in its path, removed
// with all that is in it at the end.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  // The path of `name` in the folder, as UTF-8 text.
  std::string File(std::string_view name) const;

 private:
  std::filesystem::path path_;
};

// The content of a file; the test fails when it can't be read.
std::string FileContent(const std::filesystem::path& path);
void WriteFileContent(const std::filesystem::path& path, std::string_view content);
