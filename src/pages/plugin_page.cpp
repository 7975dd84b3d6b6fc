#include "pages/document_pages.h"

namespace orv {
namespace {

using R = RenderSettings;
using U = UserValues;

constexpr std::string_view kTileSizes[] = {"16", "32", "64", "128"};
constexpr std::string_view kTileOrders[] = {"Columns", "Rows", "Spiral"};
constexpr std::size_t kRowByRow = 1;
constexpr std::string_view kGammas[] = {"1.0", "1.8", "2.2"};
constexpr std::string_view kIlluminances[] = {"100",  "200",  "300",  "500",  "750",  "1000",
                                              "1500", "2000", "3000", "5000", "10000"};

constexpr PageRow kRows[] = {
    {"Rendering threads:", PageInteger{&U::Threads, {1, 8}, kThreads}},
    {"Run at low priority", PageCheck{&R::LowPriority}},
    {"Distribute rendering with Gyre", PageCheck{&U::Gyre}},
    {"Tile size:", PageInteger{&R::TileSize, {8, 256}, kTileSizes}},
    {"Tile order:", PageWordList{&R::TileOrder, kTileOrders, kRowByRow}},
    {"Submit rendering jobs to Orv Control", PageCheck{&U::UseOrvControl}},
    {"Append scene and image names with version", PageCheck{&U::UseVersion}},
    {"Append scene and image names with version", PageInteger{&U::Version, {0, 999999}}},
    {"Monitor gamma:", PageNumber{&R::RhinoGamma, {0.1, 10}, kGammas}},
    {"Automatically convert textures", PageCheck{&U::ConvertTextures}},
    {"Texture gamma:", PageNumber{&R::TextureGamma, {0.1, 10}, kGammas}},
    {"Cache directory:", PageText{&U::TextureCacheDir, {}, kMaxTextureCacheDir}},
    {"Illuminance unity:", PageNumber{&U::IlluminanceUnity, {0.1, 100000000}, kIlluminances}},
};

constexpr DocumentPageTable kPage = {"Orv Plugin", kRows};

}  // namespace

CGenDlg::CGenDlg(CSceneOutPlugIn& plugIn) : DocumentPage(plugIn, kPage) {}

}  // namespace orv
