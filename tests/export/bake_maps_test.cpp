#include "export/bake_maps.h"

#include <gmock/gmock.h>

#include "bake_fixture.h"
#include "support/brep_shapes.h"
#include "walk_fixture.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr std::string_view kDeclarations =
    "Declare \"__diffuse\" \"varying color\"\n"
    "Declare \"__constant\" \"varying color\"\n"
    "Declare \"__bump\" \"varying float\"\n"
    "Declare \"__lights\" \"varying color[10]\"\n"
    "Declare \"__lights_diffuse\" \"varying color[10]\"\n"
    "Declare \"__lights_specular\" \"varying color[10]\"\n"
    "Declare \"__lights_shadow\" \"varying color[10]\"\n";

// Passes that bake maps, with one map of each object.
class BakeMaps : public ExportTest {
 protected:
  BakeMaps() {
    settings_.BakeEnable = true;
    settings_.ImageName = "C:\\maps\\hall.png";
    settings_.DisplayMode = "rgb";
    settings_.ImageWidth = 256;
    settings_.ImageHeight = 128;
    settings_.BakeUseMap1 = true;
    model_.m_object_table = {NumberedObject(TexturedRectangle(4, 2), 1)};
  }

  // The statements of the maps, without those that declare channels.
  std::string Displays(bool selectedOnly = false) {
    const orv::ObjectList objects = orv::GatherBakeObjects(doc_, selectedOnly);
    const std::string text = Written(
        [&](orv::RibWriter& writer) { orv::WriteBakeDisplays(writer, settings_, objects); });
    EXPECT_EQ(text.substr(0, kDeclarations.size()), kDeclarations);
    return text.substr(kDeclarations.size());
  }
  // A map of an object as it is declared.
  static std::string Display(std::uint8_t object, const std::string& suffix = "",
                             const std::string& channels = "rgb") {
    return "Display \"C:/maps/hall" + suffix + "_" + IdOf(object) + ".png\" \"file\" \"" +
           channels + "\" \"float[4] quantize\" [0 255 0 255]\n";
  }
  void UseAllMaps() {
    settings_.BakeUseMap2 = settings_.BakeUseMap3 = settings_.BakeUseMap4 = settings_.BakeUseMap5 =
        true;
    settings_.BakeSuffix2 = "_2";
    settings_.BakeSuffix3 = "_3";
    settings_.BakeSuffix4 = "_4";
    settings_.BakeSuffix5 = "_fünf";
    settings_.BakeDisplayChannels2 = "__diffuse";
    settings_.BakeDisplayChannels3 = "__constant";
    settings_.BakeDisplayChannels4 = "__bump";
    settings_.BakeDisplayChannels5 = "rgba";
  }
};

TEST_F(BakeMaps, NameHasSuffixAndIdBeforeTheExtension) {
  Open();
  const CRhinoObject& object = *doc_.Objects()[0];
  EXPECT_EQ(orv::BakeMapName(settings_, object, ""), "C:/maps/hall_" + IdOf(1) + ".png");
  EXPECT_EQ(orv::BakeMapName(settings_, object, "_2"), "C:/maps/hall_2_" + IdOf(1) + ".png");
  settings_.ImageName = "/tmp\\a b/größe.v1";
  EXPECT_EQ(orv::BakeMapName(settings_, object, "_2"), "/tmp/a b/größe_2_" + IdOf(1) + ".v1");
  settings_.ImageName.clear();
  EXPECT_EQ(orv::BakeMapName(settings_, object, ""), "_" + IdOf(1));
}

TEST_F(BakeMaps, ListNamesTheMapsInUse) {
  Open();
  const CRhinoObject& object = *doc_.Objects()[0];
  UseAllMaps();
  const auto name = [&](std::string_view suffix) {
    return orv::BakeMapName(settings_, object, suffix);
  };
  EXPECT_EQ(orv::BakeMapList(settings_, object), name("") + "," + name("_2") + "," + name("_3") +
                                                     "," + name("_4") + "," + name("_fünf"));
  settings_.BakeUseMap1 = settings_.BakeUseMap3 = settings_.BakeUseMap5 = false;
  EXPECT_EQ(orv::BakeMapList(settings_, object), name("_2") + "," + name("_4"));
  settings_.BakeUseMap2 = settings_.BakeUseMap4 = false;
  EXPECT_EQ(orv::BakeMapList(settings_, object), "");
}

TEST_F(BakeMaps, EachObjectHasItsSizeAndItsMaps) {
  model_.m_object_table.push_back(NumberedObject(TexturedRectangle(100, 100), 2));
  Open();
  UseAllMaps();
  settings_.BakeUseMap3 = false;
  const auto maps = [](std::uint8_t object) {
    return Display(object) + Display(object, "_2", "__diffuse") + Display(object, "_4", "__bump") +
           Display(object, "_fünf", "rgba");
  };
  EXPECT_EQ(Displays(), "Format 32 16 1\n" + maps(1) + "Format 256 128 1\n" + maps(2));
  EXPECT_EQ(settings_.BakeDisplayCount, 8);
}

TEST_F(BakeMaps, PrecisionRulesTheQuantization) {
  Open();
  const std::pair<int, std::string> precisions[] = {
      {0, "[0 255 0 255]"}, {1, "[0 65535 0 65535]"}, {2, "[0 0 0 0]"}, {3, "[0 255 0 255]"}};
  for (const auto& [precision, range] : precisions) {
    settings_.ImagePrecision = precision;
    EXPECT_THAT(Displays(), HasSubstr("\"rgb\" \"float[4] quantize\" " + range + "\n"));
  }
}

TEST_F(BakeMaps, TakesBrepsAndMeshesThatAreNotHidden) {
  std::shared_ptr<ON_Brep> box = MakeBoxBrep({{0, 0, 0}, {1, 1, 1}});
  for (ON_BrepFace& face : box->m_F) face.m_render_mesh = TexturedRectangle(4, 2);
  ONX_ModelObject surface = SquareSurface();
  surface.m_attributes.m_uuid.bytes[15] = 3;
  model_.m_layer_table.resize(2);
  model_.m_layer_table[1].m_visible = false;
  auto& objects = model_.m_object_table;
  objects = {NumberedObject(TexturedRectangle(4, 2), 1),
             NumberedObject(box, 2),
             surface,
             NumberedObject(TexturedRectangle(4, 2), 4),
             NumberedObject(TexturedRectangle(4, 2), 5),
             NumberedObject(TexturedRectangle(4, 2), 6),
             NumberedObject(SquareMesh(), 7)};
  objects[3].m_attributes.m_mode = ON_ObjectMode::hidden;
  // Only its layer is off.
  objects[4].m_attributes.m_layer_index = 1;
  objects[5].m_attributes.m_mode = ON_ObjectMode::locked;
  model_.m_light_table = {PointLight()};
  Open();
  EXPECT_EQ(Displays(), "Format 32 16 1\n" + Display(1) + "Format 32 16 1\n" + Display(2) +
                            "Format 32 16 1\n" + Display(5) + "Format 32 16 1\n" + Display(6));
  EXPECT_EQ(settings_.BakeDisplayCount, 4);
}

TEST_F(BakeMaps, WithoutMapsInUseCountsNone) {
  Open();
  settings_.BakeUseMap1 = false;
  settings_.BakeDisplayCount = 7;
  EXPECT_EQ(Displays(), "Format 32 16 1\n");
  EXPECT_EQ(settings_.BakeDisplayCount, 0);
}

TEST_F(BakeMaps, LongNamesBreakTheLineBetweenThem) {
  Open();
  settings_.ImageName = "/" + std::string(2500, 'a') + "/m.png";
  settings_.DisplayMode = std::string(2500, 'b');
  EXPECT_EQ(Displays(), "Format 32 16 1\nDisplay \"/" + std::string(2500, 'a') + "/m_" + IdOf(1) +
                            ".png\"\n   \"file\" \"" + std::string(2500, 'b') +
                            "\" \"float[4] quantize\" [0 255 0 255]\n");
  UseAllMaps();
  static_cast<void>(Rib());
}

TEST_F(BakeMaps, NamesCannotEndTheirString) {
  Open();
  settings_.ImageName = "a\"b.png";
  settings_.DisplayMode = "rgb\\";
  EXPECT_THAT(Displays(), HasSubstr("Display \"a\\\"b_" + IdOf(1) + ".png\" \"file\" \"rgb\\\\\""));
  EXPECT_THAT(Rib(), HasSubstr("[\"a\\\"b_" + IdOf(1) + ".png\"]\n"));
}

TEST_F(BakeMaps, SceneHasThemInPlaceOfAnImage) {
  model_.m_object_table.push_back(NumberedObject(TexturedRectangle(4, 2), 2));
  Open();
  settings_.BakeBorder = 2.5;
  settings_.RibGamma = 2.2;
  const std::string rib = Rib();
  EXPECT_THAT(rib, HasSubstr("Exposure 1 2.2\nFormat 256 128 1\n" + std::string(kDeclarations) +
                             "Format 32 16 1\n" + Display(1) + "Format 32 16 1\n" + Display(2) +
                             "Option \"bake\" \"float border\" [2.5]\n"
                             "Option \"limits\" \"bucketsize\" [32 32]\n"));
  EXPECT_THAT(rib, HasSubstr("Clipping 1.9 105\nFormat 256 128 1\nProjection"));
  EXPECT_THAT(rib, Not(HasSubstr("\"bakemesh\"")));
}

TEST_F(BakeMaps, BorderMayWrap) {
  Open();
  settings_.BakeBorderWrap = true;
  EXPECT_THAT(Rib(), HasSubstr("Option \"bake\" \"float border\" [1]\n"
                               "Option \"bake\" \"integer borderwrap\" [1]\n"));
}

TEST_F(BakeMaps, ObjectsNameTheirMaps) {
  model_.m_object_table = {NumberedObject(SquareMesh(), 1), NumberedObject(SquareMesh(), 2)};
  model_.m_object_table[1].m_attributes.m_name = "two";
  Open();
  // Also those that get none, as they have no texture coordinates.
  const std::string rib = Rib();
  EXPECT_EQ(settings_.BakeDisplayCount, 0);
  EXPECT_THAT(rib, HasSubstr("  AttributeBegin\n"
                             "    Attribute \"bake\" \"string bakemaps\" [\"C:/maps/hall_" +
                             IdOf(2) + ".png\"]\n    Attribute \"identifier\""));
  settings_.BakeUseMap1 = false;
  EXPECT_THAT(Rib(), HasSubstr("    Attribute \"bake\" \"string bakemaps\" [\"\"]\n"));
  settings_.BakeMesh = settings_.BakeUseMap1 = true;
  EXPECT_THAT(Rib(), HasSubstr("\"string bakemaps\" [\"C:/maps"));
  settings_.BakeEnable = settings_.BakeMesh = false;
  EXPECT_THAT(Rib(), Not(HasSubstr("bakemaps")));
}

TEST_F(BakeMaps, OfASelectionAreMadeOfItAloneWithAllObjectsInTheScene) {
  model_.m_object_table.push_back(NumberedObject(TexturedRectangle(4, 2), 2));
  Open();
  ASSERT_TRUE(doc_.Objects()[1]->Select());
  options_.SetMode(0, true);
  settings_.Selected = true;
  const std::string rib = Rib();
  EXPECT_THAT(rib, AllOf(Not(HasSubstr(Display(1))), HasSubstr(Display(2))));
  EXPECT_THAT(
      rib, AllOf(HasSubstr("[\"C:/maps/hall_" + IdOf(1)), HasSubstr("[\"C:/maps/hall_" + IdOf(2))));
  EXPECT_EQ(settings_.BakeDisplayCount, 1);
}

TEST_F(BakeMaps, OfNoSamplesAreShadedAtARateOfOne) {
  Open();
  settings_.ShadingSamples = 0;
  EXPECT_THAT(Rib(), HasSubstr("\nShadingRate 1\n"));
}

}  // namespace
