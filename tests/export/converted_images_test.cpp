#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "export_fixture.h"
#include "tools/tool_bench.h"

// Whole exports of a document with an image, with converters of every kind.

namespace {

using testing::HasSubstr;
using testing::Not;

class ConvertedImagesTest : public ExportTest {
 protected:
  ConvertedImagesTest() {
    WriteFileContent(image_, "image");
    for (const char* parameter : {"ColorMapName", "SpecularMapName"}) {
      ON_Material& material = model_.m_material_table.emplace_back();
      material.SetUserString(
          "OrvSurface", "\"V\" \"string " + std::string(parameter) + "\" [\"" + image_ + "\"]");
    }
    for (const int material : {0, 1, 0}) {
      ONX_ModelObject& object = model_.m_object_table.emplace_back(ObjectOf(SquareMesh()));
      object.m_attributes.m_material_source = ON_AttributeSource::object;
      object.m_attributes.m_material_index = material;
    }
    Open();
  }

  // An export that must keep the image's own name, whatever the converter does.
  void ExpectUnconverted() {
    const std::string rib = Rib();
    EXPECT_THAT(rib, HasSubstr("\"string ColorMapName\" [\"" + image_ + "\"]"));
    EXPECT_THAT(rib, HasSubstr("\"string SpecularMapName\" [\"" + image_ + "\"]"));
    EXPECT_THAT(rib, Not(HasSubstr(".tx")));
    EXPECT_EQ(messages_, "Writing " + folder_.File("scene.rib") + "\n" +
                             "Texture conversion failed for " + image_ + "\n");
  }

  const std::string image_ = folder_.File("wood.jpg");
};

TEST_F(ConvertedImagesTest, AreMadeOnceForEachGamma) {
  const ToolBench bench;
  const std::string rib = Rib();
  const std::string color = folder_.File("wood_periodic_g18.tx");
  const std::string specular = folder_.File("wood_periodic.tx");
  EXPECT_THAT(rib, HasSubstr("\"string ColorMapName\" [\"" + color + "\"]"));
  EXPECT_THAT(rib, HasSubstr("\"string SpecularMapName\" [\"" + specular + "\"]"));
  EXPECT_EQ(messages_, "Writing " + folder_.File("scene.rib") + "\n" + "Converted texture to " +
                           color + "\n" + "Converted texture to " + specular + "\n");
  EXPECT_EQ(bench.Runs().size(), 2U);
  messages_.clear();
  EXPECT_EQ(Rib(), rib);
  EXPECT_EQ(messages_, "Writing " + folder_.File("scene.rib") + "\n");
  EXPECT_EQ(bench.Runs().size(), 2U);
}

TEST_F(ConvertedImagesTest, KeepTheirNamesWhenTheConverterFails) {
  const ToolBench bench("fail");
  ExpectUnconverted();
  EXPECT_EQ(bench.Runs().size(), 1U);
}

TEST_F(ConvertedImagesTest, KeepTheirNamesWhenTheConverterMakesNothing) {
  const ToolBench bench("no-target");
  ExpectUnconverted();
}

TEST_F(ConvertedImagesTest, KeepTheirNamesWhenTheConverterHangs) {
  const ToolBench bench("hang");
  textures_.TimeLimit = std::chrono::milliseconds(200);
  const auto start = std::chrono::steady_clock::now();
  ExpectUnconverted();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST_F(ConvertedImagesTest, KeepTheirNamesWithoutAConverter) {
  const ScopedEnvironment path("PATH", folder_.Path().string());
  ExpectUnconverted();
}

TEST_F(ConvertedImagesTest, AreTriedAgainByTheNextExport) {
  const ToolBench bench("fail");
  Rib();
  bench.SetAct("");
  EXPECT_THAT(Rib(), HasSubstr("wood_periodic_g18.tx"));
}

TEST_F(ConvertedImagesTest, AreNotTriedAgainAfterAnExportThatFailed) {
  const ToolBench bench("fail");
  EXPECT_EQ(ExportTo("/dev/full"), 0);
  EXPECT_THAT(messages_, HasSubstr("Texture conversion failed for " + image_));
  bench.SetAct("");
  messages_.clear();
  EXPECT_THAT(Rib(), Not(HasSubstr(".tx")));
  EXPECT_THAT(messages_, Not(HasSubstr("Texture")));
  // This one has finished.
  EXPECT_THAT(Rib(), HasSubstr("wood_periodic_g18.tx"));
}

TEST_F(ConvertedImagesTest, AreLeftAloneWhereTheSettingsSaySo) {
  const ToolBench bench;
  settings_.ConvertTextures = false;
  EXPECT_THAT(Rib(), HasSubstr("\"string ColorMapName\" [\"" + image_ + "\"]"));
  EXPECT_TRUE(bench.Runs().empty());
}

}  // namespace
