#include "interactive/background_updates.h"
#include "jobs/environment_map_command.h"
#include "pages/document_pages.h"

namespace orv {
namespace {

using R = RenderSettings;

constexpr std::string_view kModes[] = {
    "Off", "Ambient", "Indirect", "Indirect + Cache", "Occlusion", "Occlusion + Cache"};
constexpr std::string_view kRays[] = {"1", "16", "64", "128", "256", "512", "1024"};
constexpr std::string_view kDistances[] = {"10", "100", "1000", "10000", "100000"};
constexpr std::string_view kErrors[] = {"0.1", "0.2", "0.3", "0.4", "0.5", "1.0"};
constexpr std::string_view kPixelDistances[] = {"10", "20", "30", "50", "75", "100"};
constexpr std::string_view kEnvironments[] = {"Color", "Map"};
constexpr std::string_view kColorIntensities[] = {"0.0", "0.1", "0.2", "0.3", "0.4", "0.5", "0.6",
                                                  "0.7", "0.8", "0.9", "1.0", "1.5", "2.0"};
constexpr std::string_view kBlurs[] = {"0.0", "0.25", "0.5", "0.75", "1.0"};
constexpr std::string_view kBounces[] = {"1", "2", "3", "4"};
constexpr std::string_view kShadeModes[] = {"Constant", "Diffuse", "Shader"};
constexpr SettingBounds kDegrees{-360, 360};

// The groups of controls: rays, what is gathered from afar, the cache.
constexpr PageCondition kSamples = In(&R::GiMode, {2, 3, 4, 5});
constexpr PageCondition kEnvironment = In(&R::GiMode, {1, 2, 3, 4, 5});
constexpr PageCondition kCache = In(&R::GiMode, {3, 5});
constexpr PageCondition kIndirect = In(&R::GiMode, {2, 3});
constexpr PageCondition kOcclusion = In(&R::GiMode, {4, 5});
constexpr PageCondition kIsColor = In(&R::GiBgMode, {0});
constexpr PageCondition kIsMap = In(&R::GiBgMode, {1});

constexpr FileQuestion kCacheQuestion = {
    {"Choose GI Cache File", "Orv Point Cloud (*.opc);*.opc;All files;*.*;"},
    FileQuestion::Dialog::save,
    "Cache file name",
    &UserValues::GiCacheDir};
constexpr FileQuestion kMapQuestion = {kEnvironmentMapPicker, FileQuestion::Dialog::open,
                                       "Environment map file name", &UserValues::EnvironmentDir};

constexpr PageRow kRows[] = {
    {"Global illumination mode:", PageList{&R::GiMode, kModes}},
    {"Rays per sample:", PageInteger{&R::GiSamples, {1, 1024}, kRays}, kAlways, kSamples},
    {"Adaptive ray casting", PageCheck{&R::GiAdaptive}, kAlways, kSamples},
    {"Max trace distance:", PageNumber{&R::GiHitDist, {1, 1000000000}, kDistances}, kAlways,
     kSamples},
    {"Maximum error allowed:", PageNumber{&R::GiMaxError, {0, 1}, kErrors}, kAlways, kCache},
    {"Max distance between samples:", PageNumber{&R::GiPixelDist, {0, 1000}, kPixelDistances},
     kAlways, kCache},
    {"Read", PageCheck{&R::GiReadCache}, kAlways, kCache},
    {"Write   Cache file:", PageCheck{&R::GiWriteCache}, kAlways, kCache},
    {"Cache file name:", PageFile{&R::GiCacheName, &kCacheQuestion}, kAlways, kCache},
    {"Environment:", PageList{&R::GiBgMode, kEnvironments}, kAlways, kEnvironment, true},
    {"Color:", PageColor{&R::GiBgColor}, kIsColor, kEnvironment, true},
    {"Map:", PageFile{&R::GiBgMap, &kMapQuestion}, kIsMap, kEnvironment, true},
    {"Intensity:", PageNumber{&R::GiBgColorIntensity, {0, 1000}, kColorIntensities}, kIsColor,
     kEnvironment, true},
    {"Intensity:", PageNumber{&R::GiBgMapIntensity, {0, 1000}, kIntensitiesToOne}, kIsMap,
     kEnvironment, true},
    {"Blur:", PageNumber{&R::GiBgBlur, {0, 1}, kBlurs}, kIsMap, kEnvironment, true},
    {"Rotate:", PageNumber{&R::GiBgRotateZ, kDegrees, kTurns}, kIsMap, kEnvironment},
    {"Rotate X:", PageNumber{&R::GiBgRotateX, kDegrees, kTurns}, kNever, kEnvironment},
    {"Rotate Y:", PageNumber{&R::GiBgRotateY, kDegrees, kTurns}, kNever, kEnvironment},
    {"Max bounces:", PageInteger{&R::GiMaxBounce, {1, 5}, kBounces}, kIndirect},
    {"Shading mode:", PageList{&R::GiShadeMode, kShadeModes}, kIndirect},
    {"Intensity:", PageNumber{&R::GiIndirectIntensity, {0, 1000}, kIntensities}, kIndirect},
    {"Shadow color:", PageColor{&R::GiOccShadow}, kOcclusion},
};

void SendAmbient(InteractiveRender& live, const RenderSettings& settings) {
  live.SendAmbient(AmbientUpdateOf(settings));
}

constexpr DocumentPageTable kPage = {"Orv GI", kRows, StoreRenderPage, SendAmbient};

}  // namespace

CGiDlg::CGiDlg(CSceneOutPlugIn& plugIn) : DocumentPage(plugIn, kPage) {}

}  // namespace orv
