#include "pages/document_names.h"
#include "pages/document_pages.h"

namespace orv {
namespace {

using R = RenderSettings;

constexpr std::string_view kModes[] = {"Off", "Turntable", "Fly-through", "Paths"};
constexpr std::string_view kFrames[] = {"15", "30", "60", "90", "120"};
constexpr std::string_view kAngles[] = {"-360", "-270", "-180", "-90", "0",
                                        "90",   "180",  "270",  "360"};

constexpr PageCondition kIsTurntable = In(&R::AnimMode, {1});
constexpr PageCondition kFlies = In(&R::AnimMode, {2, 3});
constexpr PageCondition kHasTarget = In(&R::AnimMode, {3});

constexpr PageRow kRows[] = {
    {"Mode:", PageList{&R::AnimMode, kModes}},
    {"Frames:", PageInteger{&R::AnimFrames, {1, 10000}, kFrames}},
    {"Max angle:", PageNumber{&R::TurntableMaxAngle, {-400, 400}, kAngles}, kIsTurntable},
    {"Camera lens:", PageNumber{&R::AnimCameraLens, {1, 1000}, kLenses}, kFlies},
    {"Camera path:", PageName{&R::CameraPath, CurveNames}, kFlies},
    {"Target path:", PageName{&R::TargetPath, CurveNames}, kHasTarget},
};

constexpr DocumentPageTable kPage = {"Orv Animation", kRows, StoreRenderPage};

}  // namespace

CAnimDlg::CAnimDlg(CSceneOutPlugIn& plugIn) : DocumentPage(plugIn, kPage) {}

}  // namespace orv
