#include "jobs/animation_frames.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

#include "host/system/interrupt.h"
#include "host/system/text.h"
#include "sequence_fixture.h"

// The files of a sequence's frames.

namespace orv {
namespace {

using testing::HasSubstr;
using testing::Not;

class AnimationFrames : public SequenceTest {
 protected:
  // The names of the files in the test's folder.
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
};

TEST_F(AnimationFrames, ATurntableMovesByItsShutterAlone) {
  WriteFrames(SettingsFor(1, 4));
  EXPECT_EQ(Frame("0000"), FrameText("0", "0"));
  EXPECT_EQ(Frame("0001"), FrameText("1", "0.25"));
  EXPECT_EQ(Frame("0002"), FrameText("2", "0.5"));
  EXPECT_EQ(Frame("0003"), FrameText("3", "0.75"));
  EXPECT_EQ(Files(),
            (std::vector<std::string>{"a_0000.rib", "a_0001.rib", "a_0002.rib", "a_0003.rib"}));
  EXPECT_EQ(messages_, "");
}

TEST_F(AnimationFrames, AFileReadsAllFrames) {
  RenderSettings settings = SettingsFor(1, 3);
  std::string all;
  ASSERT_TRUE(WriteAnimationFrames(doc_, settings, &all));
  EXPECT_EQ(all, folder_.File("a_all.rib"));
  std::string expected;
  for (const char* frame : {"a_0000.rib", "a_0001.rib", "a_0002.rib"}) {
    expected += "ReadArchive \"" + folder_.File(frame) + "\"\n";
  }
  EXPECT_EQ(FileContent(all), expected);
}

TEST_F(AnimationFrames, WithoutAFileOfAllFramesAnOldOneStays) {
  WriteFileContent(folder_.File("a_all.rib"), "old");
  WriteFileContent(folder_.File("a_0002.rib"), "old");
  WriteFileContent(folder_.File("a_0001.rib"),
                   "old and much longer than the new one is, by far, "
                   "so that something would be left of it, if the file "
                   "was not emptied before it is written again, as it "
                   "should be");
  WriteFrames(SettingsFor(1, 2));
  EXPECT_EQ(FileContent(folder_.File("a_all.rib")), "old");
  EXPECT_EQ(Frame("0001"), FrameText("1", "0.5"));
  EXPECT_EQ(Frame("0002"), "old");
}

TEST_F(AnimationFrames, ASingleFrameIsAtTime0) {
  WriteFrames(SettingsFor(1, 1));
  EXPECT_EQ(Frame("0000"), FrameText("0", "0"));
}

TEST_F(AnimationFrames, WithoutFramesThereAreNoFiles) {
  for (const int count : {0, -5}) {
    RenderSettings settings = SettingsFor(1, count);
    std::string all;
    ASSERT_TRUE(WriteAnimationFrames(doc_, settings, &all));
    EXPECT_EQ(Files(), std::vector<std::string>{"a_all.rib"});
    EXPECT_EQ(FileContent(all), "");
  }
}

TEST_F(AnimationFrames, NamesHaveSlashesInTheStreamsOnly) {
  RenderSettings settings = SettingsFor(1, 1);
  std::filesystem::create_directory(folder_.File("sub"));
  settings.RibName = folder_.Path().string() + "\\sub\\b.rib";
  std::string all;
  ASSERT_TRUE(WriteAnimationFrames(doc_, settings, &all));
  EXPECT_EQ(settings.RibName, folder_.Path().string() + "\\sub\\b_world.rib");
  EXPECT_EQ(all, folder_.Path().string() + "\\sub\\b_all.rib");
  EXPECT_THAT(FileContent(folder_.File("sub/b_0000.rib")),
              HasSubstr("ReadArchive \"" + folder_.File("sub/b_world.rib") + "\"\n"));
  EXPECT_EQ(FileContent(folder_.File("sub/b_all.rib")),
            "ReadArchive \"" + folder_.File("sub/b_0000.rib") + "\"\n");
}

TEST_F(AnimationFrames, AQuoteInANameDoesNotEndTheString) {
  RenderSettings settings = SettingsFor(1, 1);
  settings.RibName = folder_.File("a \"b\".rib");
  std::string all;
  ASSERT_TRUE(WriteAnimationFrames(doc_, settings, &all));
  EXPECT_THAT(FileContent(folder_.File("a \"b\"_0000.rib")),
              HasSubstr("/a \\\"b\\\"_world.rib\"\n"));
  EXPECT_THAT(FileContent(all), HasSubstr("/a \\\"b\\\"_0000.rib\"\n"));
}

TEST_F(AnimationFrames, TheExtensionOfTheSceneIsReplaced) {
  RenderSettings settings = SettingsFor(1, 1);
  settings.RibName = folder_.File("a.v2.orib");
  ASSERT_TRUE(WriteAnimationFrames(doc_, settings, nullptr));
  EXPECT_EQ(settings.RibName, folder_.File("a.v2_world.rib"));
  EXPECT_EQ(Files(), std::vector<std::string>{"a.v2_0000.rib"});
}

TEST_F(AnimationFrames, OfALongNameTheFirstCharactersCount) {
  RenderSettings settings = SettingsFor(1, 1);
  const std::size_t left = 256 - 1 - host::CodePointCount(folder_.Path().string());
  std::string name;
  for (std::size_t i = 0; i < left - 1; ++i) name += "x";
  name += "ä";
  settings.RibName = folder_.File(name + "ä and more.rib");
  ASSERT_TRUE(WriteAnimationFrames(doc_, settings, nullptr));
  EXPECT_EQ(settings.RibName, folder_.File(name + "_world.rib"));
  EXPECT_EQ(Files(), std::vector<std::string>{name + "_0000.rib"});
}

TEST_F(AnimationFrames, AFrameThatCannotBeWrittenEndsTheSequenceInSilence) {
  RenderSettings settings = SettingsFor(1, 4);
  std::filesystem::create_directory(folder_.File("a_0002.rib"));
  std::string all;
  EXPECT_FALSE(WriteAnimationFrames(doc_, settings, &all));
  EXPECT_EQ(Files(), (std::vector<std::string>{"a_0000.rib", "a_0001.rib", "a_0002.rib"}));
  EXPECT_EQ(messages_, "");
}

TEST_F(AnimationFrames, AFullDiskIsNoticed) {
  RenderSettings settings = SettingsFor(1, 4);
  std::filesystem::create_symlink("/dev/full", folder_.File("a_0001.rib"));
  EXPECT_FALSE(WriteAnimationFrames(doc_, settings, nullptr));
  EXPECT_FALSE(std::filesystem::exists(folder_.File("a_0002.rib")));
}

TEST_F(AnimationFrames, AFileOfAllFramesThatCannotBeWrittenIsTold) {
  RenderSettings settings = SettingsFor(1, 2);
  std::filesystem::create_directory(folder_.File("a_all.rib"));
  std::string all;
  EXPECT_FALSE(WriteAnimationFrames(doc_, settings, &all));
  EXPECT_EQ(messages_, "Unable to write rib file for all frames.\n");
  EXPECT_EQ(Frame("0001"), FrameText("1", "0.5"));
}

TEST_F(AnimationFrames, AMissingPathIsTold) {
  SetCurves({{"Target", Line({0, 0, 0}, {1, 0, 0})}});
  const struct {
    int mode;
    const char* camera;
    const char* target;
    const char* message;
  } rows[] = {
      {2, "Path", "Target", "Unable to find named camera path.\n"},
      {2, "", "Target", "Unable to find named camera path.\n"},
      {3, "Path", "Target", "Unable to find named camera path.\n"},
      {3, "Path", "None", "Unable to find named camera path.\n"},
      {3, "Target", "None", "Unable to find named target path.\n"},
      {3, "Target", "", "Unable to find named target path.\n"},
  };
  for (const auto& row : rows) {
    RenderSettings settings = SettingsFor(row.mode, 2);
    settings.CameraPath = row.camera;
    settings.TargetPath = row.target;
    messages_.clear();
    EXPECT_FALSE(WriteAnimationFrames(doc_, settings, nullptr));
    EXPECT_EQ(messages_, row.message);
    EXPECT_EQ(settings.RibName, folder_.File("a.rib"));
  }
  EXPECT_TRUE(Files().empty());
}

TEST_F(AnimationFrames, ATurntableNeedsNoPath) {
  RenderSettings settings = SettingsFor(1, 1);
  settings.CameraPath = "None";
  EXPECT_TRUE(WriteAnimationFrames(doc_, settings, nullptr));
}

TEST_F(AnimationFrames, TheUsersInterruptEndsTheSequence) {
  RenderSettings settings = SettingsFor(1, 100000);
  host::RequestInterrupt();
  EXPECT_FALSE(WriteAnimationFrames(doc_, settings, nullptr));
  host::ClearInterrupt();
  EXPECT_TRUE(Files().empty());
}

TEST_F(AnimationFrames, AFlyThroughHasACameraInEachFrame) {
  SetCurves({{"PATH", Line({0, -10, 0}, {0, -6, 0})}});
  WriteFrames(SettingsFor(2, 2));
  const std::string projection = "  Projection \"perspective\" \"fov\" [26.9915]\n";
  EXPECT_EQ(Frame("0000"), FrameText("0", "0",
                                     projection + "  Transform [ 1 0 0 0.0 0 0 1 0.0 0 1 0 0.0 "
                                                  "-0 -0 10 1.0 ]\n"));
  EXPECT_THAT(Frame("0001"), HasSubstr(projection));
  EXPECT_THAT(Frame("0001"), HasSubstr(" 8 1.0 ]\n"));
  EXPECT_THAT(Frame("0001"), Not(HasSubstr("DepthOfField")));
}

}  // namespace
}  // namespace orv
