#include "jobs/job_files.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <thread>

#include "host/document/app.h"
#include "host/system/text.h"
#include "support/temp_folder.h"

namespace orv {
namespace {

TEST(JobFiles, ASuffixGoesBehindTheBaseName) {
  EXPECT_EQ(AppendToBaseName("C:\\t\\a.rib", "_v7"), "C:\\t\\a_v7.rib");
  EXPECT_EQ(AppendToBaseName("x.tif", "_v7"), "x_v7.tif");
  EXPECT_EQ(AppendToBaseName("/tmp/v1.2/scene", "_0000"), "/tmp/v1.2/scene_0000");
  EXPECT_EQ(AppendToBaseName("/tmp/a.b.rib", "_px"), "/tmp/a.b_px.rib");
  EXPECT_EQ(AppendToBaseName("", "_v1"), "_v1");
  EXPECT_EQ(AppendToBaseName("mein bäld.rib", "_v1"), "mein bäld_v1.rib");
}

TEST(JobFiles, TheExtensionIsTakenOffTheFirstCharacters) {
  EXPECT_EQ(JobBaseName("C:\\t.x\\a.rib"), "C:\\t.x\\a");
  EXPECT_EQ(JobBaseName("/t.x/a"), "/t.x/a");
  EXPECT_EQ(JobBaseName(""), "");
  const std::string name(254, 'x');
  EXPECT_EQ(JobName(name + ".rib"), name + ".r");
  EXPECT_EQ(JobBaseName(name + ".rib"), name);
}

TEST(JobFiles, CharactersAreNotCutInHalf) {
  std::string name;
  for (int i = 0; i < 300; ++i) name += "ä";
  EXPECT_EQ(JobBaseName(name + ".rib"), name.substr(0, 512));
  EXPECT_EQ(host::CodePointCount(name.substr(0, 512)), 256U);
}

TEST(JobFiles, AFolderIsNotCut) {
  std::string messages;
  RhinoApp().CommandWindow().SetSink([&](std::string_view text) { messages += text; });
  const std::string folder = "/" + std::string(200, 'x') + "/";
  const std::string fits = folder + std::string(52, 'y') + "/";
  EXPECT_EQ(JobName(fits + "a.rib"), fits + "a");
  EXPECT_EQ(JobBaseName(fits + "a.rib"), fits + "a");
  EXPECT_EQ(messages, "");
  for (const std::size_t count : {53U, 54U, 300U}) {
    const std::string name = folder + std::string(count, 'y') + "/a.rib";
    const std::string message = "Unable to name the files of a job after " + name +
                                ": its first 256 characters count, and its folder is longer.\n";
    messages.clear();
    EXPECT_EQ(JobName(name), std::nullopt);
    EXPECT_EQ(messages, message);
    EXPECT_EQ(JobBaseName(name), std::nullopt);
  }
  RhinoApp().CommandWindow().SetSink({});
}

TEST(JobFiles, FramesHaveFourDigitsOrMore) {
  EXPECT_EQ(FrameFileName("/t/a", 0), "/t/a_0000.rib");
  EXPECT_EQ(FrameFileName("/t/a", 29), "/t/a_0029.rib");
  EXPECT_EQ(FrameFileName("a", 12345), "a_12345.rib");
}

TEST(JobFiles, TheVersionGoesIntoSceneAndImage) {
  UserValues user;
  user.Version = 7;
  RenderSettings settings;
  settings.RibName = "C:\\t\\a.rib";
  settings.ImageName = "x.tif";
  ApplyVersionSuffix(user, settings);
  EXPECT_EQ(settings.RibName, "C:\\t\\a.rib");
  EXPECT_EQ(settings.ImageName, "x.tif");
  user.UseVersion = true;
  ApplyVersionSuffix(user, settings);
  EXPECT_EQ(settings.RibName, "C:\\t\\a_v7.rib");
  EXPECT_EQ(settings.ImageName, "x_v7.tif");
  EXPECT_EQ(user.Version, 7);
}

TEST(JobFiles, TheGreatestVersionStays) {
  UserValues user;
  user.Version = std::numeric_limits<int>::max();
  IncrementVersion(user);
  EXPECT_EQ(user.Version, std::numeric_limits<int>::max());
}

TEST(JobFiles, ATextThatCannotBeWrittenIsNoticed) {
  const TempFolder folder;
  EXPECT_TRUE(WriteTextFile(folder.File("a.rib"), "a\n"));
  EXPECT_EQ(FileContent(folder.File("a.rib")), "a\n");
  EXPECT_TRUE(WriteTextFile(folder.File("a.rib"), ""));
  EXPECT_EQ(FileContent(folder.File("a.rib")), "");
  EXPECT_FALSE(WriteTextFile(folder.File("none/a.rib"), "a\n"));
  EXPECT_FALSE(WriteTextFile(folder.Path().string(), "a\n"));
  EXPECT_FALSE(WriteTextFile("/dev/full", "a\n"));
  EXPECT_TRUE(WriteTextFile("/dev/null", "a\n"));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST(JobFiles, AReaderOfTheOlderFileReadsItToItsEnd) {
  const TempFolder folder;
  const std::string name = folder.File("a_all.rib");
  ASSERT_TRUE(WriteTextFile(name, "first\nsecond\n"));
  std::ifstream reader(name);
  ASSERT_TRUE(WriteTextFile(name, "new\n"));
  const std::string read{std::istreambuf_iterator<char>(reader), {}};
  EXPECT_EQ(read, "first\nsecond\n");
  EXPECT_EQ(FileContent(name), "new\n");
  const std::filesystem::directory_iterator files(folder.Path());
  EXPECT_EQ(std::distance(begin(files), end(files)), 1) << "something is left beside it";
}

TEST(JobFiles, AnOlderFileStaysWhenTheNewOneIsCutOff) {
  const TempFolder folder;
  const std::string name = folder.File("a_all.rib");
  ASSERT_TRUE(WriteTextFile(name, "old\n"));
  rlimit before = {};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto old_handler = signal(SIGXFSZ, SIG_IGN);
  const rlimit small{1000, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  const bool written = WriteTextFile(name, std::string(5000, 'x'));
  setrlimit(RLIMIT_FSIZE, &before);
  signal(SIGXFSZ, old_handler);
  EXPECT_FALSE(written);
  EXPECT_EQ(FileContent(name), "old\n");
}

TEST(JobFiles, APipeIsWrittenToAndStays) {
  const TempFolder folder;
  const std::string name = folder.File("pipe.rib");
  ASSERT_EQ(mkfifo(name.c_str(), 0600), 0);
  std::string read;
  std::thread reader([&] { read = FileContent(name); });
  EXPECT_TRUE(WriteTextFile(name, "a\n"));
  reader.join();
  EXPECT_EQ(read, "a\n");
  EXPECT_TRUE(std::filesystem::is_fifo(name));
}

}  // namespace
}  // namespace orv
