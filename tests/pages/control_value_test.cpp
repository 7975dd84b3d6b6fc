#include "pages/control_value.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

// The value that a control gets, or what it takes instead.
std::string Given(CRhinoControlKind kind, std::string_view value,
                  std::vector<std::string> choices = {}) {
  CRhinoControl control;
  control.Id = "It";
  control.Kind = kind;
  control.Choices = std::move(choices);
  const std::string problem = SetControlValue(control, value);
  return problem.empty() ? control.Value : problem;
}

TEST(ControlValue, AListTakesItsWordsInAnyCase) {
  const std::vector<std::string> words = {"8-bit", " 16-bit", "float"};
  EXPECT_EQ(Given(CRhinoControlKind::list, "FLOAT", words), "float");
  EXPECT_EQ(Given(CRhinoControlKind::list, "16-bit", words), " 16-bit");
  EXPECT_EQ(Given(CRhinoControlKind::list, " 8-bit ", words), "8-bit");
  EXPECT_EQ(Given(CRhinoControlKind::list, "8", words),
            "It takes 8-bit,  16-bit or float, not '8'.");
}

TEST(ControlValue, ChecksTakeYesAndNo) {
  EXPECT_EQ(Given(CRhinoControlKind::check, "yes"), "Yes");
  EXPECT_EQ(Given(CRhinoControlKind::check, "NO"), "No");
  EXPECT_EQ(Given(CRhinoControlKind::check, "Mixed"), "It takes Yes or No, not 'Mixed'.");
  EXPECT_EQ(Given(CRhinoControlKind::three_state, "mixed"), "Mixed");
  EXPECT_EQ(Given(CRhinoControlKind::three_state, "1"), "It takes Yes, No or Mixed, not '1'.");
}

TEST(ControlValue, AColourIsThreeNumbersOrDigits) {
  EXPECT_EQ(Given(CRhinoControlKind::color, "255, 128,0"), "255,128,0");
  EXPECT_EQ(Given(CRhinoControlKind::color, "#ff8000"), "255,128,0");
  EXPECT_EQ(Given(CRhinoControlKind::color, "256,0,0"),
            "It takes a colour as 255,128,0 or #ff8000, not '256,0,0'.");
}

TEST(ControlValue, EditsAndCombosTakeAnyText) {
  EXPECT_EQ(Given(CRhinoControlKind::edit, "x y"), "x y");
  EXPECT_EQ(Given(CRhinoControlKind::combo, "", {"1", "2"}), "");
  EXPECT_EQ(Given(CRhinoControlKind::path, "C:\\a b.tx"), "C:\\a b.tx");
}

}  // namespace
}  // namespace orv
