#include "support/rib_checker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Complaints(std::string_view rib) {
  return CheckRib(rib).Complaints;
}

constexpr std::string_view kScene = R"(##RenderMan RIB-Structure 1.1
##Scene "odd [name

FrameBegin 3
  PixelSamples 4 4
  Attribute "render" "string name" ["a \"b\" # c"]
  WorldBegin
    AttributeBegin
      MotionBegin [0 1]
        Rotate 0  0 0 1
        Rotate 90  0 0 1
      MotionEnd
    AttributeEnd
    ArchiveBegin "Block_1"
    ArchiveEnd
  WorldEnd
FrameEnd
)";

TEST(RibChecker, AcceptsASoundStream) {
  EXPECT_THAT(Complaints(kScene), IsEmpty());
}

TEST(RibChecker, AcceptsAnEmptyStream) {
  EXPECT_THAT(Complaints(""), IsEmpty());
}

TEST(RibChecker, GivesTheStatementsWithTheirArguments) {
  const RibReport report = CheckRib(kScene);
  ASSERT_EQ(report.Statements.size(), 14u);
  const RibStatement& attribute = report.Statements[2];
  EXPECT_EQ(attribute.Name, "Attribute");
  EXPECT_EQ(attribute.Line, 6);
  EXPECT_EQ(attribute.Arguments[0].kind, RibArgument::Kind::text);
  EXPECT_EQ(attribute.Arguments[0].Texts[0], "render");
  EXPECT_EQ(attribute.Arguments[2].kind, RibArgument::Kind::texts);
  ASSERT_NE(attribute.Parameter("string name"), nullptr);
  EXPECT_THAT(attribute.Parameter("string name")->Texts, ElementsAre("a \"b\" # c"));
  EXPECT_EQ(attribute.Parameter("string other"), nullptr);
  const auto rotations = report.Named("Rotate");
  ASSERT_EQ(rotations.size(), 2u);
  EXPECT_EQ(rotations[1]->Arguments[0].kind, RibArgument::Kind::number);
  EXPECT_THAT(rotations[1]->Arguments[0].Numbers, ElementsAre(90));
}

TEST(RibChecker, ReadsNumbersOfEveryForm) {
  const RibReport report = CheckRib("Color [0 -1 +2 .5 -1.5e-07 1e+30]\n");
  EXPECT_THAT(report.Complaints, IsEmpty());
  EXPECT_THAT(report.Statements[0].Arguments[0].Numbers,
              ElementsAre(0, -1, 2, .5, -1.5e-07, 1e+30));
}

TEST(RibChecker, FindsNumbersThatAreNone) {
  EXPECT_THAT(Complaints("Color [0 nan 1]\n"), ElementsAre("line 1: 'nan' is no finite number"));
  EXPECT_THAT(Complaints("Color [0 -inf 1]\n"), ElementsAre("line 1: '-inf' is no finite number"));
  EXPECT_THAT(Complaints("\nSides 1e999\n"), ElementsAre("line 2: '1e999' is no finite number"));
  EXPECT_THAT(Complaints("Sides 1,5\n"), ElementsAre("line 1: '1,5' is no finite number"));
}

TEST(RibChecker, FindsUnknownStatements) {
  EXPECT_THAT(Complaints("\n\nAttributBegin\n"),
              ElementsAre("line 3: 'AttributBegin' is no statement"));
  EXPECT_THAT(Complaints("Sides inf\n"), ElementsAre("line 1: 'inf' is no statement"));
}

TEST(RibChecker, FindsArgumentsWithoutAStatement) {
  EXPECT_THAT(Complaints("[1]\nSides 1\n"),
              ElementsAre("line 1: an argument stands before the first statement"));
}

TEST(RibChecker, FindsOpenAndClosedBlocksThatDoNotMatch) {
  EXPECT_THAT(Complaints("WorldBegin\nAttributeBegin\nWorldEnd\n"),
              ElementsAre("line 3: WorldEnd closes AttributeBegin of line 2",
                          "line 1: WorldBegin is not closed"));
  EXPECT_THAT(Complaints("ArchiveEnd\n"), ElementsAre("line 1: ArchiveEnd closes nothing"));
  EXPECT_THAT(Complaints("FrameBegin 1\nMotionBegin [0]\n"),
              ElementsAre("line 1: FrameBegin is not closed", "line 2: MotionBegin is not closed"));
}

TEST(RibChecker, FindsStringsAndArraysThatAreNotClosed) {
  EXPECT_THAT(Complaints("Surface \"a\n"), ElementsAre("line 1: a string is not closed"));
  EXPECT_THAT(Complaints("\nColor [1 2\n"), ElementsAre("line 2: an array is not closed"));
  EXPECT_THAT(Complaints("Sides 1]\n"),
              ElementsAre("line 1: a closing bracket has no opening one"));
  EXPECT_THAT(Complaints("Color [1 [2]\n"), ElementsAre("line 1: an array stands in an array"));
  EXPECT_THAT(Complaints("Color [1 \"a\"]\n"),
              ElementsAre("line 1: an array mixes strings and numbers"));
}

TEST(RibChecker, FindsLinesThatAWriterMustNotWrite) {
  EXPECT_THAT(Complaints("Sides 1\n  \nSides 2\n"),
              ElementsAre("line 2: a blank line carries blanks"));
  EXPECT_THAT(Complaints("Sides 1"), ElementsAre("line 1: the last line has no end"));
  EXPECT_THAT(Complaints("#" + std::string(4095, 'x') + "\n"), IsEmpty());
  EXPECT_THAT(Complaints("#" + std::string(4096, 'x') + "\n"),
              ElementsAre("line 1: it has 4097 bytes"));
}

TEST(RibChecker, AcceptsSoundPolygons) {
  EXPECT_THAT(Complaints("PointsPolygons [ 3 4 ] [0 1 2 0 2 3 1 ]\n"
                         " \"P\" [ 0 0 0 1 0 0 1 1 0 0 1 0 ] \"N\" [0 0 1 0 0 1 0 0 1 0 0 1] "
                         "\"st\" [ 0 0 1 0 1 1 0 1 ] \"Cs\" [1 1 1 1 1 1 1 1 1 1 1 1]\n"),
              IsEmpty());
  EXPECT_THAT(Complaints("PointsPolygons [3][0 1 2]\"P\"[0 0 0 1 0 0 1 1 0]"
                         "\"facevarying normal N\" [0 0 1 0 0 1 0 0 1]"
                         "\"facevarying float[2] st\" [0 0 0 0 0 0]\"uniform color Cs\"[1 0 0]"
                         "\"constant float width\" [1]\"float temperature\" [1]\n"),
              IsEmpty());
}

TEST(RibChecker, AcceptsASoundSubdivisionMesh) {
  EXPECT_THAT(Complaints("SubdivisionMesh \"catmull-clark\" [ 4 ] [0 1 2 3 ]\n"
                         " [\"interpolateboundary\"] [1 0] [1] [0]\n"
                         " \"P\" [0 0 0 1 0 0 1 1 0 0 1 0] \"st\" [0 0 1 0 1 1 0 1]\n"),
              IsEmpty());
  EXPECT_THAT(Complaints("SubdivisionMesh \"catmull-clark\" [4] [0 1 2 3] "
                         "\"P\" [0 0 0 1 0 0 1 1 0 0 1 0]\n"),
              IsEmpty());
}

TEST(RibChecker, FindsIndicesThatDoNotAgreeWithTheFaces) {
  EXPECT_THAT(Complaints("PointsPolygons [3 3] [0 1 2 0 2] \"P\" [0 0 0 1 0 0 1 1 0]\n"),
              ElementsAre("line 1: PointsPolygons has 5 indices for 6 corners"));
  EXPECT_THAT(Complaints("PointsPolygons [3] [0 1 3] \"P\" [0 0 0 1 0 0 1 1 0]\n"),
              ElementsAre("line 1: PointsPolygons has the index 3 into 3 points"));
  EXPECT_THAT(Complaints("PointsPolygons [3] [0 1 -1] \"P\" [0 0 0 1 0 0 1 1 0]\n"),
              ElementsAre("line 1: PointsPolygons has the index -1 into 3 points"));
  EXPECT_THAT(Complaints("PointsPolygons [2] [0 1] \"P\" [0 0 0 1 0 0]\n"),
              testing::Contains("line 1: PointsPolygons has a face of 2 vertices"));
}

TEST(RibChecker, FindsParametersOfTheWrongLength) {
  constexpr std::string_view kTriangle = "PointsPolygons [3] [0 1 2] \"P\" [0 0 0 1 0 0 1 1 0] ";
  const auto complaintsWith = [&](std::string_view parameter) {
    return Complaints(std::string(kTriangle) + std::string(parameter) + "\n");
  };
  EXPECT_THAT(complaintsWith("\"N\" [0 0 1]"),
              ElementsAre("line 1: PointsPolygons has 3 values of \"N\" and not 9"));
  EXPECT_THAT(complaintsWith("\"st\" [0 0 0 0 0]"),
              ElementsAre("line 1: PointsPolygons has 5 values of \"st\" and not 6"));
  EXPECT_THAT(
      complaintsWith("\"facevarying float[2] st\" [0 0 0 0 0 0 0 0]"),
      ElementsAre("line 1: PointsPolygons has 8 values of \"facevarying float[2] st\" and not 6"));
  EXPECT_THAT(
      complaintsWith("\"width\" [1]"),
      ElementsAre("line 1: PointsPolygons has the parameter \"width\" that is not declared"));
  EXPECT_THAT(complaintsWith("\"Cs\" [1 1 1 1 1 1 1 1 1] \"uniform color Cs\" [1 1 1]"),
              ElementsAre("line 1: PointsPolygons has the parameter Cs twice"));
  EXPECT_THAT(complaintsWith("\"N\""),
              ElementsAre("line 1: PointsPolygons has a parameter without name or value"));
}

TEST(RibChecker, FindsMeshesThatLackArrays) {
  EXPECT_THAT(Complaints("PointsPolygons [3] \"P\" [0 0 0]\n"),
              ElementsAre("line 1: PointsPolygons lacks its arrays of counts and indices"));
  EXPECT_THAT(Complaints("PointsPolygons [3] [0 1 2] \"P\" [0 0 0 1]\n"),
              ElementsAre("line 1: PointsPolygons lacks P or a coordinate of it"));
}

TEST(RibChecker, FindsTagsThatDoNotAgreeWithTheirCounts) {
  const auto complaintsWith = [](std::string_view tags) {
    return Complaints("SubdivisionMesh \"catmull-clark\" [3] [0 1 2] " + std::string(tags) +
                      " \"P\" [0 0 0 1 0 0 1 1 0]\n");
  };
  EXPECT_THAT(complaintsWith("[\"corner\"] [2 1] [0 1] [5]"), IsEmpty());
  EXPECT_THAT(complaintsWith("[\"corner\"] [2] [0 1] [5]"),
              ElementsAre("line 1: SubdivisionMesh has 1 counts for 1 tags"));
  EXPECT_THAT(
      complaintsWith("[\"corner\"] [2 1] [0] [5]"),
      ElementsAre("line 1: SubdivisionMesh has tags whose counts don't agree with their values"));
  EXPECT_THAT(
      complaintsWith("[\"corner\" \"corner\"] [2 1 -1 0] [0] [5]"),
      ElementsAre("line 1: SubdivisionMesh has tags whose counts don't agree with their values"));
}

TEST(RibChecker, FindsTagsThatNoSubdivisionMeshTakes) {
  const auto complaintsWith = [](std::string_view tags) {
    return Complaints("SubdivisionMesh \"catmull-clark\" [3] [0 1 2] " + std::string(tags) +
                      " \"P\" [0 0 0 1 0 0 1 1 0]\n");
  };
  EXPECT_THAT(complaintsWith("[\"interpolateboundary\" \"crease\" \"corner\"] [1 0 3 1 2 2] "
                             "[1 0 1 2 0 2] [10 3 4]"),
              IsEmpty());
  EXPECT_THAT(complaintsWith("[\"crease\"] [3 2] [0 1 2] [10 9]"), IsEmpty());
  EXPECT_THAT(complaintsWith("[\"smooth\"] [1 0] [0] []"),
              ElementsAre("line 1: SubdivisionMesh has the unknown tag smooth"));
  EXPECT_THAT(complaintsWith("[\"crease\"] [1 1] [0] [10]"),
              ElementsAre("line 1: SubdivisionMesh has a crease of the wrong length"));
  EXPECT_THAT(complaintsWith("[\"corner\"] [3 2] [0 1 2] [10 10]"),
              ElementsAre("line 1: SubdivisionMesh has a corner of the wrong length"));
  EXPECT_THAT(complaintsWith("[\"crease\"] [2 1] [0 3] [10]"),
              ElementsAre("line 1: SubdivisionMesh has the crease index 3 into 3 points"));
  EXPECT_THAT(complaintsWith("[\"interpolateboundary\"] [1 1] [1] [0]"),
              ElementsAre("line 1: SubdivisionMesh has more in its boundary tag than a number"));
}

TEST(RibChecker, TakesDeclarationsOfTheStream) {
  EXPECT_THAT(Complaints("Declare \"heat\" \"varying float\"\n"
                         "PointsPolygons [3] [0 1 2] \"P\" [0 0 0 1 0 0 1 1 0] \"heat\" [1 2]\n"),
              ElementsAre("line 2: PointsPolygons has 2 values of \"heat\" and not 3"));
}

TEST(RibChecker, LooksAtPatches) {
  constexpr std::string_view kPatch =
      "NuPatch 2 2 [0 0 1 1 ] 0 1 2 2 [0 0 1 1 ] 0 1 \"P\" [0 0 0 1 0 0 0 1 0 1 1 0 ]\n";
  EXPECT_THAT(Complaints(kPatch), IsEmpty());
  EXPECT_THAT(Complaints("NuPatch 2 2 [0 0 1 1 ] 0 1 2 2 [0 0 1 ] 0 2 \"P\" [0 0 0 1 0 0 ]\n"),
              ElementsAre("line 1: NuPatch: it has 3 knots",
                          "line 1: NuPatch: its points have the wrong count"));
  EXPECT_THAT(Complaints("NuPatch 2 2 [0 1 0 1 ] 0 1 2 2 [0 0 1 1 ] 0 2 \"Pw\" [0 0 0 1 ]\n"),
              ElementsAre("line 1: NuPatch: its knots decrease",
                          "line 1: NuPatch: its domain goes beyond its knots",
                          "line 1: NuPatch: its domain goes beyond its knots",
                          "line 1: NuPatch: its points have the wrong count"));
}

TEST(RibChecker, LooksAtTrims) {
  EXPECT_THAT(Complaints("TrimCurve [ 1 ] [ 2 ] [ 0 0 1 1 ] [ 0 ] [ 1 ] [ 2 ] [ 0 1 ] [ 0 1 ] "
                         "[ 1 1 ]\n"),
              IsEmpty());
  EXPECT_THAT(Complaints("TrimCurve [ 2 ] [ 2 ] [ 0 0 1 1 2 ] [ 0 ] [ 1 ] [ 2 ] [ 0 ] [ 0 1 ] "
                         "[ 1 1 ]\n"),
              ElementsAre("line 1: TrimCurve: the loops have more or fewer curves than there are "
                          "orders",
                          "line 1: TrimCurve: there are too many knots",
                          "line 1: TrimCurve: a coordinate of the control points has the wrong "
                          "count"));
}

TEST(RibChecker, LooksAtCurvesAndPoints) {
  EXPECT_THAT(Complaints("NuCurves [2] [2] [0 0 1 1] [0] [1] \"P\" [0 0 0 1 0 0 ]\n"
                         "Curves \"linear\" [2] \"nonperiodic\" \"P\" [ 0 0 0 1 0 0 ]\n"
                         "Points \"P\" [0 0 0 ]\n"),
              IsEmpty());
  EXPECT_THAT(Complaints("NuCurves [2] [3] [0 0 0 1 1] [0] [1] \"P\" [0 0 0 1 0 0 ]\n"
                         "Curves \"linear\" [3] \"nonperiodic\" \"P\" [ 0 0 0 1 0 0 ]\n"
                         "Points \"P\" [0 0 0 ]\n\"varying color Cs\" [1 1 ]\n"),
              ElementsAre("line 1: NuCurves: it has fewer control points than its order",
                          "line 2: Curves: its points have the wrong count",
                          "line 3: Points: Cs has the wrong count"));
}

TEST(RibChecker, ClosesAnOpenArrayBeforeTheNextStatement) {
  EXPECT_THAT(Complaints("Points \"P\" [0 0 0 ]\n\"varying color Cs\" [1 1 1 \nColor 1 0 0\n"),
              ElementsAre("line 2: an array is not closed"));
}

constexpr std::string_view kMaps = R"(Format 256 256 1
Format 32 16 1
Display "a.png" "file" "rgb"
Option "bake" "float border" [1]
Option "bake" "integer borderwrap" [1]
AttributeBegin
  Attribute "bake" "string bakemaps" ["a.png,a_2.png"]
AttributeEnd
AttributeBegin
  Attribute "bake" "string bakemaps" [""]
AttributeEnd
)";

TEST(RibChecker, AcceptsASoundBakePass) {
  EXPECT_THAT(Complaints(kMaps), IsEmpty());
  EXPECT_THAT(Complaints("Option \"bake\" \"bakemesh\" [1]\n"
                         "Attribute \"render\" \"meshoutput\" \"color Cs=color __constant\"\n"
                         "Attribute \"render\" \"meshexclude\" \"N,st\"\n"),
              IsEmpty());
}

TEST(RibChecker, FindsWhatIsNoStatementOfABake) {
  for (const char* option : {"\"bakemesh\" [0]", "\"bakemesh\" 1", "\"float border\" [-1]",
                             "\"float border\" [1 1]", "\"border\" [1]", "\"bakemesh\""}) {
    EXPECT_THAT(Complaints(std::string("Option \"bake\" ") + option + "\n"),
                ElementsAre("line 1: the Option is none of a bake"))
        << option;
  }
  for (const char* attribute :
       {"\"bake\" \"string bakemaps\" [\"a,,b\"]", "\"bake\" \"string bakemaps\" [\",a\"]",
        "\"bake\" \"string bakemaps\" [\"a\" \"b\"]", "\"bake\" \"string bakemaps\" \"a\"",
        "\"bake\" \"bakemaps\" [\"a\"]", "\"render\" \"meshexclude\" \"P\"",
        "\"render\" \"meshoutput\" \"color\""}) {
    EXPECT_THAT(Complaints(std::string("Attribute ") + attribute + "\n"),
                ElementsAre("line 1: the Attribute is none of a bake"))
        << attribute;
  }
}

TEST(RibChecker, FindsMapsThatCannotBeMade) {
  const auto complaints = [](std::string_view statements) {
    return Complaints(std::string(statements) + "Option \"bake\" \"float border\" [1]\n");
  };
  EXPECT_THAT(complaints("Display \"a\" \"file\" \"rgb\"\n"),
              ElementsAre("line 1: the map has no size"));
  EXPECT_THAT(complaints("Format 0 8 1\n"), ElementsAre("line 1: it is no size of a map"));
  EXPECT_THAT(complaints("Format 8 8 1\nDisplay \"a\" \"framebuffer\" \"rgb\"\n"),
              ElementsAre("line 2: the map is no file"));
  EXPECT_THAT(complaints("Format 8 8 1\nDisplay \"a\" \"file\" \"rgb\"\n"
                         "Display \"a\" \"file\" \"r\"\n"),
              ElementsAre("line 3: another map has this file"));
}

}  // namespace
