#include "program_fixture.h"
#include "support/model_corpus.h"
#include "tools/tool_bench.h"

// Materials and attributes as a user meets them: the real program, real documents, a converter.

namespace {

using testing::HasSubstr;
using testing::Not;

class ShadingTest : public ProgramTest {
 protected:
  std::string Export(const std::string& model, std::vector<std::string> more = {}) {
    std::vector<std::string> arguments = {model};
    arguments.insert(arguments.end(), more.begin(), more.end());
    arguments.insert(arguments.end(), {"--export", "scene.orib"});
    const ProcessResult result = Run(arguments);
    EXPECT_EQ(result.status, 0) << result.out << result.err;
    out_ = result.out;
    return FileContent(folder_.File("scene.orib"));
  }

  std::string out_;
};

TEST_F(ShadingTest, TextsOfObjectsAndMaterialsReachTheScene) {
  WriteMeshes("model.3dm", 2);
  const std::string rib =
      Export("model.3dm",
             {"-c", "SelName Mesh1 SetUserText OrvCastShadow No", "-c",
              "SetUserText On=Material OrvSurface \"\"\"VMetal\"\" \"\"float Ks\"\" [0.5]\""});
  EXPECT_THAT(rib, HasSubstr("Attribute \"identifier\" \"name\" [\"Mesh1\"]\n"
                             "    Surface \"VMetal\" \"float Ks\" [0.5]\n"));
  const std::size_t shadow = rib.find("Attribute \"visibility\" \"integer transmission\" [0]\n");
  EXPECT_NE(shadow, std::string::npos);
  EXPECT_LT(shadow, rib.find("[\"Mesh2\"]"));
  EXPECT_EQ(rib.find("integer transmission", shadow + 40), std::string::npos);
}

TEST_F(ShadingTest, UndoTakesATextOutOfTheScene) {
  WriteMeshes("model.3dm", 1);
  const std::string plain = Export("model.3dm");
  const std::string undone = Export("model.3dm", {"-c", "SelAll SetUserText OrvBackFace No Undo"});
  EXPECT_EQ(undone, plain);
  const std::string redone =
      Export("model.3dm", {"-c", "SelAll SetUserText OrvBackFace No Undo Redo"});
  EXPECT_THAT(redone, HasSubstr("    Sides 1\n"));
}

TEST_F(ShadingTest, AnImageBesideTheProgramIsConverted) {
  const auto corpus = ModelCorpus();
  if (!corpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  const ToolBench bench;
  std::filesystem::create_directory(folder_.File("textures"));
  WriteFileContent(folder_.File("textures/wood.png"), "image");
  const std::string model = (*corpus / "made" / "materials_textures_v4.3dm").string();
  const std::string rib = Export(model);
  EXPECT_THAT(rib, HasSubstr("\"string ColorMapName\" [\"textures/wood_periodic_g18.tx\"]"));
  EXPECT_THAT(out_, HasSubstr("Converted texture to textures/wood_periodic_g18.tx\n"));
  EXPECT_THAT(out_, HasSubstr("Texture file not found: /maps/brick diffuse.jpg\n"));
  EXPECT_TRUE(std::filesystem::exists(folder_.File("textures/wood_periodic_g18.tx")));
  ASSERT_EQ(bench.Runs().size(), 1U);
  EXPECT_THAT(bench.Runs()[0].command,
              testing::ElementsAre("mapforge.exe", "-mode", "periodic", "-g", "0.555556",
                                   "textures/wood.png", "textures/wood_periodic_g18.tx"));
  EXPECT_EQ(Export(model), rib);
  EXPECT_THAT(out_, Not(HasSubstr("Converted")));
  EXPECT_EQ(bench.Runs().size(), 1U);
}

TEST_F(ShadingTest, ANameCannotRunAnything) {
  const ToolBench bench;
  ONX_Model model;
  model.m_3dm_file_version = 50;
  model.m_layer_table.emplace_back().m_name = "Default";
  ON_Texture& texture = model.m_material_table.emplace_back().m_textures.emplace_back();
  texture.m_image_file = "$(touch ran); `touch ran` \"&touch ran&\".png";
  ONX_ModelObject& object = model.m_object_table.emplace_back();
  object.m_attributes.m_material_source = ON_AttributeSource::object;
  object.m_attributes.m_material_index = 0;
  const auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_V = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
  mesh->m_F = {{{0, 1, 2, 2}}};
  object.m_geometry = mesh;
  WriteFileContent(folder_.File("model.3dm"), WriteModel(model));
  WriteFileContent(folder_.File(texture.m_image_file), "image");
  const std::string rib = Export("model.3dm");
  EXPECT_FALSE(std::filesystem::exists(folder_.File("ran")));
  ASSERT_EQ(bench.Runs().size(), 1U);
  EXPECT_EQ(bench.Runs()[0].command.at(5), texture.m_image_file);
  EXPECT_THAT(rib,
              HasSubstr("[\"$(touch ran); `touch ran` \\042&touch ran&\\042_periodic_g18.tx\"]"));
}

}  // namespace
