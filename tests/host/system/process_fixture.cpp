#include "process_fixture.h"

#include <sys/wait.h>

#include <cerrno>
#include <filesystem>

std::vector<std::string> ProcessTest::Conversion(const std::string& program) const {
  WriteFileContent(folder_.File("wood.png"), "image");
  return {program, "-mode", "clamp", "-g", "0.5", folder_.File("wood.png"), Target()};
}

void ProcessTest::WriteScript(const std::string& path, std::string_view text) {
  WriteFileContent(path, text);
  std::filesystem::permissions(path, std::filesystem::perms::owner_all);
}

void ProcessTest::ExpectNoChild() {
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}
