#include <nlohmann/json.hpp>

#include "command_run.h"
#include "sample_plugin.h"

namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Kind = CRhinoControlKind;

// What has happened to sample pages.
struct SampleLog {
  std::vector<std::string> Calls;
  bool IsOffered = true;
};

class SamplePage : public CRhinoDialogPage {
 public:
  SamplePage(std::string title, SampleLog& log) : title_(std::move(title)), log_(log) {}

  std::string_view Title() const override { return title_; }
  bool IsOffered(CRhinoDoc&) const override { return log_.IsOffered; }
  void Open(CRhinoDoc&) override { log_.Calls.push_back("open " + title_); }
  std::vector<CRhinoControl> Controls() const override {
    return {{"Size", "Size:", Kind::combo, "10", {"10", "20"}, true, true},
            {"Mode", "Mode:", Kind::list, "Off", {"Off", " On"}, true, true},
            {"Lit", "Lit", Kind::check, "Yes", {}, true, true},
            {"Any", "Any", Kind::three_state, "Mixed", {}, true, false},
            {"Note", "Note", Kind::text, "ünîcode \"q\"\xff", {}, true, true},
            {"Secret", "Secret", Kind::edit, "", {}, false, true},
            {"Press", "Press", Kind::button, "", {}, true, true}};
  }
  std::string Change(CRhinoCommandContext&, std::string_view control,
                     std::string_view value) override {
    log_.Calls.push_back(std::string(control) + "=" + std::string(value));
    return value == "bad" ? "That is bad." : "";
  }
  void Accept(CRhinoDoc&) override { log_.Calls.push_back("accept " + title_); }

 private:
  std::string title_;
  SampleLog& log_;
};

class PagedPlugIn : public SamplePlugIn {
 public:
  void AddPagesToDocumentPropertiesDialog(Pages& pages) override {
    pages.push_back(std::make_unique<SamplePage>("Sample Main", m_document));
    pages.push_back(std::make_unique<SamplePage>("Sample More", m_document));
  }
  void AddPagesToObjectPropertiesDialog(Pages& pages) override {
    pages.push_back(std::make_unique<SamplePage>("Sample Light", m_objects));
  }

  SampleLog m_document;
  SampleLog m_objects;
};

class PropertiesCommand : public CommandRun {
 protected:
  PropertiesCommand() { EXPECT_TRUE(registry_.AddPlugIn(plug_in_)); }
  ~PropertiesCommand() override { registry_.RemovePlugIn(plug_in_); }

  PagedPlugIn plug_in_;
};

TEST_F(PropertiesCommand, ChangesAControlAndAcceptsThePage) {
  EXPECT_EQ(Run("Properties \"sample main\" \"Size:\" 30"), CommandResult::success);
  EXPECT_THAT(plug_in_.m_document.Calls,
              ElementsAre("open Sample Main", "Size=30", "accept Sample Main"));
  EXPECT_EQ(told_, "");
  EXPECT_EQ(Run("Properties \"Sample L\" lit no"), CommandResult::success);
  EXPECT_THAT(plug_in_.m_objects.Calls,
              ElementsAre("open Sample Light", "Lit=no", "accept Sample Light"));
}

TEST_F(PropertiesCommand, AnEmptyValueIsAValue) {
  EXPECT_EQ(Run("Properties \"Sample Main\" Size \"\""), CommandResult::success);
  EXPECT_THAT(plug_in_.m_document.Calls, testing::Contains("Size="));
}

TEST_F(PropertiesCommand, EnterKeepsTheValueAndPressesAButton) {
  EXPECT_EQ(Run("Properties \"Sample Main\" Size Enter"), CommandResult::success);
  EXPECT_EQ(Run("Properties \"Sample Main\" Press Enter"), CommandResult::success);
  EXPECT_EQ(Run("Properties \"Sample Main\" Press hard"), CommandResult::success);
  EXPECT_THAT(plug_in_.m_document.Calls,
              ElementsAre("open Sample Main", "open Sample Main", "Press=", "accept Sample Main",
                          "open Sample Main", "Press=hard", "accept Sample Main"));
}

TEST_F(PropertiesCommand, ListsOnePage) {
  EXPECT_EQ(Run("Properties \"Sample Main\" Enter"), CommandResult::success);
  EXPECT_EQ(told_,
            "Sample Main\n"
            "  Size    Size:   10  (such as 10, 20)\n"
            "  Mode    Mode:   Off  (one of Off, On)\n"
            "  Lit     Lit     Yes\n"
            "  Any     Any     Mixed  [disabled]\n"
            "  Note    Note    ünîcode \"q\"\xff\n"
            "  Secret  Secret    [hidden]\n"
            "  Press   Press   (button)\n");
}

TEST_F(PropertiesCommand, ListsAllPagesThatAreOffered) {
  plug_in_.m_objects.IsOffered = false;
  EXPECT_EQ(Run("Properties"), CommandResult::success);
  EXPECT_THAT(told_, testing::StartsWith("Sample Main\n"));
  EXPECT_THAT(told_, HasSubstr("\nSample More\n"));
  EXPECT_THAT(told_, testing::Not(HasSubstr("Sample Light")));
}

TEST_F(PropertiesCommand, TellsAllAsJson) {
  EXPECT_EQ(Run("Properties Json"), CommandResult::success);
  const json all = json::parse(told_);
  ASSERT_EQ(all["document"].size(), 2u);
  EXPECT_EQ(all["document"][1]["title"], "Sample More");
  EXPECT_EQ(all["objects"][0]["title"], "Sample Light");
  const json& controls = all["document"][0]["controls"];
  ASSERT_EQ(controls.size(), 7u);
  EXPECT_EQ(controls[1], json::parse(R"({"id": "Mode", "label": "Mode:", "kind": "list",
      "value": "Off", "choices": ["Off", " On"], "shown": true, "enabled": true})"));
  EXPECT_EQ(controls[4]["value"], "ünîcode \"q\"\uFFFD");
  EXPECT_EQ(controls[3]["kind"], "three-state");
  EXPECT_EQ(controls[3]["enabled"], false);
  EXPECT_EQ(controls[5]["shown"], false);
}

TEST_F(PropertiesCommand, JsonHasNoControlsOfAPageThatIsNotOffered) {
  plug_in_.m_objects.IsOffered = false;
  EXPECT_EQ(Run("Properties Json"), CommandResult::success);
  const json page = json::parse(told_)["objects"][0];
  EXPECT_EQ(page["offered"], false);
  EXPECT_THAT(page["controls"], IsEmpty());
  EXPECT_THAT(plug_in_.m_objects.Calls, IsEmpty());
}

TEST_F(PropertiesCommand, WhatIsNotThereIsTold) {
  EXPECT_EQ(Run("Properties Nothing"), CommandResult::failure);
  EXPECT_EQ(error_,
            "-c, line 1: There is no page 'Nothing'; expected Sample Main, Sample More or "
            "Sample Light.");
  EXPECT_EQ(Run("Properties Sample"), CommandResult::failure);
  EXPECT_EQ(Run("Properties \"Sample Main\" Weight 1"), CommandResult::failure);
  EXPECT_EQ(error_,
            "-c, line 1: Sample Main has no control 'Weight'; Properties \"Sample Main\" lists "
            "them.");
  plug_in_.m_objects.IsOffered = false;
  EXPECT_EQ(Run("Properties \"Sample Light\" Size 1"), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: Sample Light needs objects of its kind in the selection.");
  EXPECT_THAT(plug_in_.m_objects.Calls, IsEmpty());
}

TEST_F(PropertiesCommand, WhatCantBeChangedIsTold) {
  EXPECT_EQ(Run("Properties \"Sample Main\" Secret 1"), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: Secret of Sample Main is hidden at present.");
  EXPECT_EQ(Run("Properties \"Sample Main\" Any Yes"), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: Any of Sample Main is disabled at present.");
  EXPECT_EQ(Run("Properties \"Sample Main\" Note 1"), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: Note can only be read.");
  EXPECT_EQ(Run("Properties \"Sample Main\" Size bad"), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: That is bad.");
  EXPECT_THAT(plug_in_.m_document.Calls, testing::Not(testing::Contains("accept Sample Main")));
}

TEST_F(PropertiesCommand, APersonIsAskedAgain) {
  EXPECT_EQ(Type({"Properties", "Lamp", "Sample Main", "Secret", "Mode", "bad", "On", "Exit"}),
            CommandResult::success);
  EXPECT_THAT(refusals_, testing::SizeIs(3));
  EXPECT_THAT(
      prompts_,
      ElementsAre("Command: ", "Page (Enter lists all) ( Json ): ",
                  "Page (Enter lists all) ( Json ): ", "Control (Enter lists the page): ",
                  "Control (Enter lists the page): ", "Mode <Off>: ", "Mode <Off>: ", "Command: "));
  EXPECT_THAT(plug_in_.m_document.Calls,
              ElementsAre("open Sample Main", "Mode=bad", "Mode=On", "accept Sample Main"));
}

TEST_F(PropertiesCommand, CancelAcceptsNothing) {
  EXPECT_EQ(Run("Properties \"Sample Main\" Size !"), CommandResult::cancel);
  EXPECT_EQ(Run("Properties \"Sample Main\" !"), CommandResult::cancel);
  EXPECT_EQ(Run("Properties !"), CommandResult::cancel);
  EXPECT_THAT(plug_in_.m_document.Calls, ElementsAre("open Sample Main", "open Sample Main"));
}

TEST_F(PropertiesCommand, WithoutPlugInsThereAreNoPages) {
  registry_.RemovePlugIn(plug_in_);
  EXPECT_EQ(Run("Properties"), CommandResult::success);
  EXPECT_EQ(told_, "");
  EXPECT_EQ(Run("Properties Orv"), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: There is no page 'Orv'.");
  EXPECT_TRUE(registry_.AddPlugIn(plug_in_));
}

}  // namespace
