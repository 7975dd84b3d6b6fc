#include "page_fixture.h"

// What each page shows and stores, a row for each control in the order of the page.
namespace orv {
namespace {

using Kind = CRhinoControlKind;
using Rows = std::vector<std::vector<std::string>>;

std::string KindName(Kind kind) {
  constexpr const char* kNames[] = {"text",  "edit",  "list", "combo", "check",
                                    "three", "color", "path", "button"};
  return kNames[static_cast<int>(kind)];
}

// Id, label, kind and the choices with "|" between them.
Rows RowsOf(const CRhinoDialogPage& page) {
  Rows rows;
  for (const CRhinoControl& control : page.Controls()) {
    std::string choices;
    for (const std::string& choice : control.Choices) {
      choices += (choices.empty() ? "" : "|") + choice;
    }
    rows.push_back({control.Id, control.Label, KindName(control.Kind), choices});
  }
  return rows;
}

using PageTables = PageTest;
using testing::ElementsAreArray;

constexpr const char* kIntensities = "0.1|0.2|0.3|0.4|0.5|0.6|0.7|0.8|0.9|1.0|1.1|1.2|1.5|2.0";
constexpr const char* kToOne = "0.1|0.2|0.3|0.4|0.5|0.6|0.7|0.8|0.9|1.0";
constexpr const char* kTurns = "0|45|90|135|180|225|270|315";
constexpr const char* kLenses = "18|20|28|35|50|55|90|135|200|300";

TEST_F(PageTables, Main) {
  const Rows expected = {
      {"ImageSize", "Image size:", "combo",
       "Viewport|320 x 240|640 x 480|1024 x 768|1200 x 900|1600 x 1200|1280 x 720|1920 x 1080"},
      {"ViewName", "View:", "combo", "Current|Top|Front|Right|Perspective"},
      {"Presets", "Presets:", "list",
       "Normal|Smoother edges|Finer shading|High quality|Higher quality|Extreme quality"},
      {"PixelSamples", "Pixel samples:", "combo", "1|2|4|8|12|16"},
      {"ShadingSamples", "Shading samples:", "combo", "1|2|4|8|16"},
      {"SharpFilter", "Sharp filter", "check", ""},
      {"ClampToAlpha", "Clamp to alpha", "check", ""},
      {"EdgeMask", "Smooth edges", "check", ""},
      {"RenderMesh", "Use Rhino mesh", "three", ""},
      {"Flatness", "Tolerance:", "combo", "0.25|0.35|0.5|0.7|1.0|1.4|2.0|3.0|4.0"},
      {"AbsoluteTolerance", "Tolerance unit:", "list", "pixels|units"},
      {"RenderCurves", "Curves and points", "check", ""},
      {"CurveWidth", "Curve width:", "combo",
       "0.001|0.002|0.005|0.01|0.02|0.05|0.1|0.2|0.5|1|2|5|10"},
      {"RenderDimensions", "Dimensions and text", "check", ""},
      {"ColorMode", "Curve color:", "list", "Black|Display|Print"},
      {"ImageBgMode", "Mode:", "list", "Transparent|Color|Gradient|Wallpaper|Environment"},
      {"ImageBgColor", "Color:", "color", ""},
      {"ImageBgBottom", "Bottom color:", "color", ""},
      {"ImageBgMap", "Map:", "path", ""},
      {"ImageBgIntensity", "Intensity:", "combo", kIntensities},
      {"ImageBgBlur", "Blur:", "combo", "0.0|0.01|0.02|0.04|0.1"},
      {"ImageBgRotateZ", "Rotate:", "combo", "-180|-135|-90|-45|0|45|90|135|180"},
      {"RibName", "RIB file name:", "path", ""},
      {"UseOptionsArchive", "Read options file:", "check", ""},
      {"OptionsArchive", "Read options file:", "path", ""},
      {"LoadSettings", "Load Settings..", "button", ""},
      {"SaveSettings", "Save Settings..", "button", ""}};
  const auto page = Opened<CDocPageDlg>();
  EXPECT_EQ(page->Title(), "Orv Main");
  EXPECT_THAT(RowsOf(*page), ElementsAreArray(expected));
}

TEST_F(PageTables, Display) {
  const Rows expected = {
      {"OrvShow", "Render to Orv Show window", "check", ""},
      {"RenderToFile", "Render to file:", "check", ""},
      {"ImageName", "Render to file:", "path", ""},
      {"DisplayMode", "Channels:", "combo", "r|rgb|rgba"},
      {"ImagePrecision", "Precision:", "list", "8-bit|16-bit|float"},
      {"RibGamma", "Gamma:", "combo", "1.0|1.7|1.8|2.2|2.3"},
      {"StereoEnable", "Stereo:", "check", ""},
      {"InterocularDistance", "Interocular distance:", "combo", ".01|.06|1|6.5|10|65"},
      {"UseExtraChannels", "Save extra channels", "check", ""},
      {"SingleImageFile", "in single file", "check", ""},
      {"ReflectChannels", "+reflections", "check", ""},
      {"BounceChannels", "+GI", "check", ""},
      {"ExtraChannels.Diffuse", "Diffuse", "check", ""},
      {"ExtraChannels.Unshadowed", "Unshadowed", "check", ""},
      {"ExtraChannels.Shadows", "Shadows", "check", ""},
      {"ExtraChannels.Indirect", "Indirect", "check", ""},
      {"ExtraChannels.Ambient", "Ambient", "check", ""},
      {"ExtraChannels.Specular", "Specular", "check", ""},
      {"ExtraChannels.Reflect", "Reflections", "check", ""},
      {"ExtraChannels.Refract", "Refraction", "check", ""},
      {"ExtraChannels.Incandescence", "Incandescence", "check", ""},
      {"ExtraChannels.Outline", "Outline", "check", ""},
      {"ExtraChannels.Depth", "Depth", "check", ""},
      {"ExtraChannels.Lights", "Light channels", "check", ""},
      {"ExtraChannels.Environment", "Environment", "check", ""},
      {"Zmin", "min:", "edit", ""},
      {"Zmax", "max:", "edit", ""}};
  const auto page = Opened<CDisplayDlg>();
  EXPECT_EQ(page->Title(), "Orv Display");
  EXPECT_THAT(RowsOf(*page), ElementsAreArray(expected));
}

TEST_F(PageTables, Trace) {
  const Rows expected = {
      {"TraceBias", "Trace offset:", "combo", "0.001|0.01|0.1|1.0|10.0|100.0"},
      {"ReflectionMaxDepth", "Max bounces:", "combo", "0|1|2|3|4|5|6|8|10|12"},
      {"ReflectionBgMode", "Environment:", "list", "None|Color|Map"},
      {"ReflectionBgColor", "Color:", "color", ""},
      {"ReflectionBgMap", "Map:", "path", ""},
      {"ReflectionColorIntensity", "Intensity:", "combo", kToOne},
      {"ReflectionMapIntensity", "Intensity:", "combo", kToOne},
      {"ReflectionBlur", "Blur:", "combo", "0.0|0.01|0.02|0.05|0.1|0.2|0.5|0.7|1.0"},
      {"ReflectionRotateZ", "Rotate:", "combo", kTurns},
      {"ReflectionRotateX", "Rotate X:", "combo", kTurns},
      {"ReflectionRotateY", "Rotate Y:", "combo", kTurns},
      {"DofEnable", "Enable", "check", ""},
      {"DofCameraLens", "Camera lens:", "combo", kLenses},
      {"DofFstop", "f-Stop:", "combo", "1|1.4|2|2.8|4|5.7|8|11.3|16"},
      {"DofFocusDistance", "Focus distance:", "edit", ""},
      {"DofFocusOnTarget", "Camera target", "check", ""},
      {"DofSamples", "Samples:", "combo", "16|32|64|128|256|512|1024"}};
  const auto page = Opened<CTraceDlg>();
  EXPECT_EQ(page->Title(), "Orv Trace");
  EXPECT_THAT(RowsOf(*page), ElementsAreArray(expected));
}

TEST_F(PageTables, Gi) {
  const Rows expected = {
      {"GiMode", "Global illumination mode:", "list",
       "Off|Ambient|Indirect|Indirect + Cache|Occlusion|Occlusion + Cache"},
      {"GiSamples", "Rays per sample:", "combo", "1|16|64|128|256|512|1024"},
      {"GiAdaptive", "Adaptive ray casting", "check", ""},
      {"GiHitDist", "Max trace distance:", "combo", "10|100|1000|10000|100000"},
      {"GiMaxError", "Maximum error allowed:", "combo", "0.1|0.2|0.3|0.4|0.5|1.0"},
      {"GiPixelDist", "Max distance between samples:", "combo", "10|20|30|50|75|100"},
      {"GiReadCache", "Read", "check", ""},
      {"GiWriteCache", "Write   Cache file:", "check", ""},
      {"GiCacheName", "Cache file name:", "path", ""},
      {"GiBgMode", "Environment:", "list", "Color|Map"},
      {"GiBgColor", "Color:", "color", ""},
      {"GiBgMap", "Map:", "path", ""},
      {"GiBgColorIntensity", "Intensity:", "combo",
       "0.0|0.1|0.2|0.3|0.4|0.5|0.6|0.7|0.8|0.9|1.0|1.5|2.0"},
      {"GiBgMapIntensity", "Intensity:", "combo", kToOne},
      {"GiBgBlur", "Blur:", "combo", "0.0|0.25|0.5|0.75|1.0"},
      {"GiBgRotateZ", "Rotate:", "combo", kTurns},
      {"GiBgRotateX", "Rotate X:", "combo", kTurns},
      {"GiBgRotateY", "Rotate Y:", "combo", kTurns},
      {"GiMaxBounce", "Max bounces:", "combo", "1|2|3|4"},
      {"GiShadeMode", "Shading mode:", "list", "Constant|Diffuse|Shader"},
      {"GiIndirectIntensity", "Intensity:", "combo", kIntensities},
      {"GiOccShadow", "Shadow color:", "color", ""}};
  const auto page = Opened<CGiDlg>();
  EXPECT_EQ(page->Title(), "Orv GI");
  EXPECT_THAT(RowsOf(*page), ElementsAreArray(expected));
}

TEST_F(PageTables, Outline) {
  const Rows expected = {
      {"Outline", "Draw outlines", "check", ""},
      {"InkColor", "Line color:", "color", ""},
      {"InkWidth", "Line width:", "combo", "0.1|0.2|0.3|0.5|0.7|1.0|1.5|2.0|3.0"},
      {"ToonId", "Regions:", "list", "None|Per Scene|Per Object|Per Surface|Per Polygon"},
      {"Silhouette", "Silhouette threshold:", "combo", "0.0|0.2|0.3|0.4|0.5|0.6|0.7|0.8"},
      {"UseMinEdgeAngle", "Minimum angle for edge:", "check", ""},
      {"MinEdgeAngle", "Minimum angle for edge:", "combo", "0|30|45|60|75|90"},
      {"FrontBack", "Silhouette edge detection", "check", ""},
      {"IncludeNakedEdges", "Include single edges", "check", ""},
      {"ExportVectors", "Export vectors:", "check", ""},
      {"VectorExportName", "Export vectors:", "path", ""},
      {"FadeThreshold", "Start distance:", "edit", ""},
      {"MinInkWidth", "Min line width:", "combo", "0.3|0.5|0.7|1.0|1.5|2.0|3.0"}};
  const auto page = Opened<COutlineDlg>();
  EXPECT_EQ(page->Title(), "Orv Outline");
  EXPECT_THAT(RowsOf(*page), ElementsAreArray(expected));
}

TEST_F(PageTables, Animation) {
  const Rows expected = {
      {"AnimMode", "Mode:", "list", "Off|Turntable|Fly-through|Paths"},
      {"AnimFrames", "Frames:", "combo", "15|30|60|90|120"},
      {"TurntableMaxAngle", "Max angle:", "combo", "-360|-270|-180|-90|0|90|180|270|360"},
      {"AnimCameraLens", "Camera lens:", "combo", kLenses},
      {"CameraPath", "Camera path:", "combo", ""},
      {"TargetPath", "Target path:", "combo", ""}};
  const auto page = Opened<CAnimDlg>();
  EXPECT_EQ(page->Title(), "Orv Animation");
  EXPECT_THAT(RowsOf(*page), ElementsAreArray(expected));
}

TEST_F(PageTables, AdvancedLighting) {
  const Rows expected = {
      {"CausticsEnable", "Enable", "check", ""},
      {"CausticMinPhotons", "Min photons per sample:", "combo",
       "1|10|25|50|75|100|150|200|300|400"},
      {"CausticSearchDistance", "Search radius in pixels:", "combo", "5|10|15|20|25|30|40|50"},
      {"CausticCacheMode", "Cache file:", "list", "Off|Read|Write"},
      {"CausticCacheName", "Cache file name:", "path", ""}};
  const auto page = Opened<AdvancedDlg>();
  EXPECT_EQ(page->Title(), "Orv Advanced Lighting");
  EXPECT_THAT(RowsOf(*page), ElementsAreArray(expected));
}

TEST_F(PageTables, Interactive) {
  constexpr const char* kRays = "1|4|8|16|32|64|128|256";
  const Rows expected = {
      {"IprImageSize", "Image size:", "combo",
       "Viewport|320 x 240|400 x 300|480 x 360|640 x 360|640 x 480|800 x 600|1024 x 768|"
       "1200 x 900"},
      {"IprViewName", "View:", "combo", "Current|Top|Front|Right|Perspective"},
      {"IprUpdateView", "Automatically update view", "check", ""},
      {"IprShadeMode", "Shading:", "list", "Diffuse|Fast relighting|Full shading"},
      {"IprSmoothEdges", "Smooth edges", "check", ""},
      {"IprMaxShadowRays", "Max shadow rays:", "combo", kRays},
      {"IprForceMesh", "Always use Rhino mesh", "check", ""},
      {"IprMaxReflectionRays", "Max reflection rays:", "combo", kRays},
      {"IprAutoReflect", "Auto-update reflections", "check", ""},
      {"IprThreads", "Rendering threads:", "combo", "1|2|3|4|5|6|7|8"},
      {"IprLowPriority", "Run at low priority", "check", ""}};
  const auto page = Opened<CTweakDlg>();
  EXPECT_EQ(page->Title(), "Orv Interactive");
  EXPECT_THAT(RowsOf(*page), ElementsAreArray(expected));
}

TEST_F(PageTables, Bake) {
  constexpr const char* kChannels = "rgb|rgba|__diffuse|__constant|__bump";
  const Rows expected = {
      {"BakeImageName", "Map base name:", "path", ""},
      {"BakeImageSize", "Max map size:", "combo",
       "128 x 128|256 x 256|512 x 512|1024 x 1024|2048 x 2048|4096 x 4096"},
      {"BakePrecision", "Precision:", "list", "8-bit| 16-bit|float"},
      {"BakeGamma", "Gamma:", "combo", "1.0|1.7|1.8|2.2|2.3"},
      {"BakeTexelSize", "Texel size:", "combo", "0.001|0.01|0.05|0.1|0.2|0.5|1|2|5|10|100"},
      {"BakeBorder", "Border padding:", "combo", "0|1|2|3|4|5"},
      {"BakeBorderWrap", "Wrap", "check", ""},
      {"BakeUseMap1", "Map 1", "check", ""},
      {"BakeUseMap2", "Map 2", "check", ""},
      {"BakeUseMap3", "Map 3", "check", ""},
      {"BakeUseMap4", "Map 4", "check", ""},
      {"BakeSuffix2", "Suffix", "edit", ""},
      {"BakeSuffix3", "Suffix", "edit", ""},
      {"BakeSuffix4", "Suffix", "edit", ""},
      {"BakeDisplayChannels", "Channels", "combo", kChannels},
      {"BakeDisplayChannels2", "Channels", "combo", kChannels},
      {"BakeDisplayChannels3", "Channels", "combo", kChannels},
      {"BakeDisplayChannels4", "Channels", "combo", kChannels},
      {"BakePixelSamples", "Pixel Samples:", "combo", "1|2|4|8"},
      {"BakeSharpFilter", "Sharp Filter", "check", ""},
      {"BakeShadingSamples", "Shading Samples:", "combo", "1|2|4|8"}};
  const auto page = Opened<CBakeDlg>();
  EXPECT_EQ(page->Title(), "Orv Bake");
  EXPECT_THAT(RowsOf(*page), ElementsAreArray(expected));
}

TEST_F(PageTables, PlugIn) {
  const Rows expected = {{"Threads", "Rendering threads:", "combo", "1|2|3|4|5|6|7|8"},
                         {"LowPriority", "Run at low priority", "check", ""},
                         {"Gyre", "Distribute rendering with Gyre", "check", ""},
                         {"TileSize", "Tile size:", "combo", "16|32|64|128"},
                         {"TileOrder", "Tile order:", "list", "Columns|Rows|Spiral"},
                         {"UseOrvControl", "Submit rendering jobs to Orv Control", "check", ""},
                         {"UseVersion", "Append scene and image names with version", "check", ""},
                         {"Version", "Append scene and image names with version", "edit", ""},
                         {"RhinoGamma", "Monitor gamma:", "combo", "1.0|1.8|2.2"},
                         {"ConvertTextures", "Automatically convert textures", "check", ""},
                         {"TextureGamma", "Texture gamma:", "combo", "1.0|1.8|2.2"},
                         {"TextureCacheDir", "Cache directory:", "edit", ""},
                         {"IlluminanceUnity", "Illuminance unity:", "combo",
                          "100|200|300|500|750|1000|1500|2000|3000|5000|10000"}};
  const auto page = Opened<CGenDlg>();
  EXPECT_EQ(page->Title(), "Orv Plugin");
  EXPECT_THAT(RowsOf(*page), ElementsAreArray(expected));
}

}  // namespace
}  // namespace orv
