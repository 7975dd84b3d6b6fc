#include <langinfo.h>
#include <signal.h>

#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstring>
#include <span>

#include "arguments.h"
#include "host/system/environment.h"
#include "program.h"

namespace {

constexpr int kFailed = 3;
constexpr int kWrongUsage = 64;

// Only the letters of the terminal follow the user's locale; numbers never do.
void UseTerminalLetters() {
  std::setlocale(LC_CTYPE, "");
  if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) std::setlocale(LC_CTYPE, "C.UTF-8");
}

// The status after all that was printed has gone out. A reader that has gone away is no failure.
int FlushedStatus(int status) {
  if (std::fflush(stdout) == 0 || errno == EPIPE) return status;
  std::fprintf(stderr, "orvhost: The output can't be written: %s.\n", std::strerror(errno));
  return kFailed;
}

int RunProgram(const Arguments& arguments) {
  if (!arguments.Error.empty()) {
    std::fprintf(stderr, "orvhost: %s\nTry orvhost --help.\n", arguments.Error.c_str());
    return kWrongUsage;
  }
  if (arguments.Help || arguments.Version) {
    std::fputs(arguments.Help ? kUsage : "orvhost " ORV_VERSION "\n", stdout);
    return 0;
  }
  return Program(arguments).Run();
}

}  // namespace

int main(int argc, char** argv) {
  UseTerminalLetters();
  host::EnsureTempVariable();
  // A reader that went away and a limit on the size of files are errors of a write, not the end.
  signal(SIGPIPE, SIG_IGN);
  signal(SIGXFSZ, SIG_IGN);
  const std::span<const char* const> words(argv, static_cast<std::size_t>(argc));
  return FlushedStatus(RunProgram(ParseArguments(words.subspan(argc > 0 ? 1 : 0))));
}
