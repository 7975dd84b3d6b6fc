#include "export/point_cloud_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "line_fixture.h"

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

enum { kSphere, kPatch, kBlobby, kVolume, kDisk };

class PointCloudWriterTest : public LineTest {
 protected:
  PointCloudWriterTest() {
    cloud_->m_P = {{0, 0, 0}, {1, 2, 3}, {-1, 0.5, 4}};
    settings_.CurveWidth = 0.25;
  }

  std::string Block() {
    return WrittenOf(cloud_, [&](const auto& stream, const auto& object) {
      orv::WritePointCloud(stream, object, *cloud_, attributes_);
    });
  }
  // The block from the line on that begins with `text`.
  std::string BlockFrom(const std::string& text) {
    const std::string block = Block();
    const std::size_t at = block.find("  " + text);
    EXPECT_NE(at, std::string::npos) << block;
    return at == std::string::npos ? block : block.substr(at);
  }

  std::shared_ptr<ON_PointCloud> cloud_ = std::make_shared<ON_PointCloud>();
};

TEST_F(PointCloudWriterTest, WritesABlock) {
  EXPECT_EQ(Block(),
            "\n"
            "AttributeBegin\n"
            "  Color 0 0 0\n"
            "  Attribute \"visibility\" \"indirect\" [0]\n"
            "  Attribute \"toon\" \"float inkwidth\" [0]\n"
            "  Attribute \"indirect\" \"prepass\" [0]\n"
            "  Attribute \"visibility\" \"integer transmission\" [0]\n"
            "  Attribute \"visibility\" \"trace\" [0]\n"
            "  Surface \"constant\"\n"
            "  Attribute \"render\" \"string pointtype\" \"sphere\"\n"
            "  Points \"P\" [0 0 0 1 2 3 -1 0.5 4 ]\n"
            "  \"constantwidth\" [0.25]\n"
            "AttributeEnd\n");
}

TEST_F(PointCloudWriterTest, NamesItsPointType) {
  attributes_.PointType = kPatch;
  EXPECT_THAT(Block(), HasSubstr("  Surface \"constant\"\n"
                                 "  Attribute \"render\" \"string pointtype\" \"patch\"\n"
                                 "  Points \"P\" ["));
  attributes_.PointType = kDisk;
  EXPECT_THAT(Block(), HasSubstr("  Surface \"constant\"\n"
                                 "  Attribute \"point\" \"string type\" \"disk\"\n"
                                 "  Points \"P\" ["));
}

TEST_F(PointCloudWriterTest, ABlobbyAddsUpAnEllipsoidForEachPoint) {
  attributes_.PointType = kBlobby;
  EXPECT_EQ(BlockFrom("Blobby"),
            "  Blobby 3 [1001 0 1001 16 1001 32 \n"
            "0 3 0 1 2]\n"
            "[\n"
            "  0.25 0 0 0 0 0.25 0 0 0 0 0.25 0 0 0 0 1\n"
            "  0.25 0 0 0 0 0.25 0 0 0 0 0.25 0 1 2 3 1\n"
            "  0.25 0 0 0 0 0.25 0 0 0 0 0.25 0 -1 0.5 4 1\n"
            "  ] [\"\"]\n"
            "AttributeEnd\n");
}

TEST_F(PointCloudWriterTest, AVolumeReachesTwiceTheWidthBeyondThePoints) {
  attributes_.PointType = kVolume;
  EXPECT_EQ(BlockFrom("ShadingRate"),
            "  ShadingRate 4\n"
            "  Volume \"box\" [-1.5 1.5 -0.5 2.5 -0.5 4.5] [0 0 0]\n"
            " \"P\" [0 0 0\n"
            "  1 2 3\n"
            "  -1 0.5 4\n"
            "  ] \"constantwidth\" [0.25]\n"
            "AttributeEnd\n");
}

TEST_F(PointCloudWriterTest, AVolumeIsShadedByTheSamplesOfItsMaterial) {
  attributes_.PointType = kVolume;
  hostAttributes_.m_material_source = ON_AttributeSource::object;
  hostAttributes_.m_material_index = 0;
  model_.m_material_table.resize(1);
  for (const auto& [samples, rate] : {std::pair{"8", "0.5"}, {"0", "4"}, {"-3", "4"}}) {
    model_.m_material_table[0].SetUserString("OrvShadingSamples", samples);
    EXPECT_THAT(Block(), HasSubstr("  ShadingRate " + std::string(rate) + "\n  Volume"));
  }
}

TEST_F(PointCloudWriterTest, ColoursEndWithoutABracket) {
  settings_.RhinoGamma = 2;
  cloud_->m_C = {{255, 0, 0}, {0, 128, 0}, {51, 51, 51}};
  const std::string colors =
      "  \"varying color Cs\" [1 0 0 0 0.501961 0 0.2 0.2 0.2 \n"
      "AttributeEnd\n";
  EXPECT_THAT(Block(), testing::EndsWith("  \"constantwidth\" [0.25]\n" + colors));
  attributes_.PointType = kVolume;
  EXPECT_THAT(Block(), testing::EndsWith("  ] \"constantwidth\" [0.25]\n" + colors));
  attributes_.PointType = kBlobby;
  EXPECT_THAT(Block(), testing::EndsWith("  ] [\"\"]\n" + colors));
}

TEST_F(PointCloudWriterTest, ColoursThatDoNotFitThePointsAreNone) {
  cloud_->m_C = {{255, 0, 0}};
  EXPECT_THAT(Block(), Not(HasSubstr("Cs")));
}

TEST_F(PointCloudWriterTest, BlobbiesVolumesAndShadedPointsHaveTheirMaterial) {
  hostAttributes_.m_name = "cloud";
  const auto hasMaterial = HasSubstr(
      "\nAttributeBegin\n"
      "  Attribute \"identifier\" \"name\" [\"cloud\"]\n"
      "  Surface \"VRubber\"");
  for (const int type : {kBlobby, kVolume}) {
    attributes_.PointType = type;
    EXPECT_THAT(Block(), hasMaterial);
    EXPECT_THAT(Block(), Not(HasSubstr("\"constant\"")));
  }
  for (const int type : {kSphere, kPatch, kDisk}) {
    attributes_.PointType = type;
    EXPECT_THAT(Block(), Not(hasMaterial));
    attributes_.ShadeCurves = true;
    EXPECT_THAT(Block(), hasMaterial);
    EXPECT_THAT(Block(), Not(HasSubstr("\"constant\"")));
    attributes_.ShadeCurves = false;
  }
}

TEST_F(PointCloudWriterTest, TheObjectsOwnWidthIsAFactor) {
  attributes_.UseLineWidth = true;
  attributes_.LineWidth = 4;
  EXPECT_THAT(Block(), HasSubstr("  \"constantwidth\" [1]\n"));
  attributes_.PointType = kVolume;
  EXPECT_THAT(Block(), HasSubstr("  Volume \"box\" [-3 3 -2 4 -2 6] [0 0 0]\n"));
}

TEST_F(PointCloudWriterTest, AShadedCloudWithAWidthHasTheScenesInk) {
  settings_.Outline = true;
  settings_.InkWidth = 2;
  attributes_.UseLineWidth = true;
  attributes_.LineWidth = 3;
  const std::string ink = "  Attribute \"toon\" \"float inkwidth\" [2]\n";
  EXPECT_THAT(Block(), Not(HasSubstr(ink)));
  attributes_.PointType = kVolume;
  EXPECT_THAT(Block(), Not(HasSubstr(ink)));
  attributes_.PointType = kBlobby;
  EXPECT_THAT(Block(), HasSubstr(ink + "  Blobby 3 ["));
  attributes_.PointType = kSphere;
  attributes_.ShadeCurves = true;
  EXPECT_THAT(Block(), HasSubstr("  Attribute \"render\" \"string pointtype\" \"sphere\"\n" + ink +
                                 "  Points \"P\" ["));
  settings_.Outline = false;
  EXPECT_THAT(Block(), Not(HasSubstr("toon")));
  settings_.Outline = true;
  attributes_.UseLineWidth = false;
  EXPECT_THAT(Block(), Not(HasSubstr("toon")));
}

TEST_F(PointCloudWriterTest, AWidthOfZeroMakesTheCloudVanish) {
  attributes_.UseLineWidth = true;
  attributes_.LineWidth = 0;
  EXPECT_THAT(Block(), IsEmpty());
}

TEST_F(PointCloudWriterTest, PointsWithoutCoordinatesAreLeftOutWithTheirColours) {
  cloud_->m_P[1].z = std::numeric_limits<double>::infinity();
  cloud_->m_C = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}};
  EXPECT_THAT(Block(), HasSubstr("  Points \"P\" [0 0 0 -1 0.5 4 ]\n"
                                 "  \"constantwidth\" [0.25]\n"
                                 "  \"varying color Cs\" [1 0 0 0 0 1 \n"));
  attributes_.PointType = kBlobby;
  EXPECT_THAT(Block(), HasSubstr("Blobby 2 [1001 0 1001 16 \n0 2 0 1]\n"));
}

TEST_F(PointCloudWriterTest, ACloudWithoutPointsHasNoVolume) {
  cloud_->m_P.clear();
  EXPECT_THAT(Block(), HasSubstr("  Points \"P\" []\n"));
  attributes_.PointType = kVolume;
  EXPECT_THAT(Block(), Not(HasSubstr("Volume \"box\"")));
  EXPECT_THAT(Block(), Not(HasSubstr("constantwidth")));
}

}  // namespace
