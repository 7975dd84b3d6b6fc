#include "pages/document_names.h"
#include "pages/document_pages.h"

namespace orv {
namespace {

using I = IprSettings;

constexpr std::string_view kImageSizes[] = {"Viewport",  "320 x 240",  "400 x 300",
                                            "480 x 360", "640 x 360",  "640 x 480",
                                            "800 x 600", "1024 x 768", "1200 x 900"};
constexpr std::string_view kShadeModes[] = {"Diffuse", "Fast relighting", "Full shading"};
constexpr std::string_view kRays[] = {"1", "4", "8", "16", "32", "64", "128", "256"};

constexpr PageRow kRows[] = {
    {.Label = "Image size:",
     .Is = PageImageSize{&I::IprImageWidth, &I::IprImageHeight, kImageSizes},
     .Id = "IprImageSize"},
    {"View:", PageName{&I::IprViewName, ViewNames}},
    {"Automatically update view", PageCheck{&UserValues::IprUpdateView}},
    {"Shading:", PageList{&I::IprShadeMode, kShadeModes}},
    {"Smooth edges", PageCheck{&I::IprSmoothEdges}},
    {"Max shadow rays:", PageInteger{&I::IprMaxShadowRays, {1, 1024}, kRays}},
    {"Always use Rhino mesh", PageCheck{&I::IprForceMesh}},
    {"Max reflection rays:", PageInteger{&I::IprMaxReflectionRays, {1, 1024}, kRays}},
    {"Auto-update reflections", PageCheck{&I::IprAutoReflect}},
    {.Label = "Rendering threads:",
     .Is = PageInteger{&I::IprThreads, {1, 8}, kThreads},
     .Id = "IprThreads"},
    {"Run at low priority", PageCheck{&I::IprLowPriority}},
};

void Store(CSceneOutPlugIn& plugIn, const PageRecords& records) {
  const IprSettings before = LoadIprSettings(plugIn.UserStrings(), plugIn.User());
  plugIn.User().IprUpdateView = records.User.IprUpdateView;
  StoreIprSettings(records.Ipr, plugIn.UserStrings(), plugIn.User());
  plugIn.Live().SendIprOptions(before, records.Ipr);
}

constexpr DocumentPageTable kPage = {"Orv Interactive", kRows, Store};

}  // namespace

CTweakDlg::CTweakDlg(CSceneOutPlugIn& plugIn) : DocumentPage(plugIn, kPage) {}

}  // namespace orv
