#include "pages/document_pages.h"

namespace orv {
namespace {

using B = BakeSettings;

constexpr std::string_view kMapSizes[] = {"128 x 128",   "256 x 256",   "512 x 512",
                                          "1024 x 1024", "2048 x 2048", "4096 x 4096"};
constexpr std::string_view kPrecisions[] = {"8-bit", " 16-bit", "float"};
constexpr std::string_view kTexelSizes[] = {"0.001", "0.01", "0.05", "0.1", "0.2", "0.5",
                                            "1",     "2",    "5",    "10",  "100"};
constexpr std::string_view kBorders[] = {"0", "1", "2", "3", "4", "5"};
constexpr std::string_view kChannels[] = {"rgb", "rgba", "__diffuse", "__constant", "__bump"};
constexpr std::string_view kSamples[] = {"1", "2", "4", "8"};

constexpr FileQuestion kImageQuestion = {{"Baked Image File", kRenderedImageFilter},
                                         FileQuestion::Dialog::save,
                                         "Map base name",
                                         &UserValues::ImageDir};

constexpr PageRow kRows[] = {
    {"Map base name:", PageFile{&B::BakeImageName, &kImageQuestion}},
    {.Label = "Max map size:",
     .Is = PageImageSize{&B::BakeImageWidth, &B::BakeImageHeight, kMapSizes},
     .Id = "BakeImageSize"},
    {"Precision:", PageList{&B::BakePrecision, kPrecisions}},
    {"Gamma:", PageNumber{&B::BakeGamma, {0.1, 10}, kImageGammas}},
    {"Texel size:", PageNumber{&B::BakeTexelSize, {0, 10000}, kTexelSizes}},
    {"Border padding:", PageNumber{&B::BakeBorder, {0, 100}, kBorders}},
    {"Wrap", PageCheck{&B::BakeBorderWrap}},
    {"Map 1", PageCheck{&B::BakeUseMap1}},
    {"Map 2", PageCheck{&B::BakeUseMap2}},
    {"Map 3", PageCheck{&B::BakeUseMap3}},
    {"Map 4", PageCheck{&B::BakeUseMap4}},
    {"Suffix", PageText{&B::BakeSuffix2}},
    {"Suffix", PageText{&B::BakeSuffix3}},
    {"Suffix", PageText{&B::BakeSuffix4}},
    {"Channels", PageText{&B::BakeDisplayChannels, kChannels}},
    {"Channels", PageText{&B::BakeDisplayChannels2, kChannels}},
    {"Channels", PageText{&B::BakeDisplayChannels3, kChannels}},
    {"Channels", PageText{&B::BakeDisplayChannels4, kChannels}},
    {"Pixel Samples:", PageInteger{&B::BakePixelSamples, {1, 16}, kSamples}},
    {"Sharp Filter", PageCheck{&B::BakeSharpFilter}},
    {"Shading Samples:", PageNumber{&B::BakeShadingSamples, {0.01, 100}, kSamples}},
};

void Store(CSceneOutPlugIn& plugIn, const PageRecords& records) {
  StoreBakeSettings(records.Bake, plugIn.UserStrings());
}

constexpr DocumentPageTable kPage = {"Orv Bake", kRows, Store};

}  // namespace

CBakeDlg::CBakeDlg(CSceneOutPlugIn& plugIn) : DocumentPage(plugIn, kPage) {}

}  // namespace orv
