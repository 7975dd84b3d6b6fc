#include "jobs/option_commands.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "jobs/environment_map_command.h"
#include "option_rows.h"
#include "support/scoped_environment.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::Not;

using OptionCommands = OptionsTest;

TEST_F(OptionCommands, TraceShowsItsOptionsByTheMode) {
  EXPECT_EQ(Edit<CCommandOrvTrace>({"BgMode=Environment", "BgMode=Transparent", "Enter"}),
            CommandResult::success);
  EXPECT_THAT(
      prompts_,
      ElementsAre("Orv Trace Options ( TraceBias=0.01  TraceDepth=6  BgMode=Color  "
                  "BgColor=255,255,255  BgColorIntensity=0.2 ): ",
                  "Orv Trace Options ( TraceBias=0.01  TraceDepth=6  BgMode=Environment  "
                  "BgMapIntensity=1  BgMapBlur=0  BgMapRotateZ=0  BgMap ): ",
                  "Orv Trace Options ( TraceBias=0.01  TraceDepth=6  BgMode=Transparent ): "));
  EXPECT_EQ(Setting("ReflectionBgMode"), "0");
}

TEST_F(OptionCommands, TraceRefusesWhatIsNotShown) {
  EXPECT_EQ(EditByScript<CCommandOrvTrace>({"BgMode=Transparent", "BgColor=0,0,0"}),
            CommandResult::failure);
  EXPECT_THAT(refusals_, ElementsAre("Unknown option 'BgColor=0,0,0'; expected TraceBias, "
                                     "TraceDepth or BgMode."));
}

TEST_F(OptionCommands, TraceRows) {
  Check<CCommandOrvTrace>(
      NumberRow{"TraceBias", "TraceBias", "Trace bias", "a number", "0", "1000", "-0.1", "1000.1"});
  Check<CCommandOrvTrace>(NumberRow{"TraceDepth", "ReflectionMaxDepth",
                                    "Max depth for traced rays (0-20)", "a whole number", "0", "20",
                                    "-1", "21"});
  Check<CCommandOrvTrace>(
      ListRow{"BgMode", "ReflectionBgMode", {"Transparent", "Color", "Environment"}});
}

TEST_F(OptionCommands, TraceRowsOfTheColor) {
  const std::vector<std::string> mode = {"BgMode=Color"};
  Check<CCommandOrvTrace>(ColorRow{"BgColor", "ReflectionBgColor", "Reflection background color"},
                          mode);
  Check<CCommandOrvTrace>(
      NumberRow{"BgColorIntensity", "ReflectionColorIntensity",
                "Reflection background color intensity", "a number", "0", "100", "-0.1", "100.1"},
      mode);
}

TEST_F(OptionCommands, TraceRowsOfTheMap) {
  const std::vector<std::string> mode = {"BgMode=Environment"};
  const NumberRow rows[] = {
      {"BgMapIntensity", "ReflectionMapIntensity", "Reflection map intensity", "a number", "0",
       "100", "-0.1", "100.1"},
      {"BgMapBlur", "ReflectionBlur", "Reflection map blur", "a number", "0", "4", "-0.1", "4.1"},
      {"BgMapRotateZ", "ReflectionRotateZ", "Reflection map rotate Z (degrees)", "a number", "-360",
       "360", "-360.1", "360.1"}};
  for (const NumberRow& row : rows) Check<CCommandOrvTrace>(row, mode);
}

TEST_F(OptionCommands, OutlineShowsItsOptions) {
  EXPECT_EQ(Edit<CCommandOrvOutline>({"Enter"}), CommandResult::success);
  EXPECT_THAT(prompts_,
              ElementsAre("Orv Outline Options ( FrontBack=No  InkColor=0,0,0  InkWidth=1  "
                          "Silhouette=0.5  FadeDepth=0  MinInkWidth=0 ): "));
}

TEST_F(OptionCommands, OutlineRows) {
  Check<CCommandOrvOutline>(ToggleRow{"FrontBack", "FrontBack"});
  Check<CCommandOrvOutline>(ColorRow{"InkColor", "InkColor", "Ink color"});
  const NumberRow rows[] = {
      {"InkWidth", "InkWidth", "Ink width (in pixels)", "a number", "0", "100", "-0.1", "100.1"},
      {"Silhouette", "Silhouette", "Silhouette threshold (0.0-1.0)", "a number", "0", "1", "-0.1",
       "1.1"},
      {"FadeDepth", "FadeThreshold", "Depth at which to narrow lines", "a number", "0", "1e+06",
       "-0.1", "1000000.1"},
      {"MinInkWidth", "MinInkWidth", "Min ink width for depth fade", "a number", "0", "10", "-0.1",
       "10.1"}};
  for (const NumberRow& row : rows) Check<CCommandOrvOutline>(row);
}

TEST_F(OptionCommands, GiShowsItsOptionsByTheMode) {
  EXPECT_EQ(Edit<CCommandOrvGI>({"BgMode=Map", "Enter"}), CommandResult::success);
  const std::string always =
      "Orv Global Illumination Options ( Adaptive=No  MaxTraceDistance=100000  MaxError=0.2  "
      "MaxPixelDistance=20  Rays=256  ReadCache=No  WriteCache=No  CacheFile=OrvGiCache.opc  ";
  EXPECT_THAT(prompts_,
              ElementsAre(always + "BgMode=Color  BgColor=255,255,255  BgColorIntensity=0.5 ): ",
                          always + "BgMode=Map  BgMapIntensity=1  BgMapBlur=0.5  BgMapRotateZ=0  "
                                   "BgMap ): "));
}

TEST_F(OptionCommands, GiRows) {
  for (const ToggleRow& row :
       {ToggleRow{"Adaptive", "GiAdaptive"}, ToggleRow{"ReadCache", "GiReadCache"},
        ToggleRow{"WriteCache", "GiWriteCache"}}) {
    Check<CCommandOrvGI>(row);
  }
  const NumberRow rows[] = {
      {"MaxTraceDistance", "GiHitDist", "Max distance to trace rays", "a number", "0.01", "1e+06",
       "0.009", "1000001"},
      {"MaxError", "GiMaxError", "Max error for cached value re-use (0.0-1.0)", "a number", "0",
       "1", "-0.1", "1.1"},
      {"MaxPixelDistance", "GiPixelDist", "Max distance in pixels between cached values",
       "a number", "0", "100", "-0.1", "100.1"},
      {"Rays", "GiSamples", "Rays to trace for each GI value (1-1024)", "a whole number", "1",
       "1024", "0", "1025"}};
  for (const NumberRow& row : rows) Check<CCommandOrvGI>(row);
  Check<CCommandOrvGI>(ListRow{"BgMode", "GiBgMode", {"Color", "Map"}});
}

TEST_F(OptionCommands, GiRowsOfTheColor) {
  const std::vector<std::string> mode = {"BgMode=Color"};
  Check<CCommandOrvGI>(ColorRow{"BgColor", "GiBgColor", "GI background color"}, mode);
  Check<CCommandOrvGI>(
      NumberRow{"BgColorIntensity", "GiBgColorIntensity", "GI background intensity", "a number",
                "0", "100", "-0.1", "100.1"},
      mode);
}

TEST_F(OptionCommands, GiRowsOfTheMap) {
  const std::vector<std::string> mode = {"BgMode=Map"};
  const NumberRow rows[] = {
      {"BgMapIntensity", "GiBgMapIntensity", "Environment map intensity", "a number", "0", "100",
       "-0.1", "100.1"},
      {"BgMapBlur", "GiBgBlur", "Environment map blur", "a number", "0", "4", "-0.1", "4.1"},
      {"BgMapRotateZ", "GiBgRotateZ", "Environment map rotate Z (degrees)", "a number", "-360",
       "360", "-360.1", "360.1"}};
  for (const NumberRow& row : rows) Check<CCommandOrvGI>(row, mode);
}

// The prompts of the files: the answers up to the question, the question, and the setting.
struct FileRow {
  std::vector<std::string> First;
  std::string Name, Prompt, Key;
};

const FileRow kTraceMap = {
    {"BgMode=Environment"}, "BgMap", "Reflection map file name: ", "ReflectionBgMap"};
const FileRow kGiMap = {{"BgMode=Map"}, "BgMap", "Environment map file name: ", "GiBgMap"};
const FileRow kGiCache = {{}, "CacheFile", "Cache file name: ", "GiCacheName"};

class FileOptions : public OptionsTest {
 protected:
  // The answers to the row's prompts and `more`.
  static std::vector<std::string> Answers(const FileRow& row, std::vector<std::string> more) {
    std::vector<std::string> answers = row.First;
    answers.push_back(row.Name);
    answers.insert(answers.end(), more.begin(), more.end());
    return answers;
  }

  template <class Command>
  void CheckTyped(const FileRow& row) {
    SCOPED_TRACE(row.Key);
    EXPECT_EQ(Edit<Command>(Answers(row, {"maps/ä b.tx", "Enter"})), CommandResult::success);
    EXPECT_EQ(prompts_[row.First.size() + 1], row.Prompt);
    EXPECT_THAT(prompts_.back(), HasSubstr("  " + row.Name + "=maps\\ä b.tx "));
    EXPECT_EQ(Setting(row.Key), "maps\\ä b.tx");
    EXPECT_EQ(Edit<Command>(Answers(row, {"$orvhome/x.tx", "Enter"})), CommandResult::success);
    EXPECT_EQ(Setting(row.Key), "\\opt\\orv\\x.tx");
    EXPECT_EQ(Edit<Command>(Answers(row, {"a/$ORVHOME/x.tx", "Enter"})), CommandResult::success);
    EXPECT_EQ(Setting(row.Key), "a\\$ORVHOME\\x.tx");
    EXPECT_EQ(Edit<Command>(Answers(row, {"\"\"", "Enter"})), CommandResult::success);
    EXPECT_EQ(Setting(row.Key), "");
    EXPECT_THAT(prompts_.back(), Not(HasSubstr(row.Name + "=")));
  }

  template <class Command>
  void CheckUnanswered(const FileRow& row) {
    SCOPED_TRACE(row.Key);
    EXPECT_EQ(Edit<Command>(Answers(row, {"!"})), CommandResult::cancel);
    EXPECT_EQ(Edit<Command>(Answers(row, {"Enter"})), CommandResult::nothing);
    EXPECT_TRUE(plugIn_.UserStrings().IsEmpty());
  }

  ScopedEnvironment home_{"ORVHOME", "/opt/orv"};
};

TEST_F(FileOptions, AreTypedInTheScriptedForm) {
  CheckTyped<CCommandOrvTrace>(kTraceMap);
  CheckTyped<CCommandOrvGI>(kGiMap);
  CheckTyped<CCommandOrvGI>(kGiCache);
}

TEST_F(FileOptions, HomeMayBeAFolderOfAnotherSystem) {
  const ScopedEnvironment home("ORVHOME", "C:\\Program Files\\Orv");
  EXPECT_EQ(Edit<CCommandOrvGI>({"CacheFile=$OrvHome/x.opc", "Enter"}), CommandResult::success);
  EXPECT_EQ(Setting("GiCacheName"), "C:\\Program Files\\Orv\\x.opc");
}

TEST_F(FileOptions, HomeMayBeMissing) {
  const ScopedEnvironment home("ORVHOME", std::nullopt);
  EXPECT_EQ(Edit<CCommandOrvGI>({"CacheFile=$ORVHOME/x.opc", "Enter"}), CommandResult::success);
  EXPECT_EQ(Setting("GiCacheName"), "\\x.opc");
}

TEST_F(FileOptions, PromptThatIsNotAnsweredEndsTheCommand) {
  CheckUnanswered<CCommandOrvTrace>(kTraceMap);
  CheckUnanswered<CCommandOrvGI>(kGiMap);
  CheckUnanswered<CCommandOrvGI>(kGiCache);
}

TEST_F(FileOptions, TitlesAndFiltersOfTheDialogs) {
  EXPECT_EQ(kReflectionMapQuestion.Picker.Title, "Choose Environment Map");
  EXPECT_EQ(kGiMapQuestion.Picker.Title, "Choose GI Environment Map");
  EXPECT_EQ(kGiCacheQuestion.Picker.Title, "Set Cache File Name");
  EXPECT_THAT(Rows(kReflectionMapQuestion.Picker), ElementsAreArray(Rows(kEnvironmentMapPicker)));
  EXPECT_THAT(Rows(kGiMapQuestion.Picker), ElementsAreArray(Rows(kEnvironmentMapPicker)));
  EXPECT_THAT(Rows(kGiCacheQuestion.Picker),
              ElementsAre("Orv Point Cloud (*.opc)|*.opc", "All files|*.*"));
}

TEST_F(FileOptions, MapsAreOpenedInTheInteractiveForm) {
  WriteFileContent(folder_.File("sky.hdr"), "");
  const std::string folder = folder_.Path().string();
  plugIn_.User().EnvironmentDir = folder;
  EXPECT_EQ(EditInteractively<CCommandOrvTrace>(
                {"BgMode=Environment", "BgMap", "none.hdr", "sky.hdr", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(prompts_[2], "Choose Environment Map (in " + folder + "): ");
  EXPECT_THAT(refusals_, ElementsAre("There is no file '" + folder_.File("none.hdr") + "'."));
  EXPECT_EQ(Setting("ReflectionBgMap"), folder_.File("sky.hdr"));
  EXPECT_EQ(plugIn_.User().EnvironmentDir, folder + "/");
  EXPECT_EQ(EditInteractively<CCommandOrvGI>({"BgMode=Map", "BgMap", "sky.hdr", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(prompts_[2], "Choose GI Environment Map (in " + folder + "/): ");
  EXPECT_EQ(Setting("GiBgMap"), folder_.File("sky.hdr"));
}

TEST_F(FileOptions, DialogsStartWithThePresentNameAndBackslashes) {
  WriteFileContent(folder_.File("sky.hdr"), "");
  plugIn_.UserStrings().SetUserString("GiBgMap", folder_.File("sky.hdr"));
  plugIn_.UserStrings().SetUserString("GiBgMode", "1");
  std::string name = folder_.File("sky.hdr");
  std::replace(name.begin(), name.end(), '/', '\\');
  EXPECT_EQ(EditInteractively<CCommandOrvGI>({"BgMap", "Enter", "Enter"}), CommandResult::success);
  EXPECT_THAT(prompts_[1], HasSubstr(" <" + name + ">: "));
  EXPECT_EQ(Setting("GiBgMap"), name);
}

TEST_F(FileOptions, CacheIsSavedInTheInteractiveForm) {
  plugIn_.User().GiCacheDir = folder_.Path().string();
  EXPECT_EQ(EditInteractively<CCommandOrvGI>({"CacheFile", "gi", "Enter"}), CommandResult::success);
  EXPECT_EQ(prompts_[1], "Set Cache File Name (in " + folder_.Path().string() + "): ");
  EXPECT_EQ(Setting("GiCacheName"), folder_.File("gi.opc"));
}

TEST_F(FileOptions, CancelledDialogKeepsTheName) {
  EXPECT_EQ(EditInteractively<CCommandOrvGI>({"CacheFile", "!", "Enter"}), CommandResult::success);
  EXPECT_EQ(Setting("GiCacheName"), "OrvGiCache.opc");
}

TEST_F(OptionCommands, CancelLeavesTheDocumentsSettings) {
  plugIn_.UserStrings().SetUserString("InkWidth", "3");
  const auto before = plugIn_.UserStrings().m_e;
  EXPECT_EQ(Edit<CCommandOrvOutline>({"InkWidth=5", "!"}), CommandResult::cancel);
  EXPECT_EQ(Edit<CCommandOrvTrace>({"TraceBias=5", "!"}), CommandResult::cancel);
  EXPECT_EQ(Edit<CCommandOrvGI>({"Rays=5", "Rays", "!"}), CommandResult::cancel);
  EXPECT_EQ(EditByScript<CCommandOrvOutline>({"InkWidth=5", "InkWidth=101"}),
            CommandResult::failure);
  EXPECT_EQ(plugIn_.UserStrings().m_e, before);
}

TEST_F(OptionCommands, BoundsAreNotThoseOfTheNextLoad) {
  EXPECT_EQ(Edit<CCommandOrvOutline>({"InkWidth=50", "Enter"}), CommandResult::success);
  EXPECT_EQ(Setting("InkWidth"), "50");
  EXPECT_EQ(plugIn_.LoadSettings().InkWidth, 20);
  EXPECT_EQ(Edit<CCommandOrvGI>({"BgMode=Map", "BgMapBlur=3", "Enter"}), CommandResult::success);
  EXPECT_EQ(Setting("GiBgBlur"), "3");
  EXPECT_EQ(plugIn_.LoadSettings().GiBgBlur, 1);
}

TEST_F(OptionCommands, AcceptedOptionsStoreEverySetting) {
  EXPECT_EQ(Edit<CCommandOrvOutline>({"Enter"}), CommandResult::success);
  EXPECT_EQ(Setting("PixelSamples"), "4");
  EXPECT_EQ(Setting("InkWidth"), "1");
}

}  // namespace
}  // namespace orv
