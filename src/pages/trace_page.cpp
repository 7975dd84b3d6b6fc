#include "interactive/background_updates.h"
#include "jobs/environment_map_command.h"
#include "pages/document_pages.h"

namespace orv {
namespace {

using R = RenderSettings;

constexpr std::string_view kOffsets[] = {"0.001", "0.01", "0.1", "1.0", "10.0", "100.0"};
constexpr std::string_view kBounces[] = {"0", "1", "2", "3", "4", "5", "6", "8", "10", "12"};
constexpr std::string_view kEnvironments[] = {"None", "Color", "Map"};
constexpr std::string_view kBlurs[] = {"0.0", "0.01", "0.02", "0.05", "0.1",
                                       "0.2", "0.5",  "0.7",  "1.0"};
constexpr std::string_view kStops[] = {"1", "1.4", "2", "2.8", "4", "5.7", "8", "11.3", "16"};
constexpr std::string_view kSamples[] = {"16", "32", "64", "128", "256", "512", "1024"};
constexpr SettingBounds kDegrees{-360, 360};

constexpr PageCondition kIsColor = In(&R::ReflectionBgMode, {1});
constexpr PageCondition kIsMap = In(&R::ReflectionBgMode, {2});

constexpr FileQuestion kMapQuestion = {kEnvironmentMapPicker, FileQuestion::Dialog::open,
                                       "Reflection map file name", &UserValues::EnvironmentDir};

constexpr PageRow kRows[] = {
    {"Trace offset:", PageNumber{&R::TraceBias, {0.0001, 10000}, kOffsets}},
    {"Max bounces:", PageInteger{&R::ReflectionMaxDepth, {0, 32}, kBounces}},
    {.Label = "Environment:", .Is = PageList{&R::ReflectionBgMode, kEnvironments}, .Live = true},
    {.Label = "Color:", .Is = PageColor{&R::ReflectionBgColor}, .Shown = kIsColor, .Live = true},
    {.Label = "Map:",
     .Is = PageFile{&R::ReflectionBgMap, &kMapQuestion},
     .Shown = kIsMap,
     .Live = true},
    {.Label = "Intensity:",
     .Is = PageNumber{&R::ReflectionColorIntensity, {0, 100}, kIntensitiesToOne},
     .Shown = kIsColor,
     .Live = true},
    {.Label = "Intensity:",
     .Is = PageNumber{&R::ReflectionMapIntensity, {0, 100}, kIntensitiesToOne},
     .Shown = kIsMap,
     .Live = true},
    {.Label = "Blur:",
     .Is = PageNumber{&R::ReflectionBlur, {0, 1}, kBlurs},
     .Shown = kIsMap,
     .Live = true},
    {.Label = "Rotate:",
     .Is = PageNumber{&R::ReflectionRotateZ, kDegrees, kTurns},
     .Shown = kIsMap,
     .Live = true},
    {"Rotate X:", PageNumber{&R::ReflectionRotateX, kDegrees, kTurns}, kNever},
    {"Rotate Y:", PageNumber{&R::ReflectionRotateY, kDegrees, kTurns}, kNever},
    {"Enable", PageCheck{&R::DofEnable}},
    {"Camera lens:", PageNumber{&R::DofCameraLens, {1, 1000}, kLenses}},
    {"f-Stop:", PageNumber{&R::DofFstop, {0.01, 100}, kStops}},
    {"Focus distance:", PageNumber{&R::DofFocusDistance, {0.1, 1000000}}},
    {"Camera target", PageCheck{&R::DofFocusOnTarget}},
    {"Samples:", PageInteger{&R::DofSamples, {16, 1024}, kSamples}},
};

void SendReflection(InteractiveRender& live, const RenderSettings& settings) {
  live.SendReflection(ReflectionUpdateOf(settings));
}

constexpr DocumentPageTable kPage = {"Orv Trace", kRows, StoreRenderPage, SendReflection};

}  // namespace

CTraceDlg::CTraceDlg(CSceneOutPlugIn& plugIn) : DocumentPage(plugIn, kPage) {}

}  // namespace orv
