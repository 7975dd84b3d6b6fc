#include <map>
#include <nlohmann/json.hpp>

#include "program_fixture.h"
#include "tools/renderer_bench.h"

// The pages of properties as scripts use them, in the real program.

namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kExample = ORV_TEST_FOLDER "/../../examples/still_life.3dm";

// A page's control and a value that it hasn't got at first; what is shown for it later, when that
// isn't the same.
struct Row {
  const char *Page, *Id, *Value, *Shown = "";
};

// Every control of the document's pages that is ever shown. What a mode shows comes behind it.
constexpr Row kRows[] = {
    {"Orv Main", "ImageSize", "640 x 480"},
    {"Orv Main", "ViewName", "Top"},
    {"Orv Main", "Presets", "High quality"},
    {"Orv Main", "PixelSamples", "6"},
    {"Orv Main", "ShadingSamples", "3"},
    {"Orv Main", "SharpFilter", "Yes"},
    {"Orv Main", "ClampToAlpha", "No"},
    {"Orv Main", "RenderMesh", "Yes"},
    {"Orv Main", "Flatness", "0.7"},
    {"Orv Main", "AbsoluteTolerance", "units"},
    {"Orv Main", "RenderCurves", "Yes"},
    {"Orv Main", "CurveWidth", "0.05"},
    {"Orv Main", "RenderDimensions", "Yes"},
    {"Orv Main", "ColorMode", "Print"},
    {"Orv Main", "ImageBgMode", "Gradient"},
    {"Orv Main", "ImageBgColor", "255,0,51"},
    {"Orv Main", "ImageBgBottom", "#0000ff", "0,0,255"},
    {"Orv Main", "ImageBgMode", "Environment"},
    {"Orv Main", "ImageBgMap", "maps/hïmmel.tx"},
    {"Orv Main", "ImageBgIntensity", "0.6"},
    {"Orv Main", "ImageBgBlur", "0.02"},
    {"Orv Main", "ImageBgRotateZ", "-45"},
    {"Orv Main", "RibName", "scene.rib"},
    {"Orv Main", "UseOptionsArchive", "Yes"},
    {"Orv Main", "OptionsArchive", "my options.rib"},
    {"Orv Display", "OrvShow", "No"},
    {"Orv Display", "RenderToFile", "Yes"},
    {"Orv Display", "ImageName", "image one.png"},
    {"Orv Display", "DisplayMode", "rgb"},
    {"Orv Display", "ImagePrecision", "16-bit"},
    {"Orv Display", "RibGamma", "2.2"},
    {"Orv Display", "StereoEnable", "Yes"},
    {"Orv Display", "InterocularDistance", ".06", "0.06"},
    {"Orv Display", "UseExtraChannels", "Yes"},
    {"Orv Display", "SingleImageFile", "Yes"},
    {"Orv Display", "ReflectChannels", "Yes"},
    {"Orv Display", "BounceChannels", "Yes"},
    {"Orv Display", "ExtraChannels.Diffuse", "Yes"},
    {"Orv Display", "ExtraChannels.Unshadowed", "Yes"},
    {"Orv Display", "ExtraChannels.Shadows", "Yes"},
    {"Orv Display", "ExtraChannels.Indirect", "Yes"},
    {"Orv Display", "ExtraChannels.Ambient", "Yes"},
    {"Orv Display", "ExtraChannels.Specular", "Yes"},
    {"Orv Display", "ExtraChannels.Reflect", "Yes"},
    {"Orv Display", "ExtraChannels.Refract", "Yes"},
    {"Orv Display", "ExtraChannels.Incandescence", "Yes"},
    {"Orv Display", "ExtraChannels.Outline", "Yes"},
    {"Orv Display", "ExtraChannels.Depth", "Yes"},
    {"Orv Display", "ExtraChannels.Lights", "Yes"},
    {"Orv Display", "ExtraChannels.Environment", "Yes"},
    {"Orv Display", "Zmin", "-3.5"},
    {"Orv Display", "Zmax", "7"},
    {"Orv Trace", "TraceBias", "0.1"},
    {"Orv Trace", "ReflectionMaxDepth", "3"},
    {"Orv Trace", "ReflectionBgColor", "255,204,0"},
    {"Orv Trace", "ReflectionColorIntensity", "0.4"},
    {"Orv Trace", "ReflectionBgMode", "Map"},
    {"Orv Trace", "ReflectionBgMap", "reflected.tx"},
    {"Orv Trace", "ReflectionMapIntensity", "0.3"},
    {"Orv Trace", "ReflectionBlur", "0.2"},
    {"Orv Trace", "ReflectionRotateZ", "90"},
    {"Orv Trace", "DofEnable", "Yes"},
    {"Orv Trace", "DofCameraLens", "90"},
    {"Orv Trace", "DofFstop", "5.7"},
    {"Orv Trace", "DofFocusDistance", "42.5"},
    {"Orv Trace", "DofFocusOnTarget", "No"},
    {"Orv Trace", "DofSamples", "128"},
    {"Orv GI", "GiMode", "Indirect + Cache"},
    {"Orv GI", "GiSamples", "512"},
    {"Orv GI", "GiAdaptive", "Yes"},
    {"Orv GI", "GiHitDist", "1000"},
    {"Orv GI", "GiMaxError", "0.4"},
    {"Orv GI", "GiPixelDist", "30"},
    {"Orv GI", "GiReadCache", "Yes"},
    {"Orv GI", "GiWriteCache", "Yes"},
    {"Orv GI", "GiCacheName", "cache.opc"},
    {"Orv GI", "GiBgColor", "102,0,0"},
    {"Orv GI", "GiBgColorIntensity", "0.9"},
    {"Orv GI", "GiBgMode", "Map"},
    {"Orv GI", "GiBgMap", "gathered.tx"},
    {"Orv GI", "GiBgMapIntensity", "0.2"},
    {"Orv GI", "GiBgBlur", "0.75"},
    {"Orv GI", "GiBgRotateZ", "135"},
    {"Orv GI", "GiMaxBounce", "3"},
    {"Orv GI", "GiShadeMode", "Shader"},
    {"Orv GI", "GiIndirectIntensity", "1.5"},
    {"Orv GI", "GiMode", "Occlusion + Cache"},
    {"Orv GI", "GiOccShadow", "0,51,0"},
    {"Orv Outline", "Outline", "Yes"},
    {"Orv Outline", "InkColor", "255,0,255"},
    {"Orv Outline", "InkWidth", "1.5"},
    {"Orv Outline", "ToonId", "Per Surface"},
    {"Orv Outline", "Silhouette", "0.3"},
    {"Orv Outline", "UseMinEdgeAngle", "Yes"},
    {"Orv Outline", "MinEdgeAngle", "60"},
    {"Orv Outline", "FrontBack", "Yes"},
    {"Orv Outline", "IncludeNakedEdges", "Yes"},
    {"Orv Outline", "ExportVectors", "Yes"},
    {"Orv Outline", "VectorExportName", "lines.svg"},
    {"Orv Outline", "FadeThreshold", "12"},
    {"Orv Outline", "MinInkWidth", "0.5"},
    {"Orv Animation", "AnimMode", "Turntable"},
    {"Orv Animation", "AnimFrames", "60"},
    {"Orv Animation", "TurntableMaxAngle", "180"},
    {"Orv Animation", "AnimMode", "Paths"},
    {"Orv Animation", "AnimCameraLens", "28"},
    {"Orv Animation", "CameraPath", "Flight"},
    {"Orv Animation", "TargetPath", "Aim"},
    {"Orv Animation", "AnimMode", "Turntable"},
    {"Orv Advanced Lighting", "CausticsEnable", "Yes"},
    {"Orv Advanced Lighting", "CausticMinPhotons", "150"},
    {"Orv Advanced Lighting", "CausticSearchDistance", "25"},
    {"Orv Advanced Lighting", "CausticCacheMode", "Write"},
    {"Orv Advanced Lighting", "CausticCacheName", "caustic.opc"},
    {"Orv Interactive", "IprImageSize", "Viewport"},
    {"Orv Interactive", "IprViewName", "Right"},
    {"Orv Interactive", "IprUpdateView", "No"},
    {"Orv Interactive", "IprShadeMode", "Full shading"},
    {"Orv Interactive", "IprSmoothEdges", "Yes"},
    {"Orv Interactive", "IprMaxShadowRays", "16"},
    {"Orv Interactive", "IprForceMesh", "No"},
    {"Orv Interactive", "IprMaxReflectionRays", "32"},
    {"Orv Interactive", "IprAutoReflect", "No"},
    {"Orv Interactive", "IprThreads", "4"},
    {"Orv Interactive", "IprLowPriority", "Yes"},
    {"Orv Bake", "BakeImageName", "maps/baked.tif"},
    {"Orv Bake", "BakeImageSize", "512 x 1024"},
    {"Orv Bake", "BakePrecision", "16-bit", " 16-bit"},
    {"Orv Bake", "BakeGamma", "2.2"},
    {"Orv Bake", "BakeTexelSize", "0.5"},
    {"Orv Bake", "BakeBorder", "3"},
    {"Orv Bake", "BakeBorderWrap", "No"},
    {"Orv Bake", "BakeUseMap1", "No"},
    {"Orv Bake", "BakeUseMap2", "Yes"},
    {"Orv Bake", "BakeUseMap3", "Yes"},
    {"Orv Bake", "BakeUseMap4", "Yes"},
    {"Orv Bake", "BakeSuffix2", "_zwei"},
    {"Orv Bake", "BakeSuffix3", "_drei"},
    {"Orv Bake", "BakeSuffix4", "_vier"},
    {"Orv Bake", "BakeDisplayChannels", "rgba"},
    {"Orv Bake", "BakeDisplayChannels2", "__diffuse"},
    {"Orv Bake", "BakeDisplayChannels3", "__constant"},
    {"Orv Bake", "BakeDisplayChannels4", "__bump"},
    {"Orv Bake", "BakePixelSamples", "8"},
    {"Orv Bake", "BakeSharpFilter", "Yes"},
    {"Orv Bake", "BakeShadingSamples", "2.5"},
    {"Orv Plugin", "Threads", "3"},
    {"Orv Plugin", "LowPriority", "No"},
    {"Orv Plugin", "Gyre", "Yes"},
    {"Orv Plugin", "TileSize", "64"},
    {"Orv Plugin", "TileOrder", "Spiral"},
    {"Orv Plugin", "UseOrvControl", "Yes"},
    {"Orv Plugin", "UseVersion", "Yes"},
    {"Orv Plugin", "Version", "17"},
    {"Orv Plugin", "RhinoGamma", "1.5"},
    {"Orv Plugin", "ConvertTextures", "No"},
    {"Orv Plugin", "TextureGamma", "2"},
    {"Orv Plugin", "TextureCacheDir", "the cache"},
    {"Orv Plugin", "IlluminanceUnity", "750"},
};
// What no mode shows.
constexpr const char* kNeverShown[] = {"EdgeMask",          "LoadSettings",      "SaveSettings",
                                       "ReflectionRotateX", "ReflectionRotateY", "GiBgRotateX",
                                       "GiBgRotateY"};

class PropertiesProgram : public ProgramTest {
 protected:
  // The values of all controls of the document's pages, by page and id.
  static std::map<std::string, std::string> Values(const std::string& text) {
    std::map<std::string, std::string> values;
    const json all = json::parse(text, nullptr, false);
    EXPECT_FALSE(all.is_discarded()) << text;
    if (all.is_discarded()) return values;
    for (const json& page : all["document"]) {
      for (const json& control : page["controls"]) {
        values[page["title"].get<std::string>() + "/" + control["id"].get<std::string>()] =
            control["value"].get<std::string>();
      }
    }
    return values;
  }
  static std::string ScriptOf(std::span<const Row> rows) {
    std::string script;
    for (const Row& row : rows) {
      script +=
          std::string("Properties \"") + row.Page + "\" " + row.Id + " \"" + row.Value + "\"\n";
    }
    return script;
  }
};

// What an export of a document with all these values holds.
constexpr const char* kStatements[] = {
    "ShadingRate 0.333333\n",
    "GeometricApproximation \"flatness\" [0.7]\n",
    "Attribute \"render\" \"string flatnessspace\" \"object\"\n",
    "PixelFilter \"mitchell\" 4 4\n",
    "Exposure 1 2.2\n",
    "Option \"render\" \"zrange\" [-3.5 7]\n",
    "Option \"user\" \"float reflectlights\" [1]\n",
    "Display \"image one_#4f.png\" \"file\" "
    "\"rgb,__diffuse,__diffuse_unshadowed,__shadow,__indirect,"
    "__ambient,__specular,__reflect,__refract,__environment,__incandescence,__toonline,z",
    "Option \"limits\" \"bucketsize\" [64 64]\n",
    "Format 640 480 1\n",
    "Projection \"orthographic\"\n",
    "Translate -0.03 0 0\n",
    "DepthOfField 5.7 ",
    "Rotate 180  0 0 1\n",
    "Imager \"VBgEnvironment\" \"float Intensity\" [0.6] \"string EnvironmentName\" "
    "\"maps/hïmmel.tx\" \"string EnvironmentSpace\" \"bgspace\" \"float EnvironmentBlur\" [0.02]",
    "Rotate -45 0 0 1\n",
    "Rotate 135 0 0 1\n",
    "Option \"occlusion\" \"string seedfile\" \"cache.opc\"\n",
    "Option \"occlusion\" \"string savefile\" \"cache.opc\"\n",
    "Option \"toon\" \"float fadethreshold\" 12\n",
    "Attribute \"toon\" \"float inkwidth\" 1.5\n",
    "Attribute \"toon\" \"color ink\" [1 0 1]\n",
    "Attribute \"toon\" \"integer frontback\" 1\n",
    "Attribute \"toon\" \"float silhouette\" 0.3\n",
    "Attribute \"toon\" \"faceangle\" [60]\n",
    "Attribute \"toon\" \"nakededges\" [1]\n",
    "Option \"toon\" \"string vectorexportfile\" \"lines.svg\"\n",
    "Option \"trace\" \"integer maxdepth\" 3\n",
    "Rotate 90 0 0 1\n",
    "Option \"reflection\" \"string envname\" \"reflected.tx\"\n",
    "Option \"reflection\" \"float envstrength\" [0.3]\n",
    "Option \"reflection\" \"float envblur\" [0.2]\n",
    "Attribute \"trace\" \"float bias\" [0.1]\n",
    "ReadArchive \"my options.rib\"\n",
    "Option \"user\" \"float illuminanceunity\" [750]\n",
    "Attribute \"caustic\" \"maxpixeldist\" [25]\n",
    "Attribute \"caustic\" \"ngather\" [150]\n",
    "Option \"caustic\" \"savefile\" \"caustic.opc\"\n",
    "\"float intensity\" [0.2] \"float envblur\" [0.75] \"string envspace\" \"gispace\"",
    "Attribute \"indirect\" \"integer nsamples\" 512\n",
    "Attribute \"indirect\" \"float maxhitdist\" 1000\n",
    "Attribute \"indirect\" \"integer adaptivesampling\" 1\n",
    "Attribute \"indirect\" \"float maxpixeldist\" 30\n",
    "Attribute \"indirect\" \"float maxerror\" 0.4\n",
};

TEST_F(PropertiesProgram, AnExportOfTheSavedDocumentHasTheStatements) {
  WriteMeshes("model.3dm");
  WriteFileContent(folder_.File("job.txt"),
                   ScriptOf(kRows) + "Properties \"Orv Plugin\" UseVersion No\nSave\n");
  EXPECT_EQ(Run({"model.3dm", "--script", "job.txt"}).status, 0);
  EXPECT_EQ(Run({"model.3dm", "-c", "OrvExport Enter"}).status, 0);
  const std::string rib = FileContent(folder_.File("scene_world.rib"));
  for (const char* statement : kStatements) EXPECT_THAT(rib, HasSubstr(statement));
}

TEST_F(PropertiesProgram, EveryControlIsChangedSavedAndReadBack) {
  WriteMeshes("model.3dm");
  auto before = Values(Run({"model.3dm", "-c", "Properties Json"}).out);
  WriteFileContent(folder_.File("job.txt"), ScriptOf(kRows) + "Save\n");
  const ProcessResult result = Run({"model.3dm", "--script", "job.txt"});
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  const auto after = Values(Run({"model.3dm", "-c", "Properties Json"}).out);
  std::map<std::string, std::string> expected;
  for (const Row& row : kRows) {
    expected[std::string(row.Page) + "/" + row.Id] = *row.Shown == '\0' ? row.Value : row.Shown;
  }
  // The samples were set anew behind it.
  expected["Orv Main/Presets"] = "Custom";
  for (const auto& [id, value] : expected) {
    EXPECT_EQ(after.at(id), value) << id;
    EXPECT_NE(before.at(id), value) << id;
  }
  EXPECT_EQ(after.size(), expected.size() + std::size(kNeverShown));
  for (const char* id : kNeverShown) {
    for (const auto& [name, value] : after) {
      if (name.ends_with(std::string("/") + id)) {
        EXPECT_EQ(value, before[name]) << name;
      }
    }
  }
}

TEST_F(PropertiesProgram, TheNextExportHasTheStatements) {
  const ProcessResult result = Run({kExample, "-c",
                                    "Properties \"Orv Main\" RibName scene.rib "
                                    "Properties \"Orv Main\" \"Presets:\" \"Smoother edges\" "
                                    "Properties \"Orv Main\" \"Image size:\" \"320 x 240\" "
                                    "Properties \"Orv GI\" \"Global illumination mode:\" Occlusion "
                                    "Properties \"Orv GI\" \"Rays per sample:\" 512 "
                                    "Properties \"Orv Trace\" \"Max bounces:\" 99 "
                                    "Properties \"Orv Plugin\" \"Tile order:\" Spiral "
                                    "OrvExport Enter"});
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  const std::string rib = FileContent(folder_.File("scene.rib"));
  EXPECT_THAT(rib, HasSubstr("PixelSamples 8 8\n"));
  EXPECT_THAT(rib, HasSubstr("Format 320 240 1\n"));
  EXPECT_THAT(rib, HasSubstr("\"integer maxdepth\" 32\n"));
  EXPECT_THAT(rib, HasSubstr("Attribute \"indirect\" \"integer nsamples\" 512\n"));
  EXPECT_THAT(rib, HasSubstr("Option \"render\" \"bucketorder\" [\"spiral\"]\n"));
}

TEST_F(PropertiesProgram, TheListingHasAllPagesAndControls) {
  const ProcessResult result = Run({"-c", "Properties"});
  EXPECT_EQ(result.status, 0);
  for (const Row& row : kRows) {
    EXPECT_THAT(result.out, AllOf(HasSubstr(std::string(row.Page) + "\n"),
                                  HasSubstr(std::string("\n  ") + row.Id + " ")));
  }
}

TEST_F(PropertiesProgram, AWrongValueEndsTheScript) {
  const ProcessResult result =
      Run({"-c", "Properties \"Orv Main\" \"Mode:\" Stars Properties \"Orv Main\" Enter"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err,
            "orvhost: -c, line 1: ImageBgMode takes Transparent, Color, Gradient, Wallpaper or "
            "Environment, not 'Stars'.\n");
}

TEST_F(PropertiesProgram, ALiveSessionSeesTheChanges) {
  const RendererBench bench;
  const ProcessResult result =
      Run({kExample, "-c",
           "OrvOptions RibName=scene.rib GiMode=Ambient Enter OrvIprStart Enter "
           "Properties \"Orv Main\" \"Color:\" 255,0,0 "
           "Properties \"Orv Trace\" \"Color:\" 0,255,0 "
           "Properties \"Orv GI\" \"Color:\" 0,0,255 "
           "Properties \"Orv Interactive\" \"Max shadow rays:\" 8 "
           "OrvIprEnd"});
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  ASSERT_TRUE(bench.Wait("end"));
  EXPECT_THAT(bench.Frames(),
              testing::ElementsAre(
                  "IrNewImager \"background\" \"color background\" [1 0 0]",
                  "IrTweakOption \"reflection\" \"color background\" [0 0.2 0] "
                  "\"string envname\" [\"\"]",
                  StartsWith("IrTweakLight 0 \"float intensity\" [0.5] \"color lightcolor\" "
                             "[0 0 1]"),
                  HasSubstr("IrTweakOption \"trace\" \"maxshadowsamples\" [8]"), "IrEnd"));
}

}  // namespace
