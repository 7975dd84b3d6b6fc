#include "shading/light_attributes.h"

#include <algorithm>
#include <iterator>

#include "host/document/doc.h"
#include "host/document/object.h"
#include "host/geometry/on_light.h"
#include "shading/attribute_tables.h"

namespace orv {
namespace {

using Record = LightAttributes;

constexpr std::string_view kAreaTypeWords[] = {"normal", "fast", "portal"};
constexpr int kFastAreaType = 1;
// The earlier form of the area type: any other word means fast.
constexpr std::string_view kNotFastWords[] = {"No"};

// The area type is read after its earlier form, and so wins.
constexpr LightAttributeField kFields[] = {
    {"OrvLightIntensity", &Record::Intensity, LightField::Intensity, {.Bounds = {0, 1e9}}},
    {"OrvLightFalloff", &Record::Falloff, LightField::Falloff, {.Bounds = {0, 2}}},
    {"OrvLightEmitDiffuse", &Record::EmitDiffuse, LightField::EmitDiffuse},
    {"OrvLightEmitSpecular", &Record::EmitSpecular, LightField::EmitSpecular},
    {"OrvShadowSamples", &Record::ShadowSamples, LightField::ShadowSamples, {.Bounds = {0, 1024}}},
    {"OrvShadowBlur", &Record::ShadowBlur, LightField::ShadowBlur, {.Bounds = {0, 1}}},
    {"OrvShadowColor", &Record::ShadowColor, LightField::ShadowColor},
    {"OrvRectangleLightInCamera", &Record::InCamera, LightField::InCamera},
    {"OrvRectangleLightReflected", &Record::Reflected, LightField::Reflected},
    {"OrvRectangleLightFast",
     &Record::AreaType,
     std::nullopt,
     {.Words = kNotFastWords, .OtherWord = kFastAreaType}},
    {"OrvAreaLightType", &Record::AreaType, LightField::AreaType, {.Words = kAreaTypeWords}},
    {"OrvLightUseTexture", &Record::UseTexture, LightField::UseTexture},
    {"OrvLightTexture", &Record::Texture, LightField::Texture},
    {"OrvLightChannel", &Record::Channel, LightField::Channel, {.Bounds = {1, 9}}},
    {"OrvLightEmitPhotons", &Record::EmitPhotons, LightField::EmitPhotons},
    {"OrvLightPhotons", &Record::Photons, LightField::Photons, {.Bounds = {0, 1e9}}},
    {"OrvLightUseArchive", &Record::UseArchive, LightField::UseArchive},
    {"OrvLightArchive", &Record::Archive, LightField::Archive},
};

// Stores a field that the host keeps. False when `field` is none of them.
bool StoreHostField(LightField field, const LightAttributes& attributes, ON_Light& light) {
  switch (field) {
    case LightField::Enabled:
      light.Enable(attributes.Enabled);
      return true;
    case LightField::Diffuse:
      light.SetDiffuse(attributes.Color);
      return true;
    case LightField::ShadowIntensity:
      light.SetShadowIntensity(attributes.ShadowIntensity);
      return true;
    default:
      return false;
  }
}

// Stores a field that has a key. False when there is no such field.
bool StoreKey(LightField field, const LightAttributes& attributes, ON_Light& light) {
  const auto row = std::find_if(
      std::begin(kFields), std::end(kFields),
      [field](const LightAttributeField& candidate) { return candidate.Changed == field; });
  if (row == std::end(kFields)) return false;
  row->Store(attributes, light);
  return true;
}

}  // namespace

std::span<const LightAttributeField> LightAttributeFields() {
  return kFields;
}

LightAttributes ReadLightAttributes(const ON_Light* light) {
  LightAttributes attributes;
  if (light == nullptr) return attributes;
  attributes.Enabled = light->IsEnabled();
  attributes.Color = light->Diffuse();
  attributes.ShadowIntensity = light->ShadowIntensity();
  ReadAttributeFields(LightAttributeFields(), *light, attributes);
  return attributes;
}

bool WriteLightChange(CRhinoDoc& doc, const CRhinoObject& light, LightField field,
                      const LightAttributes& attributes) {
  const ON_Light* present = ON_Light::Cast(light.Geometry());
  if (present == nullptr) return false;
  ON_Light changed = *present;
  if (!StoreHostField(field, attributes, changed) && !StoreKey(field, attributes, changed)) {
    return false;
  }
  return doc.m_light_table.ModifyLight(changed, changed.LightIndex());
}

}  // namespace orv
