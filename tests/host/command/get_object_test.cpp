#include "host/command/get_object.h"

#include <gmock/gmock.h>

#include <chrono>

#include "host/document/doc.h"
#include "sample_document.h"
#include "support/typed_input.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Result = CRhinoGet::Result;

constexpr unsigned kMeshes = 0x20;

class GetObjectTest : public testing::Test {
 protected:
  GetObjectTest() { doc_.SetModel(SampleModel(), "sample.3dm"); }

  void Answer(std::vector<std::string> answers, TypedInput::By by = TypedInput::By::person) {
    input_ = std::make_unique<TypedInput>(std::move(answers), by);
    context_ = std::make_unique<CRhinoCommandContext>(doc_, *input_, true);
    get_ = std::make_unique<CRhinoGetObject>(*context_);
    get_->SetCommandPrompt("Select objects");
  }
  CRhinoObject& Object(int index) { return *doc_.Objects()[static_cast<std::size_t>(index)]; }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const CRhinoObject* object : get_->Objects()) names.push_back(object->Attributes().m_name);
    return names;
  }

  CRhinoDoc doc_;
  std::unique_ptr<TypedInput> input_;
  std::unique_ptr<CRhinoCommandContext> context_;
  std::unique_ptr<CRhinoGetObject> get_;
};

TEST_F(GetObjectTest, SelectedObjectsAreTakenWithoutAsking) {
  Object(0).Select();
  Object(2).Select();
  Answer({});
  EXPECT_EQ(get_->GetObjects(1, 0), Result::object);
  EXPECT_THAT(Names(), ElementsAre("Wall", "Roof"));
  EXPECT_THAT(input_->Prompts(), IsEmpty());
  EXPECT_EQ(get_->Object(0), &Object(0));
  EXPECT_EQ(get_->Object(2), nullptr);
  EXPECT_EQ(get_->Object(-1), nullptr);
}

TEST_F(GetObjectTest, SelectedObjectsOfOtherKindsArePassedOver) {
  Object(0).Select();
  Object(4).Select();
  Answer({});
  get_->SetGeometryFilter(kMeshes);
  EXPECT_EQ(get_->GetObjects(1, 0), Result::object);
  EXPECT_THAT(Names(), ElementsAre("Wall"));
}

TEST_F(GetObjectTest, OtherKindsMakeItAskWhenTheyMayNotBePassedOver) {
  Object(0).Select();
  Object(4).Select();
  Answer({"Roof", "Enter"});
  get_->SetGeometryFilter(kMeshes);
  get_->EnablePreSelect(true, false);
  EXPECT_EQ(get_->GetObjects(1, 0), Result::object);
  EXPECT_THAT(Names(), ElementsAre("Roof"));
}

TEST_F(GetObjectTest, SelectionIsLeftAloneWhenItMayNotBeTaken) {
  Object(0).Select();
  Answer({"Mark"});
  get_->EnablePreSelect(false);
  EXPECT_EQ(get_->GetObjects(), Result::object);
  EXPECT_THAT(Names(), ElementsAre("Mark"));
}

TEST_F(GetObjectTest, TooManySelectedObjectsMakeItAsk) {
  Object(0).Select();
  Object(1).Select();
  Answer({"Mark"});
  EXPECT_EQ(get_->GetObjects(1, 1), Result::object);
  EXPECT_THAT(Names(), ElementsAre("Mark"));
}

TEST_F(GetObjectTest, NameGivesEveryObjectThatHasIt) {
  Answer({"wall", "Enter"});
  EXPECT_EQ(get_->GetObjects(1, 0), Result::object);
  EXPECT_THAT(Names(), ElementsAre("Wall", "Wall"));
  EXPECT_TRUE(Object(0).IsSelected());
  EXPECT_TRUE(Object(1).IsSelected());
  EXPECT_THAT(input_->Prompts(),
              ElementsAre("Select objects: ", "Select objects (2 selected, Enter ends): "));
}

TEST_F(GetObjectTest, IdAndSerialNumberGiveOneObject) {
  Answer({Object(2).Attributes().m_uuid.ToString(), std::to_string(Object(4).RuntimeSerialNumber()),
          "Enter"});
  EXPECT_EQ(get_->GetObjects(1, 0), Result::object);
  EXPECT_THAT(Names(), ElementsAre("Roof", "Mark"));
}

TEST_F(GetObjectTest, SameObjectCountsOnce) {
  Answer({"Roof", "Roof", "Enter"});
  EXPECT_EQ(get_->GetObjects(1, 0), Result::object);
  EXPECT_EQ(get_->ObjectCount(), 1);
}

TEST_F(GetObjectTest, EndsByItselfWhenNoMoreAreWanted) {
  Answer({"Roof", "Mark"});
  EXPECT_EQ(get_->GetObjects(1, 2), Result::object);
  EXPECT_THAT(Names(), ElementsAre("Roof", "Mark"));
}

TEST_F(GetObjectTest, UnknownHiddenAndUnfitObjectsAreRefused) {
  Answer({"Door", "Cellar", "Mark", "Roof", "Enter"});
  get_->SetGeometryFilter(kMeshes);
  EXPECT_EQ(get_->GetObjects(1, 0), Result::object);
  EXPECT_THAT(Names(), ElementsAre("Roof"));
  EXPECT_THAT(input_->Refusals(),
              ElementsAre("There is no object with the name, id or serial number 'Door'.",
                          "'Cellar' can't be selected here.", "'Mark' can't be selected here."));
}

TEST_F(GetObjectTest, UnknownObjectFailsAScript) {
  Answer({"Door"}, TypedInput::By::script);
  EXPECT_EQ(get_->GetObjects(1, 0), Result::no_result);
}

TEST_F(GetObjectTest, EnterBeforeAnyObjectCancelsOrGivesNothing) {
  Answer({"Enter"});
  EXPECT_EQ(get_->GetObjects(1, 0), Result::cancel);
  Answer({"Enter"});
  get_->AcceptNothing();
  EXPECT_EQ(get_->GetObjects(1, 0), Result::nothing);
}

TEST_F(GetObjectTest, EnterBeforeTheMinimumIsRefused) {
  Answer({"Roof", "Enter", "Mark", "Enter"});
  EXPECT_EQ(get_->GetObjects(2, 0), Result::object);
  EXPECT_THAT(input_->Refusals(), ElementsAre("At least 2 objects are needed."));
}

TEST_F(GetObjectTest, ManySelectedObjectsAreTakenInNoTime) {
  constexpr int kCount = 200'000;
  ONX_Model model;
  model.m_object_table.resize(kCount, SampleModel().m_object_table[0]);
  for (ONX_ModelObject& object : model.m_object_table) object.m_attributes.m_uuid = {};
  doc_.SetModel(std::move(model), "");
  for (const auto& object : doc_.Objects()) ASSERT_TRUE(object->Select());
  Answer({});
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(get_->GetObjects(1, 0), Result::object);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  EXPECT_EQ(get_->ObjectCount(), kCount);
}

// Remembers the words of the prompts that it cancels.
class WordsOfPrompts : public InputSource {
 public:
  explicit WordsOfPrompts(bool is_interactive) : is_interactive_(is_interactive) {}
  bool Refuse(std::string_view) override { return false; }
  bool IsInteractive() const override { return is_interactive_; }
  const std::vector<std::string>& Words() const { return words_; }

 protected:
  Answer Read(const Prompt& prompt) override {
    words_ = prompt.Words;
    return {Answer::Kind::cancel, {}, false};
  }

 private:
  bool is_interactive_;
  std::vector<std::string> words_;
};

TEST_F(GetObjectTest, NamesAreAtHandForAPersonOnly) {
  for (const bool is_person : {true, false}) {
    WordsOfPrompts input(is_person);
    CRhinoCommandContext context(doc_, input, false);
    EXPECT_EQ(CRhinoGetObject(context).GetObjects(1, 0), Result::cancel);
    EXPECT_EQ(input.Words().size(), is_person ? 5U : 0U) << testing::PrintToString(input.Words());
  }
}

TEST_F(GetObjectTest, OptionKeepsWhatWasTypedBeforeIt) {
  Answer({"Roof", "Sub", "Other", "Mark", "Enter"});
  get_->AddCommandOption("Sub");
  get_->EnableClearObjectsOnEntry(false);
  EXPECT_EQ(get_->GetObjects(1, 0), Result::option);
  get_->EnablePreSelect(false);
  EXPECT_EQ(get_->GetObjects(1, 0), Result::object);
  EXPECT_THAT(Names(), ElementsAre("Roof", "Mark"));
}

}  // namespace
