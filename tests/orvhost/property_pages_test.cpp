#include <nlohmann/json.hpp>

#include "program_fixture.h"
#include "support/shader_writer.h"
#include "tools/renderer_bench.h"

// Pages of object properties as scripts change them: the real program, what it shows when the saved
// document is opened again, and what the next export writes.

namespace {

using nlohmann::json;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr char kStillLife[] = ORV_TEST_FOLDER "/../../examples/still_life.3dm";

class PropertyPages : public ProgramTest {
 protected:
  PropertyPages() {
    options_.environment.push_back({"ORVHOME", folder_.File("orv")});
    std::filesystem::create_directories(folder_.File("orv/shaders"));
    WriteShader("VPlastic", 0);
    WriteShader("VDents", 1);
  }
  void WriteShader(const std::string& name, std::int8_t kind) const {
    ShaderFile shader;
    shader.Kind = kind;
    shader.Name = name;
    shader.Params = {{1, "Ka", FloatBytes({1})},
                     {1, "Specular", FloatBytes({0.5F})},
                     {1, "SpecularRoughness", FloatBytes({0.1F})},
                     {0, "ColorMapName", StringBytes("")}};
    WriteFileContent(folder_.File("orv/shaders/" + name + ".slb"), shader.Bytes());
  }
  // Gives the controls of a page these values, saves the document and expects them to be shown when
  // it is opened again.
  void ExpectKept(const std::string& selection, const std::string& page,
                  const std::vector<std::pair<std::string, std::string>>& values) const {
    std::string script = selection;
    for (const auto& [id, value] : values) {
      script += " Properties \"" + page + "\" " + id + " \"" + value + '"';
    }
    Print(kStillLife, script + " SaveAs kept.3dm");
    const std::string text = Print(folder_.File("kept.3dm"), selection + " Properties Json");
    const json pages = json::parse(text.substr(text.find('{')))["objects"];
    for (const json& shown : pages) {
      if (shown["title"] != page) continue;
      for (const auto& [id, value] : values) {
        EXPECT_EQ(ValueOf(shown["controls"], id), value) << page << ' ' << id;
      }
      return;
    }
    ADD_FAILURE() << "no page " << page;
  }
  static std::string ValueOf(const json& controls, const std::string& id) {
    for (const json& control : controls) {
      if (control["id"] == id) return control["value"];
    }
    return "no control";
  }
  // What a run with the script on the document printed.
  std::string Print(const std::string& model, const std::string& script, int status = 0) const {
    const ProcessResult result = Run({model, "-c", script});
    EXPECT_EQ(result.status, status) << result.out << result.err;
    return result.out + result.err;
  }
};

TEST_F(PropertyPages, MaterialsAreSavedAndExported) {
  Print(kStillLife,
        "SelName Vase Properties OrvMaterial Color 255,0,51 "
        "Properties OrvMaterial Surface: Plastic "
        "Properties OrvMaterial Surface.Specular.Caption Enter "
        "Properties OrvMaterial Surface.SpecularRoughness 0.25 "
        "Properties OrvMaterial Surface.ColorMapName.Choose maps\\oak.tx "
        "Properties OrvMaterial Displacement: Dents "
        "Properties OrvMaterial Displacement.Ka 0.75 "
        "Properties OrvMaterial \"Displace mode:\" \"Regular displacement\" SaveAs out.3dm");
  const std::string shown =
      Print(folder_.File("out.3dm"),
            "SelName Vase Properties OrvMaterial Enter OrvWriteArchive Archive=out.rib Enter");
  EXPECT_THAT(shown, AllOf(HasSubstr("255,0,51"), HasSubstr("Plastic"), HasSubstr("- Specular"),
                           HasSubstr("Roughness"), HasSubstr("0.25"), HasSubstr("maps/oak.tx"),
                           HasSubstr("Dents"), HasSubstr("Regular displacement")));
  EXPECT_THAT(FileContent(folder_.File("out.rib")),
              AllOf(HasSubstr("Surface \"VPlastic\" \"float Ka\" [1] \"float Specular\" [0.5] "
                              "\"float SpecularRoughness\" [0.25] \"string ColorMapName\" "
                              "[\"maps/oak.tx\"]\n"),
                    HasSubstr("Displacement \"VDents\" \"float Ka\" [0.75] "),
                    HasSubstr("truedisplacement")));
}

TEST_F(PropertyPages, ObjectsAreSavedAndExported) {
  Print(kStillLife,
        "SelName Vase Properties OrvObject Camera No Properties OrvObject LineWidth 3 "
        "Properties OrvObject \"Use Rhino mesh\" Yes SaveAs out.3dm");
  const std::string shown =
      Print(folder_.File("out.3dm"),
            "SelName Vase Properties OrvObject Enter OrvWriteArchive Archive=out.rib Enter");
  EXPECT_THAT(shown, HasSubstr("LineWidth"));
  EXPECT_THAT(FileContent(folder_.File("out.rib")),
              HasSubstr("Attribute \"visibility\" \"integer camera\" [0]\n"));
}

TEST_F(PropertyPages, LightsAreSavedAndExported) {
  Print(kStillLife,
        "SelType Light Properties \"Orv Light\" Intensity 2.5 "
        "Properties \"Orv Light\" Rays: 2000 SaveAs out.3dm");
  Print(folder_.File("out.3dm"), "OrvOptions RibName=scene.rib Enter OrvExport Enter");
  const std::string rib = FileContent(folder_.File("scene.rib"));
  EXPECT_THAT(
      rib.substr(0, rib.find("AttributeBegin")),
      AllOf(HasSubstr("\"intensity\" [ 2.5 ]"), HasSubstr("\"float shadowsamples\" [1024]")));
}

TEST_F(PropertyPages, EveryControlOfALightIsKept) {
  ExpectKept("SelType Light", "Orv Light",
             {{"Enabled", "No"},
              {"Channel", "9"},
              {"Color", "255,0,51"},
              {"Intensity", "2.5"},
              {"Falloff", "Squared"},
              {"EmitDiffuse", "No"},
              {"EmitSpecular", "No"},
              {"EmitPhotons", "Yes"},
              {"Photons", "1.5"},
              {"ShadowColor", "0,51,255"},
              {"ShadowIntensity", "0.4"},
              {"ShadowSamples", "64"},
              {"ShadowBlur", "0.2"},
              {"AreaType", "Portal"},
              {"InCamera", "Yes"},
              {"Reflected", "Yes"},
              {"Texture", "maps/lamp.ies"},
              {"UseTexture", "Yes"},
              {"Archive", "lamp.rib"},
              {"UseArchive", "No"}});
}

TEST_F(PropertyPages, EveryControlOfAnObjectIsKept) {
  ExpectKept("SelName Vase", "OrvObject",
             {{"VisibleToCamera", "No"},
              {"Reflected", "No"},
              {"CastShadow", "No"},
              {"BackFace", "No"},
              {"UseLineWidth", "Yes"},
              {"LineWidth", "3"},
              {"LineColor", "255,0,51"},
              {"UseLineColor", "Yes"},
              {"ShadeCurves", "Yes"},
              {"PointType", "sprite"},
              {"CurveType", "ribbon"},
              {"RenderMesh", "No"},
              {"UseFlatness", "Yes"},
              {"Flatness", "0.35"},
              {"SubdivisionMesh", "Yes"},
              {"WeldPolyVerts", "Yes"},
              {"ArchiveMode", "Substitute archive"},
              {"Archive", "vase.rib"},
              {"UseMeshFile", "Bake and use"},
              {"MeshFile", "vase.obj"}});
}

TEST_F(PropertyPages, EveryControlOfAMaterialIsKept) {
  ExpectKept("SelName Vase", "OrvMaterial",
             {{"Color", "255,0,51"},
              {"Name", "Glaze"},
              {"Transparency", "0.25"},
              {"ShadingSamples", "4"},
              {"DisplacementMode", "Mesh displacement"},
              {"ComplexShadow", "Yes"},
              {"InstancerBound", "20"},
              {"HideInstancerBase", "Yes"},
              {"Displacement", "Dents"},
              {"Surface", "Plastic"},
              {"Surface.Ka", "0.75"}});
}

TEST_F(PropertyPages, AChangeIsOneStepForUndo) {
  const std::string text = Print(kStillLife,
                                 "SelName Vase Properties OrvMaterial Color 1,2,3 "
                                 "Properties OrvObject Camera No "
                                 "SelType Light Properties \"Orv Light\" Rays: 3 Undo Undo Undo "
                                 "SelNone SelName Vase Properties OrvMaterial Enter");
  EXPECT_THAT(text, AllOf(HasSubstr("Light Properties change"), HasSubstr("Orv object change"),
                          HasSubstr("Orv Material change"), HasSubstr("Layer material")));
}

TEST_F(PropertyPages, EnterChangesNothing) {
  for (const char* const control : {"Transparency", "Color", "Surface", "Instancer"}) {
    const ProcessResult result =
        Run({kStillLife, "-c",
             "SelName Backdrop Properties OrvMaterial " + std::string(control) + " Enter What"});
    EXPECT_EQ(result.status, 0) << control << result.err;
    EXPECT_THAT(result.out, HasSubstr("material: \"Paper\", of the layer")) << control;
  }
  EXPECT_EQ(Run({kStillLife, "-c", "SelName Vase Properties OrvObject LineColor Enter Undo"}).out,
            "1 object added to the selection.\nNothing to undo.\n");
}

TEST_F(PropertyPages, ParametersOfOneNameAreToldApart) {
  WriteFileContent(
      folder_.File("job.txt"),
      "SelName Vase\n"
      "SetUserText On=Material OrvSurface \"\"\"X\"\" \"\"float a\"\" [1] \"\"float a\"\" [2]\"\n"
      "Properties OrvMaterial Surface.a.Caption Enter\n"
      "Properties OrvMaterial Surface.a#2 7\n"
      "OrvWriteArchive Archive=vase.rib Enter\n");
  const ProcessResult result = Run({kStillLife, "--script", "job.txt"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(FileContent(folder_.File("vase.rib")),
              HasSubstr("\"X\" \"float a\" [1] \"float a\" [7]"));
}

TEST_F(PropertyPages, WhatIsNoNumberIsRefused) {
  for (const char* const text : {"abc", "\"\"", "-", "."}) {
    const ProcessResult result =
        Run({kStillLife, "-c", "SelName Vase Properties OrvObject Flatness " + std::string(text)});
    EXPECT_EQ(result.status, 3) << text;
    EXPECT_THAT(result.err, HasSubstr("takes a number")) << text;
  }
}

TEST_F(PropertyPages, EachPageNeedsItsOwnKind) {
  EXPECT_THAT(Print(kStillLife, "SelName Vase Properties \"Orv Light\" On No", 3),
              HasSubstr("Orv Light"));
  EXPECT_THAT(Print(kStillLife, "SelType Light Properties OrvMaterial Color 1,2,3", 3),
              HasSubstr("OrvMaterial"));
  EXPECT_THAT(Print(kStillLife, "SelName Vase Properties OrvObject Flatness 1e999", 3),
              HasSubstr("Flatness takes a number, not '1e999'."));
}

TEST_F(PropertyPages, ChangesGoToALiveSession) {
  const RendererBench bench;
  Print(kStillLife,
        "OrvOptions RibName=scene.rib GiMode=Ambient Enter OrvIprStart Enter "
        "SelType Light Properties \"Orv Light\" Color: 255,0,0 "
        "SelNone SelName Vase Properties OrvMaterial Color 0,255,0 OrvIprEnd");
  ASSERT_TRUE(bench.Wait("end"));
  // By the tables, and by the pages.
  const auto light = AllOf(StartsWith("IrTweakLight "), HasSubstr("lightcolor\" [1 0 0]"));
  const auto look = HasSubstr("IrColor 0 1 0 ");
  EXPECT_THAT(bench.Frames(), ElementsAre(light, light, look, look, "IrEnd"));
}

}  // namespace
