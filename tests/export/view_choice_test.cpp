#include "export/view_choice.h"

#include <gtest/gtest.h>

#include "export_fixture.h"

namespace {

// A document of the views "Front", "Größe" and "front" with the first as the active one, and a
// page.
class ViewChoiceTest : public testing::Test {
 protected:
  ViewChoiceTest() {
    ONX_Model model;
    for (const char* name : {"Front", "Größe", "front", "Page", "Current"}) {
      model.m_settings.m_views.push_back(PerspectiveView());
      model.m_settings.m_views.back().m_name = name;
    }
    model.m_settings.m_views[3].m_view_type = 1;
    doc_.SetModel(std::move(model), "");
    doc_.GetViewList(views_, true, true);
  }

  // The position of the chosen view.
  std::size_t Chosen(std::string_view name) {
    const CRhinoView* view = orv::ChooseView(doc_, name);
    std::size_t index = 0;
    while (index < views_.size() && views_[index] != view) ++index;
    return index;
  }

  CRhinoDoc doc_;
  std::vector<CRhinoView*> views_;
};

TEST_F(ViewChoiceTest, CurrentIsTheActiveView) {
  EXPECT_EQ(Chosen("Current"), 0U);
  doc_.SetActiveView(views_[1]);
  EXPECT_EQ(Chosen("Current"), 1U);
}

TEST_F(ViewChoiceTest, CurrentInAnotherCaseIsAName) {
  EXPECT_EQ(Chosen("current"), 4U);
}

TEST_F(ViewChoiceTest, ANameCountsInAnyCase) {
  EXPECT_EQ(Chosen("gRÖSSE"), 0U);
  EXPECT_EQ(Chosen("gRÖßE"), 1U);
}

TEST_F(ViewChoiceTest, TheLastOfSeveralViewsOfANameWins) {
  EXPECT_EQ(Chosen("FRONT"), 2U);
}

TEST_F(ViewChoiceTest, AnUnknownNameLeavesTheActiveView) {
  EXPECT_EQ(Chosen("Back"), 0U);
  EXPECT_EQ(Chosen(""), 0U);
}

TEST_F(ViewChoiceTest, APageIsNoView) {
  EXPECT_EQ(Chosen("Page"), 0U);
}

TEST_F(ViewChoiceTest, WithoutAnyViewThereIsNone) {
  doc_.SetActiveView(nullptr);
  EXPECT_EQ(orv::ChooseView(doc_, "Current"), nullptr);
}

}  // namespace
