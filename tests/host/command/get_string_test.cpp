#include "host/command/get_string.h"

#include <gmock/gmock.h>

#include "host/document/doc.h"
#include "support/typed_input.h"

namespace {

using testing::ElementsAre;
using Result = CRhinoGet::Result;

struct StringPrompt {
  explicit StringPrompt(std::vector<std::string> answers) : input(std::move(answers)) {
    get.SetCommandPrompt("Rib file name:");
  }
  CRhinoDoc doc;
  TypedInput input;
  CRhinoCommandContext context{doc, input, false};
  CRhinoGetString get{context};
};

TEST(GetString, GivesWhatWasTyped) {
  StringPrompt prompt({"a name.rib"});
  EXPECT_EQ(prompt.get.GetString(), Result::string);
  EXPECT_EQ(prompt.get.String(), "a name.rib");
  EXPECT_EQ(prompt.get.CommandResult(), CommandResult::success);
  EXPECT_THAT(prompt.input.Prompts(), ElementsAre("Rib file name: "));
}

TEST(GetString, EnterGivesTheDefault) {
  StringPrompt prompt({"Enter"});
  prompt.get.SetDefaultString("0,1,0,1");
  EXPECT_EQ(prompt.get.GetString(), Result::string);
  EXPECT_EQ(prompt.get.String(), "0,1,0,1");
  EXPECT_THAT(prompt.input.Prompts(), ElementsAre("Rib file name <0,1,0,1>: "));
}

TEST(GetString, EnterGivesNothingWhenThatIsAccepted) {
  StringPrompt prompt({"Enter"});
  prompt.get.AcceptNothing();
  EXPECT_EQ(prompt.get.GetString(), Result::nothing);
  EXPECT_EQ(prompt.get.CommandResult(), CommandResult::nothing);
}

TEST(GetString, EnterCancelsOtherwise) {
  StringPrompt prompt({"Enter"});
  EXPECT_EQ(prompt.get.GetString(), Result::cancel);
}

TEST(GetString, QuotedEmptyTextIsAText) {
  StringPrompt prompt({"\"\""});
  EXPECT_EQ(prompt.get.GetString(), Result::string);
  EXPECT_EQ(prompt.get.String(), "");
}

TEST(GetString, OptionIsPickedByItsWholeNameOnly) {
  bool selected = false;
  StringPrompt prompt({"sel", "Selected=Yes", "selected", "\"Selected\""});
  prompt.get.AddCommandOptionToggle("Selected", "No", "Yes", &selected);
  EXPECT_EQ(prompt.get.GetString(), Result::string);
  EXPECT_EQ(prompt.get.String(), "sel");
  EXPECT_EQ(prompt.get.GetString(), Result::option);
  EXPECT_TRUE(selected);
  EXPECT_EQ(prompt.get.GetString(), Result::option);
  EXPECT_FALSE(selected);
  EXPECT_EQ(prompt.get.GetString(), Result::string);
  EXPECT_EQ(prompt.get.String(), "Selected");
}

TEST(GetString, TextWithAnEqualsSignIsNoOption) {
  StringPrompt prompt({"a=b.rib"});
  prompt.get.AddCommandOption("Selected");
  EXPECT_EQ(prompt.get.GetString(), Result::string);
  EXPECT_EQ(prompt.get.String(), "a=b.rib");
}

TEST(GetString, LastTextIsForgottenWhenAskedAgain) {
  StringPrompt prompt({"one", "!"});
  prompt.get.GetString();
  EXPECT_EQ(prompt.get.GetString(), Result::cancel);
  EXPECT_EQ(prompt.get.String(), "");
}

TEST(GetString, WhatTheCheckRefusesIsAskedForAgain) {
  StringPrompt prompt({"a", "", "bb"});
  prompt.get.SetCheck([](const std::string& text) {
    return text.size() == 2 ? std::string() : "'" + text + "' has not two letters.";
  });
  EXPECT_EQ(prompt.get.GetString(), Result::string);
  EXPECT_EQ(prompt.get.String(), "bb");
  EXPECT_THAT(prompt.input.Refusals(),
              ElementsAre("'a' has not two letters.", "'' has not two letters."));
}

}  // namespace
