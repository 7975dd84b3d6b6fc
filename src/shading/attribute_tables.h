#pragma once

#include <optional>
#include <span>

#include "shading/attribute_field.h"
#include "shading/light_attributes.h"
#include "shading/material_attributes.h"
#include "shading/object_attributes.h"

// Every key of the attribute records, in the order in which the writers store them.
namespace orv {

using ObjectAttributeField =
    AttributeField<ObjectAttributes, bool ObjectAttributes::ChangeMarks::*>;
using MaterialAttributeField = AttributeField<MaterialAttributes, bool MaterialAttributes::*>;
// A key without a field code is never written.
using LightAttributeField = AttributeField<LightAttributes, std::optional<LightField>>;

std::span<const ObjectAttributeField> ObjectAttributeFields();
std::span<const MaterialAttributeField> MaterialAttributeFields();
std::span<const LightAttributeField> LightAttributeFields();

}  // namespace orv
