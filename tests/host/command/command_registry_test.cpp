#include "host/command/command_registry.h"

#include <gmock/gmock.h>

#include "host/command/command_runner.h"
#include "host/command/export_file.h"
#include "host/command/script_input.h"
#include "host/system/interrupt.h"
#include "recorded_window.h"
#include "sample_plugin.h"
#include "support/typed_input.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

SampleCommand::Body Gives(CommandResult result) {
  return [result](CRhinoCommandContext&) { return result; };
}

TEST(CommandRegistry, FindsNamesAndTheirUnambiguousBeginningsInAnyCase) {
  SampleCommand sel_all("SelAll", Gives(CommandResult::success));
  SampleCommand sel("Sel", Gives(CommandResult::success));
  SampleCommand show("Show", Gives(CommandResult::success));
  CommandRegistry registry;
  EXPECT_TRUE(registry.AddCommand(show));
  EXPECT_TRUE(registry.AddCommand(sel_all));
  EXPECT_TRUE(registry.AddCommand(sel));
  EXPECT_EQ(registry.FindCommand("selall"), &sel_all);
  EXPECT_EQ(registry.FindCommand("SELA"), &sel_all);
  EXPECT_EQ(registry.FindCommand("sel"), &sel);
  EXPECT_EQ(registry.FindCommand("sh"), &show);
  EXPECT_EQ(registry.FindCommand("x"), nullptr);
  EXPECT_EQ(registry.FindCommand(""), nullptr);
  EXPECT_THAT(registry.Commands(), ElementsAre(&sel, &sel_all, &show));
}

TEST(CommandRegistry, TellsTheCandidatesOfAnAmbiguousName) {
  SampleCommand one("SelAll", Gives(CommandResult::success));
  SampleCommand two("SelName", Gives(CommandResult::success));
  CommandRegistry registry;
  registry.AddCommand(two);
  registry.AddCommand(one);
  std::vector<std::string> candidates;
  EXPECT_EQ(registry.FindCommand("sel", &candidates), nullptr);
  EXPECT_THAT(candidates, ElementsAre("SelAll", "SelName"));
}

TEST(CommandRegistry, NameThatIsTakenIsRefused) {
  SampleCommand one("Show", Gives(CommandResult::success));
  SampleCommand two("SHOW", Gives(CommandResult::success));
  CommandRegistry registry;
  EXPECT_TRUE(registry.AddCommand(one));
  EXPECT_FALSE(registry.AddCommand(two));
  EXPECT_THAT(registry.Commands(), ElementsAre(&one));
}

TEST(CommandRegistry, PlugInBringsCommandsAndFileTypes) {
  const RecordedWindow window;
  SampleCommand own("Show", Gives(CommandResult::success));
  SampleCommand added("OrvSample", Gives(CommandResult::success));
  SampleCommand taken("Show", Gives(CommandResult::success));
  SamplePlugIn plug_in;
  plug_in.m_commands = {&added, &taken};
  CommandRegistry registry;
  registry.AddCommand(own);
  ASSERT_TRUE(registry.AddPlugIn(plug_in));
  EXPECT_EQ(registry.FindCommand("orvs"), &added);
  EXPECT_EQ(registry.FindExporter("SMP"), &plug_in);
  EXPECT_EQ(registry.FindExporter("rib"), nullptr);
  EXPECT_EQ(window.Text(), "Sample: a command named Show is there already.\n");
  registry.RemovePlugIn(plug_in);
  registry.RemovePlugIn(plug_in);
  EXPECT_THAT(registry.Commands(), ElementsAre(&own));
  EXPECT_EQ(registry.FindExporter("smp"), nullptr);
  EXPECT_THAT(plug_in.m_calls, ElementsAre("load", "unload"));
}

TEST(CommandRegistry, PlugInThatDoesNotLoadRegistersNothing) {
  SampleCommand added("OrvSample", Gives(CommandResult::success));
  SamplePlugIn plug_in;
  plug_in.m_commands = {&added};
  plug_in.m_loads = false;
  CommandRegistry registry;
  EXPECT_FALSE(registry.AddPlugIn(plug_in));
  EXPECT_THAT(registry.Commands(), IsEmpty());
  EXPECT_EQ(registry.FindExporter("smp"), nullptr);
}

TEST(CommandRegistry, NoExceptionComesOutOfAPlugIn) {
  const RecordedWindow window;
  SamplePlugIn plug_in;
  CommandRegistry registry;
  ASSERT_TRUE(registry.AddPlugIn(plug_in));
  plug_in.m_throws = true;
  EXPECT_EQ(ExportFile(registry, RhinoApp().ActiveDoc(), "a.smp", false), CommandResult::failure);
  registry.RemovePlugIn(plug_in);
  EXPECT_FALSE(registry.AddPlugIn(plug_in));
  EXPECT_EQ(window.Text(),
            "Export failed: out of luck\nUnable to export 'a.smp'.\n"
            "Unloading Sample failed: out of luck\nLoading Sample failed: out of luck\n");
}

TEST(ExportFile, GoesByTheExtension) {
  const RecordedWindow window;
  SamplePlugIn plug_in;
  CommandRegistry registry;
  ASSERT_TRUE(registry.AddPlugIn(plug_in));
  CRhinoDoc& doc = RhinoApp().ActiveDoc();
  EXPECT_EQ(ExportFile(registry, doc, "a/b.Smp", false), CommandResult::success);
  EXPECT_EQ(ExportFile(registry, doc, "b.smp", true), CommandResult::success);
  EXPECT_EQ(ExportFile(registry, doc, "c.rib", false), CommandResult::failure);
  EXPECT_EQ(ExportFile(registry, doc, "smp", false), CommandResult::failure);
  EXPECT_THAT(plug_in.m_calls, ElementsAre("load", "write a/b.Smp", "write b.smp selected"));
  EXPECT_EQ(window.Text(),
            "Exported 'a/b.Smp'.\nExported 'b.smp'.\n"
            "No plug-in writes a file of the type of 'c.rib'.\n"
            "No plug-in writes a file of the type of 'smp'.\n");
  plug_in.m_extension = "orib";
  EXPECT_EQ(ExportFile(registry, doc, "c.RIB", false), CommandResult::success);
  registry.RemovePlugIn(plug_in);
}

TEST(ExportFile, FailureAndInterruptAreTold) {
  const RecordedWindow window;
  SamplePlugIn plug_in;
  plug_in.m_written = 0;
  CommandRegistry registry;
  ASSERT_TRUE(registry.AddPlugIn(plug_in));
  CRhinoDoc& doc = RhinoApp().ActiveDoc();
  EXPECT_EQ(ExportFile(registry, doc, "a 100%s.smp", false), CommandResult::failure);
  EXPECT_EQ(window.Text(), "Unable to export 'a 100%s.smp'.\n");
  plug_in.m_on_write = [] { host::RequestInterrupt(); };
  EXPECT_EQ(ExportFile(registry, doc, "a.smp", false), CommandResult::cancel);
  host::ClearInterrupt();
  registry.RemovePlugIn(plug_in);
}

class CommandRunnerTest : public testing::Test {
 protected:
  CommandRunnerTest() {
    for (SampleCommand* command : {&good_, &cancelled_, &idle_, &failing_, &throwing_, &stopped_}) {
      registry_.AddCommand(*command);
    }
  }
  CommandResult Run(InputSource& input) {
    return CommandRunner(registry_, input).RunAll(exit_requested_);
  }
  CommandResult Run(std::string_view script) {
    ScriptInput input(script, "-c");
    const CommandResult result = Run(input);
    error_ = input.Error();
    return result;
  }
  SampleCommand::Body Records(std::string name, CommandResult result) {
    return [this, name, result](CRhinoCommandContext& context) {
      ran_.push_back(name + (context.IsInteractive() ? " with dialogs" : ""));
      return result;
    };
  }

  std::vector<std::string> ran_;
  SampleCommand good_{"Good", Records("Good", CommandResult::success)};
  SampleCommand cancelled_{"Cancelled", Records("Cancelled", CommandResult::cancel)};
  SampleCommand idle_{"Idle", Records("Idle", CommandResult::nothing)};
  SampleCommand failing_{"Failing", Records("Failing", CommandResult::failure)};
  SampleCommand throwing_{"Throwing",
                          [](CRhinoCommandContext&) -> CommandResult { throw std::bad_alloc(); }};
  SampleCommand stopped_{"Stopped", [](CRhinoCommandContext&) {
                           host::RequestInterrupt();
                           return CommandResult::success;
                         }};
  CommandRegistry registry_;
  bool exit_requested_ = false;
  std::string error_;
};

TEST_F(CommandRunnerTest, WorstResultCounts) {
  EXPECT_EQ(Run("Good Cancelled Good"), CommandResult::cancel);
  EXPECT_EQ(Run("Idle Cancelled"), CommandResult::nothing);
  EXPECT_EQ(Run("Failing Good"), CommandResult::failure);
  EXPECT_EQ(Run(""), CommandResult::success);
  EXPECT_EQ(ran_.size(), 7U);
  EXPECT_EQ(error_, "");
}

TEST_F(CommandRunnerTest, MarksMayStandBeforeANameInAnyOrder) {
  EXPECT_EQ(Run("_Good -Good _-good -_GOOD"), CommandResult::success);
  EXPECT_THAT(ran_, ElementsAre("Good", "Good", "Good", "Good"));
}

TEST_F(CommandRunnerTest, DashMeansWithoutDialogs) {
  TypedInput input({"Good", "-Good"});
  Run(input);
  EXPECT_THAT(ran_, ElementsAre("Good with dialogs", "Good"));
  EXPECT_EQ(input.Prompts()[0], "Command: ");
}

TEST_F(CommandRunnerTest, UnknownCommandStopsAScript) {
  EXPECT_EQ(Run("Good\nNonsense Good"), CommandResult::failure);
  EXPECT_THAT(ran_, ElementsAre("Good"));
  EXPECT_EQ(error_, "-c, line 2: Unknown command 'Nonsense'; Help lists the commands.");
}

TEST_F(CommandRunnerTest, PersonMayGoOnAfterAnUnknownCommand) {
  TypedInput input({"Nonsense", "Good"});
  EXPECT_EQ(Run(input), CommandResult::failure);
  EXPECT_THAT(ran_, ElementsAre("Good with dialogs"));
  EXPECT_THAT(input.Refusals(),
              ElementsAre("Unknown command 'Nonsense'; Help lists the commands."));
}

TEST_F(CommandRunnerTest, AmbiguousCommandTellsTheCandidates) {
  SampleCommand other("Goodbye", Gives(CommandResult::success));
  registry_.AddCommand(other);
  EXPECT_EQ(Run("goo"), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: Command 'goo' is ambiguous: Good or Goodbye.");
}

TEST_F(CommandRunnerTest, EnterAndCancelBetweenCommandsDoNothing) {
  EXPECT_EQ(Run("! Enter Good !"), CommandResult::success);
  EXPECT_THAT(ran_, ElementsAre("Good"));
}

TEST_F(CommandRunnerTest, ExceptionIsAFailedCommand) {
  const RecordedWindow window;
  EXPECT_EQ(Run("Throwing Good"), CommandResult::failure);
  EXPECT_EQ(window.Text(), "Throwing failed: std::bad_alloc\n");
  EXPECT_THAT(ran_, ElementsAre("Good"));
}

TEST_F(CommandRunnerTest, InterruptStopsAScript) {
  EXPECT_EQ(Run("Stopped Good"), CommandResult::cancel);
  EXPECT_THAT(ran_, IsEmpty());
  EXPECT_EQ(error_, "-c, line 1: Interrupted.");
  EXPECT_TRUE(host::InterruptRequested());
  host::ClearInterrupt();
}

TEST_F(CommandRunnerTest, InterruptEndsTheCommandOnlyForAPerson) {
  TypedInput input({"Stopped", "Good"});
  EXPECT_EQ(Run(input), CommandResult::cancel);
  EXPECT_THAT(ran_, ElementsAre("Good with dialogs"));
  EXPECT_FALSE(host::InterruptRequested());
}

TEST_F(CommandRunnerTest, NothingRunsAfterAnExit) {
  SampleCommand exit("Exit", [this](CRhinoCommandContext&) {
    exit_requested_ = true;
    return CommandResult::success;
  });
  registry_.AddCommand(exit);
  EXPECT_EQ(Run("Good Exit Failing"), CommandResult::success);
  EXPECT_THAT(ran_, ElementsAre("Good"));
}

TEST_F(CommandRunnerTest, AnswerThatWasNotAskedForIsForgotten) {
  SampleCommand leaves("Leaves", [](CRhinoCommandContext& context) {
    context.m_input.AnswerNextPrompt({Answer::Kind::text, "Failing", false});
    return CommandResult::success;
  });
  registry_.AddCommand(leaves);
  EXPECT_EQ(Run("Leaves Good"), CommandResult::success);
  EXPECT_THAT(ran_, ElementsAre("Good"));
}

}  // namespace
