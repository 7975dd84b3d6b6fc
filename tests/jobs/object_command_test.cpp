#include "jobs/object_command.h"

#include <gmock/gmock.h>

#include "host/document/object.h"
#include "shader_fixture.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::Optional;

class ObjectCommandTest : public ShaderCommandTest {
 protected:
  ObjectCommandTest() {
    MakeMaterials();
    Select({0});
  }

  CommandResult Edit(std::vector<std::string> answers, Form form = Form::scripted) {
    return Run<CCommandOrvObject>(form, std::move(answers));
  }
  // The one text of the first object after a change of the option, as "key=text".
  std::string StoredBy(const std::string& answer) {
    ON_3dmObjectAttributes attributes = Object(0).Attributes();
    attributes.m_user_strings = {};
    EXPECT_TRUE(doc_.ModifyObjectAttributes(Object(0), attributes));
    EXPECT_EQ(Edit({answer, "Enter"}), CommandResult::success) << answer;
    const auto& stored = Object(0).Attributes().m_user_strings.m_e;
    EXPECT_EQ(stored.size(), 1U) << answer;
    if (stored.empty()) return "";
    const std::string key(stored[0].m_key);
    return key + '=' + ObjectText(0, key).value_or("");
  }
};

TEST_F(ObjectCommandTest, ShowsAllOptionsInOrder) {
  EXPECT_EQ(Edit({"Enter"}), CommandResult::success);
  EXPECT_THAT(prompts_,
              ElementsAre("Orv Object ( InCamera=Yes  Reflected=Yes  CastShadow=Yes  "
                          "BackFaces=Yes  ShadeCurves=No  Subdivide=No  Weld=No  "
                          "PointType=Sphere  CurveType=Auto  UseLineColor=No  LineColor=0,0,0  "
                          "UseLineWidth=No  LineWidth=1  UseTolerance=No  Tolerance=0.5 ): "));
  EXPECT_TRUE(Object(0).Attributes().m_user_strings.IsEmpty());
}

TEST_F(ObjectCommandTest, EachOptionStoresItsKey) {
  EXPECT_EQ(StoredBy("InCamera"), "OrvVisibleToCamera=No");
  EXPECT_EQ(StoredBy("InCamera=Yes"), "OrvVisibleToCamera=Yes");
  EXPECT_EQ(StoredBy("Reflected=No"), "OrvReflected=No");
  EXPECT_EQ(StoredBy("CastShadow=No"), "OrvCastShadow=No");
  EXPECT_EQ(StoredBy("BackFaces=No"), "OrvBackFace=No");
  EXPECT_EQ(StoredBy("ShadeCurves"), "OrvShadeCurves=Yes");
  EXPECT_EQ(StoredBy("Subdivide"), "OrvSubdivisionMesh=Yes");
  EXPECT_EQ(StoredBy("Weld"), "OrvWeldPolyVerts=Yes");
  EXPECT_EQ(StoredBy("UseLineColor"), "OrvUseLineColor=Yes");
  EXPECT_EQ(StoredBy("LineColor=255,0,51"), "OrvLineColor=1,0,0.2");
  EXPECT_EQ(StoredBy("UseLineWidth"), "OrvUseLineWidth=Yes");
  EXPECT_EQ(StoredBy("LineWidth=2.5"), "OrvLineWidth=2.5");
  EXPECT_EQ(StoredBy("UseTolerance"), "OrvUseFlatness=Yes");
  EXPECT_EQ(StoredBy("Tolerance=0.25"), "OrvFlatness=0.25");
}

TEST_F(ObjectCommandTest, PointTypeIsAWord) {
  EXPECT_EQ(StoredBy("PointType=Sphere"), "OrvPointType=sphere");
  EXPECT_EQ(StoredBy("PointType=Sprite"), "OrvPointType=patch");
  EXPECT_EQ(StoredBy("PointType=Blobby"), "OrvPointType=blobby");
  EXPECT_EQ(StoredBy("PointType=Volume"), "OrvPointType=volume");
  EXPECT_EQ(StoredBy("PointType=Disk"), "OrvPointType=disk");
  EXPECT_EQ(Edit({"PointType", "Sprite", "!"}), CommandResult::cancel);
  EXPECT_EQ(prompts_.at(1), "PointType <Disk> ( Sphere  Sprite  Blobby  Volume  Disk ): ");
  EXPECT_EQ(Edit({"PointType=Patch"}), CommandResult::failure);
}

TEST_F(ObjectCommandTest, CurveTypeIsAWord) {
  EXPECT_EQ(StoredBy("CurveType=Auto"), "OrvCurveType=auto");
  EXPECT_EQ(StoredBy("CurveType=Polyline"), "OrvCurveType=polyline");
  EXPECT_EQ(StoredBy("CurveType=Ribbon"), "OrvCurveType=ribbon");
  EXPECT_EQ(StoredBy("CurveType=Tube"), "OrvCurveType=tube");
  EXPECT_EQ(Edit({"CurveType", "!"}), CommandResult::cancel);
  EXPECT_EQ(prompts_.at(1), "CurveType <Tube> ( Auto  Polyline  Ribbon  Tube ): ");
}

TEST_F(ObjectCommandTest, NumbersAndColorsAreAskedFor) {
  EXPECT_EQ(Edit({"LineColor", "1,2,3", "LineWidth", "3", "Tolerance", "4", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "Line color <0,0,0>: ");
  EXPECT_EQ(prompts_.at(3), "Line width <1>: ");
  EXPECT_EQ(prompts_.at(5), "Tolerance <0.5>: ");
}

TEST_F(ObjectCommandTest, NumbersReachFartherThanWhatIsRead) {
  for (const char* name : {"LineWidth", "Tolerance"}) {
    EXPECT_EQ(Edit({std::string(name) + "=1000", "Enter"}), CommandResult::success);
    EXPECT_EQ(Edit({std::string(name) + "=1001"}), CommandResult::failure);
    EXPECT_EQ(Edit({std::string(name) + "=-1"}), CommandResult::failure);
  }
  EXPECT_THAT(ObjectText(0, "OrvLineWidth"), Optional(std::string("1000")));
  EXPECT_THAT(ObjectText(0, "OrvFlatness"), Optional(std::string("1000")));
  EXPECT_EQ(Edit({"Enter"}), CommandResult::success);
  EXPECT_THAT(prompts_.at(0), testing::HasSubstr("LineWidth=100 "));
  EXPECT_THAT(prompts_.at(0), testing::HasSubstr("Tolerance=100 "));
  EXPECT_EQ(StoredBy("Tolerance=0"), "OrvFlatness=0");
}

TEST_F(ObjectCommandTest, TheFirstOnesAreShownAndWhatChangedIsStoredInAll) {
  ON_3dmObjectAttributes attributes = Object(0).Attributes();
  attributes.SetUserString("OrvCurveType", "tube");
  EXPECT_TRUE(doc_.ModifyObjectAttributes(Object(0), attributes));
  Select({0, 3});
  EXPECT_EQ(Edit({"CastShadow", "Enter"}), CommandResult::success);
  EXPECT_THAT(prompts_.at(0), testing::HasSubstr("CurveType=Tube"));
  EXPECT_THAT(ObjectText(0, "OrvCastShadow"), Optional(std::string("No")));
  EXPECT_THAT(ObjectText(3, "OrvCastShadow"), Optional(std::string("No")));
  EXPECT_EQ(ObjectText(3, "OrvCurveType"), std::nullopt);
  EXPECT_EQ(ObjectText(1, "OrvCastShadow"), std::nullopt);
}

TEST_F(ObjectCommandTest, CancelAndFailureStoreNothing) {
  EXPECT_EQ(Edit({"Weld", "!"}), CommandResult::cancel);
  EXPECT_EQ(Edit({"Weld", "Nonsense"}), CommandResult::failure);
  EXPECT_TRUE(Object(0).Attributes().m_user_strings.IsEmpty());
  Select({});
  EXPECT_EQ(Edit({"Enter"}), CommandResult::cancel);
  EXPECT_EQ(Edit({"b", "Enter", "Weld", "Enter"}, Form::interactive), CommandResult::success);
  EXPECT_THAT(ObjectText(1, "OrvWeldPolyVerts"), Optional(std::string("Yes")));
}

}  // namespace
}  // namespace orv
