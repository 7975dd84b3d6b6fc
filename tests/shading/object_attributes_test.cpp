#include "shading/object_attributes.h"

#include <gmock/gmock.h>

#include "attribute_document.h"
#include "host/document/event_watcher.h"

namespace orv {
namespace {

using testing::ElementsAre;

using Marks = ObjectAttributes::ChangeMarks;

ObjectAttributes ReadWith(std::string_view key, std::string_view text) {
  AttributeDocument document;
  ON_3dmObjectAttributes attributes = document.Mesh().Attributes();
  attributes.SetUserString(key, text);
  EXPECT_TRUE(document.Doc.ModifyObjectAttributes(document.Mesh(), attributes));
  return ReadObjectAttributes(document.Mesh());
}

// Another value than the default in every field.
ObjectAttributes OtherValues() {
  ObjectAttributes attributes;
  attributes.VisibleToCamera = false;
  attributes.Reflected = false;
  attributes.CastShadow = false;
  attributes.UseLineWidth = true;
  attributes.UseLineColor = true;
  attributes.UseFlatness = true;
  attributes.BackFace = false;
  attributes.ShadeCurves = true;
  attributes.WeldPolyVerts = true;
  attributes.SubdivisionMesh = true;
  attributes.LineColor = ON_Color(255, 51, 0);
  attributes.LineWidth = 2.5;
  attributes.Flatness = 0.05;
  attributes.RenderMesh = 2;
  attributes.PointType = 1;
  attributes.CurveType = 3;
  attributes.ArchiveMode = 2;
  attributes.UseMeshFile = 3;
  attributes.Archive = "C:\\rib\\tree.rib";
  attributes.MeshFile = "/meshes/b\xC3\xA4r.obj";
  return attributes;
}

// A field with its key, and its text in OtherValues; in the order in which they are stored.
struct StoredField {
  bool Marks::*Mark;
  const char* Key;
  const char* Text;
};

constexpr StoredField kStoredFields[] = {
    {&Marks::VisibleToCamera, "OrvVisibleToCamera", "No"},
    {&Marks::Reflected, "OrvReflected", "No"},
    {&Marks::CastShadow, "OrvCastShadow", "No"},
    {&Marks::UseLineWidth, "OrvUseLineWidth", "Yes"},
    {&Marks::UseLineColor, "OrvUseLineColor", "Yes"},
    {&Marks::LineWidth, "OrvLineWidth", "2.5"},
    {&Marks::LineColor, "OrvLineColor", "1,0.2,0"},
    {&Marks::BackFace, "OrvBackFace", "No"},
    {&Marks::WeldPolyVerts, "OrvWeldPolyVerts", "Yes"},
    {&Marks::Archive, "OrvArchive", "C:\\rib\\tree.rib"},
    {&Marks::UseFlatness, "OrvUseFlatness", "Yes"},
    {&Marks::Flatness, "OrvFlatness", "0.05"},
    {&Marks::RenderMesh, "OrvRenderMesh", "Yes"},
    {&Marks::UseMeshFile, "OrvUseMeshFile", "BakeAndUse"},
    {&Marks::MeshFile, "OrvMeshFile", "/meshes/b\xC3\xA4r.obj"},
    {&Marks::ShadeCurves, "OrvShadeCurves", "Yes"},
    {&Marks::SubdivisionMesh, "OrvSubdivisionMesh", "Yes"},
    {&Marks::PointType, "OrvPointType", "patch"},
    {&Marks::CurveType, "OrvCurveType", "tube"},
    {&Marks::ArchiveMode, "OrvArchiveMode", "replace"},
};

std::vector<ON_UserString> AllStored() {
  std::vector<ON_UserString> stored;
  for (const StoredField& field : kStoredFields) stored.push_back({field.Key, field.Text});
  return stored;
}

void SetAllMarks(ObjectAttributes& attributes) {
  for (const StoredField& field : kStoredFields) attributes.Changed.*field.Mark = true;
}

void ExpectSameValues(const ObjectAttributes& a, const ObjectAttributes& b) {
  EXPECT_EQ(a.VisibleToCamera, b.VisibleToCamera);
  EXPECT_EQ(a.Reflected, b.Reflected);
  EXPECT_EQ(a.CastShadow, b.CastShadow);
  EXPECT_EQ(a.UseLineWidth, b.UseLineWidth);
  EXPECT_EQ(a.UseLineColor, b.UseLineColor);
  EXPECT_EQ(a.UseFlatness, b.UseFlatness);
  EXPECT_EQ(a.BackFace, b.BackFace);
  EXPECT_EQ(a.ShadeCurves, b.ShadeCurves);
  EXPECT_EQ(a.WeldPolyVerts, b.WeldPolyVerts);
  EXPECT_EQ(a.SubdivisionMesh, b.SubdivisionMesh);
  EXPECT_EQ(a.LineColor, b.LineColor);
  EXPECT_EQ(a.LineWidth, b.LineWidth);
  EXPECT_EQ(a.Flatness, b.Flatness);
  EXPECT_EQ(a.RenderMesh, b.RenderMesh);
  EXPECT_EQ(a.PointType, b.PointType);
  EXPECT_EQ(a.CurveType, b.CurveType);
  EXPECT_EQ(a.ArchiveMode, b.ArchiveMode);
  EXPECT_EQ(a.UseMeshFile, b.UseMeshFile);
  EXPECT_EQ(a.Archive, b.Archive);
  EXPECT_EQ(a.MeshFile, b.MeshFile);
}

TEST(ObjectAttributes, ReadDefaultsWithoutStrings) {
  AttributeDocument document;
  const ObjectAttributes attributes = ReadObjectAttributes(document.Mesh());
  EXPECT_TRUE(attributes.VisibleToCamera && attributes.Reflected && attributes.CastShadow);
  EXPECT_TRUE(attributes.BackFace);
  EXPECT_FALSE(attributes.UseLineWidth || attributes.UseLineColor || attributes.UseFlatness);
  EXPECT_FALSE(attributes.ShadeCurves || attributes.WeldPolyVerts || attributes.SubdivisionMesh);
  EXPECT_EQ(attributes.LineColor, ON_Color(0, 0, 0));
  EXPECT_EQ(attributes.LineWidth, 1);
  EXPECT_EQ(attributes.Flatness, 0.5);
  EXPECT_EQ(attributes.RenderMesh, 1);
  EXPECT_EQ(attributes.PointType, 0);
  EXPECT_EQ(attributes.CurveType, 0);
  EXPECT_EQ(attributes.ArchiveMode, 0);
  EXPECT_EQ(attributes.UseMeshFile, 0);
  EXPECT_EQ(attributes.Archive, "");
  EXPECT_EQ(attributes.MeshFile, "");
}

TEST(ObjectAttributes, ReadEveryKeyIntoItsField) {
  AttributeDocument document;
  ON_3dmObjectAttributes attributes = document.Mesh().Attributes();
  attributes.m_user_strings.m_e = AllStored();
  ASSERT_TRUE(document.Doc.ModifyObjectAttributes(document.Mesh(), attributes));
  ExpectSameValues(ReadObjectAttributes(document.Mesh()), OtherValues());
}

TEST(ObjectAttributes, ReadKeysInAnyCaseAndTheFirstOfTwo) {
  AttributeDocument document;
  ON_3dmObjectAttributes attributes = document.Mesh().Attributes();
  attributes.m_user_strings.m_e = {{"orvlinewidth", "3"}, {"OrvLineWidth", "4"}};
  ASSERT_TRUE(document.Doc.ModifyObjectAttributes(document.Mesh(), attributes));
  EXPECT_EQ(ReadObjectAttributes(document.Mesh()).LineWidth, 3);
}

TEST(ObjectAttributes, OnlyNoHidesFromTheCamera) {
  EXPECT_TRUE(ReadWith("OrvVisibleToCamera", "0").VisibleToCamera);
  EXPECT_TRUE(ReadWith("OrvVisibleToCamera", "").VisibleToCamera);
  EXPECT_FALSE(ReadWith("OrvVisibleToCamera", "nO").VisibleToCamera);
}

TEST(ObjectAttributes, AnUnknownWordSwitchesAFlagOn) {
  EXPECT_TRUE(ReadWith("OrvUseLineWidth", "off").UseLineWidth);
  EXPECT_TRUE(ReadWith("OrvSubdivisionMesh", "").SubdivisionMesh);
}

TEST(ObjectAttributes, HoldLineWidths) {
  EXPECT_EQ(ReadWith("OrvLineWidth", "-1").LineWidth, 0);
  EXPECT_EQ(ReadWith("OrvLineWidth", "100.5").LineWidth, 100);
  EXPECT_EQ(ReadWith("OrvLineWidth", "1e999").LineWidth, 1);
  EXPECT_EQ(ReadWith("OrvLineWidth", "").LineWidth, 0);
}

TEST(ObjectAttributes, HoldTheFlatness) {
  EXPECT_EQ(ReadWith("OrvFlatness", "0.05").Flatness, 0.05);
  EXPECT_EQ(ReadWith("OrvFlatness", "0").Flatness, 0.001);
  EXPECT_EQ(ReadWith("OrvFlatness", "101").Flatness, 100);
  EXPECT_EQ(ReadWith("OrvFlatness", "-1e999").Flatness, 0.5);
  EXPECT_EQ(ReadWith("OrvFlatness", "").Flatness, 0.001);
}

TEST(ObjectAttributes, ReadTheRenderMeshWords) {
  EXPECT_EQ(ReadWith("OrvRenderMesh", "NO").RenderMesh, 0);
  EXPECT_EQ(ReadWith("OrvRenderMesh", "yEs").RenderMesh, 2);
  for (const char* word : {"Inherit", "inherit", "1", "", "on"}) {
    EXPECT_EQ(ReadWith("OrvRenderMesh", word).RenderMesh, 1) << word;
  }
}

struct Word {
  const char* Text;
  int Value;
};

void ExpectWords(std::string_view key, int ObjectAttributes::*member,
                 std::initializer_list<Word> words) {
  for (const Word& word : words) {
    EXPECT_EQ(ReadWith(key, word.Text).*member, word.Value) << key << ' ' << word.Text;
  }
}

TEST(ObjectAttributes, ReadTheMeshFileWords) {
  ExpectWords(
      "OrvUseMeshFile", &ObjectAttributes::UseMeshFile,
      {{"NO", 0}, {"yES", 1}, {"bAke", 2}, {"bakeANDuse", 3}, {"bake and use", 0}, {"", 0}});
}

TEST(ObjectAttributes, ReadThePointTypeWords) {
  ExpectWords("OrvPointType", &ObjectAttributes::PointType,
              {{"SPHERE", 0},
               {"Patch", 1},
               {"bLobby", 2},
               {"Volume", 3},
               {"DISK", 4},
               {"sprite", 0},
               {"4", 0},
               {"", 0}});
}

TEST(ObjectAttributes, ReadTheCurveTypeWords) {
  ExpectWords(
      "OrvCurveType", &ObjectAttributes::CurveType,
      {{"AUTO", 0}, {"Polyline", 1}, {"RIBBON", 2}, {"Tube", 3}, {"pipe", 0}, {"3", 0}, {"", 0}});
}

TEST(ObjectAttributes, ReadTheArchiveModeWords) {
  ExpectWords("OrvArchiveMode", &ObjectAttributes::ArchiveMode,
              {{"OFF", 0}, {"Insert", 1}, {"rePlace", 2}, {"substitute", 0}, {"2", 0}, {"", 0}});
}

TEST(ObjectAttributes, ReadColoursAndTextsAsTheyStand) {
  EXPECT_EQ(ReadWith("OrvLineColor", "0.2 1").LineColor, ON_Color(51, 255, 0));
  EXPECT_EQ(ReadWith("OrvArchive", " a b ").Archive, " a b ");
  EXPECT_EQ(ReadWith("OrvMeshFile", "").MeshFile, "");
}

TEST(ObjectAttributes, AreStoredOneByOne) {
  for (const StoredField& field : kStoredFields) {
    AttributeDocument document;
    ObjectAttributes attributes = OtherValues();
    attributes.Changed.*field.Mark = true;
    EXPECT_TRUE(WriteObjectAttributes(document.Doc, document.Mesh(), attributes));
    EXPECT_THAT(document.Mesh().Attributes().m_user_strings.m_e,
                ElementsAre(ON_UserString{field.Key, field.Text}));
  }
}

TEST(ObjectAttributes, AreStoredInOrder) {
  AttributeDocument document;
  ObjectAttributes attributes = OtherValues();
  SetAllMarks(attributes);
  EXPECT_TRUE(WriteObjectAttributes(document.Doc, document.Mesh(), attributes));
  EXPECT_EQ(document.Mesh().Attributes().m_user_strings.m_e, AllStored());
}

TEST(ObjectAttributes, StoreTheDefaultsInWords) {
  AttributeDocument document;
  ObjectAttributes attributes;
  SetAllMarks(attributes);
  EXPECT_TRUE(WriteObjectAttributes(document.Doc, document.Mesh(), attributes));
  const ON_3dmObjectAttributes& stored = document.Mesh().Attributes();
  EXPECT_EQ(stored.GetUserString("OrvVisibleToCamera"), "Yes");
  EXPECT_EQ(stored.GetUserString("OrvUseFlatness"), "No");
  EXPECT_EQ(stored.GetUserString("OrvRenderMesh"), "Inherit");
  EXPECT_EQ(stored.GetUserString("OrvUseMeshFile"), "No");
  EXPECT_EQ(stored.GetUserString("OrvPointType"), "sphere");
  EXPECT_EQ(stored.GetUserString("OrvCurveType"), "auto");
  EXPECT_EQ(stored.GetUserString("OrvArchiveMode"), "off");
  EXPECT_EQ(stored.GetUserString("OrvLineColor"), "0,0,0");
  EXPECT_EQ(stored.GetUserString("OrvArchive"), "");
  ExpectSameValues(ReadObjectAttributes(document.Mesh()), ObjectAttributes());
}

TEST(ObjectAttributes, LeaveOtherStringsWhereTheyAre) {
  AttributeDocument document;
  ON_3dmObjectAttributes before = document.Mesh().Attributes();
  before.m_user_strings.m_e = {{"Price", "12"}, {"ORVLINEWIDTH", "7"}, {"Owner", "Ada"}};
  ASSERT_TRUE(document.Doc.ModifyObjectAttributes(document.Mesh(), before));
  ObjectAttributes attributes = OtherValues();
  attributes.Changed.LineWidth = true;
  EXPECT_TRUE(WriteObjectAttributes(document.Doc, document.Mesh(), attributes));
  EXPECT_THAT(document.Mesh().Attributes().m_user_strings.m_e,
              ElementsAre(ON_UserString{"Price", "12"}, ON_UserString{"ORVLINEWIDTH", "2.5"},
                          ON_UserString{"Owner", "Ada"}));
}

class AttributeWatcher : public CRhinoEventWatcher {
 public:
  void OnModifyObjectAttributes(CRhinoDoc&, CRhinoObject&, const ON_3dmObjectAttributes&) override {
    ++Count;
  }
  int Count = 0;
};

TEST(ObjectAttributes, TellTheDocumentEvenWithoutAChange) {
  AttributeDocument document;
  AttributeWatcher watcher;
  watcher.Register();
  watcher.Enable();
  EXPECT_TRUE(WriteObjectAttributes(document.Doc, document.Mesh(), OtherValues()));
  EXPECT_EQ(watcher.Count, 1);
  EXPECT_TRUE(document.Mesh().Attributes().m_user_strings.IsEmpty());
}

TEST(ObjectAttributes, AreNotStoredInALight) {
  AttributeDocument document;
  ObjectAttributes attributes = OtherValues();
  SetAllMarks(attributes);
  EXPECT_FALSE(WriteObjectAttributes(document.Doc, document.LightObject(), attributes));
  EXPECT_TRUE(document.LightObject().Attributes().m_user_strings.IsEmpty());
  EXPECT_FALSE(document.Doc.Undo());
}

TEST(ObjectAttributes, ReadBackTheSameAfterUndoAndRedo) {
  AttributeDocument document;
  ObjectAttributes attributes = OtherValues();
  SetAllMarks(attributes);
  const unsigned record = document.Doc.BeginUndoRecord("Orv object change");
  EXPECT_TRUE(WriteObjectAttributes(document.Doc, document.Mesh(), attributes));
  ASSERT_TRUE(document.Doc.EndUndoRecord(record));
  ASSERT_TRUE(document.Doc.Undo());
  ExpectSameValues(ReadObjectAttributes(document.Mesh()), ObjectAttributes());
  EXPECT_TRUE(document.Mesh().Attributes().m_user_strings.IsEmpty());
  ASSERT_TRUE(document.Doc.Redo());
  ExpectSameValues(ReadObjectAttributes(document.Mesh()), attributes);
  EXPECT_EQ(document.Mesh().Attributes().m_user_strings.m_e, AllStored());
}

}  // namespace
}  // namespace orv
