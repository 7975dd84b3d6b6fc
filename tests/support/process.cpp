#include "support/process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <thread>

namespace {

// An open file without a name, for one stream of a process.
int NamelessFile() {
  const std::string folder = std::filesystem::temp_directory_path().string();
  const int fd = open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
  EXPECT_GE(fd, 0) << "a file in " << folder;
  return fd;
}

std::string Content(int fd) {
  std::string text;
  char buffer[65536];
  lseek(fd, 0, SEEK_SET);
  ssize_t count = 0;
  while ((count = read(fd, buffer, sizeof buffer)) > 0) {
    text.append(buffer, static_cast<std::size_t>(count));
  }
  return text;
}

int StatusOf(int wait_status) {
  return WIFEXITED(wait_status) ? WEXITSTATUS(wait_status) : -WTERMSIG(wait_status);
}

}  // namespace

void RunInChild(const std::vector<std::string>& command, const ProcessOptions& options) {
  for (const auto& [name, value] : options.environment) setenv(name.c_str(), value.c_str(), 1);
  if (!options.folder.empty() && chdir(options.folder.c_str()) != 0) _exit(126);
  std::vector<char*> words;
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  execv(words[0], words.data());
  _exit(127);
}

int WaitForChild(pid_t pid, std::chrono::seconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  int status = 0;
  while (waitpid(pid, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > end) {
      ADD_FAILURE() << "the program did not end";
      kill(pid, SIGKILL);
      waitpid(pid, &status, 0);
      break;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return StatusOf(status);
}

Process::Process(const std::vector<std::string>& command, const ProcessOptions& options)
    : out_(NamelessFile()), err_(NamelessFile()) {
  const int in = NamelessFile();
  EXPECT_EQ(write(in, options.input.data(), options.input.size()),
            static_cast<ssize_t>(options.input.size()));
  lseek(in, 0, SEEK_SET);
  pid_ = fork();
  if (pid_ == 0) {
    dup2(in, STDIN_FILENO);
    const int out =
        options.output_file.empty() ? out_ : open(options.output_file.c_str(), O_WRONLY);
    dup2(out, STDOUT_FILENO);
    dup2(err_, STDERR_FILENO);
    RunInChild(command, options);
  }
  close(in);
}

Process::~Process() {
  if (pid_ > 0) {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  close(out_);
  close(err_);
}

void Process::Signal(int signal) const {
  kill(pid_, signal);
}

ProcessResult Process::Wait() {
  ProcessResult result;
  result.status = WaitForChild(pid_);
  pid_ = -1;
  result.out = Content(out_);
  result.err = Content(err_);
  return result;
}
