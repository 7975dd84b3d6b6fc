#include "pages/document_pages.h"

namespace orv {
namespace {

using R = RenderSettings;

constexpr std::string_view kPhotons[] = {"1",   "10",  "25",  "50",  "75",
                                         "100", "150", "200", "300", "400"};
constexpr std::string_view kDistances[] = {"5", "10", "15", "20", "25", "30", "40", "50"};
constexpr std::string_view kCacheModes[] = {"Off", "Read", "Write"};

constexpr FileQuestion kCacheQuestion = {
    {"Choose Caustic Cache File", "Orv Point Cloud (*.opc);*.opc;All files;*.*;"},
    FileQuestion::Dialog::save,
    "Cache file name",
    &UserValues::GiCacheDir};

constexpr PageRow kRows[] = {
    {"Enable", PageCheck{&R::CausticsEnable}},
    {"Min photons per sample:", PageInteger{&R::CausticMinPhotons, {1, 10000}, kPhotons}},
    {"Search radius in pixels:", PageNumber{&R::CausticSearchDistance, {1, 1000}, kDistances}},
    {"Cache file:", PageList{&R::CausticCacheMode, kCacheModes}},
    {"Cache file name:", PageFile{&R::CausticCacheName, &kCacheQuestion}},
};

constexpr DocumentPageTable kPage = {"Orv Advanced Lighting", kRows, StoreRenderPage};

}  // namespace

AdvancedDlg::AdvancedDlg(CSceneOutPlugIn& plugIn) : DocumentPage(plugIn, kPage) {}

}  // namespace orv
