#include "host/command/get_option.h"

#include <gmock/gmock.h>

#include "host/document/doc.h"
#include "support/typed_input.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Result = CRhinoGet::Result;

constexpr std::string_view kModes[] = {"Transparent", "Color", "Gradient", "Image plane"};

// A getter with an option of each kind.
class GetOptionTest : public testing::Test {
 protected:
  void Answer(std::vector<std::string> answers, TypedInput::By by = TypedInput::By::person) {
    input_ = std::make_unique<TypedInput>(std::move(answers), by);
    context_ = std::make_unique<CRhinoCommandContext>(doc_, *input_, false);
    get_ = std::make_unique<CRhinoGetOption>(*context_);
    get_->SetCommandPrompt("Options");
    get_->AcceptNothing();
    get_->AddCommandOption("Archive", name_);
    get_->AddCommandOptionToggle("Materials", "No", "Yes", &materials_);
    get_->AddCommandOptionInteger("Frame", &frame_, "Frame number (-1 for no frame) ", -1, 9999);
    get_->AddCommandOptionNumber("TraceBias", &bias_, "Trace bias ", 0, 1000);
    get_->AddCommandOptionList("BgMode", kModes, &mode_);
    get_->AddCommandOptionNumber("BgBlur", &blur_);
  }
  Result Get() { return get_->GetOption(); }

  CRhinoDoc doc_;
  std::string name_ = "a.rib";
  bool materials_ = true;
  int frame_ = -1;
  double bias_ = 0.01;
  double blur_ = 2;
  int mode_ = 1;
  std::unique_ptr<TypedInput> input_;
  std::unique_ptr<CRhinoCommandContext> context_;
  std::unique_ptr<CRhinoGetOption> get_;
};

TEST_F(GetOptionTest, PromptShowsOptionsAndTheirValues) {
  Answer({"Enter"});
  EXPECT_EQ(Get(), Result::nothing);
  EXPECT_EQ(get_->CommandResult(), CommandResult::nothing);
  EXPECT_THAT(input_->Prompts(),
              ElementsAre("Options ( Archive=a.rib  Materials=Yes  Frame=-1  TraceBias=0.01  "
                          "BgMode=Color  BgBlur=2 ): "));
}

TEST_F(GetOptionTest, PlainOptionIsPickedByItsIndex) {
  Answer({"Archive"});
  EXPECT_EQ(Get(), Result::option);
  EXPECT_EQ(get_->OptionIndex(), 1);
  EXPECT_EQ(get_->CommandResult(), CommandResult::success);
}

TEST_F(GetOptionTest, NameCountsInAnyCaseAbbreviatedAndBehindAnUnderscore) {
  for (const char* typed : {"materials", "MAT", "_Materials", "_m"}) {
    materials_ = true;
    Answer({typed});
    EXPECT_EQ(Get(), Result::option) << typed;
    EXPECT_FALSE(materials_) << typed;
  }
}

TEST_F(GetOptionTest, ToggleWithoutAValueFlips) {
  Answer({"Materials", "Materials"});
  EXPECT_EQ(Get(), Result::option);
  EXPECT_FALSE(materials_);
  EXPECT_EQ(Get(), Result::option);
  EXPECT_TRUE(materials_);
}

TEST_F(GetOptionTest, ToggleTakesItsWords) {
  Answer({"Materials=no", "mat=Y", "Materials=_No"});
  Get();
  EXPECT_FALSE(materials_);
  Get();
  EXPECT_TRUE(materials_);
  Get();
  EXPECT_FALSE(materials_);
  EXPECT_EQ(get_->OptionIndex(), 2);
}

TEST_F(GetOptionTest, ValueBehindAnEqualsSignIsSetAtOnce) {
  Answer({"Frame=25", "tracebias=1e-3", "BgMode=grad"});
  Get();
  Get();
  EXPECT_EQ(Get(), Result::option);
  EXPECT_EQ(frame_, 25);
  EXPECT_EQ(bias_, 1e-3);
  EXPECT_EQ(mode_, 2);
}

TEST_F(GetOptionTest, NumberWithoutAValueAsksForIt) {
  Answer({"TraceBias", "0.5"});
  EXPECT_EQ(Get(), Result::option);
  EXPECT_EQ(bias_, 0.5);
  EXPECT_EQ(input_->Prompts()[1], "Trace bias <0.01>: ");
}

TEST_F(GetOptionTest, IntegerWithoutAPromptTextAsksByItsName) {
  Answer({"BgBlur", "3"});
  EXPECT_EQ(Get(), Result::option);
  EXPECT_EQ(blur_, 3);
  EXPECT_EQ(input_->Prompts()[1], "BgBlur <2>: ");
}

TEST_F(GetOptionTest, ListWithoutAValueAsksForIt) {
  Answer({"BgMode", "transparent"});
  EXPECT_EQ(Get(), Result::option);
  EXPECT_EQ(mode_, 0);
  EXPECT_EQ(input_->Prompts()[1], "BgMode <Color> ( Transparent  Color  Gradient  Image plane ): ");
}

TEST_F(GetOptionTest, EnterKeepsTheValueThatIsAskedFor) {
  Answer({"Frame", "Enter"});
  EXPECT_EQ(Get(), Result::option);
  EXPECT_EQ(get_->OptionIndex(), 3);
  EXPECT_EQ(frame_, -1);
}

TEST_F(GetOptionTest, CancelWhileAValueIsAskedForCancels) {
  Answer({"Frame", "!"});
  EXPECT_EQ(Get(), Result::cancel);
  EXPECT_EQ(get_->CommandResult(), CommandResult::cancel);
}

TEST_F(GetOptionTest, ValueOutOfRangeIsAskedForAgain) {
  Answer({"Frame=10000", "Frame=9999"});
  EXPECT_EQ(Get(), Result::option);
  EXPECT_EQ(frame_, 9999);
  EXPECT_THAT(input_->Refusals(),
              ElementsAre("Frame takes a whole number from -1 to 9999, not '10000'."));
}

TEST_F(GetOptionTest, MalformedValueIsAskedForAgainAtItsPrompt) {
  Answer({"TraceBias", "much", "1001", "nan", "2"});
  EXPECT_EQ(Get(), Result::option);
  EXPECT_EQ(bias_, 2);
  EXPECT_THAT(input_->Refusals(),
              ElementsAre("TraceBias takes a number from 0 to 1000, not 'much'.",
                          "TraceBias takes a number from 0 to 1000, not '1001'.",
                          "TraceBias takes a number from 0 to 1000, not 'nan'."));
}

TEST_F(GetOptionTest, ValuesThatAreNoWholeNumbersAreRefused) {
  for (const char* typed : {"Frame=", "Frame=1.5", "Frame=1e3", "Frame=99999999999", "Frame=+-1"}) {
    Answer({typed}, TypedInput::By::script);
    EXPECT_EQ(Get(), Result::no_result) << typed;
    EXPECT_EQ(frame_, -1) << typed;
  }
}

TEST_F(GetOptionTest, ScriptFailsByAWrongValue) {
  Answer({"Frame=x", "Frame=2"}, TypedInput::By::script);
  EXPECT_EQ(Get(), Result::no_result);
  EXPECT_EQ(get_->CommandResult(), CommandResult::failure);
  EXPECT_EQ(frame_, -1);
  EXPECT_FALSE(input_->IsUsedUp());
}

TEST_F(GetOptionTest, ScriptFailsByAWrongValueAtItsPrompt) {
  Answer({"Frame", "x"}, TypedInput::By::script);
  EXPECT_EQ(Get(), Result::no_result);
}

TEST_F(GetOptionTest, NumberWithoutBoundsSaysSo) {
  Answer({"BgBlur=soft"}, TypedInput::By::script);
  Get();
  EXPECT_THAT(input_->Refusals(), ElementsAre("BgBlur takes a number, not 'soft'."));
}

TEST_F(GetOptionTest, WrongWordsNameTheRightOnes) {
  Answer({"Materials=maybe", "BgMode=Sky", "Enter"});
  Get();
  EXPECT_THAT(input_->Refusals(),
              ElementsAre("Materials takes No or Yes, not 'maybe'.",
                          "BgMode takes Transparent, Color, Gradient or Image plane, not 'Sky'."));
}

TEST_F(GetOptionTest, AmbiguousNameTellsTheCandidates) {
  Answer({"bg", "Enter"});
  EXPECT_EQ(Get(), Result::nothing);
  EXPECT_THAT(input_->Refusals(), ElementsAre("Option 'bg' is ambiguous: BgMode or BgBlur."));
}

TEST_F(GetOptionTest, UnknownNameTellsTheOptions) {
  Answer({"Quality"}, TypedInput::By::script);
  EXPECT_EQ(Get(), Result::no_result);
  EXPECT_THAT(input_->Refusals(),
              ElementsAre("Unknown option 'Quality'; expected Archive, Materials, Frame, "
                          "TraceBias, BgMode or BgBlur."));
}

TEST_F(GetOptionTest, QuotedTextIsNoOption) {
  Answer({"\"Materials\"", "Enter"});
  EXPECT_EQ(Get(), Result::nothing);
  EXPECT_TRUE(materials_);
  EXPECT_EQ(input_->Refusals().size(), 1U);
}

TEST_F(GetOptionTest, WholeNameWinsOverALongerOne) {
  bool mode_lock = false;
  Answer({"BgMode=color", "BgModeL"});
  get_->AddCommandOptionToggle("BgModeLock", "No", "Yes", &mode_lock);
  EXPECT_EQ(Get(), Result::option);
  EXPECT_EQ(get_->OptionIndex(), 5);
  EXPECT_EQ(Get(), Result::option);
  EXPECT_TRUE(mode_lock);
}

TEST_F(GetOptionTest, ValueOfAPlainOptionAnswersTheNextPrompt) {
  Answer({"Archive=my file.rib"});
  EXPECT_EQ(Get(), Result::option);
  const ::Answer next = input_->Ask({});
  EXPECT_EQ(next.kind, ::Answer::Kind::text);
  EXPECT_EQ(next.Text, "my file.rib");
}

TEST_F(GetOptionTest, EnterCancelsWhereItIsNotAccepted) {
  Answer({"Enter"});
  get_->AcceptNothing(false);
  EXPECT_EQ(Get(), Result::cancel);
}

TEST_F(GetOptionTest, EndOfTheInputCancels) {
  Answer({});
  EXPECT_EQ(Get(), Result::cancel);
  EXPECT_EQ(get_->OptionIndex(), 0);
}

TEST_F(GetOptionTest, OptionsCanBeBuiltAnew) {
  Answer({"First"});
  get_->ClearCommandOptions();
  EXPECT_EQ(get_->AddCommandOption("First"), 1);
  EXPECT_EQ(Get(), Result::option);
  EXPECT_THAT(input_->Prompts(), ElementsAre("Options ( First ): "));
  EXPECT_THAT(input_->Refusals(), IsEmpty());
}

TEST_F(GetOptionTest, OneSidedBoundsAreTold) {
  int count = 5;
  Answer({"Count=0", "Most=3.5"}, TypedInput::By::script);
  get_->AddCommandOptionInteger("Count", &count, {}, 1);
  get_->AddCommandOptionNumber("Most", &blur_, {}, std::numeric_limits<double>::lowest(), 3);
  Get();
  Get();
  EXPECT_THAT(input_->Refusals(), ElementsAre("Count takes a whole number of at least 1, not '0'.",
                                              "Most takes a number of at most 3, not '3.5'."));
}

// A getter with a colour.
class GetColorTest : public GetOptionTest {
 protected:
  void AnswerColor(std::vector<std::string> answers) {
    Answer(std::move(answers));
    get_->ClearCommandOptions();
    get_->AddCommandOptionColor("InkColor", &color_, "Ink color ");
    get_->AddCommandOptionColor("BgColor", &background_);
  }

  ON_Color color_{1, 2, 3};
  ON_Color background_;
};

TEST_F(GetColorTest, IsShownAsItsParts) {
  AnswerColor({"Enter"});
  EXPECT_EQ(Get(), Result::nothing);
  EXPECT_THAT(input_->Prompts(), ElementsAre("Options ( InkColor=1,2,3  BgColor=0,0,0 ): "));
}

TEST_F(GetColorTest, IsTypedAsPartsOrDigits) {
  const std::pair<const char*, ON_Color> rows[] = {
      {"255,128,0", {255, 128, 0}}, {"0,0,0", {0, 0, 0}},       {" 7 , 8,9 ", {7, 8, 9}},
      {"+1,2,3", {1, 2, 3}},        {"#ff8000", {255, 128, 0}}, {"#0A0b0C", {10, 11, 12}}};
  for (const auto& [typed, color] : rows) {
    AnswerColor({std::string("InkColor=") + typed});
    EXPECT_EQ(Get(), Result::option) << typed;
    EXPECT_EQ(color_, color) << typed;
    EXPECT_EQ(get_->OptionIndex(), 1);
  }
}

TEST_F(GetColorTest, IsAskedForByItsPromptOrItsName) {
  AnswerColor({"InkColor", "#010101", "BgColor", "Enter"});
  EXPECT_EQ(Get(), Result::option);
  EXPECT_EQ(Get(), Result::option);
  EXPECT_EQ(input_->Prompts()[1], "Ink color <1,2,3>: ");
  EXPECT_EQ(input_->Prompts()[3], "BgColor <0,0,0>: ");
  EXPECT_EQ(color_, ON_Color(1, 1, 1));
  EXPECT_EQ(background_, ON_Color(0, 0, 0));
}

TEST_F(GetColorTest, AnythingElseIsRefused) {
  for (const char* typed : {"red", "1,2", "1,2,3,4", "256,0,0", "-1,0,0", "1.5,0,0", "#12345",
                            "#1234567", "#12345g", "#", "1,,3", "", "#+12345"}) {
    AnswerColor({"InkColor", typed, "!"});
    EXPECT_EQ(Get(), Result::cancel) << typed;
    EXPECT_THAT(input_->Refusals(),
                ElementsAre(std::string("InkColor takes a colour as 255,128,0 or #ff8000, not '") +
                            typed + "'."));
    EXPECT_EQ(color_, ON_Color(1, 2, 3)) << typed;
  }
}

}  // namespace
