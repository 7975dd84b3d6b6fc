#include "side_export/vrml_viewpoint.h"

#include <gmock/gmock.h>

#include <cmath>

#include "vrml_checker.h"
#include "vrml_fixture.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class VrmlViewpoint : public VrmlTest {
 protected:
  // Makes the document of these views and gives the viewpoints of its file.
  std::vector<VrmlView> Views(std::vector<ON_3dmView> views) {
    model_.m_settings.m_views = std::move(views);
    Open();
    return CheckVrml(Vrml()).views;
  }
  // The turn of a camera at the origin that looks at `target`.
  std::array<double, 4> Turn(ON_3dPoint target) {
    const std::vector<VrmlView> views = Views({PerspectiveView("a", {0, 0, 0}, target)});
    EXPECT_EQ(views.size(), 1U);
    return views.empty() ? std::array<double, 4>{} : views[0].orientation;
  }
  static void ExpectNear(const std::array<double, 4>& turn, const std::array<double, 4>& expected) {
    for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(turn[i], expected[i], 1e-5) << i;
  }
};

TEST_F(VrmlViewpoint, OfAPerspectiveView) {
  model_.m_settings.m_views = {PerspectiveView("Kamera ä", {1, 2, 3}, {1, 12, 13})};
  Open();
  // Half of the 45 degrees to the side; an eighth of a turn upward.
  EXPECT_THAT(Vrml(), HasSubstr("Viewpoint {\n"
                                "  position 1 3 -2\n"
                                "  fieldOfView 0.392699\n"
                                "  orientation 1 0 0 0.785398\n"
                                "  description \"Kamera ä\"\n"
                                "}\n"));
}

TEST_F(VrmlViewpoint, AngleIsTheLargerOne) {
  const double quarter = std::atan(2) / 2;
  EXPECT_NEAR(Views({PerspectiveView("a", {0, 0, 0}, {0, 1, 0}, 0.5, 2)})[0].fieldOfView, quarter,
              1e-5);
  EXPECT_NEAR(Views({PerspectiveView("a", {0, 0, 0}, {0, 1, 0}, 2, 0.5)})[0].fieldOfView, quarter,
              1e-5);
}

TEST_F(VrmlViewpoint, TurnsFromAheadToTheTarget) {
  const double right = std::acos(0.0);
  ExpectNear(Turn({10, 0, 0}), {0, -1, 0, right});
  ExpectNear(Turn({-10, 0, 0}), {0, 1, 0, right});
  ExpectNear(Turn({0, 0, -10}), {-1, 0, 0, right});
  ExpectNear(Turn({0, 0, 10}), {1, 0, 0, right});
}

TEST_F(VrmlViewpoint, WithoutAnAxisTurnsAboutTheVertical) {
  // The host's y axis is what a camera looks along that isn't turned.
  ExpectNear(Turn({0, 10, 0}), {0, 1, 0, 0});
  ExpectNear(Turn({0, -10, 0}), {0, 1, 0, std::acos(-1.0)});
}

TEST_F(VrmlViewpoint, WithoutATargetLooksAhead) {
  ON_3dmView view = PerspectiveView("a", {0, 0, 0}, {10, 0, 0});
  view.m_target = {0, 0, 0};
  ExpectNear(Views({view}).at(0).orientation, {0, -1, 0, std::acos(0.0)});
  view.m_target = {ON_UNSET_VALUE, ON_UNSET_VALUE, ON_UNSET_VALUE};
  ExpectNear(Views({view}).at(0).orientation, {0, -1, 0, std::acos(0.0)});
  view.m_vp.m_target = ON_3dPoint{std::nan(""), 0, 0};
  ExpectNear(Views({view}).at(0).orientation, {0, -1, 0, std::acos(0.0)});
}

TEST_F(VrmlViewpoint, NameCannotEndItsText) {
  EXPECT_EQ(Views({PerspectiveView("a \"b\\", {0, 0, 0}, {0, 1, 0})}).at(0).description, "a \"b\\");
}

TEST_F(VrmlViewpoint, ActiveViewComesFirst) {
  const auto view = [](const std::string& name) {
    return PerspectiveView(name, {0, 0, 0}, {0, 1, 0});
  };
  ON_3dmView page = view("Page");
  page.m_view_type = 1;
  ON_3dmView plan;
  plan.m_name = "Plan";
  plan.m_vp.m_port = {.left = 0, .right = 400, .bottom = 200, .top = 0};
  model_.m_settings.m_views = {view("A"), plan, view("B"), page, view("C")};
  Open();
  const auto names = [this] {
    std::vector<std::string> result;
    for (const VrmlView& written : CheckVrml(Vrml()).views) result.push_back(written.description);
    return result;
  };
  std::vector<CRhinoView*> views;
  doc_.GetViewList(views, true, true);
  doc_.SetActiveView(views[2]);
  EXPECT_THAT(names(), ElementsAre("B", "A", "C"));
  doc_.SetActiveView(views[1]);
  EXPECT_THAT(names(), ElementsAre("A", "B", "C"));
  doc_.SetActiveView(views[3]);
  EXPECT_THAT(names(), ElementsAre("Page", "A", "B", "C"));
  doc_.SetActiveView(nullptr);
  EXPECT_THAT(names(), ElementsAre("A", "B", "C"));
}

TEST_F(VrmlViewpoint, ParallelViewsHaveNone) {
  Open();
  EXPECT_THAT(Vrml(), Not(HasSubstr("Viewpoint")));
}

}  // namespace
