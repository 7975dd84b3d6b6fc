#include "host/system/file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <thread>
#include <vector>

#include "host/system/file_replacement.h"
#include "host/system/interrupt.h"
#include "support/process.h"
#include "support/temp_folder.h"

namespace host {
namespace {

// The names in a folder, sorted.
std::vector<std::string> NamesIn(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

using Names = std::vector<std::string>;

// Runs `action` in a process of its own whose user may not write what isn't theirs; its result.
template <class Action>
bool RunUnprivileged(Action action) {
  constexpr uid_t kNobody = 65534;
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && seteuid(kNobody) != 0) _exit(2);
    _exit(action() ? 0 : 1);
  }
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_LT(WEXITSTATUS(status), 2);
  return WEXITSTATUS(status) == 0;
}

// Limits the size of files while it lives, so that writing beyond it fails as on a full disk.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &old_);
    const rlimit limited{bytes, old_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limited);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, oldHandler_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit old_{};
  void (*oldHandler_)(int);
};

std::string BytesAt(const FileReader& file, std::uint64_t offset, std::size_t count) {
  std::string bytes(count, '\0');
  bytes.resize(file.ReadAt(offset, std::as_writable_bytes(std::span(bytes))));
  return bytes;
}

TEST(Files, AnExistingFileIsToldFromAFolder) {
  const TempFolder folder;
  WriteFileContent(folder.File("a.rib"), "x");
  EXPECT_TRUE(FileExists(folder.File("a.rib")));
  EXPECT_FALSE(FolderExists(folder.File("a.rib")));
  EXPECT_TRUE(FolderExists(folder.Path().string()));
  EXPECT_FALSE(FileExists(folder.Path().string()));
  EXPECT_FALSE(FileExists(folder.File("none")));
  EXPECT_FALSE(FileExists("/dev/null"));
}

TEST(Files, EitherSeparatorAndAnyNameWork) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.Path() / "ünter ördner");
  FileWriter file(folder.Path().string() + "\\ünter ördner/東京 🚀.rib");
  ASSERT_TRUE(file.IsOpen());
  file.Write("text");
  EXPECT_TRUE(file.Close());
  EXPECT_EQ(FileContent(folder.Path() / "ünter ördner" / "東京 🚀.rib"), "text");
  EXPECT_TRUE(FileExists(folder.Path().string() + "/ünter ördner\\東京 🚀.rib"));
}

TEST(Files, APathWithAZeroByteNamesNothing) {
  const TempFolder folder;
  WriteFileContent(folder.File("a.rib"), "x");
  const std::string path = folder.File("a.rib") + std::string("\0.txt", 5);
  EXPECT_FALSE(FileExists(path));
  EXPECT_FALSE(FileWriter(path).IsOpen());
  EXPECT_FALSE(DeleteFile(path));
  EXPECT_EQ(FileContent(folder.File("a.rib")), "x");
}

TEST(Files, TheTimeOfAChangeIsToldToTheNanosecond) {
  const TempFolder folder;
  const std::string path = folder.File("a.rib");
  WriteFileContent(path, "x");
  const auto setTime = [&](time_t seconds, long nanoseconds) {
    const timespec times[] = {{0, UTIME_OMIT}, {seconds, nanoseconds}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
  };
  setTime(1'700'000'000, 123'456'789);
  EXPECT_EQ(ModificationTime(path), 1'700'000'000'123'456'789);
  setTime(0, 1);
  EXPECT_EQ(ModificationTime(path), 1);
  setTime(-1, 999'999'999);
  EXPECT_EQ(ModificationTime(path), -1) << "before 1970";
  std::filesystem::create_symlink("a.rib", folder.File("link"));
  EXPECT_EQ(ModificationTime(folder.File("link")), -1);
  std::filesystem::create_symlink("none", folder.File("dead link"));
  for (const char* name : {"none", "dead link", "a.rib/b"}) {
    EXPECT_EQ(ModificationTime(folder.File(name)), std::nullopt) << name;
  }
  EXPECT_EQ(ModificationTime(path + std::string("\0", 1)), std::nullopt);
}

TEST(Files, ATimeThatIsTooFarOffIsTheLastOneThatCanBeTold) {
  const TempFolder folder;
  const std::string path = folder.File("a.rib");
  WriteFileContent(path, "x");
  const timespec times[] = {{0, UTIME_OMIT}, {15'000'000'000, 0}};
  ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
  const auto time = ModificationTime(path);
  ASSERT_TRUE(time.has_value());
  // The file system may have cut it before.
  EXPECT_GT(*time, 4'000'000'000'000'000'000);
}

TEST(FileWriter, WritesBytesAsTheyAre) {
  const TempFolder folder;
  WriteFileContent(folder.File("a.rib"), "an older and longer text");
  FileWriter file(folder.File("a.rib"));
  file.Write(std::string_view("a\n\0\r\n", 5));
  file.Write("");
  file.Write("\xFF");
  EXPECT_FALSE(file.HasError());
  EXPECT_TRUE(file.Close());
  EXPECT_EQ(FileContent(folder.File("a.rib")), std::string("a\n\0\r\n\xFF", 6));
}

TEST(FileWriter, TellsWhyAFileCannotBeOpened) {
  const TempFolder folder;
  FileWriter missing(folder.File("none/a.rib"));
  EXPECT_FALSE(missing.IsOpen());
  EXPECT_EQ(LastSystemError(), "No such file or directory");
  EXPECT_TRUE(missing.HasError());
  missing.Write("text");
  EXPECT_FALSE(missing.Close());
  EXPECT_FALSE(FileWriter(folder.Path().string()).IsOpen());
  EXPECT_EQ(LastSystemError(), "Is a directory");
  EXPECT_FALSE(FileWriter("").IsOpen());
}

TEST(FileWriter, AFolderWithoutFilesOfOnesOwnRefusesAFile) {
  EXPECT_FALSE(FileWriter("/proc/a.rib").IsOpen());
}

TEST(FileWriter, AReadOnlyFolderRefusesAFile) {
  if (geteuid() == 0) GTEST_SKIP() << "the superuser may write anywhere";
  const TempFolder folder;
  std::filesystem::permissions(
      folder.Path(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
  EXPECT_FALSE(FileWriter(folder.File("a.rib")).IsOpen());
  EXPECT_EQ(LastSystemError(), "Permission denied");
  std::filesystem::permissions(folder.Path(), std::filesystem::perms::owner_all);
}

TEST(FileWriter, AFullDiskIsAnError) {
  FileWriter file("/dev/full");
  ASSERT_TRUE(file.IsOpen());
  EXPECT_FALSE(file.HasError());
  file.Write("text");
  EXPECT_TRUE(file.HasError());
  EXPECT_FALSE(file.Close());
  EXPECT_EQ(LastSystemError(), "No space left on device");
}

TEST(FileWriter, KeepsTheFirstErrorAndWritesNothingAfterIt) {
  const TempFolder folder;
  FileWriter file(folder.File("a.rib"));
  {
    const FileSizeLimit limit(10);
    file.Write("123456");
    EXPECT_FALSE(file.HasError());
    file.Write("7890abc");
    EXPECT_TRUE(file.HasError());
  }
  file.Write("more");
  EXPECT_FALSE(file.Close());
  EXPECT_EQ(LastSystemError(), "File too large");
  EXPECT_EQ(FileContent(folder.File("a.rib")), "1234567890");
}

TEST(FileWriter, AReaderThatTakesPartsGetsAll) {
  const TempFolder folder;
  const std::string pipe = folder.File("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::string received;
  std::thread reader([&] { received = FileContent(pipe); });
  FileWriter file(pipe);
  const std::string text(1000000, 'x');
  file.Write(text);
  EXPECT_TRUE(file.Close());
  reader.join();
  EXPECT_EQ(received, text);
}

// Ctrl-C again and again, until a child ends that catches it and does `work`; true when the child
// found `work` true.
bool EndsByInterrupts(const std::function<bool()>& work) {
  struct sigaction before = {};
  sigaction(SIGINT, nullptr, &before);
  CatchInterrupts();
  const pid_t child = fork();
  if (child == 0) _exit(work() ? 0 : 1);
  sigaction(SIGINT, &before, nullptr);
  const auto isRunning = [&] {
    siginfo_t info = {};
    return waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           info.si_pid == 0;
  };
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (isRunning() && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    kill(child, SIGINT);
  }
  return WaitForChild(child, std::chrono::seconds(0)) == 0;
}

TEST(FileWriter, CtrlCEndsTheWaitingForAPipesReader) {
  const TempFolder folder;
  const std::string pipe = folder.File("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_TRUE(EndsByInterrupts([&] {
    const FileWriter file(pipe);
    return !file.IsOpen() && LastSystemError() == "Interrupted system call";
  }));
}

TEST(FileWriter, CtrlCEndsTheWritingToAPipeThatNobodyEmpties) {
  const TempFolder folder;
  const std::string pipe = folder.File("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(reader, 0);
  EXPECT_TRUE(EndsByInterrupts([&] {
    FileWriter file(pipe);
    file.Write(std::string(1000000, 'x'));
    return file.HasError() && !file.Close() && LastSystemError() == "Interrupted system call";
  }));
  close(reader);
}

TEST(FileReader, ReadsAtAnyOffset) {
  const TempFolder folder;
  WriteFileContent(folder.File("a.3dm"), "0123456789");
  const FileReader file(folder.File("a.3dm"));
  ASSERT_TRUE(file.IsOpen());
  EXPECT_EQ(file.Size(), 10u);
  EXPECT_EQ(BytesAt(file, 3, 4), "3456");
  EXPECT_EQ(BytesAt(file, 0, 10), "0123456789");
  EXPECT_EQ(BytesAt(file, 8, 4), "89");
  EXPECT_EQ(BytesAt(file, 10, 1), "");
  EXPECT_EQ(BytesAt(file, ~std::uint64_t{0}, 1), "");
  EXPECT_EQ(BytesAt(file, 5, 0), "");
}

TEST(FileReader, RefusesWhatIsNoRegularFile) {
  const TempFolder folder;
  EXPECT_EQ(FileReader(folder.File("none")).Error(), "No such file or directory");
  EXPECT_EQ(FileReader(folder.Path().string()).Error(), "it is a folder");
  EXPECT_EQ(FileReader("/dev/null").Error(), "it is no regular file");
  EXPECT_FALSE(FileReader(folder.Path().string()).IsOpen());
}

TEST(FileReader, APipeWithoutAWriterDoesNotHang) {
  const TempFolder folder;
  ASSERT_EQ(mkfifo(folder.File("pipe").c_str(), 0600), 0);
  EXPECT_EQ(FileReader(folder.File("pipe")).Error(), "it is no regular file");
}

TEST(FileReader, AFileThatShrinksGivesWhatIsThere) {
  const TempFolder folder;
  WriteFileContent(folder.File("a.3dm"), "0123456789");
  const FileReader file(folder.File("a.3dm"));
  WriteFileContent(folder.File("a.3dm"), "0123");
  EXPECT_EQ(BytesAt(file, 0, 10), "0123");
}

TEST(Files, ReadsAWholeFile) {
  const TempFolder folder;
  WriteFileContent(folder.File("a.ors"), std::string("a\r\n\0b", 5));
  WriteFileContent(folder.File("empty"), "");
  EXPECT_EQ(ReadWholeFile(folder.File("a.ors")), std::string("a\r\n\0b", 5));
  EXPECT_EQ(ReadWholeFile(folder.File("empty")), "");
  EXPECT_EQ(ReadWholeFile(folder.File("a.ors"), 5).has_value(), true);
  EXPECT_EQ(ReadWholeFile(folder.File("a.ors"), 4), std::nullopt);
  EXPECT_EQ(LastSystemError(), "File too large");
  EXPECT_EQ(ReadWholeFile(folder.File("none")), std::nullopt);
  EXPECT_EQ(LastSystemError(), "No such file or directory");
  EXPECT_EQ(ReadWholeFile(folder.Path().string()), std::nullopt);
  EXPECT_EQ(LastSystemError(), "Is a directory");
}

TEST(ReplaceFile, MakesANewFileAndReplacesAnOldOne) {
  const TempFolder folder;
  EXPECT_TRUE(ReplaceFile(folder.File("a.ors"), "one"));
  EXPECT_EQ(FileContent(folder.File("a.ors")), "one");
  EXPECT_TRUE(ReplaceFile(folder.File("a.ors"), std::string_view("two\0", 4)));
  EXPECT_EQ(FileContent(folder.File("a.ors")), std::string("two\0", 4));
  EXPECT_EQ(NamesIn(folder.Path()), Names{"a.ors"});
}

TEST(ReplaceFile, KeepsThePermissionsOfTheOldFile) {
  const TempFolder folder;
  WriteFileContent(folder.File("a.ors"), "one");
  std::filesystem::permissions(folder.File("a.ors"), std::filesystem::perms(0640));
  EXPECT_TRUE(ReplaceFile(folder.File("a.ors"), "two"));
  EXPECT_EQ(std::filesystem::status(folder.File("a.ors")).permissions(),
            std::filesystem::perms(0640));
}

TEST(ReplaceFile, KeepsTheOwnerAndTheGroupOfTheOldFile) {
  if (geteuid() != 0) GTEST_SKIP() << "only the administrator can give a file away";
  const TempFolder folder;
  const std::string path = folder.File("a.ors");
  WriteFileContent(path, "one");
  ASSERT_EQ(chown(path.c_str(), 1234, 2345), 0);
  ASSERT_EQ(chmod(path.c_str(), 06750), 0);
  EXPECT_TRUE(ReplaceFile(path, "two"));
  struct stat status = {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 1234u);
  EXPECT_EQ(status.st_gid, 2345u);
  EXPECT_EQ(status.st_mode & 07777u, 06750u);
}

// The owner is then the one who has written it.
TEST(ReplaceFile, AFileOfAnotherOwnerIsReplacedAllTheSame) {
  if (geteuid() != 0) GTEST_SKIP() << "only the administrator can give a file away";
  const TempFolder folder;
  WriteFileContent(folder.File("a.ors"), "one");
  std::filesystem::permissions(folder.Path(), std::filesystem::perms::all);
  std::filesystem::permissions(folder.File("a.ors"), std::filesystem::perms(0666));
  EXPECT_TRUE(RunUnprivileged([&] { return ReplaceFile(folder.File("a.ors"), "two"); }));
  EXPECT_EQ(FileContent(folder.File("a.ors")), "two");
}

TEST(FileReplacement, NobodyElseReadsTheFileBeforeItIsCommitted) {
  const TempFolder folder;
  const auto permissions = [&] {
    const auto entry = *std::filesystem::directory_iterator(folder.Path());
    return std::filesystem::status(entry.path()).permissions();
  };
  const mode_t before = umask(027);
  FileReplacement file(folder.File("new"));
  file.Write("text");
  EXPECT_EQ(permissions(), std::filesystem::perms(0600));
  EXPECT_TRUE(file.Commit());
  EXPECT_EQ(permissions(), std::filesystem::perms(0640));
  EXPECT_EQ(umask(before), mode_t{027});
}

TEST(ReplaceFile, RefusesAWriteProtectedFile) {
  using std::filesystem::perms;
  const TempFolder folder;
  WriteFileContent(folder.File("protected.ors"), "one");
  WriteFileContent(folder.File("open.ors"), "one");
  std::filesystem::create_symlink("protected.ors", folder.File("link.ors"));
  std::filesystem::permissions(folder.Path(), perms::all);
  std::filesystem::permissions(folder.File("protected.ors"), perms(0444));
  std::filesystem::permissions(folder.File("open.ors"), perms(0666));
  EXPECT_TRUE(RunUnprivileged([&] { return ReplaceFile(folder.File("open.ors"), "two"); }));
  for (const char* name : {"protected.ors", "link.ors"}) {
    EXPECT_TRUE(RunUnprivileged([&] {
      return !ReplaceFile(folder.File(name), "two") && LastSystemError() == "Permission denied";
    })) << name;
  }
  EXPECT_EQ(FileContent(folder.File("open.ors")), "two");
  EXPECT_EQ(FileContent(folder.File("protected.ors")), "one");
  EXPECT_EQ(NamesIn(folder.Path()), (Names{"link.ors", "open.ors", "protected.ors"}));
}

TEST(ReplaceFile, FollowsASymbolicLink) {
  const TempFolder folder;
  WriteFileContent(folder.File("real.ors"), "one");
  std::filesystem::create_symlink("real.ors", folder.File("link.ors"));
  EXPECT_TRUE(ReplaceFile(folder.File("link.ors"), "two"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.File("link.ors")));
  EXPECT_EQ(FileContent(folder.File("real.ors")), "two");
}

TEST(ReplaceFile, ALinkToAFileThatIsNotThereYetStays) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.File("ordner"));
  std::filesystem::create_symlink("ordner/zwei.ors", folder.File("eins.ors"));
  std::filesystem::create_symlink(folder.File("drei.ors"), folder.File("ordner/zwei.ors"));
  EXPECT_TRUE(ReplaceFile(folder.File("eins.ors"), "text"));
  EXPECT_EQ(FileContent(folder.File("drei.ors")), "text");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.File("eins.ors")));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.File("ordner/zwei.ors")));

  std::filesystem::create_symlink("kreis.ors", folder.File("kreis.ors"));
  EXPECT_FALSE(ReplaceFile(folder.File("kreis.ors"), "text"));
  EXPECT_EQ(LastSystemError(), "Too many levels of symbolic links");
  std::filesystem::create_symlink("weg/a.ors", folder.File("ohne.ors"));
  EXPECT_FALSE(ReplaceFile(folder.File("ohne.ors"), "text"));
  EXPECT_EQ(LastSystemError(), "No such file or directory");
  EXPECT_EQ(NamesIn(folder.Path()),
            (Names{"drei.ors", "eins.ors", "kreis.ors", "ohne.ors", "ordner"}));
}

TEST(ReplaceFile, AFullDiskLeavesTheOldFileAndNothingElse) {
  const TempFolder folder;
  WriteFileContent(folder.File("a.ors"), "one");
  {
    const FileSizeLimit limit(10);
    EXPECT_FALSE(ReplaceFile(folder.File("a.ors"), "a text of more than ten bytes"));
    EXPECT_EQ(LastSystemError(), "File too large");
  }
  EXPECT_EQ(FileContent(folder.File("a.ors")), "one");
  EXPECT_EQ(NamesIn(folder.Path()), Names{"a.ors"});
}

TEST(ReplaceFile, RefusesWhatIsNoFileOrHasNoFolder) {
  const TempFolder folder;
  WriteFileContent(folder.File("file"), "x");
  EXPECT_FALSE(ReplaceFile(folder.Path().string(), "text"));
  EXPECT_EQ(LastSystemError(), "Is a directory");
  EXPECT_FALSE(ReplaceFile(folder.File("none/a.ors"), "text"));
  EXPECT_EQ(LastSystemError(), "No such file or directory");
  EXPECT_FALSE(ReplaceFile(folder.File("file/a.ors"), "text"));
  EXPECT_EQ(LastSystemError(), "Not a directory");
  EXPECT_FALSE(ReplaceFile("/dev/full", "text"));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
  EXPECT_FALSE(ReplaceFile("", "text"));
}

TEST(FileReplacement, PutsTogetherWhatIsWrittenAndCopied) {
  const TempFolder folder;
  WriteFileContent(folder.File("old"), "0123456789");
  const FileReader old(folder.File("old"));
  FileReplacement file(folder.File("old"));
  ASSERT_TRUE(file.IsOpen());
  file.Write("<");
  file.Copy(old, 2, 3);
  file.Copy(old, 9, 1);
  file.Write(">");
  EXPECT_EQ(FileContent(folder.File("old")), "0123456789");
  EXPECT_TRUE(file.Commit());
  EXPECT_EQ(FileContent(folder.File("old")), "<2349>");
  EXPECT_EQ(NamesIn(folder.Path()), Names{"old"});
}

TEST(FileReplacement, CopiesMoreThanOneBlock) {
  const TempFolder folder;
  std::string content(5'000'000, 'a');
  for (std::size_t i = 0; i < content.size(); i += 1000) content[i] = static_cast<char>(i / 1000);
  WriteFileContent(folder.File("large"), content);
  const FileReader large(folder.File("large"));
  FileReplacement file(folder.File("copy"));
  file.Copy(large, 0, 1);
  file.Copy(large, 1, content.size() - 1);
  EXPECT_TRUE(file.Commit());
  EXPECT_TRUE(FileContent(folder.File("copy")) == content);
}

TEST(FileReplacement, WithoutACommitNothingHappens) {
  const TempFolder folder;
  WriteFileContent(folder.File("old"), "old");
  {
    FileReplacement file(folder.File("old"));
    file.Write("new");
  }
  EXPECT_EQ(FileContent(folder.File("old")), "old");
  EXPECT_EQ(NamesIn(folder.Path()), Names{"old"});
}

TEST(FileReplacement, AFileThatEndsBeforeTheStretchIsAnError) {
  const TempFolder folder;
  WriteFileContent(folder.File("short"), "0123");
  const FileReader source(folder.File("short"));
  FileReplacement file(folder.File("copy"));
  file.Copy(source, 2, 3);
  EXPECT_TRUE(file.HasError());
  EXPECT_FALSE(file.Commit());
  EXPECT_EQ(LastSystemError(), "Input/output error");
  EXPECT_EQ(NamesIn(folder.Path()), Names{"short"});
}

TEST(FileReader, ReadsTheCommittedFileWhateverHasItsNameByNow) {
  const TempFolder folder;
  FileReplacement file(folder.File("a.3dm"));
  file.Write("one");
  EXPECT_TRUE(file.Commit());
  WriteFileContent(folder.File("b.3dm"), "another");
  std::filesystem::rename(folder.File("b.3dm"), folder.File("a.3dm"));
  const FileReader reader(file);
  ASSERT_TRUE(reader.IsOpen());
  EXPECT_EQ(reader.Size(), 3u);
  EXPECT_EQ(BytesAt(reader, 0, 3), "one");
  EXPECT_TRUE(reader.IsUnchanged());
  EXPECT_FALSE(reader.IsAt(folder.File("a.3dm")));

  FileReplacement open(folder.File("c.3dm"));
  EXPECT_FALSE(FileReader(open).IsOpen());
}

TEST(FileReader, TellsWhenItsFileIsWrittenToOrAnotherTakesItsName) {
  const TempFolder folder;
  const std::string path = folder.File("a.3dm");
  WriteFileContent(path, "one");
  WriteFileContent(folder.File("b.3dm"), "two");
  const FileReader file(path);
  EXPECT_TRUE(file.IsUnchanged());
  EXPECT_TRUE(file.IsAt(path));
  EXPECT_FALSE(file.IsAt(folder.File("b.3dm")));
  std::filesystem::rename(folder.File("b.3dm"), path);
  EXPECT_TRUE(file.IsUnchanged());
  EXPECT_FALSE(file.IsAt(path));
  const FileReader other(path);
  WriteFileContent(path, "three");
  EXPECT_FALSE(other.IsUnchanged());
  EXPECT_TRUE(other.IsAt(path));
  std::filesystem::remove(path);
  EXPECT_FALSE(other.IsAt(path));
}

TEST(ReplaceFile, WorksInTheCurrentFolder) {
  const TempFolder folder;
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  EXPECT_TRUE(ReplaceFile("a.ors", "text"));
  std::filesystem::current_path(before);
  EXPECT_EQ(FileContent(folder.File("a.ors")), "text");
}

TEST(ReplaceFile, WorksForTheLongestName) {
  const TempFolder folder;
  const std::string name(255, 'n');
  EXPECT_TRUE(ReplaceFile(folder.File(name), "text"));
  EXPECT_EQ(NamesIn(folder.Path()), Names{name});
}

TEST(Files, DeletesAndRenames) {
  const TempFolder folder;
  WriteFileContent(folder.File("a"), "a");
  WriteFileContent(folder.File("b"), "b");
  EXPECT_TRUE(RenameFile(folder.File("a"), folder.Path().string() + "\\b"));
  EXPECT_EQ(FileContent(folder.File("b")), "a");
  EXPECT_FALSE(RenameFile(folder.File("a"), folder.File("b")));
  EXPECT_TRUE(DeleteFile(folder.File("b")));
  EXPECT_FALSE(DeleteFile(folder.File("b")));
  EXPECT_FALSE(DeleteFile(folder.Path().string()));
  EXPECT_TRUE(FolderExists(folder.Path().string()));
}

TEST(Files, CreatesAFolderWithThoseAboveIt) {
  const TempFolder folder;
  EXPECT_TRUE(CreatePrivateFolder(folder.File("a b/ü\\c")));
  EXPECT_TRUE(FolderExists(folder.File("a b/ü/c")));
  EXPECT_EQ(std::filesystem::status(folder.File("a b")).permissions(),
            std::filesystem::perms(0700));
  EXPECT_TRUE(CreatePrivateFolder(folder.File("a b/ü/c/")));
  WriteFileContent(folder.File("file"), "x");
  EXPECT_FALSE(CreatePrivateFolder(folder.File("file/c")));
  EXPECT_EQ(LastSystemError(), "Not a directory");
  EXPECT_FALSE(CreatePrivateFolder(folder.File("file")));
  EXPECT_FALSE(CreatePrivateFolder("/proc/none/c"));
  EXPECT_FALSE(CreatePrivateFolder(""));
}

TEST(RhinoBackupFile, MovesAFileAside) {
  const TempFolder folder;
  WriteFileContent(folder.File("a b.rib"), "old");
  const std::string backup = RhinoBackupFile(folder.File("a b.rib"));
  EXPECT_EQ(backup, folder.File("a b.rib.bak"));
  EXPECT_EQ(FileContent(backup), "old");
  EXPECT_FALSE(FileExists(folder.File("a b.rib")));
}

TEST(RhinoBackupFile, GivesNothingWithoutAFile) {
  const TempFolder folder;
  EXPECT_EQ(RhinoBackupFile(folder.File("none.rib")), "");
  EXPECT_TRUE(NamesIn(folder.Path()).empty());
}

TEST(RhinoBackupFile, NeverOverwritesAnotherFile) {
  const TempFolder folder;
  WriteFileContent(folder.File("a.rib"), "old");
  WriteFileContent(folder.File("a.rib.bak"), "kept");
  WriteFileContent(folder.File("a.rib.1.bak"), "kept too");
  EXPECT_EQ(RhinoBackupFile(folder.File("a.rib")), folder.File("a.rib.2.bak"));
  EXPECT_EQ(FileContent(folder.File("a.rib.bak")), "kept");
  EXPECT_EQ(FileContent(folder.File("a.rib.1.bak")), "kept too");
  EXPECT_EQ(FileContent(folder.File("a.rib.2.bak")), "old");
}

TEST(RhinoBackupFile, LeavesWhatIsNoRegularFileWhereItIs) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.Path() / "folder.rib");
  EXPECT_EQ(RhinoBackupFile(folder.File("folder.rib")), "");
  EXPECT_EQ(NamesIn(folder.Path()), Names{"folder.rib"});
  EXPECT_EQ(RhinoBackupFile("/dev/full"), "");
  EXPECT_TRUE(std::filesystem::exists("/dev/full"));
}

TEST(RhinoBackupFile, WorksForTheLongestName) {
  const TempFolder folder;
  std::string name;
  while (name.size() < 254) name += "ü";
  WriteFileContent(folder.File(name), "old");
  const std::string backup = RhinoBackupFile(folder.File(name));
  ASSERT_NE(backup, "");
  EXPECT_EQ(FileContent(backup), "old");
  EXPECT_EQ(NamesIn(folder.Path()).size(), 1u);
}

TEST(RhinoBackupFile, RestoringGivesTheOldFileBack) {
  const TempFolder folder;
  WriteFileContent(folder.File("a.rib"), "old");
  const std::string backup = RhinoBackupFile(folder.Path().string() + "\\a.rib");
  WriteFileContent(folder.File("a.rib"), "half wri");
  EXPECT_TRUE(RenameFile(backup, folder.File("a.rib")));
  EXPECT_EQ(FileContent(folder.File("a.rib")), "old");
  EXPECT_EQ(NamesIn(folder.Path()), Names{"a.rib"});
}

}  // namespace
}  // namespace host
