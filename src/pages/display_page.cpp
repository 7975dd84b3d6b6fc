#include "pages/document_pages.h"

namespace orv {
namespace {

using R = RenderSettings;

constexpr std::string_view kChannels[] = {"r", "rgb", "rgba"};
constexpr std::string_view kPrecisions[] = {"8-bit", "16-bit", "float"};
constexpr std::string_view kInteroculars[] = {".01", ".06", "1", "6.5", "10", "65"};
constexpr SettingBounds kDepths{-1000000000, 1000000000};

constexpr FileQuestion kImageQuestion = {{"Rendered Image File", kRenderedImageFilter},
                                         FileQuestion::Dialog::save,
                                         "Image file name",
                                         &UserValues::ImageDir};

constexpr PageWordCheck Channel(std::string_view word) {
  return {&R::ExtraChannels, word};
}

constexpr PageRow kRows[] = {
    {"Render to Orv Show window", PageCheck{&R::OrvShow}},
    {"Render to file:", PageCheck{&R::RenderToFile}},
    {"Render to file:", PageFile{&R::ImageName, &kImageQuestion}},
    {"Channels:", PageText{&R::DisplayMode, kChannels}},
    {"Precision:", PageList{&R::ImagePrecision, kPrecisions}},
    {"Gamma:",
     PageNumber{&R::RibGamma, {0.1, 10}, kImageGammas, PageNumber::Kept::single_precision}},
    {"Stereo:", PageCheck{&R::StereoEnable}},
    {"Interocular distance:", PageNumber{&R::InterocularDistance, {0.001, 1000}, kInteroculars}},
    {"Save extra channels", PageCheck{&R::UseExtraChannels}},
    {"in single file", PageCheck{&R::SingleImageFile}},
    {"+reflections", PageCheck{&R::ReflectChannels}},
    {"+GI", PageCheck{&R::BounceChannels}},
    {"Diffuse", Channel("Diffuse")},
    {"Unshadowed", Channel("Unshadowed")},
    {"Shadows", Channel("Shadows")},
    {"Indirect", Channel("Indirect")},
    {"Ambient", Channel("Ambient")},
    {"Specular", Channel("Specular")},
    {"Reflections", Channel("Reflect")},
    {"Refraction", Channel("Refract")},
    {"Incandescence", Channel("Incandescence")},
    {"Outline", Channel("Outline")},
    {"Depth", Channel("Depth")},
    {"Light channels", Channel("Lights")},
    {"Environment", Channel("Environment")},
    {"min:", PageNumber{&R::Zmin, kDepths}},
    {"max:", PageNumber{&R::Zmax, kDepths}},
};

constexpr DocumentPageTable kPage = {"Orv Display", kRows, StoreRenderPage};

}  // namespace

CDisplayDlg::CDisplayDlg(CSceneOutPlugIn& plugIn) : DocumentPage(plugIn, kPage) {}

}  // namespace orv
