#include "pages/object_page.h"

#include <gmock/gmock.h>

#include "host/document/object.h"
#include "host/geometry/on_light.h"
#include "pages/light_page.h"
#include "property_fixture.h"
#include "shading/object_attributes.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Optional;

class ObjectPageTest : public PropertyPageTest {
 protected:
  ObjectPageTest() {
    MakeMaterials();
    Select({0, 1});
    Open(page_);
  }

  std::string Change(std::string_view control, std::string_view value) {
    return PropertyPageTest::Change(page_, control, value);
  }
  std::string Shown(std::string_view id) const { return Value(page_, id); }
  std::size_t KeyCount(std::size_t index) {
    return Object(index).Attributes().m_user_strings.m_e.size();
  }

  CObjectDlg page_{plugIn_};
};

TEST_F(ObjectPageTest, HasTheseControls) {
  EXPECT_EQ(page_.Title(), "OrvObject");
  EXPECT_THAT(
      Described(page_.Controls()),
      ElementsAre(
          "VisibleToCamera: Camera, check", "Reflected: Reflected, check",
          "CastShadow: Cast shadow, check", "BackFace: Back faces, check",
          "UseLineWidth: Scale width:, check",
          "LineWidth: Scale width:, combo: 0.1|0.2|0.3|0.5|0.7|1.0|1.5|2|3|4",
          "UseLineColor: Set color:, check", "LineColor: Set color:, colour",
          "ShadeCurves: Shade curves, points, check",
          "PointType: Point type:, list: sphere|sprite|blobby|volume|disk",
          "CurveType: Curve type:, list: auto|polyline|ribbon|tube",
          "RenderMesh: Use Rhino mesh, three states", "UseFlatness: Tolerance:, check",
          "Flatness: Tolerance:, combo: 0.25|0.35|0.5|0.7|1.0|1.4|2|3|4",
          "SubdivisionMesh: Subdivision mesh, check", "WeldPolyVerts: Weld polygon vertices, check",
          "ArchiveMode: Archive mode:, list: Disable archive|Insert archive|Substitute archive",
          "Archive: Archive:, path",
          "UseMeshFile: Mesh file mode:, list: Disable mesh file|Export mesh|Bake mesh|Bake and "
          "use",
          "MeshFile: Mesh file:, path"));
}

TEST_F(ObjectPageTest, ShowsTheFirstObject) {
  for (const auto& [id, value] :
       std::vector<std::pair<std::string, std::string>>{{"VisibleToCamera", "Yes"},
                                                        {"Reflected", "Yes"},
                                                        {"CastShadow", "Yes"},
                                                        {"BackFace", "Yes"},
                                                        {"UseLineWidth", "No"},
                                                        {"LineWidth", "1"},
                                                        {"UseLineColor", "No"},
                                                        {"LineColor", "0,0,0"},
                                                        {"ShadeCurves", "No"},
                                                        {"PointType", "sphere"},
                                                        {"CurveType", "auto"},
                                                        {"RenderMesh", "Mixed"},
                                                        {"UseFlatness", "No"},
                                                        {"Flatness", "0.5"},
                                                        {"SubdivisionMesh", "No"},
                                                        {"WeldPolyVerts", "No"},
                                                        {"ArchiveMode", "Disable archive"},
                                                        {"Archive", ""},
                                                        {"UseMeshFile", "Disable mesh file"},
                                                        {"MeshFile", ""}}) {
    EXPECT_EQ(Shown(id), value) << id;
  }
}

TEST_F(ObjectPageTest, EachFieldIsStoredInItsKeyAlone) {
  struct Case {
    std::string_view control, value, key;
    std::string stored;
  };
  for (const Case& one :
       std::vector<Case>{{"Camera", "No", "OrvVisibleToCamera", "No"},
                         {"Reflected", "No", "OrvReflected", "No"},
                         {"Cast shadow", "No", "OrvCastShadow", "No"},
                         {"Back faces", "No", "OrvBackFace", "No"},
                         {"Scale width:", "Yes", "OrvUseLineWidth", "Yes"},
                         {"LineWidth", "0.7", "OrvLineWidth", "0.7"},
                         {"Set color:", "Yes", "OrvUseLineColor", "Yes"},
                         {"Shade curves, points", "Yes", "OrvShadeCurves", "Yes"},
                         {"Point type:", "sprite", "OrvPointType", "patch"},
                         {"Point type:", "disk", "OrvPointType", "disk"},
                         {"Curve type:", "Tube", "OrvCurveType", "tube"},
                         {"Use Rhino mesh", "Yes", "OrvRenderMesh", "Yes"},
                         {"Use Rhino mesh", "Mixed", "OrvRenderMesh", "Inherit"},
                         {"Use Rhino mesh", "No", "OrvRenderMesh", "No"},
                         {"Tolerance:", "Yes", "OrvUseFlatness", "Yes"},
                         {"Flatness", "1.4", "OrvFlatness", "1.4"},
                         {"Subdivision mesh", "Yes", "OrvSubdivisionMesh", "Yes"},
                         {"Weld polygon vertices", "Yes", "OrvWeldPolyVerts", "Yes"},
                         {"ArchiveMode", "Insert archive", "OrvArchiveMode", "insert"},
                         {"ArchiveMode", "Substitute archive", "OrvArchiveMode", "replace"},
                         {"Archive", "a.rib", "OrvArchive", "a.rib"},
                         {"UseMeshFile", "Export mesh", "OrvUseMeshFile", "Yes"},
                         {"UseMeshFile", "Bake mesh", "OrvUseMeshFile", "Bake"},
                         {"UseMeshFile", "Bake and use", "OrvUseMeshFile", "BakeAndUse"},
                         {"MeshFile", "a.obj", "OrvMeshFile", "a.obj"}}) {
    EXPECT_EQ(Change(one.control, one.value), "") << one.control;
    for (const std::size_t i : {0U, 1U}) {
      EXPECT_THAT(ObjectText(i, one.key), Optional(one.stored)) << one.control;
      EXPECT_EQ(KeyCount(i), 1U) << one.control;
    }
    EXPECT_EQ(KeyCount(2), 0U);
    EXPECT_EQ(UndoCaption(), "Orv object change");
    EXPECT_TRUE(doc_.Undo());
    EXPECT_EQ(KeyCount(0), 0U) << one.control;
    EXPECT_FALSE(doc_.Undo());
    Open(page_);
  }
}

TEST_F(ObjectPageTest, AChosenColorIsUsed) {
  EXPECT_EQ(Change("LineColor", "255,0,51"), "");
  EXPECT_THAT(ObjectText(1, "OrvLineColor"), Optional(std::string("1,0,0.2")));
  EXPECT_THAT(ObjectText(1, "OrvUseLineColor"), Optional(std::string("Yes")));
  EXPECT_EQ(Shown("UseLineColor"), "Yes");
  EXPECT_TRUE(doc_.Undo());
  EXPECT_EQ(KeyCount(1), 0U);
}

TEST_F(ObjectPageTest, TypedNumbersAreHeldToTheirLimits) {
  for (const auto& [control, value, stored] :
       std::vector<std::array<std::string, 3>>{{"LineWidth", "-1", "0"},
                                               {"LineWidth", "500", "100"},
                                               {"Flatness", "0.05", "0.1"},
                                               {"Flatness", "500", "100"}}) {
    EXPECT_EQ(Change(control, value), "");
    EXPECT_THAT(ObjectText(0, "Orv" + control), Optional(stored)) << value;
  }
}

TEST_F(ObjectPageTest, ATypedFlatnessMayBeFinerInTheKey) {
  ObjectAttributes attributes;
  attributes.Flatness = 0.05;
  attributes.Changed.Flatness = true;
  EXPECT_TRUE(WriteObjectAttributes(doc_, Object(0), attributes));
  Open(page_);
  EXPECT_EQ(Shown("Flatness"), "0.05");
}

TEST_F(ObjectPageTest, NumbersThatDontReadOrDontChangeAreNotStored) {
  EXPECT_EQ(Change("LineWidth", "1e999"), "LineWidth takes a number, not '1e999'.");
  EXPECT_EQ(Shown("LineWidth"), "1e999");
  EXPECT_EQ(Change("LineWidth", "1"), "");
  EXPECT_EQ(Shown("LineWidth"), "1");
  EXPECT_EQ(KeyCount(0), 0U);
  EXPECT_EQ(UndoCaption(), "");
}

TEST_F(ObjectPageTest, EachObjectKeepsItsOtherFields) {
  Select({0});
  Open(page_);
  EXPECT_EQ(Change("LineWidth", "2"), "");
  Select({1});
  Open(page_);
  EXPECT_EQ(Change("LineWidth", "3"), "");
  Select({0, 1});
  Open(page_);
  EXPECT_EQ(Change("Cast shadow", "No"), "");
  EXPECT_THAT(ObjectText(0, "OrvLineWidth"), Optional(std::string("2")));
  EXPECT_THAT(ObjectText(1, "OrvLineWidth"), Optional(std::string("3")));
}

TEST_F(ObjectPageTest, FilesAreChosenInDialogs) {
  const std::string archive = folder_.File("a.rib");
  WriteFileContent(archive, "");
  EXPECT_EQ(PropertyPageTest::Change(page_, "Archive", "...", {archive}), "");
  EXPECT_THAT(prompts_, ElementsAre("Choose RIB File: "));
  EXPECT_THAT(ObjectText(0, "OrvArchive"), Optional(archive));
  EXPECT_EQ(plugIn_.User().ArchiveDir, folder_.File(""));
  // The name gets the extension of the first type.
  EXPECT_EQ(PropertyPageTest::Change(page_, "MeshFile", "...", {folder_.File("mesh")}), "");
  EXPECT_THAT(prompts_, ElementsAre("Export Mesh File: "));
  EXPECT_THAT(ObjectText(0, "OrvMeshFile"), Optional(folder_.File("mesh.obj")));
  EXPECT_EQ(plugIn_.User().MeshDir, folder_.File(""));
  // Neither is used by that.
  EXPECT_EQ(ObjectText(0, "OrvArchiveMode"), std::nullopt);
  EXPECT_EQ(ObjectText(0, "OrvUseMeshFile"), std::nullopt);
  EXPECT_EQ(PropertyPageTest::Change(page_, "MeshFile", "...", {"!"}), "");
  EXPECT_THAT(ObjectText(0, "OrvMeshFile"), Optional(folder_.File("mesh.obj")));
}

TEST_F(ObjectPageTest, WithoutObjectsNothingHappens) {
  Select({});
  EXPECT_FALSE(page_.IsOffered(doc_));
  Open(page_);
  EXPECT_EQ(Change("Camera", "No"), "");
  EXPECT_EQ(UndoCaption(), "");
}

TEST_F(ObjectPageTest, LightsAndObjectsAreChangedByTheirOwnPages) {
  MakeLights();
  EXPECT_TRUE(Light(0).Select());
  EXPECT_FALSE(page_.IsOffered(doc_));
  EXPECT_TRUE(Object(0).Select());
  CLightPropPageDlg lights(plugIn_);
  EXPECT_TRUE(page_.IsOffered(doc_));
  EXPECT_TRUE(lights.IsOffered(doc_));
  Open(page_);
  Open(lights);
  EXPECT_EQ(Change("Reflected", "No"), "");
  EXPECT_EQ(PropertyPageTest::Change(lights, "Reflected", "Yes"), "");
  EXPECT_THAT(ObjectText(0, "OrvReflected"), Optional(std::string("No")));
  EXPECT_EQ(KeyCount(0), 1U);
  EXPECT_TRUE(Light(0).Attributes().m_user_strings.IsEmpty());
  EXPECT_THAT(LightText(0, "OrvRectangleLightReflected"), Optional(std::string("Yes")));
}

}  // namespace
}  // namespace orv
