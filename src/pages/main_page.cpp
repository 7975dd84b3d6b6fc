#include "interactive/background_updates.h"
#include "jobs/settings_commands.h"
#include "pages/document_names.h"
#include "pages/document_pages.h"

namespace orv {
namespace {

using R = RenderSettings;

constexpr std::string_view kImageSizes[] = {"Viewport",   "320 x 240",  "640 x 480",
                                            "1024 x 768", "1200 x 900", "1600 x 1200",
                                            "1280 x 720", "1920 x 1080"};
constexpr PagePresets::Preset kPresets[] = {{"Normal", 4, 1},          {"Smoother edges", 8, 1},
                                            {"Finer shading", 4, 4},   {"High quality", 8, 4},
                                            {"Higher quality", 12, 8}, {"Extreme quality", 16, 16}};
constexpr std::string_view kPixelSamples[] = {"1", "2", "4", "8", "12", "16"};
constexpr std::string_view kShadingSamples[] = {"1", "2", "4", "8", "16"};
constexpr std::string_view kTolerances[] = {"0.25", "0.35", "0.5", "0.7", "1.0",
                                            "1.4",  "2.0",  "3.0", "4.0"};
constexpr std::string_view kToleranceUnits[] = {"pixels", "units"};
constexpr std::string_view kCurveWidths[] = {
    "0.001", "0.002", "0.005", "0.01", "0.02", "0.05", "0.1", "0.2", "0.5", "1", "2", "5", "10"};
constexpr std::string_view kCurveColors[] = {"Black", "Display", "Print"};
constexpr std::string_view kBackgrounds[] = {"Transparent", "Color", "Gradient", "Wallpaper",
                                             "Environment"};
constexpr std::string_view kBlurs[] = {"0.0", "0.01", "0.02", "0.04", "0.1"};
constexpr std::string_view kRotations[] = {"-180", "-135", "-90", "-45", "0",
                                           "45",   "90",   "135", "180"};

constexpr PageCondition kHasColor = In(&R::ImageBgMode, {1, 2});
constexpr PageCondition kIsGradient = In(&R::ImageBgMode, {2});
constexpr PageCondition kHasMap = In(&R::ImageBgMode, {3, 4});
constexpr PageCondition kIsEnvironment = In(&R::ImageBgMode, {4});

constexpr std::string_view kRibFilter = "RIB files;*.rib;All files;*.*;";
constexpr FileQuestion kMapQuestion = {{"Choose background map", kImageFilter},
                                       FileQuestion::Dialog::open,
                                       "Background map file name",
                                       &UserValues::EnvironmentDir};
constexpr FileQuestion kRibQuestion = {{"Exported Rib File", kRibFilter},
                                       FileQuestion::Dialog::save,
                                       "Rib file name",
                                       &UserValues::RibDir};
constexpr FileQuestion kOptionsQuestion = {{"Choose Options File", kRibFilter},
                                           FileQuestion::Dialog::open,
                                           "Options file name",
                                           &UserValues::ArchiveDir};

template <class Command>
CommandResult RunCommand(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn) {
  return Command(plugIn).RunCommand(context);
}

constexpr PageRow kRows[] = {
    {.Label = "Image size:",
     .Is = PageImageSize{&R::ImageWidth, &R::ImageHeight, kImageSizes},
     .Id = "ImageSize"},
    {"View:", PageName{&R::ViewName, ViewNames}},
    {.Label = "Presets:",
     .Is = PagePresets{&R::PixelSamples, &R::ShadingSamples, kPresets},
     .Id = "Presets"},
    {"Pixel samples:", PageInteger{&R::PixelSamples, {1, 32}, kPixelSamples}},
    {"Shading samples:", PageInteger{&R::ShadingSamples, {1, 32}, kShadingSamples}},
    {"Sharp filter", PageCheck{&R::SharpFilter}},
    {"Clamp to alpha", PageCheck{&R::ClampToAlpha}},
    {"Smooth edges", PageCheck{&R::EdgeMask}, kNever},
    {"Use Rhino mesh", PageThreeState{&R::RenderMesh}},
    {"Tolerance:", PageNumber{&R::Flatness, {0.1, 100}, kTolerances}},
    {"Tolerance unit:", PageFlagList{&R::AbsoluteTolerance, kToleranceUnits}},
    {"Curves and points", PageCheck{&R::RenderCurves}},
    {"Curve width:", PageNumber{&R::CurveWidth, {0.001, 1000}, kCurveWidths}},
    {"Dimensions and text", PageCheck{&R::RenderDimensions}},
    {"Curve color:", PageList{&R::ColorMode, kCurveColors}},
    {.Label = "Mode:", .Is = PageList{&R::ImageBgMode, kBackgrounds}, .Live = true},
    {.Label = "Color:", .Is = PageColor{&R::ImageBgColor}, .Shown = kHasColor, .Live = true},
    {.Label = "Bottom color:",
     .Is = PageColor{&R::ImageBgBottom},
     .Shown = kIsGradient,
     .Live = true},
    {.Label = "Map:",
     .Is = PageFile{&R::ImageBgMap, &kMapQuestion},
     .Shown = kHasMap,
     .Live = true},
    {.Label = "Intensity:",
     .Is = PageNumber{&R::ImageBgIntensity, {0, 100}, kIntensities},
     .Shown = kHasMap,
     .Live = true},
    {.Label = "Blur:",
     .Is = PageNumber{&R::ImageBgBlur, {0, 1}, kBlurs},
     .Shown = kHasMap,
     .Live = true},
    {.Label = "Rotate:",
     .Is = PageNumber{&R::ImageBgRotateZ, {-1000, 1000}, kRotations},
     .Shown = kIsEnvironment,
     .Live = true},
    {"RIB file name:", PageFile{&R::RibName, &kRibQuestion}},
    {"Read options file:", PageCheck{&R::UseOptionsArchive}},
    {"Read options file:", PageFile{&R::OptionsArchive, &kOptionsQuestion}},
    {.Label = "Load Settings..",
     .Is = PageButton{RunCommand<CCommandOrvLoadSettings>},
     .Shown = kNever,
     .Id = "LoadSettings"},
    {.Label = "Save Settings..",
     .Is = PageButton{RunCommand<CCommandOrvSaveSettings>},
     .Shown = kNever,
     .Id = "SaveSettings"},
};

void SendImager(InteractiveRender& live, const RenderSettings& settings) {
  live.SendImager(ImagerUpdateOf(settings));
}

constexpr DocumentPageTable kPage = {"Orv Main", kRows, StoreRenderPage, SendImager};

}  // namespace

CDocPageDlg::CDocPageDlg(CSceneOutPlugIn& plugIn) : DocumentPage(plugIn, kPage) {}

}  // namespace orv
