#include "host/system/process.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "host/system/command_line.h"
#include "host/system/interrupt.h"
#include "host/system/path.h"
#include "host/system/program_search.h"

namespace host {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kBetweenLooks{5};
// How long a process may clean up when it is told to end, and how long one is waited for that was
// ended by force: it may hang in a file system that doesn't answer.
constexpr milliseconds kGrace{400};
constexpr milliseconds kForcedEnd{400};

bool HasZeroByte(const std::string& text) {
  return text.find('\0') != std::string::npos;
}

// True when the system doesn't take the file for a program, so that another one may be.
bool IsNoProgram(int error) {
  return error == ENOEXEC || error == EACCES || error == ENOENT;
}

bool IsPipe(int descriptor) {
  struct stat info = {};
  return fstat(descriptor, &info) == 0 && (S_ISFIFO(info.st_mode) || S_ISSOCK(info.st_mode));
}

// What is done in a new process before its program begins.
class Preparation {
 public:
  // A process that is to stand apart shares neither the terminal's signals nor a pipe with this
  // one.
  Preparation(const ProcessStart& start, bool stands_apart);
  ~Preparation();
  Preparation(const Preparation&) = delete;
  Preparation& operator=(const Preparation&) = delete;

  // Starts the first of the files that is a program.
  std::optional<pid_t> Start(const std::vector<std::string>& files,
                             const std::vector<std::string>& arguments) const;

 private:
  void OpenNothing(int descriptor, int mode);
  void Check(int error) { failed_ = failed_ || error != 0; }

  posix_spawn_file_actions_t files_;
  posix_spawnattr_t attributes_;
  bool failed_ = false;
};

Preparation::Preparation(const ProcessStart& start, bool stands_apart) {
  Check(posix_spawn_file_actions_init(&files_));
  Check(posix_spawnattr_init(&attributes_));
  // Signals that this program ignores or blocks would stay so in the new one.
  sigset_t signals;
  sigfillset(&signals);
  Check(posix_spawnattr_setsigdefault(&attributes_, &signals));
  sigemptyset(&signals);
  Check(posix_spawnattr_setsigmask(&attributes_, &signals));
  // A group of its own, by which it is ended together with what it started.
  const int group = start.Hidden || stands_apart ? POSIX_SPAWN_SETSID : POSIX_SPAWN_SETPGROUP;
  const int flags = POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | group;
  Check(posix_spawnattr_setflags(&attributes_, static_cast<short>(flags)));

  OpenNothing(STDIN_FILENO, O_RDONLY);
  for (const int output : {STDOUT_FILENO, STDERR_FILENO}) {
    if (start.Hidden || (stands_apart && IsPipe(output))) OpenNothing(output, O_WRONLY);
  }
  Check(posix_spawn_file_actions_addclosefrom_np(&files_, STDERR_FILENO + 1));
  if (!start.Folder.empty()) {
    const std::string folder = NativePath(start.Folder).string();
    Check(posix_spawn_file_actions_addchdir_np(&files_, folder.c_str()));
  }
}

Preparation::~Preparation() {
  posix_spawnattr_destroy(&attributes_);
  posix_spawn_file_actions_destroy(&files_);
}

void Preparation::OpenNothing(int descriptor, int mode) {
  Check(posix_spawn_file_actions_addopen(&files_, descriptor, "/dev/null", mode, 0));
}

std::optional<pid_t> Preparation::Start(const std::vector<std::string>& files,
                                        const std::vector<std::string>& arguments) const {
  if (failed_) return std::nullopt;
  std::vector<std::string> texts = arguments;
  std::vector<char*> words;
  words.reserve(texts.size() + 1);
  for (std::string& text : texts) words.push_back(text.data());
  words.push_back(nullptr);
  for (const std::string& file : files) {
    pid_t process = -1;
    const int error =
        posix_spawn(&process, file.c_str(), &files_, &attributes_, words.data(), environ);
    if (error == 0) return process;
    if (!IsNoProgram(error)) break;
  }
  return std::nullopt;
}

// The process stays to be reaped: until then its number, and that of its group, is no other's.
bool HasEnded(pid_t process) {
  siginfo_t info = {};
  const int result = waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOHANG | WNOWAIT);
  return result != 0 || info.si_pid == process;
}

// Looks until the process has ended, `limit` is over or `isToStop` says so; true when it has ended.
template <class Predicate>
bool WaitForEnd(pid_t process, milliseconds limit, Predicate isToStop) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point begin = Clock::now();
  while (!HasEnded(process)) {
    if (isToStop()) return false;
    if (std::chrono::duration_cast<milliseconds>(Clock::now() - begin) >= limit) return false;
    std::this_thread::sleep_for(kBetweenLooks);
  }
  return true;
}

void TerminateGroup(pid_t process) {
  const auto never = [] { return false; };
  kill(-process, SIGTERM);
  WaitForEnd(process, kGrace, never);
  kill(-process, SIGKILL);
  WaitForEnd(process, kForcedEnd, never);
}

// Processes that were ended by force and aren't gone yet: they are reaped later, when they are.
class Leftovers {
 public:
  void Add(pid_t process) {
    const std::lock_guard lock(mutex_);
    processes_.push_back(process);
  }
  void Reap() {
    const std::lock_guard lock(mutex_);
    std::erase_if(processes_,
                  [](pid_t process) { return waitpid(process, nullptr, WNOHANG) != 0; });
  }

 private:
  std::mutex mutex_;
  std::vector<pid_t> processes_;
};

// Children are those of the whole program, and so is what is left of them.
Leftovers& ProcessLeftovers() {
  static Leftovers leftovers;
  return leftovers;
}

std::optional<pid_t> Start(const ProcessStart& start, bool stands_apart) {
  const std::vector<std::string>& arguments = start.Arguments;
  if (arguments.empty() || std::any_of(arguments.begin(), arguments.end(), HasZeroByte) ||
      HasZeroByte(start.Folder) || InterruptRequested()) {
    return std::nullopt;
  }
  return Preparation(start, stands_apart).Start(FindProgramFiles(arguments[0]), arguments);
}

// A process that has left this one behind: its terminal, its pipes, its open files, and what it
// does on signals.
void StandApart() {
  for (int number = 1; number < NSIG; ++number) signal(number, SIG_DFL);
  setsid();
  const int nothing = open("/dev/null", O_RDWR);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (stream == STDIN_FILENO || IsPipe(stream)) dup2(nothing, stream);
  }
  close_range(STDERR_FILENO + 1, ~0U, 0);
}

// Waits as long as it takes, also when signals come in between.
void WaitAndReap(pid_t process) {
  while (waitpid(process, nullptr, 0) < 0 && errno == EINTR) continue;
}

// Starts a process that starts the programs of a batch file, each when the one before it has ended.
// When none of them is there, there is nothing to start.
std::optional<pid_t> StartBatch(const ProcessStart& start) {
  const auto lines = ReadBatchFile(start.Arguments[0]);
  if (!lines || HasZeroByte(start.Folder) || InterruptRequested()) return std::nullopt;
  // All that can be done before is: the new process has one thread only.
  std::map<std::string, std::vector<std::string>> files;
  for (const auto& words : *lines) {
    if (!files.contains(words[0])) files[words[0]] = FindProgramFiles(words[0]);
  }
  const auto is_missing = [](const auto& program) { return program.second.empty(); };
  if (!files.empty() && std::all_of(files.begin(), files.end(), is_missing)) return std::nullopt;
  const Preparation preparation(start, true);
  const pid_t process = fork();
  if (process < 0) return std::nullopt;
  if (process > 0) return process;
  StandApart();
  for (const auto& words : *lines) {
    if (const auto program = preparation.Start(files.at(words[0]), words)) WaitAndReap(*program);
  }
  _exit(0);
}

}  // namespace

bool RunProcess(const ProcessStart& start, milliseconds limit) {
  ProcessLeftovers().Reap();
  const std::optional<pid_t> process = Start(start, false);
  if (!process) return false;
  if (!WaitForEnd(*process, limit, InterruptRequested)) TerminateGroup(*process);
  if (waitpid(*process, nullptr, WNOHANG) == 0) ProcessLeftovers().Add(*process);
  return true;
}

bool StartProcess(const ProcessStart& start) {
  const bool is_batch = start.Arguments.size() == 1 && IsBatchFile(start.Arguments[0]);
  const std::optional<pid_t> process = is_batch ? StartBatch(start) : Start(start, true);
  if (!process) return false;
  // Takes the process off the system's list when it ends; nobody waits for it.
  std::thread([id = *process] { WaitAndReap(id); }).detach();
  return true;
}

}  // namespace host
