#include "host/command/script.h"

#include <gmock/gmock.h>

#include "host/command/script_input.h"
#include "host/system/interrupt.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = Answer::Kind;

// The words of a script; a quoted one in quotes, a key in angle brackets.
std::vector<std::string> Words(std::string_view text) {
  const Script script = ParseScript(text);
  EXPECT_EQ(script.error, "");
  std::vector<std::string> words;
  for (const ScriptToken& token : script.tokens) {
    const Answer& answer = token.answer;
    if (answer.kind == Kind::enter) words.emplace_back("<Enter>");
    if (answer.kind == Kind::cancel) words.emplace_back("<Cancel>");
    if (answer.kind == Kind::text) {
      words.push_back(answer.Quoted ? "\"" + answer.Text + "\"" : answer.Text);
    }
  }
  return words;
}

TEST(Script, BlanksAndLineEndsSeparateWords) {
  EXPECT_THAT(Words("  SelAll\tWhat\r\n_Open a.3dm\n\n"),
              ElementsAre("SelAll", "What", "_Open", "a.3dm"));
  EXPECT_THAT(Words(""), IsEmpty());
  EXPECT_THAT(Words(" \n "), IsEmpty());
}

TEST(Script, QuotesHoldBlanksAndLineEnds) {
  EXPECT_THAT(Words("Open \"my model.3dm\" \"a\nb\""),
              ElementsAre("Open", "\"my model.3dm\"", "\"a\nb\""));
}

TEST(Script, QuotesMayStandInsideAWord) {
  EXPECT_THAT(Words("Archive=\"my file.rib\" a\"b c\"d"),
              ElementsAre("Archive=my file.rib", "ab cd"));
}

TEST(Script, TwoQuotesInsideQuotesAreOne) {
  EXPECT_THAT(Words(R"("say ""yes""" "" """")"), ElementsAre("\"say \"yes\"\"", "\"\"", "\"\"\""));
}

TEST(Script, BackslashesAreLetters) {
  EXPECT_THAT(Words(R"(Open "C:\models\a b.3dm" \\server\a)"),
              ElementsAre("Open", R"("C:\models\a b.3dm")", R"(\\server\a)"));
}

TEST(Script, EnterAndTheExclamationMarkAreKeys) {
  EXPECT_THAT(Words("Enter enter _ENTER ! !x \"Enter\" \"!\" Entering"),
              ElementsAre("<Enter>", "<Enter>", "<Enter>", "<Cancel>", "!x", "\"Enter\"", "\"!\"",
                          "Entering"));
}

TEST(Script, CommentStartsAtTheStartOfAWordOnly) {
  EXPECT_THAT(Words("SelAll # all of it \"\nWhat#this\n#end"), ElementsAre("SelAll", "What#this"));
}

TEST(Script, WordsKnowTheirLines) {
  const Script script = ParseScript("a\n\nb \"c\nd\" e\n# f\ng");
  std::vector<int> lines;
  for (const ScriptToken& token : script.tokens) lines.push_back(token.line);
  EXPECT_THAT(lines, ElementsAre(1, 3, 3, 4, 6));
}

TEST(Script, FirstWordsOfLinesKnowTheirIndent) {
  const Script script = ParseScript("a b\n  c \"d\n\" e\n\t f\n\n# g\n   # h\ni");
  std::vector<std::optional<std::size_t>> indents;
  for (const ScriptToken& token : script.tokens) indents.push_back(token.indent);
  EXPECT_THAT(indents, ElementsAre(0, std::nullopt, 2, std::nullopt, std::nullopt, 2, 0));
}

TEST(Script, QuoteThatIsNotClosedIsAnError) {
  const Script script = ParseScript("SelAll\nOpen \"a\nb");
  EXPECT_EQ(script.error, "A double quote is not closed.");
  EXPECT_EQ(script.error_line, 2);
}

TEST(Script, ByteOrderMarkIsSkipped) {
  EXPECT_THAT(Words("\xEF\xBB\xBFSelAll"), ElementsAre("SelAll"));
}

TEST(ScriptInput, AnswersWordByWordAndIsNoPerson) {
  ScriptInput input("Open \"a b\" Enter", "job.txt");
  EXPECT_FALSE(input.IsInteractive());
  EXPECT_EQ(input.Ask({}).Text, "Open");
  const Answer quoted = input.Ask({});
  EXPECT_EQ(quoted.Text, "a b");
  EXPECT_TRUE(quoted.Quoted);
  EXPECT_EQ(input.Ask({}).kind, Kind::enter);
  EXPECT_EQ(input.Error(), "");
}

TEST(ScriptInput, EndBetweenCommandsIsNoError) {
  ScriptInput input("", "job.txt");
  Prompt prompt;
  prompt.AsksForCommand = true;
  EXPECT_EQ(input.Ask(prompt).kind, Kind::end);
  EXPECT_EQ(input.Error(), "");
}

TEST(ScriptInput, EndInsideACommandIsEnterOnce) {
  ScriptInput input("What", "job.txt");
  Prompt prompt;
  prompt.Text = "Select objects";
  prompt.AcceptsEnter = true;
  input.Ask(prompt);
  EXPECT_EQ(input.Ask(prompt).kind, Kind::enter);
  EXPECT_EQ(input.Error(), "");
  EXPECT_EQ(input.Ask(prompt).kind, Kind::end);
  EXPECT_EQ(input.Error(),
            "job.txt, line 1: The script ends where the command still asks: Select objects");
}

TEST(ScriptInput, EndWhereEnterIsNoAnswerIsAnError) {
  ScriptInput input("SelNone\nOpen", "-c");
  Prompt prompt;
  prompt.Text = "File to open";
  input.Ask({});
  input.Ask({});
  EXPECT_EQ(input.Ask(prompt).kind, Kind::end);
  EXPECT_EQ(input.Error(),
            "-c, line 2: The script ends where the command still asks: File to open");
}

TEST(ScriptInput, RefusedWordEndsTheScript) {
  ScriptInput input("SelAll\nFoo What", "job.txt");
  input.Ask({});
  input.Ask({});
  EXPECT_FALSE(input.Refuse("Unknown command 'Foo'."));
  EXPECT_EQ(input.Error(), "job.txt, line 2: Unknown command 'Foo'.");
  EXPECT_EQ(input.Ask({}).kind, Kind::end);
  input.Refuse("Something later.");
  EXPECT_EQ(input.Error(), "job.txt, line 2: Unknown command 'Foo'.");
}

TEST(ScriptInput, ScriptThatCannotBeReadAnswersNothing) {
  ScriptInput input("SelAll \"", "-c");
  EXPECT_EQ(input.Error(), "-c, line 1: A double quote is not closed.");
  EXPECT_EQ(input.Ask({}).kind, Kind::end);
}

// A script that goes on behind errors, and what it has told.
class GoingOn : public testing::Test {
 protected:
  ~GoingOn() override { host::ClearInterrupt(); }

  void Start(std::string_view text) {
    input_ = std::make_unique<ScriptInput>(text, "job.txt");
    input_->KeepGoing([this](const std::string& error) { told_.push_back(error); });
  }
  // The next word where a command's name, or something else, is asked for; "-" is the end.
  std::string Command() {
    Prompt prompt;
    prompt.AsksForCommand = true;
    return Word(prompt);
  }
  std::string Word(const Prompt& prompt = {}) {
    const Answer answer = input_->Ask(prompt);
    return answer.kind == Kind::end ? "-" : answer.Text;
  }

  std::unique_ptr<ScriptInput> input_;
  std::vector<std::string> told_;
};

TEST_F(GoingOn, TheRestOfTheCommandsLinesIsPassedOver) {
  Start("Foo a\n  b\n\n # c\n\td\nSelAll");
  EXPECT_EQ(Command(), "Foo");
  EXPECT_FALSE(input_->Refuse("Unknown command 'Foo'."));
  EXPECT_THAT(told_, IsEmpty());
  EXPECT_EQ(Command(), "SelAll");
  EXPECT_THAT(told_, ElementsAre("job.txt, line 1: Unknown command 'Foo'."));
  EXPECT_EQ(Command(), "-");
  EXPECT_EQ(input_->Error(), "");
  EXPECT_TRUE(input_->HasFailed());
}

TEST_F(GoingOn, TheCommandGetsNoFurtherAnswer) {
  Start("Options\n  a=1\n  Enter\nSelAll");
  EXPECT_EQ(Command(), "Options");
  EXPECT_EQ(Word(), "a=1");
  input_->Refuse("a takes 2.");
  input_->Refuse("Something later.");
  EXPECT_EQ(Word(), "-");
  EXPECT_EQ(Command(), "SelAll");
  EXPECT_THAT(told_, ElementsAre("job.txt, line 2: a takes 2."));
}

TEST_F(GoingOn, ARefusedWordMayBeTheNextCommand) {
  Start("  Options\n    a=1\n  SelAll\n  SelNone");
  EXPECT_EQ(Command(), "Options");
  EXPECT_EQ(Word(), "a=1");
  EXPECT_EQ(Word(), "SelAll");
  input_->Refuse("Unknown option 'SelAll'.");
  EXPECT_EQ(Command(), "SelAll");
  EXPECT_EQ(Command(), "SelNone");
}

TEST_F(GoingOn, ALineThatIsIndentedLessBeginsACommand) {
  Start("    Foo\n  SelAll");
  EXPECT_EQ(Command(), "Foo");
  input_->Refuse("Unknown.");
  EXPECT_EQ(Command(), "SelAll");
}

TEST_F(GoingOn, TheLineOfACommandIsTheOneThatItStandsIn) {
  Start("SelNone Foo a\n  b\nSelAll");
  EXPECT_EQ(Command(), "SelNone");
  EXPECT_EQ(Command(), "Foo");
  input_->Refuse("Unknown.");
  EXPECT_EQ(Command(), "SelAll");
}

TEST_F(GoingOn, AnErrorInTheLastLineEndsTheScript) {
  Start("SelAll Foo SelNone");
  EXPECT_EQ(Command(), "SelAll");
  EXPECT_EQ(Command(), "Foo");
  input_->Refuse("Unknown.");
  EXPECT_EQ(Command(), "-");
  EXPECT_EQ(told_.size(), 1u);
}

TEST_F(GoingOn, AScriptThatEndsInsideACommandIsToldOnce) {
  Start("Open\na.3dm");
  EXPECT_EQ(Command(), "Open");
  EXPECT_EQ(Word(), "a.3dm");
  EXPECT_EQ(Word(), "-");
  EXPECT_EQ(Command(), "-");
  EXPECT_EQ(told_.size(), 1u);
  EXPECT_EQ(input_->Error(), "");
}

TEST_F(GoingOn, AnInterruptedScriptEnds) {
  Start("Foo\nSelAll");
  EXPECT_EQ(Command(), "Foo");
  host::RequestInterrupt();
  input_->Refuse("Interrupted.");
  EXPECT_EQ(Command(), "-");
  EXPECT_THAT(told_, IsEmpty());
  EXPECT_EQ(input_->Error(), "job.txt, line 1: Interrupted.");
}

TEST_F(GoingOn, AScriptThatCannotBeReadAnswersNothing) {
  Start("SelAll \"");
  EXPECT_EQ(input_->Error(), "job.txt, line 1: A double quote is not closed.");
}

}  // namespace
