// Materials that are new, copied, kept in files and looked for.

#include <gmock/gmock.h>

#include "host/document/object.h"
#include "host/geometry/on_tables.h"
#include "material_fixture.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class MaterialExchangeTest : public MaterialPageTest {
 protected:
  ON_AttributeSource Source(std::size_t index) {
    return Object(index).Attributes().MaterialSource();
  }
  int MaterialCount() const { return doc_.m_material_table.Count(); }
};

TEST_F(MaterialExchangeTest, NewGivesEachObjectAMaterialOfItsOwn) {
  Show({0, 1, 2});
  EXPECT_EQ(Change("New", ""), "");
  EXPECT_EQ(MaterialCount(), 4);
  for (const std::size_t i : {0U, 1U, 2U}) {
    EXPECT_EQ(Source(i), ON_AttributeSource::object);
    EXPECT_EQ(Material(i).m_name, "");
    EXPECT_EQ(Material(i).m_diffuse, (ON_Color{255, 255, 255}));
    EXPECT_EQ(Object(i).Attributes().m_material_index, static_cast<int>(i) + 1);
  }
  EXPECT_EQ(Source(3), ON_AttributeSource::layer);
  EXPECT_EQ(Shown("Name"), "");
  EXPECT_EQ(UndoCaption(), "Orv Material change");
  EXPECT_TRUE(doc_.Undo());
  EXPECT_EQ(Material(0).m_name, "Oak");
  EXPECT_EQ(Source(2), ON_AttributeSource::layer);
}

TEST_F(MaterialExchangeTest, AForcedChangeDoesSoForObjectsWithoutOne) {
  WriteShader("shaders", "VPlastic");
  struct Case {
    std::string_view control, value;
    bool isForced;
  };
  for (const Case& one : std::vector<Case>{{"Color", "1,2,3", true},
                                           {"Transparency", "0.25", true},
                                           {"Transparency", "0.2", false},
                                           {"Surface", "Plastic", true},
                                           {"Surface", "Rhino", true},
                                           {"Paste", "", true},
                                           {"Name", "Elm", false},
                                           {"ShadingSamples", "4", false},
                                           {"DisplacementMode", "Off", false},
                                           {"ComplexShadow", "Yes", false},
                                           {"InstancerBound", "3", false},
                                           {"HideInstancerBase", "Yes", false}}) {
    MakeMaterials();
    Show({0, 2});
    EXPECT_EQ(Change(one.control, one.value), "") << one.control;
    EXPECT_EQ(Object(0).Attributes().m_material_index, 0);
    EXPECT_EQ(Source(2), one.isForced ? ON_AttributeSource::object : ON_AttributeSource::layer)
        << one.control << ' ' << one.value;
    // Otherwise the layer has got one.
    EXPECT_EQ(MaterialCount(), 2) << one.control;
    EXPECT_TRUE(doc_.Undo());
    EXPECT_EQ(Source(2), ON_AttributeSource::layer);
    EXPECT_FALSE(doc_.Undo());
  }
}

TEST_F(MaterialExchangeTest, WithoutForceTheLayersMaterialIsChanged) {
  Show({2});
  EXPECT_EQ(Change("ForceBasicMaterial", "No"), "");
  EXPECT_EQ(Shown("ForceBasicMaterial"), "No");
  // For all pages.
  EXPECT_EQ(Value(CMatDlg(plugIn_), "ForceBasicMaterial"), "No");
  EXPECT_EQ(Change("Color", "1,2,3"), "");
  EXPECT_EQ(Source(2), ON_AttributeSource::layer);
  EXPECT_EQ(Material(3).m_diffuse, (ON_Color{1, 2, 3}));
  EXPECT_EQ(Shown("MaterialSource"), "Layer material");
  EXPECT_EQ(Change("ForceBasicMaterial", "Yes"), "");
  EXPECT_EQ(Change("Color", "4,5,6"), "");
  EXPECT_EQ(Shown("MaterialSource"), "Basic material");
  EXPECT_EQ(Material(2).m_diffuse, (ON_Color{4, 5, 6}));
  EXPECT_EQ(Material(3).m_diffuse, (ON_Color{1, 2, 3}));
}

TEST_F(MaterialExchangeTest, AForcedMaterialIsWhatThePageShows) {
  Show({2});
  EXPECT_EQ(Change("ForceBasicMaterial", "No"), "");
  SetMaterialText(0, "OrvSurface", "\"none of it\"");
  EXPECT_EQ(Change("Name", "Layer's"), "");
  EXPECT_EQ(Change("ShadingSamples", "4"), "");
  EXPECT_EQ(Change("ForceBasicMaterial", "Yes"), "");
  EXPECT_EQ(Change("Color", "4,5,6"), "");
  EXPECT_EQ(Shown("Name"), "");
  EXPECT_EQ(Shown("ShadingSamples"), "1");
  EXPECT_EQ(Shown("Color"), "4,5,6");
}

TEST_F(MaterialExchangeTest, ACopiedMaterialIsPastedWhole) {
  SetMaterialText(0, "OrvSurface", "\"VPlastic\" \"float Ka\" [1]");
  SetMaterialText(0, "OrvShadingSamples", "7");
  Open(page_);
  EXPECT_EQ(Change("Copy", ""), "");
  // Another page has the same clipboard.
  CMatDlg other(plugIn_);
  Select({2});
  Open(other);
  EXPECT_EQ(PropertyPageTest::Change(other, "Paste", ""), "");
  EXPECT_EQ(Material(2).m_name, "Oak");
  EXPECT_EQ(Material(2).m_diffuse, (ON_Color{0, 0, 255}));
  EXPECT_EQ(Material(2).Transparency(), 0.3);
  EXPECT_EQ(Text(2, "OrvSurface"), "\"VPlastic\" \"float Ka\" [1]");
  EXPECT_EQ(Text(2, "OrvShadingSamples"), "7");
  EXPECT_EQ(Text(2, "OrvDisplacement"), "\"Rhino\"");
  EXPECT_EQ(Material(2).m_user_strings.m_e.size(), 11U);
  EXPECT_EQ(Value(other, "Surface.Ka"), "1");
  EXPECT_EQ(Value(other, "MaterialSource"), "Basic material");
  EXPECT_EQ(UndoCaption(), "Orv Material change");
}

TEST_F(MaterialExchangeTest, AMaterialGoesThroughAFile) {
  SetMaterialText(0, "OrvSurface", "\"VPlastic\" \"color C\" [0.25 1 1]");
  Open(page_);
  plugIn_.UserStrings().SetUserString("RhinoGamma", "2");
  const std::string file = folder_.File("oak.omf");
  EXPECT_EQ(Change("Save", "", {folder_.File("oak")}), "");
  EXPECT_THAT(prompts_, ElementsAre("Save Orv Material: "));
  EXPECT_EQ(plugIn_.User().MaterialDir, folder_.File(""));
  EXPECT_THAT(FileContent(file), HasSubstr("\"shadinggroup\" \"Oak\"\nColor [0 0 1]\n"));
  Show({2});
  EXPECT_EQ(Change("Load", "", {file}), "");
  EXPECT_EQ(prompts_.at(0), "Load Orv Material (in " + folder_.File("") + "): ");
  EXPECT_EQ(Material(2).m_name, "Oak");
  EXPECT_EQ(Material(2).m_diffuse, (ON_Color{0, 0, 255}));
  EXPECT_EQ(Source(2), ON_AttributeSource::object);
  EXPECT_EQ(Text(2, "OrvSurface"), "\"VPlastic\" \"color C\" [0.25 1 1]");
  EXPECT_EQ(Shown("Surface.C"), "128,255,255");
  // The clipboard has its own.
  EXPECT_EQ(Change("Paste", ""), "");
  EXPECT_EQ(Material(2).m_name, "");
}

TEST_F(MaterialExchangeTest, FilesMayBeTold) {
  const std::string file = folder_.File("oak.omf");
  EXPECT_EQ(Change("Save", file), "");
  EXPECT_EQ(Change("Save", "", {file}, Form::scripted), "");
  Show({2});
  EXPECT_EQ(Change("Load", "", {file}, Form::scripted), "");
  EXPECT_EQ(Material(2).m_name, "Oak");
  EXPECT_EQ(messages_, "");
}

TEST_F(MaterialExchangeTest, FilesThatFailAreTold) {
  Show({2});
  EXPECT_EQ(Change("Load", folder_.File("missing.omf")), "");
  EXPECT_EQ(messages_, "Unable to load selected material file.\n");
  EXPECT_EQ(Source(2), ON_AttributeSource::layer);
  messages_.clear();
  EXPECT_EQ(Change("Save", folder_.File("no folder/a.omf")), "");
  EXPECT_EQ(messages_, "Unable to save selected material.\n");
  messages_.clear();
  EXPECT_EQ(Change("Save", "/dev/full"), "");
  EXPECT_EQ(messages_, "Unable to save selected material.\n");
  messages_.clear();
  for (const char* button : {"Load", "Save"}) EXPECT_EQ(Change(button, "", {"!"}), "");
  EXPECT_EQ(messages_, "");
  EXPECT_EQ(UndoCaption(), "");
}

TEST_F(MaterialExchangeTest, ObjectsOfEqualMaterialsAreSelected) {
  EXPECT_EQ(Change("Select matching", ""), "");
  EXPECT_TRUE(Object(0).IsSelected());
  EXPECT_TRUE(Object(1).IsSelected());
  EXPECT_FALSE(Object(2).IsSelected());
  Show({2});
  EXPECT_EQ(Change("SelectMatching", ""), "");
  EXPECT_TRUE(Object(3).IsSelected());
  EXPECT_FALSE(Object(0).IsSelected());
}

TEST_F(MaterialExchangeTest, ANameOrAColorMakesAMaterialAnother) {
  const auto selectedLikeB = [this](const ON_Material& material) {
    ON_3dmObjectAttributes attributes = Object(1).Attributes();
    attributes.m_material_index = doc_.m_material_table.AddMaterial(material);
    EXPECT_TRUE(doc_.ModifyObjectAttributes(Object(1), attributes));
    Show({0});
    EXPECT_EQ(Change("SelectMatching", ""), "");
    return Object(1).IsSelected();
  };
  ON_Material other = Material(0);
  EXPECT_TRUE(selectedLikeB(other));
  other.m_name = "Ash";
  EXPECT_FALSE(selectedLikeB(other));
  other = Material(0);
  other.m_diffuse = {0, 0, 254};
  EXPECT_FALSE(selectedLikeB(other));
  other = Material(0);
  other.SetUserString("OrvShadingSamples", "4");
  EXPECT_TRUE(selectedLikeB(other));
}

}  // namespace
}  // namespace orv
