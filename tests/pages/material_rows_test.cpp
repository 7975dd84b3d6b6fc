#include <gmock/gmock.h>

#include "host/document/object.h"
#include "host/geometry/on_plane_surface.h"
#include "material_fixture.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kControlsBeforeRows = 25;

class MaterialRowsTest : public MaterialPageTest {
 protected:
  // The rows that are shown, as "caption|id|kind of the value|.. if there is the button".
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    const std::vector<CRhinoControl> controls = page_.Controls();
    for (std::size_t i = kControlsBeforeRows; i < controls.size(); i += 3) {
      rows.push_back(controls[i].Label + '|' + controls[i + 1].Id + '|' +
                     (controls[i + 1].Kind == CRhinoControlKind::color ? "colour" : "combo") +
                     (controls[i + 2].IsShown ? "|.." : ""));
    }
    return rows;
  }
  std::vector<std::string> Captions() const {
    std::vector<std::string> captions;
    for (const std::string& row : Rows()) captions.push_back(row.substr(0, row.find('|')));
    return captions;
  }
  // Puts a rectangle from 0 to 10 and 0 to 4 into the document and shows its material.
  void ShowRectangle(const std::string& call) {
    auto plane = std::make_shared<ON_PlaneSurface>();
    plane->m_domain[0] = plane->m_extents[0] = {0, 10};
    plane->m_domain[1] = plane->m_extents[1] = {0, 4};
    ONX_Model model;
    ONX_ModelObject& object = model.m_object_table.emplace_back();
    object.m_geometry = std::move(plane);
    doc_.ImportModel(std::move(model));
    Select({doc_.Objects().size() - 1});
    Open(page_);
    EXPECT_EQ(Change("New", ""), "");
    SetMaterialText(doc_.Objects().size() - 1, "OrvSurface", call);
    Open(page_);
  }
  std::string RectangleSurface() { return Text(doc_.Objects().size() - 1, "OrvSurface"); }
};

constexpr char kGroups[] =
    R"("X" "float Ka" [1] "float Specular" [0.5] "color SpecularColor" [1 1 1])"
    R"( "float SpecularRoughness" [0.1] "string Map" ["a.tx"])";

TEST_F(MaterialRowsTest, TheHostsMaterialHasNone) {
  EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(MaterialRowsTest, AFreshShaderHasItsGroupsClosed) {
  Shade(kGroups);
  EXPECT_THAT(Rows(), ElementsAre("    Ka|Surface.Ka|combo", "+ Specular|Surface.Specular|combo",
                                  "    Map|Surface.Map|combo|.."));
}

TEST_F(MaterialRowsTest, TheLayoutOpensGroups) {
  Shade(kGroups, " -");
  EXPECT_THAT(Captions(),
              ElementsAre("    Ka", "- Specular", "       Color", "       Roughness", "    Map"));
  // Too short, or another sign.
  for (const char* layout : {"", "-", " +", "  -"}) {
    Shade(kGroups, layout);
    EXPECT_THAT(Captions(), ElementsAre("    Ka", "+ Specular", "    Map")) << layout;
  }
}

TEST_F(MaterialRowsTest, ClickingAHeadOpensAndClosesItsGroup) {
  Shade(kGroups);
  EXPECT_EQ(Change("Surface.Specular.Caption", ""), "");
  EXPECT_EQ(Captions().size(), 5U);
  EXPECT_EQ(Text(0, "OrvSurfaceLayout"), " -");
  EXPECT_EQ(UndoCaption(), "Orv Material change");
  Open(page_);
  EXPECT_EQ(Captions().size(), 5U);
  EXPECT_EQ(Change("- Specular", ""), "");
  EXPECT_EQ(Captions().size(), 3U);
  EXPECT_EQ(Text(0, "OrvSurfaceLayout"), " +");
  EXPECT_EQ(Text(0, "OrvSurface"), kGroups);
  EXPECT_EQ(Change("Surface.Ka.Caption", ""), "'Surface.Ka.Caption' can't be changed now.");
}

TEST_F(MaterialRowsTest, RowsOfTweaksAreCalledByTheirCaptions) {
  Shade(R"("X" "string FloatTweak1Name" ["Grain"] "float FloatTweak1" [1])"
        R"( "string FloatTweak2Name" ["Depth"] "float FloatTweak2" [2])"
        R"( "string FloatTweak3Name" [""] "float FloatTweak3" [3])");
  // What is hidden is looked over.
  EXPECT_THAT(Captions(), ElementsAre("+ Grain"));
  EXPECT_EQ(Change("Surface.FloatTweak1.Caption", ""), "");
  EXPECT_THAT(Captions(), ElementsAre("- Grain", "       Depth"));
  EXPECT_EQ(Text(0, "OrvSurfaceLayout"), " -");
}

TEST_F(MaterialRowsTest, TheMarkOfAHeadTellsWhatFollows) {
  ShaderParam head;
  head.Label = "Head";
  head.GroupHead = true;
  ShaderParam closed;
  closed.Collapsed = true;
  ShaderParam hidden = closed;
  hidden.AlwaysHidden = true;
  const ShaderParam open;
  EXPECT_EQ(RowCaption({head, closed}, 0), "+ Head");
  EXPECT_EQ(RowCaption({head, open}, 0), "- Head");
  EXPECT_EQ(RowCaption({head}, 0), "  Head");
  EXPECT_EQ(RowCaption({head, hidden}, 0), "  Head");
  EXPECT_EQ(RowCaption({head, hidden, closed}, 0), "+ Head");
  EXPECT_EQ(RowCaption({head, hidden, open}, 0), "- Head");
  // Only one is looked over.
  EXPECT_EQ(RowCaption({head, hidden, hidden, open}, 0), "+ Head");
  head.GroupHead = false;
  EXPECT_EQ(RowCaption({head, closed}, 0), "    Head");
}

TEST_F(MaterialRowsTest, TwentyRowsAreShown) {
  std::string call = "\"X\" \"float Specular\" [1] \"float SpecularRoughness\" [2]";
  for (char c = 'a'; c <= 'z'; ++c) call += std::string(" \"float ") + c + "x\" [1]";
  Shade(call, "-");
  EXPECT_EQ(Rows().size(), 20U);
  EXPECT_EQ(Captions().back(), "    rx");
  EXPECT_EQ(Change("Surface.sx", "2"), "There is no 'Surface.sx' on this page.");
  EXPECT_EQ(Change("Surface.Specular.Caption", ""), "");
  EXPECT_EQ(Captions().back(), "    sx");
  EXPECT_EQ(page_.Controls().size(), kControlsBeforeRows + 20 * 3);
}

TEST_F(MaterialRowsTest, ValuesAreShownByTheirKind) {
  Shade(R"("X" "float Ka" [0.25] "float[3] At" [1 2.5 -3] "color C" [1 0 0.2])"
        R"( "string Text" ["a b"] "string Projection" ["box"] "string InSpace" ["NDC"])");
  EXPECT_EQ(Shown("Surface.Ka"), "0.25");
  EXPECT_EQ(Shown("Surface.At"), "1 2.5 -3");
  EXPECT_EQ(Shown("Surface.C"), "255,0,51");
  EXPECT_EQ(Shown("Surface.Text"), "a b");
  EXPECT_THAT(
      Control(page_, "Surface.Ka").Choices,
      ElementsAre("0.0", "0.1", "0.2", "0.3", "0.4", "0.5", "0.6", "0.7", "0.8", "0.9", "1.0"));
  EXPECT_THAT(Control(page_, "Surface.At").Choices, ElementsAre("0 0 0"));
  EXPECT_THAT(Control(page_, "Surface.C").Choices, IsEmpty());
  EXPECT_THAT(Control(page_, "Surface.Text").Choices, IsEmpty());
  EXPECT_THAT(Control(page_, "Surface.Projection").Choices,
              ElementsAre("st", "planar", "box", "spherical", "cylindrical"));
  EXPECT_THAT(
      Control(page_, "Surface.InSpace").Choices,
      ElementsAre("shader", "world", "object", "current", "camera", "NDC", "screen", "raster"));
}

TEST_F(MaterialRowsTest, ButtonsStandBehindWhatCanBePicked) {
  Shade(R"("X" "float patternSIZE" [1] "float PatternSize2" [1] "float[2] S" [1 1])"
        R"( "float[3] At" [0 0 0] "float[3] TheOrigin" [0 0 0])"
        R"( "float[16] M" [1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1] "color C" [1 1 1] "string T" [""])"
        R"( "string Projection" ["st"] "string ASpace" ["world"])");
  EXPECT_THAT(
      Rows(),
      ElementsAre("    pattern s i z e|Surface.patternSIZE|combo|..",
                  "    Pattern size2|Surface.PatternSize2|combo", "    S|Surface.S|combo|..",
                  "    At|Surface.At|combo", "    The origin|Surface.TheOrigin|combo|..",
                  "    M|Surface.M|combo|..", "    C|Surface.C|colour", "    T|Surface.T|combo|..",
                  "    Projection|Surface.Projection|combo", "    A space|Surface.ASpace|combo"));
}

TEST_F(MaterialRowsTest, AValueIsStoredWhenItIsAnother) {
  const std::string call = R"("X" "float Ka" [0.25] "float[2] At" [1 2] "string Text" ["a"])";
  Shade(call);
  EXPECT_EQ(Change("Surface.Ka", "0.25"), "");
  EXPECT_EQ(Change("Surface.At", "1,2"), "");
  EXPECT_EQ(Change("Surface.Text", "a"), "");
  EXPECT_TRUE(doc_.Undo());
  EXPECT_NE(UndoCaption(), "Orv Material change");
  Shade(call);
  EXPECT_EQ(Change("Surface.Ka", "0.75"), "");
  EXPECT_EQ(Change("Surface.At", "5"), "");
  EXPECT_EQ(Change("Text", "b c"), "");
  EXPECT_EQ(Text(0, "OrvSurface"),
            R"("X" "float Ka" [0.75] "float[2] At" [5 2] "string Text" ["b c"])");
  EXPECT_EQ(UndoCaption(), "Orv Material change");
}

TEST_F(MaterialRowsTest, ANumberOfTheListIsAlwaysStored) {
  Shade(R"("X" "float Ka" [0.5] "float Dropped" [1 2])");
  EXPECT_EQ(Change("Surface.Ka", ".5"), "");
  EXPECT_NE(UndoCaption(), "Orv Material change");
  EXPECT_EQ(Change("Surface.Ka", "0.5"), "");
  EXPECT_EQ(UndoCaption(), "Orv Material change");
  EXPECT_EQ(Text(0, "OrvSurface"), R"("X" "float Ka" [0.5])");
}

TEST_F(MaterialRowsTest, NumbersThatDontReadAreLeftOut) {
  Shade(R"("X" "float Ka" [0.5])");
  EXPECT_EQ(Change("Surface.Ka", "1e999"), "");
  EXPECT_EQ(Shown("Surface.Ka"), "0.5");
  EXPECT_EQ(Change("Surface.Ka", "1e40"), "");
  EXPECT_EQ(Shown("Surface.Ka"), "1e+30");
}

TEST_F(MaterialRowsTest, ColorsAreStoredWithTheGammaOfTheModel) {
  plugIn_.UserStrings().SetUserString("RhinoGamma", "2");
  Shade(R"("X" "color C" [0.25 0 1])");
  EXPECT_EQ(Shown("Surface.C"), "128,0,255");
  EXPECT_EQ(Change("Surface.C", "51,0,255"), "");
  EXPECT_EQ(Text(0, "OrvSurface"), R"("X" "color C" [0.04 0 1])");
  EXPECT_NE(Change("Surface.C", "51,0"), "");
}

TEST_F(MaterialRowsTest, AColorOfADisplacementIsShownButNotStored) {
  SetMaterialText(0, "OrvDisplacement", R"("D" "color C" [1 1 1] "float K" [1])");
  SetMaterialText(0, "OrvInstancer", R"("I" "color C" [1 1 1])");
  Open(page_);
  EXPECT_EQ(Change("ActiveSlot", "Displacement"), "");
  EXPECT_EQ(Change("Displacement.C", "255,0,0"), "");
  EXPECT_EQ(Shown("Displacement.C"), "255,0,0");
  EXPECT_EQ(Text(0, "OrvDisplacement"), R"("D" "color C" [1 1 1] "float K" [1])");
  // It goes along with the next change.
  EXPECT_EQ(Change("Displacement.K", "2"), "");
  EXPECT_EQ(Text(0, "OrvDisplacement"), R"("D" "color C" [1 0 0] "float K" [2])");
  EXPECT_EQ(Change("ActiveSlot", "Instancer"), "");
  EXPECT_EQ(Change("Instancer.C", "255,0,0"), "");
  EXPECT_EQ(Text(0, "OrvInstancer"), R"("I" "color C" [1 0 0])");
}

TEST_F(MaterialRowsTest, TextsWithSignsOfTheirOwnStayWhole) {
  Shade(R"("X" "string T" [""])");
  EXPECT_EQ(Change("Surface.T", "a\"]b"), "");
  Open(page_);
  EXPECT_EQ(Shown("Surface.T"), "a\"]b");
}

TEST_F(MaterialRowsTest, FilesArePickedWithForwardSlashes) {
  struct Case {
    std::string_view name, title;
    std::string UserValues::*folder;
  };
  for (const Case& one :
       std::vector<Case>{{"ArchiveName", "Choose RIB File", &UserValues::ArchiveDir},
                         {"DarkTreeShader", "Choose DarkTree shader", &UserValues::DarkTreeDir},
                         {"ColorMapName", "Choose texture", &UserValues::TextureDir}}) {
    const std::string name(one.name);
    Shade("\"X\" \"string " + name + "\" [\"\"]");
    const std::string file = folder_.File(name);
    WriteFileContent(file, "");
    EXPECT_EQ(Change("Surface." + name + ".Choose", "", {file}), "");
    EXPECT_THAT(prompts_, ElementsAre(std::string(one.title) + ": "));
    EXPECT_EQ(Text(0, "OrvSurface"), "\"X\" \"string " + name + "\" [\"" + file + "\"]");
    EXPECT_EQ(plugIn_.User().*one.folder, folder_.File(""));
    EXPECT_EQ(Change("Surface." + name + ".Choose", "a\\b.x"), "");
    EXPECT_EQ(Shown("Surface." + name), "a/b.x");
    EXPECT_EQ(Change("Surface." + name + ".Choose", "", {"!"}), "");
    EXPECT_EQ(Shown("Surface." + name), "a/b.x");
  }
}

TEST_F(MaterialRowsTest, ADarkTreeShaderBringsItsTweaks) {
  const std::string file = folder_.File("stone.dsts");
  WriteFileContent(file, "Tweak IF_PERCENT\nTweak name: Grain\nTweak value: 0.75\n");
  Shade(
      R"("X" "string DarkTreeShader" [""] "string FloatTweak1Name" [""] "float FloatTweak1" [0])");
  EXPECT_EQ(Change("Surface.DarkTreeShader.Choose", file), "");
  EXPECT_EQ(Text(0, "OrvSurface"), "\"X\" \"string DarkTreeShader\" [\"" + file +
                                       "\"] \"string FloatTweak1Name\" [\"Grain\"] \"float "
                                       "FloatTweak1\" [0.75]");
  EXPECT_EQ(Control(page_, "Surface.DarkTreeShader").Value, file);
}

TEST_F(MaterialRowsTest, PointsArePicked) {
  Shade(R"("X" "float PatternSize" [1] "float[3] TheOrigin" [0 0 0])");
  EXPECT_EQ(Change("Surface.PatternSize.Choose", "", {"1,1,1", "4,5,1"}), "");
  EXPECT_THAT(prompts_, ElementsAre("Pick reference point: ", "Pick end for pattern size: "));
  EXPECT_EQ(Shown("Surface.PatternSize"), "5");
  EXPECT_EQ(Change("Surface.TheOrigin.Choose", "", {"7,8,9"}, Form::scripted), "");
  EXPECT_THAT(prompts_, ElementsAre("Pick origin point: "));
  EXPECT_EQ(Text(0, "OrvSurface"), R"("X" "float PatternSize" [5] "float[3] TheOrigin" [7 8 9])");
  for (const char* answer : {"!", "Enter"}) {
    EXPECT_EQ(Change("Surface.TheOrigin.Choose", "", {answer}), "");
    EXPECT_EQ(Change("Surface.PatternSize.Choose", "", {"0,0,0", answer}), "");
  }
  EXPECT_EQ(Shown("Surface.PatternSize"), "5");
}

TEST_F(MaterialRowsTest, ADecalIsPicked) {
  Shade(R"("X" "float[16] M" [1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1])");
  EXPECT_EQ(Change("Surface.M.Choose", "", {"0,2,0", "4,2,0", "4,0,0"}), "");
  EXPECT_EQ(prompts_.at(0), "Pick top, left corner: ");
  EXPECT_EQ(Text(0, "OrvSurface"),
            R"("X" "float[16] M" [0.25 0 0 0 0 -0.5 0 0 0 0 -0.5 0 0 1 0 1])");
}

TEST_F(MaterialRowsTest, APlaceOnTheFirstObjectIsPicked) {
  ShowRectangle(R"("X" "float[2] Center" [0 0])");
  EXPECT_EQ(Change("Surface.Center.Choose", "", {"2.5,1,9"}), "");
  EXPECT_THAT(prompts_, ElementsAre("Pick point on surface: "));
  EXPECT_EQ(RectangleSurface(), R"("X" "float[2] Center" [0.25 0.75])");
}

TEST_F(MaterialRowsTest, ASizeIsToldFromTheOriginBesideIt) {
  const std::string size = R"( "float[2] TileSize" [1 1])";
  const std::string origin = R"( "float[2] TheOrigin" [0.5 0.25])";
  const std::string further = R"( "float[2] OtherOrigin" [0.125 0.125])";
  const auto picked = [&](const std::string& before, const std::string& after) {
    ShowRectangle("\"X\"" + before + size + after);
    EXPECT_EQ(Change("Surface.TileSize.Choose", "", {"7.5,1"}), "");
    return Shown("Surface.TileSize");
  };
  EXPECT_EQ(picked("", origin), "0.25 0.5");
  EXPECT_EQ(picked(origin, ""), "0.25 0.5");
  EXPECT_EQ(picked(further, origin), "0.25 0.5");
  EXPECT_EQ(picked("", ""), "0.75 0.75");
  EXPECT_EQ(picked(origin + " \"float K\" [1]", " \"float L\" [1]" + origin), "0.75 0.75");
  EXPECT_EQ(picked("", R"( "float[3] TheOrigin" [0.5 0.25 0])"), "0.75 0.75");
  ShowRectangle("\"X\" \"float[2] Center\" [0 0]" + origin);
  EXPECT_EQ(Change("Surface.Center.Choose", "", {"7.5,1"}), "");
  EXPECT_EQ(Shown("Surface.Center"), "0.75 0.75");
}

TEST_F(MaterialRowsTest, APlaceOnAMeshWithoutACoordinateIsRefused) {
  Shade(R"("X" "float[2] Center" [0 0])");
  EXPECT_EQ(Change("Surface.Center.Choose", ""), "");
  EXPECT_EQ(messages_, "Unable to pick point on selected object.\n");
  EXPECT_EQ(Shown("Surface.Center"), "0 0");
}

}  // namespace
}  // namespace orv
