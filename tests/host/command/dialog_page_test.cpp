#include "host/command/dialog_page.h"

#include <gtest/gtest.h>

namespace {

CRhinoControl Control(const char* id, const char* label, bool shown = true) {
  CRhinoControl control;
  control.Id = id;
  control.Label = label;
  control.IsShown = shown;
  return control;
}

TEST(FindControl, TakesIdsAndLabelsInAnyCase) {
  const std::vector<CRhinoControl> controls = {Control("A", "Size:"), Control("B", "Größe:")};
  EXPECT_EQ(FindControl(controls, "b"), 1);
  EXPECT_EQ(FindControl(controls, "size:"), 0);
  EXPECT_EQ(FindControl(controls, "GRÖßE:"), 1);
  EXPECT_EQ(FindControl(controls, "Size"), -1);
  EXPECT_EQ(FindControl({}, "A"), -1);
}

TEST(FindControl, OfEqualLabelsTakesTheFirstThatIsShown) {
  const std::vector<CRhinoControl> controls = {Control("A", "Color:", false),
                                               Control("B", "Color:"), Control("C", "Color:")};
  EXPECT_EQ(FindControl(controls, "Color:"), 1);
  EXPECT_EQ(FindControl({controls[0]}, "Color:"), 0);
}

TEST(FindControl, AnIdGoesBeforeAllLabels) {
  const std::vector<CRhinoControl> controls = {Control("A", "Outline"), Control("Outline", "Lines"),
                                               Control("B", "Outline", false)};
  EXPECT_EQ(FindControl(controls, "Outline"), 1);
  EXPECT_EQ(FindControl({Control("A", "X"), Control("X", "Y", false)}, "X"), 1);
}

}  // namespace
