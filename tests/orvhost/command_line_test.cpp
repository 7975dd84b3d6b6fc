#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "program_fixture.h"
#include "support/model_corpus.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class CommandLineTest : public ProgramTest {};

TEST_F(CommandLineTest, HelpTellsTheUsage) {
  const ProcessResult result = Run({"--help"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.out, StartsWith("Usage: orvhost [MODEL.3dm]"));
  EXPECT_EQ(result.err, "");
}

TEST_F(CommandLineTest, VersionIsALine) {
  const ProcessResult result = Run({"--version"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.out, testing::MatchesRegex("orvhost [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST_F(CommandLineTest, WrongUsageIsStatus64) {
  const std::pair<std::vector<std::string>, std::string> rows[] = {
      {{"--frobnicate"}, "Unknown option '--frobnicate'."},
      {{"--help=yes"}, "Unknown option '--help=yes'."},
      {{"-c"}, "Option -c needs a value."},
      {{"a.3dm", "b.3dm"}, "Only one document can be opened, not 'b.3dm' too."},
      {{""}, "The name of the document is empty."},
      {{"--plugin", ""}, "The name of the plug-in module is empty."},
      {{"a.3dm", "--export", "a.txt"},
       "--export takes a file that ends in .orib or .rib, not 'a.txt'."},
  };
  for (const auto& [arguments, message] : rows) {
    const ProcessResult result = Run(arguments);
    EXPECT_EQ(result.status, 64);
    EXPECT_EQ(result.err, "orvhost: " + message + "\nTry orvhost --help.\n");
    EXPECT_EQ(result.out, "");
  }
}

TEST_F(CommandLineTest, DashDashEndsTheOptions) {
  WriteMeshes("-c.3dm");
  const ProcessResult result = Run({"-c", "SelAll", "--", "-c.3dm"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "2 objects added to the selection.\n");
}

TEST_F(CommandLineTest, ScriptsRunInTheirOrder) {
  WriteMeshes("model.3dm");
  WriteFileContent(folder_.File("job one.txt"), "SelName Mesh1 # the first\nSelNone\n");
  const ProcessResult result =
      Run({"model.3dm", "-c", "SelAll", "--script", "job one.txt", "-c", "SelName Mesh*"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out,
            "2 objects added to the selection.\n0 objects added to the selection.\n"
            "2 objects removed from the selection.\n2 objects added to the selection.\n");
  EXPECT_EQ(result.err, "");
}

TEST_F(CommandLineTest, EditsAreUndoneAndRedoneByTheCommand) {
  WriteMeshes("model.3dm");
  const ProcessResult result =
      Run({"model.3dm", "-c", "SelAll SetUserText OrvArchive \"a b.rib\" Hide Undo Undo Redo", "-c",
           "SelName Mesh2 What Undo Show"});
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.out, StartsWith("2 objects added to the selection.\n"
                                     "OrvArchive set on 2 objects.\n2 objects hidden.\n"
                                     "Undo: Hide.\nUndo: SetUserText.\nRedo: SetUserText.\n"));
  EXPECT_THAT(result.out, HasSubstr("\n  user string: OrvArchive=a b.rib\n"));
  EXPECT_THAT(result.out, EndsWith("Undo: SetUserText.\n0 objects shown.\n"));
}

TEST_F(CommandLineTest, StatusIsTheWorstResult) {
  WriteMeshes("model.3dm");
  EXPECT_EQ(Run({"model.3dm", "-c", "SelAll"}).status, 0);
  EXPECT_EQ(Run({"model.3dm", "-c", "SelAll Open ! SelNone"}).status, 1);
  EXPECT_EQ(Run({"model.3dm", "-c", "SelName x Open !"}).status, 2);
  EXPECT_EQ(Run({"model.3dm", "-c", "Open none.3dm SelAll"}).status, 3);
}

TEST_F(CommandLineTest, UnknownCommandStopsEverything) {
  WriteMeshes("model.3dm");
  WriteFileContent(folder_.File("job.txt"), "SelNone\nSelEverything\nSelAll\n");
  const ProcessResult result =
      Run({"model.3dm", "--script", "job.txt", "-c", "SelAll", "--export", "out.orib"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.out, "0 objects removed from the selection.\n");
  EXPECT_EQ(
      result.err,
      "orvhost: job.txt, line 2: Unknown command 'SelEverything'; Help lists the commands.\n");
  EXPECT_THAT(Files(), Not(testing::Contains("out.orib")));
}

TEST_F(CommandLineTest, AmbiguousAndUnknownOptionsTellTheCandidates) {
  EXPECT_EQ(Run({"-c", "Sel"}).err,
            "orvhost: -c, line 1: Command 'Sel' is ambiguous: SelAll, SelId, SelLayer, "
            "SelMaterial, SelName, SelNone or SelType.\n");
  const ProcessResult result = Run({"-c", "SelType Mash"});
  EXPECT_EQ(result.status, 3);
  EXPECT_THAT(result.err, StartsWith("orvhost: -c, line 1: Unknown option 'Mash'; expected Point"));
}

TEST_F(CommandLineTest, ScriptThatEndsTooEarlyFails) {
  const ProcessResult result = Run({"-c", "SelName"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.err,
            "orvhost: -c, line 1: The script ends where the command still asks: Name of the "
            "objects to select\n");
}

TEST_F(CommandLineTest, ScriptThatCannotBeReadRunsNothing) {
  WriteMeshes("model.3dm");
  const ProcessResult missing = Run({"model.3dm", "-c", "SelAll", "--script", "none.txt"});
  EXPECT_EQ(missing.status, 3);
  EXPECT_EQ(missing.out, "");
  EXPECT_EQ(missing.err,
            "orvhost: The script none.txt can't be read: No such file or directory.\n");
  const ProcessResult open_quote = Run({"model.3dm", "-c", "SelAll", "-c", "Open \"x"});
  EXPECT_EQ(open_quote.status, 3);
  EXPECT_EQ(open_quote.out, "");
  EXPECT_EQ(open_quote.err, "orvhost: -c, line 1: A double quote is not closed.\n");
}

TEST_F(CommandLineTest, StandardInputIsAScript) {
  WriteMeshes("model.3dm");
  options_.input = "SelAll\nOrvNonsense\n";
  const ProcessResult result = Run({"model.3dm"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.out, "2 objects added to the selection.\n");
  EXPECT_EQ(
      result.err,
      "orvhost: standard input, line 2: Unknown command 'OrvNonsense'; Help lists the commands.\n");
}

TEST_F(CommandLineTest, StandardInputIsLeftAloneBesideAScript) {
  options_.input = "Nonsense\n";
  EXPECT_EQ(Run({"-c", "SelNone"}).status, 0);
}

TEST_F(CommandLineTest, MissingModelIsToldOnTheStandardError) {
  const ProcessResult result = Run({"none.3dm", "--export", "out.orib"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "orvhost: Unable to open none.3dm: No such file or directory\n");
  EXPECT_THAT(Files(), Not(testing::Contains("out.orib")));
}

TEST_F(CommandLineTest, FolderIsNoModel) {
  std::filesystem::create_directory(folder_.File("models"));
  const ProcessResult result = Run({"models"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.err, "orvhost: Unable to open models: it is a folder\n");
}

TEST_F(CommandLineTest, OtherFileIsNoModel) {
  WriteFileContent(folder_.File("model.3dm"), "This is no document.\n");
  const ProcessResult result = Run({"model.3dm"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.err,
            "orvhost: Unable to open model.3dm: it is no 3dm document: it doesn't begin as one\n");
}

TEST_F(CommandLineTest, ExportWritesEveryVisibleMesh) {
  WriteMeshes("model.3dm", 3);
  for (const char* name : {"out.orib", "out.rib"}) {
    const ProcessResult result = Run({"model.3dm", "--export", name});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out, HasSubstr("Exported '" + std::string(name) + "'.\n"));
    const std::string rib = FileContent(folder_.File(name));
    EXPECT_THAT(rib, StartsWith("##RenderMan RIB"));
    std::size_t count = 0;
    for (std::size_t at = 0; (at = rib.find("PointsPolygons", at)) != std::string::npos; ++at) {
      ++count;
    }
    EXPECT_EQ(count, 3U);
  }
}

TEST_F(CommandLineTest, ExportFollowsTheScripts) {
  WriteMeshes("model.3dm", 3);
  EXPECT_EQ(Run({"model.3dm", "-c", "SelName Mesh2 Hide Exit", "--export", "out.orib"}).status, 0);
  EXPECT_THAT(FileContent(folder_.File("out.orib")), HasSubstr("PointsPolygons"));
  EXPECT_EQ(Run({"model.3dm", "-c", "Hide Mesh1 Mesh2 Mesh3", "--export", "none.orib"}).status, 0);
  EXPECT_THAT(FileContent(folder_.File("none.orib")), Not(HasSubstr("PointsPolygons")));
}

TEST_F(CommandLineTest, MissingOutputFolderIsToldBeforeTheWork) {
  WriteMeshes("model.3dm");
  const ProcessResult result = Run({"model.3dm", "--export", "no folder/out.orib"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "orvhost: There is no folder 'no folder/' to export to.\n");
}

TEST_F(CommandLineTest, OutputThatCannotBeWrittenFails) {
  WriteMeshes("model.3dm");
  std::filesystem::create_symlink("/dev/full", folder_.File("full.orib"));
  const ProcessResult full = Run({"model.3dm", "--export", "full.orib"});
  EXPECT_EQ(full.status, 3);
  EXPECT_THAT(full.out, HasSubstr("Unable to export 'full.orib'.\n"));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
  std::filesystem::create_directory(folder_.File("taken.orib"));
  EXPECT_EQ(Run({"model.3dm", "--export", "taken.orib"}).status, 3);
  EXPECT_TRUE(std::filesystem::is_directory(folder_.File("taken.orib")));
}

TEST_F(CommandLineTest, ReadOnlyFolderFailsAndKeepsTheOlderFile) {
  if (geteuid() == 0) GTEST_SKIP() << "nothing is read-only for the superuser";
  WriteMeshes("model.3dm");
  std::filesystem::create_directory(folder_.File("locked"));
  WriteFileContent(folder_.File("locked/out.orib"), "older\n");
  std::filesystem::permissions(folder_.File("locked"), std::filesystem::perms(0500));
  EXPECT_EQ(Run({"model.3dm", "--export", "locked/out.orib"}).status, 3);
  EXPECT_EQ(FileContent(folder_.File("locked/out.orib")), "older\n");
  std::filesystem::permissions(folder_.File("locked"), std::filesystem::perms(0700));
}

TEST_F(CommandLineTest, FolderThatTakesNoFilesFails) {
  WriteMeshes("model.3dm");
  const ProcessResult result = Run({"model.3dm", "--export", "/proc/out.orib"});
  EXPECT_EQ(result.status, 3);
  EXPECT_THAT(result.out, HasSubstr("Unable to export '/proc/out.orib'.\n"));
}

TEST_F(CommandLineTest, FullStandardOutputFails) {
  options_.output_file = "/dev/full";
  const ProcessResult result = Run({"-c", "DocumentInfo"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.err, "orvhost: The output can't be written: No space left on device.\n");
}

TEST_F(CommandLineTest, ModuleIsNamedByAnOption) {
  const ProcessResult missing = Run({"--plugin", "none.rhp", "-c", "SelAll"});
  EXPECT_EQ(missing.status, 3);
  EXPECT_THAT(missing.err, StartsWith("orvhost: The plug-in module none.rhp can't be used: "));
  EXPECT_EQ(Run({"--plugin", ORV_BIN_FOLDER "/RhinoOrv5_x64.rhp", "-c", "SelNone"}).status, 0);
}

TEST_F(CommandLineTest, UnfitModulesAreRefused) {
  const std::pair<std::string, std::string> rows[] = {
      {"test_module_without_url", "it does not export RhinoPlugInUpdateURL."},
      {"test_module_old_sdk",
       "its RhinoPlugInSdkVersion is 200612125, and this host needs 200909025."},
  };
  for (const auto& [name, reason] : rows) {
    const std::string module = ORV_BIN_FOLDER "/" + name + ".rhp";
    const ProcessResult result = Run({"--plugin", module, "-c", "SelAll"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "orvhost: The plug-in module " + module + " can't be used: " + reason + "\n");
  }
}

TEST_F(CommandLineTest, ModuleIsFoundBesideTheProgramOrInItsLibraryFolder) {
  const ProcessOptions options = options_;
  const auto run = [&](const std::string& program) {
    return RunProcess({program, "-c", "OrvResetSettings"}, options);
  };
  std::filesystem::create_directories(folder_.File("bin"));
  std::filesystem::create_directories(folder_.File("lib/rhinoorv"));
  for (const auto& entry : std::filesystem::directory_iterator(ORV_BIN_FOLDER)) {
    const std::string name = entry.path().filename().string();
    if (name == "orvhost" || name.starts_with("libhost_")) {
      std::filesystem::copy(entry.path(), folder_.Path() / "bin" / name);
    }
  }
  const ProcessResult missing = run(folder_.File("bin/orvhost"));
  EXPECT_EQ(missing.status, 3);
  EXPECT_EQ(missing.err,
            "orvhost: The plug-in module RhinoOrv5_x64.rhp is neither beside this program nor in "
            "../lib/rhinoorv; name it with --plugin.\n");
  std::filesystem::copy(ORV_BIN_FOLDER "/RhinoOrv5_x64.rhp", folder_.File("lib/rhinoorv"));
  const ProcessResult found = run(folder_.File("bin/orvhost"));
  EXPECT_EQ(found.status, 0) << found.err;
}

TEST_F(CommandLineTest, SettingsAreSavedEditedLoadedAndUsed) {
  WriteMeshes("model.3dm");
  WriteFileContent(folder_.File("job.txt"),
                   "OrvResetSettings\n_-OrvSaveSettings \"my settings.ors\"\n");
  EXPECT_EQ(Run({"model.3dm", "--script", "job.txt"}).status, 0);
  std::string settings = FileContent(folder_.File("my settings.ors"));
  EXPECT_THAT(settings, StartsWith("PixelSamples=4\n"));
  settings.replace(0, 14, "PixelSamples=7");
  WriteFileContent(folder_.File("my settings.ors"), settings);
  const ProcessResult result =
      Run({"model.3dm", "-c",
           "OrvLoadSettings \"my settings.ors\" SelAll -OrvWriteArchive Archive \"mesh.rib\" "
           "Materials=No Enter -OrvSaveSettings again.ors"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(FileContent(folder_.File("again.ors")), settings);
  EXPECT_THAT(FileContent(folder_.File("mesh.rib")), HasSubstr("PointsPolygons"));
}

TEST_F(CommandLineTest, SettingsThatCannotBeLoadedOrSavedFail) {
  const ProcessResult load = Run({"-c", "OrvLoadSettings none.ors"});
  EXPECT_EQ(load.status, 3);
  EXPECT_EQ(load.out, "Unable to load settings.\n");
  const ProcessResult save = Run({"-c", "OrvSaveSettings none/none.ors"});
  EXPECT_EQ(save.status, 3);
  EXPECT_EQ(save.out, "Unable to save settings.\n");
}

TEST_F(CommandLineTest, ArchiveWithoutANameIsToldByTheExport) {
  const ProcessResult result = Run({"-c", "-OrvWriteArchive Enter"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "Missing rib file name");
}

TEST_F(CommandLineTest, VersionReachesTheProfileAtTheEnd) {
  EXPECT_EQ(Run({"-c", "OrvVersionIncrement OrvVersionIncrement"}).status, 0);
  EXPECT_THAT(FileContent(folder_.File("profile/profile.ini")), HasSubstr("\nVersion=3\n"));
}

TEST_F(CommandLineTest, InterruptedExportLeavesTheOlderFile) {
  WriteMeshes("large.3dm", 5000, 400);
  WriteFileContent(folder_.File("out.orib"), "older\n");
  struct stat older = {};
  ASSERT_EQ(stat(folder_.File("out.orib").c_str(), &older), 0);
  const std::vector<std::string> files = Files();
  Process process(Command({"large.3dm", "-c", "Export out.orib SelAll"}), options_);
  // A new file stands at the path once the export has begun.
  const auto begun = [&] {
    struct stat now = {};
    return stat(folder_.File("out.orib").c_str(), &now) == 0 && now.st_ino != older.st_ino;
  };
  for (int i = 0; i < 30000 && !begun(); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  process.Signal(SIGINT);
  const ProcessResult result = process.Wait();
  EXPECT_EQ(result.status, 1) << result.err;
  EXPECT_THAT(result.err, HasSubstr("-c, line 1: Interrupted.\n"));
  EXPECT_THAT(result.out, Not(HasSubstr("selection")));
  EXPECT_EQ(FileContent(folder_.File("out.orib")), "older\n");
  std::vector<std::string> left = Files();
  std::erase(left, "profile");
  EXPECT_EQ(left, files);
}

TEST_F(CommandLineTest, RealDocumentsAreExported) {
  const auto corpus = ModelCorpus();
  if (!corpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  for (const char* name : {"real/r3dm_mesh.3dm", "real/v2_my_mesh_with_material.3dm",
                           "real/v6_my_mesh.3dm", "made/plugin_data.3dm"}) {
    const ProcessResult result =
        Run({(*corpus / name).string(), "-c", "DocumentInfo", "--export", "out.orib"});
    EXPECT_EQ(result.status, 0) << name << ": " << result.err;
    EXPECT_THAT(result.out, HasSubstr("Objects: ")) << name;
    EXPECT_THAT(FileContent(folder_.File("out.orib")), HasSubstr("WorldEnd")) << name;
  }
  const ProcessResult old = Run({(*corpus / "real/v1_three_points.3dm").string()});
  EXPECT_EQ(old.status, 3);
  EXPECT_THAT(old.err, HasSubstr("version 1"));
}

}  // namespace
