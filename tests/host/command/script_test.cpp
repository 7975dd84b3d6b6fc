#include "host/command/script.h"

#include <gmock/gmock.h>

#include "host/command/script_input.h"

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

}  // namespace
