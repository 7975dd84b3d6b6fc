#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <thread>

#include "program_fixture.h"
#include "support/pty.h"

namespace {

using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

// Exports into a pipe that nobody reads for a while: a job as long as a test wants it.
class ProgressTest : public ProgramTest {
 protected:
  ProgressTest() {
    WriteMeshes("model.3dm", 60, 2000);
    EXPECT_EQ(mkfifo(folder_.File("pipe.rib").c_str(), 0600), 0);
  }

  // Reads the pipe after a pause; the size of what came out of it.
  std::size_t ReadAfter(std::chrono::milliseconds pause) const {
    const int pipe = open(folder_.File("pipe.rib").c_str(), O_RDONLY);
    EXPECT_GE(pipe, 0);
    std::this_thread::sleep_for(pause);
    std::vector<char> buffer(1 << 16);
    std::size_t size = 0;
    for (ssize_t count = 1; (count = read(pipe, buffer.data(), buffer.size())) > 0;) {
      size += static_cast<std::size_t>(count);
    }
    close(pipe);
    return size;
  }

  static constexpr std::chrono::milliseconds kLong{1500};
};

TEST_F(ProgressTest, LongJobsShowALineOnATerminal) {
  Pty terminal(Command({"model.3dm", "-c", "Export pipe.rib SelAll"}), options_);
  EXPECT_GT(ReadAfter(kLong), std::size_t{2000000});
  EXPECT_THAT(terminal.WaitFor("60 objects added to the selection."),
              ContainsRegex("Writing [0-9]+ of 60 objects, [0-9]+\\.[0-9] MB"));
  // The line is drawn over itself, and is gone before other text.
  EXPECT_THAT(terminal.Bytes(), HasSubstr("\rWriting "));
  EXPECT_THAT(terminal.Bytes(), HasSubstr(" MB\x1b[K\r\x1b[KExported 'pipe.rib'."));
  EXPECT_EQ(terminal.Wait(), 0);
}

TEST_F(ProgressTest, ShortJobsShowNone) {
  Pty terminal(Command({"model.3dm", "-c", "Export short.rib SelAll"}), options_);
  EXPECT_THAT(terminal.WaitFor("60 objects added to the selection."),
              AllOf(HasSubstr("Exported 'short.rib'."), Not(HasSubstr(" of 60 objects"))));
  EXPECT_EQ(terminal.Wait(), 0);
}

TEST_F(ProgressTest, ATerminalThatCannotEraseShowsNone) {
  options_.environment.back().second = "dumb";
  Pty terminal(Command({"model.3dm", "-c", "Export pipe.rib SelAll"}), options_);
  ReadAfter(kLong);
  EXPECT_THAT(terminal.WaitFor("60 objects added to the selection."),
              Not(HasSubstr(" of 60 objects")));
  EXPECT_EQ(terminal.Wait(), 0);
}

TEST_F(ProgressTest, PipesGetNone) {
  Process process(Command({"model.3dm", "-c", "Export pipe.rib SelAll"}), options_);
  ReadAfter(kLong);
  const ProcessResult result = process.Wait();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out,
            "Writing pipe.rib\nExported 'pipe.rib'.\n60 objects added to the selection.\n");
}

}  // namespace
