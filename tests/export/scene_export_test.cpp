#include "export/scene_export.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "export_fixture.h"
#include "host/geometry/on_light.h"

namespace {

using testing::HasSubstr;
using testing::Not;

using SceneExportTest = ExportTest;

TEST_F(SceneExportTest, OfADocumentWithDefaultSettings) {
  model_.m_object_table = {ObjectOf(SquareMesh())};
  Open();
  EXPECT_EQ(WithoutFolderAndDate(Rib()),
            R"(##RenderMan RIB-Structure 1.1
##Scene scene.rib
##Creator RhinoOrv DATE
##Frames 1
##CapabilitiesNeeded TrimCurves
PixelSamples 4 4
ShadingRate 1
GeometricApproximation "flatness" [0.5]
Exposure 1 1.8
Display "orv.tif" "framebuffer" "rgba" "float[4] quantize" [0 255 0 255]
Option "limits" "bucketsize" [32 32]
Clipping 1.9 105
Format 640 480 1
Projection "perspective" "fov" [ 45 ]
ConcatTransform [ 1 0 0 0.0 0 0 1 0.0 0 1 0 0.0 -1 -2 10 1.0 ]
TransformBegin
  Rotate 0 0 0 1
  CoordinateSystem "bgspace"
TransformEnd
Imager "background" "color background" [ 0.431373 0.431373 0.431373 ]
TransformBegin
  Rotate 0 1 0 0
  Rotate 0 0 1 0
  Rotate 0 0 0 1
  CoordinateSystem "gispace"
TransformEnd
Option "trace" "integer maxdepth" 6
TransformBegin
  Rotate 0 1 0 0
  Rotate 0 0 1 0
  Rotate 0 0 0 1
  CoordinateSystem "reflectionspace"
TransformEnd
Option "reflection" "color background" [0.2 0.2 0.2]
Attribute "trace" "float bias" [0.01]
Option "render" "prefilterclamptoalpha" [1]
Option "user" "float sceneunitsize" [0.001]
Option "user" "float illuminanceunity" [500]

WorldBegin
  Attribute "render" "facevertex" [1]
  Attribute "visibility" "integer trace" [1]
  LightSource "distantlight" 1 "intensity" [ 1 ] "lightcolor" [ 1 1 1 ] "from" [ 1 -10 2 ] "to" [ 1 0 2 ]

  AttributeBegin
    Surface "VRubber" "float Diffuse" [1] "float DiffuseRoughness" [0] "float SpecularRoughness" [0.1] "color SpecularColor" [0 0 0] "string ColorMapName" [""] "string OpacityMapName" [""]
    Displacement "null"
    Color [ 1 1 1 ]
    Opacity [ 1 1 1 ]
    PointsPolygons [ 4 ] [0 1 2 3 ]
     "P" [ 0 0 0 1 0 0 1 1 0 0 1 0  ]
  AttributeEnd

WorldEnd
)");
}

TEST_F(SceneExportTest, TellsTheFileAndGivesBackWhatWasWritten) {
  model_.m_settings.m_views[0].m_vp.m_id = "7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4"_uuid;
  Open();
  const std::string path = folder_.File("größe %d 50%.rib");
  EXPECT_EQ(ExportTo(path), 1);
  EXPECT_EQ(messages_, "Writing " + path + "\n");
  EXPECT_THAT(FileContent(path), HasSubstr("##Scene " + path + "\n"));
  EXPECT_EQ(settings_.ViewportId, "7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4"_uuid);
  EXPECT_EQ(settings_.FormatWidth, 640);
  EXPECT_EQ(settings_.FormatHeight, 480);
  EXPECT_NEAR(settings_.CameraFov, 45, 1e-12);
  EXPECT_EQ(settings_.CameraMatrix[12], -1);
}

TEST_F(SceneExportTest, AFileHasNoCarriageReturns) {
  Open();
  EXPECT_THAT(Rib(), Not(HasSubstr("\r")));
}

TEST_F(SceneExportTest, ANumberedFrameIsOneInNameAndBlock) {
  model_.m_object_table = {ObjectOf(SquareMesh())};
  Open();
  settings_.FrameNumber = 12;
  EXPECT_EQ(ExportTo(folder_.File("a.rib")), 1);
  EXPECT_EQ(messages_, "Writing " + folder_.File("a_0012.rib") + "\n");
  const std::string rib = FileContent(folder_.File("a_0012.rib"));
  EXPECT_THAT(rib, HasSubstr("##Frames 1\n##CapabilitiesNeeded TrimCurves\n"
                             "\n"
                             "FrameBegin 12\n"
                             "  PixelSamples 4 4\n"));
  EXPECT_THAT(rib,
              HasSubstr("\n\n  WorldBegin\n    Attribute \"render\" \"facevertex\" [1]\n    "));
  EXPECT_THAT(rib, testing::EndsWith("    AttributeEnd\n\n  WorldEnd\n\nFrameEnd\n"));
}

TEST_F(SceneExportTest, WithoutAFrameNumberThereIsNoFrameBlock) {
  Open();
  const std::string rib = Rib();
  EXPECT_THAT(rib, Not(HasSubstr("FrameBegin")));
  EXPECT_THAT(rib, Not(HasSubstr("FrameEnd")));
  EXPECT_THAT(rib, HasSubstr("\n\nWorldBegin\n"));
}

TEST_F(SceneExportTest, AnArchiveHoldsOnlyObjects) {
  model_.m_object_table = {ObjectOf(SquareMesh()), ObjectOf(SquareMesh())};
  model_.m_object_table[1].m_attributes.m_mode = ON_ObjectMode::hidden;
  Open();
  settings_.ArchiveOnly = true;
  settings_.WriteMaterials = false;
  settings_.WriteCamera = false;
  settings_.WriteDisplay = false;
  settings_.FrameNumber = -1;
  EXPECT_EQ(Rib(),
            "\n"
            "AttributeBegin\n"
            "  PointsPolygons [ 4 ] [0 1 2 3 ]\n"
            "   \"P\" [ 0 0 0 1 0 0 1 1 0 0 1 0  ]\n"
            "AttributeEnd\n");
}

TEST_F(SceneExportTest, AnEmptyArchiveIsAnEmptyFile) {
  Open();
  settings_.ArchiveOnly = true;
  settings_.WriteMaterials = false;
  EXPECT_EQ(Rib(), "");
}

TEST_F(SceneExportTest, AnArchiveOfANumberedFrameHasTheNumberInItsNameOnly) {
  model_.m_object_table = {ObjectOf(SquareMesh())};
  Open();
  settings_.ArchiveOnly = true;
  settings_.WriteMaterials = false;
  settings_.FrameNumber = 12;
  EXPECT_EQ(ExportTo(folder_.File("a.rib")), 1);
  EXPECT_EQ(FileContent(folder_.File("a_0012.rib")),
            "\n"
            "AttributeBegin\n"
            "  PointsPolygons [ 4 ] [0 1 2 3 ]\n"
            "   \"P\" [ 0 0 0 1 0 0 1 1 0 0 1 0  ]\n"
            "AttributeEnd\n");
}

TEST_F(SceneExportTest, AControlCharacterInTheFilesNameAddsNoLine) {
  Open();
  const std::string path = folder_.File("a\nWorldEnd\r\t\x1b\x7f.rib");
  EXPECT_EQ(ExportTo(path), 1);
  EXPECT_THAT(FileContent(path),
              HasSubstr("##Scene " + folder_.File("a WorldEnd    .rib") + "\n##Creator"));
}

TEST_F(SceneExportTest, OfASelectionHoldsTheSelectedMeshes) {
  model_.m_object_table = {ObjectOf(SquareMesh(1)), ObjectOf(SquareMesh(2))};
  Open();
  ASSERT_TRUE(doc_.Objects()[1]->Select());
  options_.SetMode(0, true);
  const std::string rib = Rib();
  EXPECT_THAT(rib, Not(HasSubstr("0 0 1 1 0 1")));
  EXPECT_THAT(rib, HasSubstr("0 0 2 1 0 2"));
}

TEST_F(SceneExportTest, LooksThroughTheViewOfTheSettings) {
  Open();
  settings_.ViewName = "PLAN";
  EXPECT_THAT(Rib(), HasSubstr("Projection \"orthographic\"\n"));
  settings_.ViewName = "No such view";
  EXPECT_THAT(Rib(), HasSubstr("Projection \"perspective\""));
  EXPECT_THAT(messages_, Not(HasSubstr("view")));
}

TEST_F(SceneExportTest, WithoutDisplayThereIsNoImageOutput) {
  Open();
  settings_.WriteDisplay = false;
  settings_.Zmax = 5;
  const std::string rib = Rib();
  EXPECT_THAT(rib, HasSubstr("Exposure 1 1.8\nOption \"limits\""));
}

TEST_F(SceneExportTest, TheDisplayOfABakedMeshStandsWithoutABakeToo) {
  Open();
  settings_.BakeMesh = true;
  settings_.RenderToFile = true;
  EXPECT_THAT(Rib(), HasSubstr("Exposure 1 1.8\n"
                               "Display \"bakemesh.tif\" \"framebuffer\" \"rgba\"\nOption"));
}

TEST_F(SceneExportTest, IsTheSameAgain) {
  model_.m_object_table = {ObjectOf(SquareMesh())};
  Open();
  const std::string first = Rib();
  EXPECT_EQ(Rib(), first);
}

}  // namespace
