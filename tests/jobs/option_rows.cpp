#include "option_rows.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

// "Off, Turntable or FlyThrough".
std::string OneOfWords(const std::vector<std::string>& words) {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i > 0) text += i + 1 == words.size() ? " or " : ", ";
    text += words[i];
  }
  return text;
}

}  // namespace

CommandResult OptionsTest::EditWith(CRhinoCommand& command, TypedInput::By by, bool interactive,
                                    std::vector<std::string> answers) {
  TypedInput input(std::move(answers), by);
  CRhinoCommandContext context(doc_, input, interactive);
  const CommandResult result = command.RunCommand(context);
  prompts_ = input.Prompts();
  refusals_ = input.Refusals();
  EXPECT_TRUE(input.IsUsedUp());
  return result;
}

void OptionsTest::Accept(CRhinoCommand& command, std::vector<std::string> first,
                         const std::vector<std::string>& answers) {
  first.insert(first.end(), answers.begin(), answers.end());
  first.emplace_back("Enter");
  EXPECT_EQ(EditWith(command, TypedInput::By::person, false, std::move(first)),
            CommandResult::success);
}

void OptionsTest::ExpectValue(const std::string& name, const std::string& shown,
                              const std::string& key, const std::string& stored) const {
  EXPECT_THAT(prompts_.back(), HasSubstr(" " + name + "=" + shown + " "));
  if (!key.empty()) {
    EXPECT_EQ(Setting(key), stored) << key;
  }
}

void OptionsTest::CheckRow(CRhinoCommand& command, const ToggleRow& row,
                           const std::vector<std::string>& first) {
  SCOPED_TRACE(row.Name);
  Accept(command, first, {row.Name + "=Yes"});
  ExpectValue(row.Name, "Yes", row.Key, "1");
  Accept(command, first, {row.Name});
  ExpectValue(row.Name, "No", row.Key, "0");
  Accept(command, first, {row.Name});
  ExpectValue(row.Name, "Yes", row.Key, "1");
  Accept(command, first, {row.Name + "=maybe", row.Name + "=no"});
  EXPECT_THAT(refusals_, ElementsAre(row.Name + " takes No or Yes, not 'maybe'."));
  ExpectValue(row.Name, "No", row.Key, "0");
}

void OptionsTest::CheckRow(CRhinoCommand& command, const ListRow& row,
                           const std::vector<std::string>& first) {
  SCOPED_TRACE(row.Name);
  for (std::size_t i = 0; i < row.Words.size(); ++i) {
    Accept(command, first, {row.Name + "=" + row.Words[i]});
    ExpectValue(row.Name, row.Words[i], row.Key, std::to_string(i));
  }
  std::string choices;
  for (const std::string& word : row.Words) choices += " " + word + " ";
  Accept(command, first, {row.Name, row.Words.front()});
  EXPECT_EQ(prompts_[first.size() + 1],
            row.Name + " <" + row.Words.back() + "> (" + choices + "): ");
  ExpectValue(row.Name, row.Words.front(), row.Key, "0");
  Accept(command, first, {row.Name + "=Other", row.Name + "=" + row.Words[1]});
  EXPECT_THAT(refusals_,
              ElementsAre(row.Name + " takes " + OneOfWords(row.Words) + ", not 'Other'."));
}

void OptionsTest::CheckRow(CRhinoCommand& command, const ColorRow& row,
                           const std::vector<std::string>& first) {
  SCOPED_TRACE(row.Name);
  Accept(command, first, {row.Name + "=255,0,51"});
  ExpectValue(row.Name, "255,0,51", row.Key, "1,0,0.2");
  Accept(command, first, {row.Name, "#00ff00"});
  EXPECT_EQ(prompts_[first.size() + 1], row.Prompt + " <255,0,51>: ");
  ExpectValue(row.Name, "0,255,0", row.Key, "0,1,0");
  Accept(command, first, {row.Name + "=256,0,0", row.Name + "=#0000ff"});
  EXPECT_THAT(refusals_,
              ElementsAre(row.Name + " takes a colour as 255,128,0 or #ff8000, not '256,0,0'."));
  ExpectValue(row.Name, "0,0,255", row.Key, "0,0,1");
}

void OptionsTest::CheckRow(CRhinoCommand& command, const NumberRow& row,
                           const std::vector<std::string>& first) {
  SCOPED_TRACE(row.Name);
  const std::string expected =
      row.Name + " takes " + row.Kind + " from " + row.Minimum + " to " + row.Maximum + ", not '";
  Accept(command, first,
         {row.Name + "=" + row.Below, row.Name + "=" + row.Above, row.Name + "=" + row.Minimum});
  EXPECT_THAT(refusals_, ElementsAre(expected + row.Below + "'.", expected + row.Above + "'."));
  ExpectValue(row.Name, row.Minimum, row.Key, row.Minimum);
  Accept(command, first, {row.Name, row.Maximum});
  EXPECT_THAT(prompts_[first.size() + 1], StartsWith(row.Prompt + " <"));
  ExpectValue(row.Name, row.Maximum, row.Key, row.Maximum);
}
