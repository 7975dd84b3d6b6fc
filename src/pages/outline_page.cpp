#include "pages/document_pages.h"

namespace orv {
namespace {

using R = RenderSettings;

constexpr std::string_view kWidths[] = {"0.1", "0.2", "0.3", "0.5", "0.7",
                                        "1.0", "1.5", "2.0", "3.0"};
constexpr std::string_view kRegions[] = {"None", "Per Scene", "Per Object", "Per Surface",
                                         "Per Polygon"};
constexpr std::string_view kSilhouettes[] = {"0.0", "0.2", "0.3", "0.4",
                                             "0.5", "0.6", "0.7", "0.8"};
constexpr std::string_view kAngles[] = {"0", "30", "45", "60", "75", "90"};

constexpr FileQuestion kVectorsQuestion = {
    {"Export Vector File", "SVG Files (*.svg);*.svg;All files;*.*;"},
    FileQuestion::Dialog::save,
    "Vector file name",
    &UserValues::ImageDir};

constexpr PageRow kRows[] = {
    {"Draw outlines", PageCheck{&R::Outline}},
    {"Line color:", PageGammaColor{&R::InkColor}},
    {"Line width:", PageNumber{&R::InkWidth, {0, 100}, kWidths}},
    {"Regions:", PageList{&R::ToonId, kRegions}},
    {"Silhouette threshold:", PageNumber{&R::Silhouette, {0, 1}, kSilhouettes}},
    {"Minimum angle for edge:", PageCheck{&R::UseMinEdgeAngle}},
    {"Minimum angle for edge:", PageNumber{&R::MinEdgeAngle, {0, 180}, kAngles}},
    {"Silhouette edge detection", PageCheck{&R::FrontBack}},
    {"Include single edges", PageCheck{&R::IncludeNakedEdges}},
    {"Export vectors:", PageCheck{&R::ExportVectors}},
    {"Export vectors:", PageFile{&R::VectorExportName, &kVectorsQuestion}},
    {"Start distance:", PageNumber{&R::FadeThreshold, {0, 1000000000}}},
    {"Min line width:", PageNumber{&R::MinInkWidth, {0, 100}, PageWords(kWidths).subspan(2)}},
};

constexpr DocumentPageTable kPage = {"Orv Outline", kRows};

}  // namespace

COutlineDlg::COutlineDlg(CSceneOutPlugIn& plugIn) : DocumentPage(plugIn, kPage) {}

}  // namespace orv
