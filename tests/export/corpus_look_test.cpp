#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "export/attribute_block.h"
#include "export/material_statements.h"
#include "export_fixture.h"
#include "shading/shader_call.h"
#include "support/corpus_facts.h"
#include "support/rib_checker.h"
#include "tools/tool_bench.h"

// Lights, groups, materials and textures of real documents, compared with what another reader found
// in them.

namespace {

using Json = nlohmann::json;
using testing::HasSubstr;

constexpr double kGamma = static_cast<double>(1.8F);

// A colour of the facts with the gamma of the settings, in steps of 1/255.
std::array<double, 3> Adjusted(const Json& color) {
  std::array<double, 3> fractions{};
  for (std::size_t i = 0; i < 3; ++i) {
    const auto fraction = static_cast<float>(color[i].get<int>() / 255.0);
    fractions[i] = std::round(std::pow(fraction, kGamma) * 255) / 255;
  }
  return fractions;
}

void ExpectNumbers(const RibArgument* argument, const std::array<double, 3>& expected) {
  ASSERT_NE(argument, nullptr);
  ASSERT_EQ(argument->Numbers.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(argument->Numbers[i], expected[i], 1e-6 + std::fabs(expected[i]) * 5e-6) << i;
  }
}

// The shader that a light of a style is written with; nothing for a style that isn't written.
std::string ShaderOf(int style) {
  switch (style) {
    case 6:
    case 9:
      return "spotlight";
    case 7:
      return "distantlight";
    case 8:
      return "pointlight";
    case 11:
    case 12:
      return "arealight";
    default:
      return "";
  }
}

std::vector<Json> WrittenLights(const Json& facts) {
  std::vector<Json> lights;
  for (const Json& light : facts["lights"]) {
    if (light["enabled"].get<bool>() && IsVisible(facts, light["attributes"]) &&
        !ShaderOf(light["style"].get<int>()).empty()) {
      lights.push_back(light);
    }
  }
  return lights;
}

const RibArgument* ColorOf(const RibStatement& light) {
  const RibArgument* plain = light.Parameter("lightcolor");
  return plain != nullptr ? plain : light.Parameter("color lightcolor");
}

void ExpectLight(const RibStatement& statement, const Json& light, std::size_t number) {
  EXPECT_THAT(statement.Arguments[0].Texts, testing::ElementsAre(ShaderOf(light["style"])));
  EXPECT_EQ(statement.Arguments[1].Numbers.at(0), static_cast<double>(number));
  ExpectNumbers(ColorOf(statement), Adjusted(light["diffuse"]));
  const auto location = light["location"].get<std::array<double, 3>>();
  auto aim = light["direction"].get<std::array<double, 3>>();
  for (std::size_t i = 0; i < 3; ++i) aim[i] += location[i];
  if (const RibArgument* from = statement.Parameter("from")) ExpectNumbers(from, location);
  if (const RibArgument* to = statement.Parameter("to")) ExpectNumbers(to, aim);
  if (const RibArgument* angle = statement.Parameter("coneangle")) {
    EXPECT_NEAR(angle->Numbers.at(0),
                light["spot_angle_degrees"].get<double>() * std::numbers::pi / 180, 1e-5);
  }
}

using CorpusLookTest = ExportTest;

TEST_F(CorpusLookTest, EveryLightIsWritten) {
  std::size_t count = 0;
  const bool hasCorpus = ForEachDocument([this, &count](const Json& facts, const auto& path) {
    const std::vector<Json> expected = WrittenLights(facts);
    count += expected.size();
    doc_.SetModel(ReadDocument(path), path.string());
    const RibReport report = CheckRib(Rib());
    std::vector<const RibStatement*> written;
    for (const RibStatement& statement : report.Statements) {
      if (statement.Name.ends_with("LightSource")) written.push_back(&statement);
    }
    if (expected.empty()) {
      // The headlight.
      ASSERT_EQ(written.size(), 1U);
      EXPECT_EQ(written[0]->Arguments[0].Texts.at(0), "distantlight");
      return;
    }
    ASSERT_EQ(written.size(), expected.size());
    for (std::size_t i = 0; i < written.size(); ++i) ExpectLight(*written[i], expected[i], i + 1);
  });
  if (!hasCorpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  EXPECT_GT(count, 10U);
}

TEST_F(CorpusLookTest, EveryGroupIsNamed) {
  std::size_t count = 0;
  const bool hasCorpus = ForEachDocument([this, &count](const Json& facts, const auto& path) {
    doc_.SetModel(ReadDocument(path), path.string());
    ASSERT_EQ(doc_.Objects().size(), facts["objects"].size());
    for (std::size_t i = 0; i < doc_.Objects().size(); ++i) {
      const Json& attributes = facts["objects"][i]["attributes"];
      std::string names;
      for (const Json& index : attributes.value("groups", Json::array())) {
        for (const Json& group : facts["groups"]) {
          if (group["index"] == index) names += ',' + group["name"].get<std::string>();
        }
      }
      const std::string line = Written(
          [&](orv::RibWriter& writer) { orv::WriteGroups(writer, *doc_.Objects()[i], doc_); });
      if (names.empty()) {
        EXPECT_EQ(line, "") << i;
        continue;
      }
      ++count;
      EXPECT_EQ(line,
                "Attribute \"grouping\" \"string membership\" \"+" + names.substr(1) + "\"\n");
    }
  });
  if (!hasCorpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  EXPECT_GT(count, 5U);
}

// The file of the first texture of a type that is switched on and has a file; else nothing. A
// texture that is off hides those behind it.
std::string FileOf(const Json& material, int type) {
  for (const Json& texture : material["textures"]) {
    if (texture["type"] != type) continue;
    if (!texture["enabled"].get<bool>()) return "";
    std::string file = texture["file"].get<std::string>();
    std::replace(file.begin(), file.end(), '\\', '/');
    return file;
  }
  return "";
}

// The text of a material's statements, one behind the other.
std::string TextOf(const orv::MaterialStatements& material) {
  std::string text;
  for (const orv::MaterialStatement& statement : material.Statements) text += statement.Text + '\n';
  return text;
}

void ExpectMaterial(const std::string& text, const Json& facts) {
  std::string name;
  EXPECT_TRUE(orv::GetStringParam(text, "ColorMapName", name));
  EXPECT_EQ(name, FileOf(facts, 1));
  EXPECT_TRUE(orv::GetStringParam(text, "OpacityMapName", name));
  EXPECT_EQ(name, FileOf(facts, 3));
  const std::string bump = FileOf(facts, 2);
  EXPECT_THAT(text,
              HasSubstr(bump.empty() ? "\"null\"\n" : "\"string TextureName\" [\"" + bump + "\"]"));
  const bool hasImage = !FileOf(facts, 1).empty();
  const auto color = hasImage ? std::array<double, 3>{1, 1, 1} : Adjusted(facts["diffuse"]);
  const RibReport report = CheckRib(text.substr(text.find("Color [")));
  ExpectNumbers(&report.Statements.at(0).Arguments.at(0), color);
  const double opacity = 1 - facts["transparency"].get<double>();
  ExpectNumbers(&report.Statements.at(1).Arguments.at(0), {opacity, opacity, opacity});
}

TEST_F(CorpusLookTest, EveryMaterialHasItsColorAndImages) {
  std::size_t count = 0;
  std::size_t images = 0;
  settings_.ConvertTextures = false;
  const bool hasCorpus = ForEachDocument([&](const Json& facts, const auto& path) {
    const ONX_Model model = ReadDocument(path);
    ASSERT_EQ(model.m_material_table.size(), facts["materials"].size());
    for (std::size_t i = 0; i < model.m_material_table.size(); ++i) {
      SCOPED_TRACE(i);
      const Json& material = facts["materials"][i];
      ExpectMaterial(
          TextOf(orv::MakeMaterialStatements(model.m_material_table[i], settings_, textures_)),
          material);
      ++count;
      if (!FileOf(material, 1).empty()) ++images;
    }
  });
  if (!hasCorpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  EXPECT_GT(count, 20U);
  EXPECT_GT(images, 5U);
}

// The material of each visible mesh, as the facts tell.
std::vector<Json> MaterialsOfMeshes(const Json& facts) {
  std::vector<Json> materials;
  for (const Json& object : facts["objects"]) {
    const Json& attributes = object["attributes"];
    if (object["type"] != "mesh" || object.value("in_instance_definition", false) ||
        !IsVisible(facts, attributes)) {
      continue;
    }
    int index = attributes.value("material_index", -1);
    if (attributes.value("material_source", 0) == 0) {
      const auto layer = attributes.value("layer_index", 0);
      index =
          facts["layers"].at(static_cast<std::size_t>(layer)).value("render_material_index", -1);
    }
    const bool isIn = index >= 0 && index < static_cast<int>(facts["materials"].size());
    materials.push_back(isIn ? facts["materials"][static_cast<std::size_t>(index)] : Json());
  }
  return materials;
}

TEST_F(CorpusLookTest, EveryMeshHasItsMaterial) {
  std::size_t count = 0;
  settings_.ConvertTextures = false;
  const bool hasCorpus = ForEachDocument([&](const Json& facts, const auto& path) {
    doc_.SetModel(ReadDocument(path), path.string());
    const std::vector<Json> materials = MaterialsOfMeshes(facts);
    const std::string rib = Rib();
    std::size_t block = 0;
    for (const Json& material : materials) {
      block = rib.find("  AttributeBegin\n", block + 1);
      ASSERT_NE(block, std::string::npos);
      block = rib.find("\"VRubber\"", block);
      ASSERT_NE(block, std::string::npos);
      if (material.is_null()) continue;
      ExpectMaterial(rib.substr(block, rib.find("AttributeEnd", block) - block), material);
      ++count;
    }
  });
  if (!hasCorpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  EXPECT_GT(count, 10U);
}

// A document whose images lie on another machine is given them here: its converted images have the
// renderer's names.
TEST_F(CorpusLookTest, ATexturedDocumentHasConvertedNames) {
  const ToolBench bench;
  std::size_t converted = 0;
  const bool hasCorpus = ForEachDocument([&](const Json& facts, const auto& path) {
    ONX_Model model = ReadDocument(path);
    for (ON_Material& material : model.m_material_table) {
      for (ON_Texture& texture : material.m_textures) {
        if (texture.m_image_file.empty()) continue;
        std::string name = texture.m_image_file;
        name.erase(0, name.find_last_of("/\\") + 1);
        texture.m_image_file = folder_.File(name);
        WriteFileContent(texture.m_image_file, "image");
      }
    }
    const std::vector<Json> materials = MaterialsOfMeshes(facts);
    doc_.SetModel(std::move(model), path.string());
    const std::string rib = Rib();
    for (const Json& material : materials) {
      if (material.is_null() || FileOf(material, 1).empty()) continue;
      std::string name = FileOf(material, 1);
      name.erase(0, name.find_last_of('/') + 1);
      name.erase(name.rfind('.'));
      const std::string texture = folder_.File(name + "_periodic_g18.tx");
      EXPECT_THAT(rib, HasSubstr("\"string ColorMapName\" [\"" + texture + "\"]"));
      EXPECT_TRUE(std::filesystem::exists(texture)) << texture;
      ++converted;
    }
  });
  if (!hasCorpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  EXPECT_GT(converted, 3U);
  for (const ToolRun& run : bench.Runs()) {
    EXPECT_EQ(run.command.at(1), "-mode");
    EXPECT_EQ(run.command.at(2), "periodic");
    EXPECT_THAT(run.terminals, testing::IsEmpty());
  }
  EXPECT_FALSE(bench.Runs().empty());
}

}  // namespace
