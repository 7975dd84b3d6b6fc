#include "jobs/option_commands.h"

#include "interactive/background_updates.h"
#include "jobs/edit_options.h"
#include "jobs/environment_map_command.h"

namespace orv {

const FileQuestion kReflectionMapQuestion = {
    kEnvironmentMapPicker, FileQuestion::Dialog::open,
    "Reflection map file name:", &UserValues::EnvironmentDir};
const FileQuestion kGiMapQuestion = {{"Choose GI Environment Map", kImageFilter},
                                     FileQuestion::Dialog::open,
                                     "Environment map file name ",
                                     &UserValues::EnvironmentDir};
const FileQuestion kGiCacheQuestion = {
    {"Set Cache File Name", "Orv Point Cloud (*.opc);*.opc;All files;*.*;"},
    FileQuestion::Dialog::save,
    "Cache file name ",
    &UserValues::GiCacheDir};

namespace {

using R = RenderSettings;
using Row = OptionRow;

constexpr std::string_view kReflectionModes[] = {"Transparent", "Color", "Environment"};
constexpr int kReflectionColor = 1;
constexpr int kReflectionMap = 2;

constexpr Row kTraceRows[] = {
    {"TraceBias", Row::Number{&R::TraceBias, 0, 1000, "Trace bias "}},
    {"TraceDepth",
     Row::Integer{&R::ReflectionMaxDepth, 0, 20, "Max depth for traced rays (0-20) "}},
    {"BgMode", Row::List{&R::ReflectionBgMode, kReflectionModes}},
    {"BgColor", Row::Color{&R::ReflectionBgColor, "Reflection background color "},
     kReflectionColor},
    {"BgColorIntensity",
     Row::Number{&R::ReflectionColorIntensity, 0, 100, "Reflection background color intensity "},
     kReflectionColor},
    {"BgMapIntensity", Row::Number{&R::ReflectionMapIntensity, 0, 100, "Reflection map intensity "},
     kReflectionMap},
    {"BgMapBlur", Row::Number{&R::ReflectionBlur, 0, 4, "Reflection map blur "}, kReflectionMap},
    {"BgMapRotateZ",
     Row::Number{&R::ReflectionRotateZ, -360, 360, "Reflection map rotate Z (degrees) "},
     kReflectionMap},
    {"BgMap", Row::File{&R::ReflectionBgMap, &kReflectionMapQuestion}, kReflectionMap},
};
constexpr OptionTable kTraceOptions = {"Orv Trace Options", kTraceRows, &R::ReflectionBgMode};

constexpr Row kOutlineRows[] = {
    {"FrontBack", &R::FrontBack},
    {"InkColor", Row::Color{&R::InkColor, "Ink color "}},
    {"InkWidth", Row::Number{&R::InkWidth, 0, 100, "Ink width (in pixels) "}},
    {"Silhouette", Row::Number{&R::Silhouette, 0, 1, "Silhouette threshold (0.0-1.0) "}},
    {"FadeDepth", Row::Number{&R::FadeThreshold, 0, 1000000, "Depth at which to narrow lines "}},
    {"MinInkWidth", Row::Number{&R::MinInkWidth, 0, 10, "Min ink width for depth fade "}},
};
constexpr OptionTable kOutlineOptions = {"Orv Outline Options", kOutlineRows};

constexpr std::string_view kGiBackgrounds[] = {"Color", "Map"};
constexpr int kGiColor = 0;
constexpr int kGiMap = 1;

constexpr Row kGiRows[] = {
    {"Adaptive", &R::GiAdaptive},
    {"MaxTraceDistance", Row::Number{&R::GiHitDist, 0.01, 1000000, "Max distance to trace rays "}},
    {"MaxError", Row::Number{&R::GiMaxError, 0, 1, "Max error for cached value re-use (0.0-1.0) "}},
    {"MaxPixelDistance",
     Row::Number{&R::GiPixelDist, 0, 100, "Max distance in pixels between cached values "}},
    {"Rays", Row::Integer{&R::GiSamples, 1, 1024, "Rays to trace for each GI value (1-1024) "}},
    {"ReadCache", &R::GiReadCache},
    {"WriteCache", &R::GiWriteCache},
    {"CacheFile", Row::File{&R::GiCacheName, &kGiCacheQuestion}},
    {"BgMode", Row::List{&R::GiBgMode, kGiBackgrounds}},
    {"BgColor", Row::Color{&R::GiBgColor, "GI background color "}, kGiColor},
    {"BgColorIntensity", Row::Number{&R::GiBgColorIntensity, 0, 100, "GI background intensity "},
     kGiColor},
    {"BgMapIntensity", Row::Number{&R::GiBgMapIntensity, 0, 100, "Environment map intensity "},
     kGiMap},
    {"BgMapBlur", Row::Number{&R::GiBgBlur, 0, 4, "Environment map blur "}, kGiMap},
    {"BgMapRotateZ", Row::Number{&R::GiBgRotateZ, -360, 360, "Environment map rotate Z (degrees) "},
     kGiMap},
    {"BgMap", Row::File{&R::GiBgMap, &kGiMapQuestion}, kGiMap},
};
constexpr OptionTable kGiOptions = {"Orv Global Illumination Options", kGiRows, &R::GiBgMode};

}  // namespace

CommandResult COrvOptionsCommand::RunCommand(CRhinoCommandContext& context) {
  RenderSettings settings = PlugIn().LoadSettings();
  const CommandResult result = EditOptionTable({context, PlugIn(), settings}, table_);
  if (result == CommandResult::success) {
    PlugIn().StoreSettings(settings);
    SendToLiveRender(settings);
  }
  return result;
}

CCommandOrvOptions::CCommandOrvOptions(CSceneOutPlugIn& plugIn)
    : COrvOptionsCommand(
          plugIn, "ae55830b-064a-4c44-b62d-b37ef6bd5bb5"_uuid, "OrvOptions",
          "Edits the general render settings of the document.",
          "Name=Value changes an option, Enter stores them all, ! leaves the settings as they "
          "were.\n"
          "A colour is typed as 255,128,0 or #ff8000. CropRegion asks for two corners in the "
          "active\n"
          "view, each as x,y in pixels; in the scripted form for left,right,top,bottom as "
          "fractions "
          "of\n"
          "the image. Surface edits the shader of what has none. Frame has no effect here: it is "
          "an\n"
          "option of one export.\n",
          kGeneralOptions) {}

CCommandOrvTrace::CCommandOrvTrace(CSceneOutPlugIn& plugIn)
    : COrvOptionsCommand(
          plugIn, "34539470-82f6-4bca-9082-80239b437a5b"_uuid, "OrvTrace",
          "Edits ray tracing and the background that reflections see.",
          "Name=Value changes an option, Enter stores them all, ! leaves the settings as they "
          "were.\n"
          "The options of the colour are shown with BgMode=Color, those of the map with\n"
          "BgMode=Environment. BgMap is an image file; $ORVHOME at its start is that environment\n"
          "variable.\n",
          kTraceOptions) {}

void CCommandOrvTrace::SendToLiveRender(const RenderSettings& settings) const {
  PlugIn().Live().SendReflection(ReflectionUpdateOf(settings));
}

CCommandOrvOutline::CCommandOrvOutline(CSceneOutPlugIn& plugIn)
    : COrvOptionsCommand(
          plugIn, "a9828a8d-daab-49e0-bbcf-f30fcbc21e1e"_uuid, "OrvOutline",
          "Edits the ink lines of the document's outlines.",
          "Name=Value changes an option, Enter stores them all, ! leaves the settings as they "
          "were.\n",
          kOutlineOptions) {}

CCommandOrvGI::CCommandOrvGI(CSceneOutPlugIn& plugIn)
    : COrvOptionsCommand(
          plugIn, "87de5158-17e2-4df3-8a32-0a92ccf9c792"_uuid, "OrvGI",
          "Edits global illumination, its cache and its background.",
          "Name=Value changes an option, Enter stores them all, ! leaves the settings as they "
          "were.\n"
          "The options of the colour are shown with BgMode=Color, those of the map with "
          "BgMode=Map.\n"
          "CacheFile and BgMap are files; $ORVHOME at their start is that environment variable.\n",
          kGiOptions) {}

void CCommandOrvGI::SendToLiveRender(const RenderSettings& settings) const {
  PlugIn().Live().SendAmbient(AmbientUpdateOf(settings));
}

}  // namespace orv
