#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <fstream>
#include <iterator>
#include <system_error>

TempFolder::TempFolder() {
  static std::atomic<int> count = 0;
  path_ = std::filesystem::temp_directory_path() /
          ("orv tést " + std::to_string(getpid()) + " " + std::to_string(++count));
  std::filesystem::create_directories(path_);
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TempFolder::File(std::string_view name) const {
  return (path_ / std::filesystem::path(name)).string();
}

std::string FileContent(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  EXPECT_TRUE(in.is_open()) << path;
  return {std::istreambuf_iterator<char>(in), {}};
}

void WriteFileContent(const std::filesystem::path& path, std::string_view content) {
  std::ofstream out(path, std::ios::binary);
  out.write(content.data(), static_cast<std::streamsize>(content.size()));
  EXPECT_TRUE(out.good()) << path;
}
