#include "pages/light_page.h"

#include "host/document/object.h"
#include "host/geometry/on_light.h"
#include "pages/property_undo.h"

namespace orv {
namespace {

using Record = LightAttributes;
using Row = CLightPropPageDlg::Row;
using Kind = CRhinoControlKind;

constexpr std::string_view kChannels[] = {"1", "2", "3", "4", "5", "6", "7", "8", "9"};
constexpr std::string_view kIntensities[] = {"0.1", "0.2", "0.3",  "0.4",   "0.5",
                                             "0.6", "0.7", "0.8",  "0.9",   "1.0",
                                             "10",  "100", "1000", "10000", "100000"};
constexpr std::string_view kFalloffs[] = {"None", "Linear", "Squared"};
constexpr std::string_view kMillions[] = {"0.1", "0.2", "0.5", "1.0", "1.5", "2", "3", "4", "5"};
constexpr std::string_view kShadowIntensities[] = {"0.0", "0.1", "0.2", "0.3", "0.4", "0.5",
                                                   "0.6", "0.7", "0.8", "0.9", "1.0"};
constexpr std::string_view kRays[] = {"0", "1", "4", "8", "16", "32", "64", "128", "256"};
constexpr std::string_view kBlurs[] = {"0.0", "0.005", "0.01", "0.02", "0.04", "0.1", "0.2"};
constexpr std::string_view kAreaTypes[] = {"Normal", "Fast", "Portal"};

constexpr SettingBounds kAnyAmount{0, 1e9};
constexpr SettingBounds kMostRays{0, 1024};

constexpr FileQuestion kTexture{{"Choose Texture for Area Light", kImageFilter},
                                FileQuestion::Dialog::open,
                                {},
                                &UserValues::TextureDir};
constexpr FileQuestion kArchive{{"Choose Archive for Area Light", "RIB Files;*.rib;All file;*.*;"},
                                FileQuestion::Dialog::open,
                                {},
                                &UserValues::ArchiveDir};

constexpr Row kRows[] = {
    {"Enabled", "On", Kind::check, &Record::Enabled, LightField::Enabled},
    {"Channel",
     "Channel:",
     Kind::list,
     &Record::Channel,
     LightField::Channel,
     {.Choices = kChannels, .First = 1}},
    {"Color", "Color:", Kind::color, &Record::Color, LightField::Diffuse},
    {"Intensity",
     "Intensity:",
     Kind::combo,
     &Record::Intensity,
     LightField::Intensity,
     {kIntensities, kAnyAmount}},
    {"Falloff", "Falloff:", Kind::list, &Record::Falloff, LightField::Falloff, {kFalloffs}},
    {"EmitDiffuse", "Emit diffuse", Kind::check, &Record::EmitDiffuse, LightField::EmitDiffuse},
    {"EmitSpecular", "Emit specular", Kind::check, &Record::EmitSpecular, LightField::EmitSpecular},
    {"EmitPhotons", "Emit photons", Kind::check, &Record::EmitPhotons, LightField::EmitPhotons},
    {"Photons",
     "million",
     Kind::combo,
     &Record::Photons,
     LightField::Photons,
     {kMillions, kAnyAmount}},
    {"ShadowColor", "Shadow Color:", Kind::color, &Record::ShadowColor, LightField::ShadowColor},
    {"ShadowIntensity",
     "Shadow Intensity:",
     Kind::combo,
     &Record::ShadowIntensity,
     LightField::ShadowIntensity,
     {kShadowIntensities, kAnyAmount}},
    {"ShadowSamples",
     "Rays:",
     Kind::combo,
     &Record::ShadowSamples,
     LightField::ShadowSamples,
     {kRays, kMostRays}},
    {"ShadowBlur",
     "Blur:",
     Kind::combo,
     &Record::ShadowBlur,
     LightField::ShadowBlur,
     {kBlurs, kAnyAmount}},
    {"AreaType", "Mode:", Kind::list, &Record::AreaType, LightField::AreaType, {kAreaTypes}},
    {"InCamera", "Visible to camera", Kind::check, &Record::InCamera, LightField::InCamera},
    {"Reflected", "Visible in reflections", Kind::check, &Record::Reflected, LightField::Reflected},
    {"UseTexture", "Texture or IES file", Kind::check, &Record::UseTexture, LightField::UseTexture},
    {"Texture",
     "Texture or IES file",
     Kind::path,
     &Record::Texture,
     LightField::Texture,
     {.File = &kTexture, .UsedBy = "UseTexture"}},
    {"UseArchive", "Use Archive Shape", Kind::check, &Record::UseArchive, LightField::UseArchive},
    {"Archive",
     "Use Archive Shape",
     Kind::path,
     &Record::Archive,
     LightField::Archive,
     {.File = &kArchive, .UsedBy = "UseArchive"}},
};

}  // namespace

CLightPropPageDlg::CLightPropPageDlg(CSceneOutPlugIn& plugIn)
    : PropertyPage(plugIn, "Orv Light", PropertyTarget::lights, kRows) {}

LightAttributes CLightPropPageDlg::ReadRecord(const CRhinoObject& light) const {
  return ReadLightAttributes(ON_Light::Cast(light.Geometry()));
}

void CLightPropPageDlg::Store(CRhinoDoc& doc, const Row& row) {
  const PropertyUndo undo(doc, "Light Properties change");
  for (CRhinoObject* light : Targets(doc)) {
    if (!WriteLightChange(doc, *light, row.Changed, Shown())) continue;
    PlugIn().Live().SendLightTweak(*light, false);
  }
}

}  // namespace orv
