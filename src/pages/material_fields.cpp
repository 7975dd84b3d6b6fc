#include "pages/material_fields.h"

namespace orv {
namespace {

using Record = MaterialAttributes;
using Kind = CRhinoControlKind;
using Force = MaterialField::Force;

constexpr std::string_view kTransparencies[] = {"0.0", "0.1", "0.2", "0.3", "0.4", "0.5",
                                                "0.6", "0.7", "0.8", "0.9", "1.0"};
constexpr std::string_view kSamples[] = {"1", "2", "4", "8", "16"};
constexpr std::string_view kDisplacementModes[] = {"Off", "Bump only", "Regular displacement",
                                                   "Mesh displacement"};
constexpr std::string_view kExtents[] = {"0.1", "0.2", "0.5", "1",   "2",   "5",
                                         "10",  "20",  "50",  "100", "500", "1000"};

constexpr MaterialField kName[] = {
    {{"Name", "Name:", Kind::edit, &Record::Name, &Record::NameChanged}}};

constexpr MaterialField kLook[] = {
    {{"Color", "Color", Kind::color, &Record::Diffuse, &Record::ColorChanged}, Force::always},
    {{"Transparency",
      "Transparency",
      Kind::combo,
      &Record::Transparency,
      &Record::TransparencyChanged,
      {kTransparencies, {0, 1}}},
     Force::whenTyped},
    {{"ShadingSamples",
      "Shading samples",
      Kind::combo,
      &Record::ShadingSamples,
      &Record::ShadingSamplesChanged,
      {kSamples, {1, 32}}}},
};

constexpr MaterialField kShape[] = {
    {{"DisplacementMode",
      "Displace mode:",
      Kind::combo,
      &Record::DisplacementMode,
      &Record::DisplacementModeChanged,
      {kDisplacementModes}}},
    {{"ComplexShadow", "Surface modifies transparency", Kind::check, &Record::ComplexShadow,
      &Record::ComplexShadowChanged}},
    {{"InstancerBound",
      "Extent:",
      Kind::combo,
      &Record::InstancerBound,
      &Record::InstancerBoundChanged,
      {kExtents, {0, 1000000}}}},
    {{"HideInstancerBase", "Hide base", Kind::check, &Record::HideInstancerBase,
      &Record::HideInstancerBaseChanged}},
};

}  // namespace

bool MaterialField::ForcesBasicMaterial(std::string_view value) const {
  return Forces == Force::always || (Forces == Force::whenTyped && !IsChoice(value, Control.Rule));
}

std::span<const MaterialField> MaterialNameFields() {
  return kName;
}

std::span<const MaterialField> MaterialLookFields() {
  return kLook;
}

std::span<const MaterialField> MaterialShapeFields() {
  return kShape;
}

}  // namespace orv
