#include "shading/material_attributes.h"

#include <cmath>

#include "host/document/doc.h"
#include "host/document/object.h"
#include "host/geometry/on_tables.h"
#include "shading/attribute_tables.h"

namespace orv {
namespace {

using Record = MaterialAttributes;

constexpr std::string_view kDisplacementWords[] = {"Off", "Bump", "Regular", "Mesh"};
constexpr AttributeRule kNotEmpty{.NotEmpty = true};

constexpr MaterialAttributeField kFields[] = {
    {"OrvSurface", &Record::Surface, &Record::SurfaceChanged, kNotEmpty},
    {"OrvSurfaceLayout", &Record::SurfaceLayout, &Record::SurfaceLayoutChanged},
    {"OrvDisplacement", &Record::Displacement, &Record::DisplacementChanged, kNotEmpty},
    {"OrvDisplacementLayout", &Record::DisplacementLayout, &Record::DisplacementLayoutChanged},
    {"OrvDisplacementMode",
     &Record::DisplacementMode,
     &Record::DisplacementModeChanged,
     {.Words = kDisplacementWords}},
    {"OrvInstancer", &Record::Instancer, &Record::InstancerChanged, kNotEmpty},
    {"OrvInstancerLayout", &Record::InstancerLayout, &Record::InstancerLayoutChanged},
    {"OrvInstancerBound",
     &Record::InstancerBound,
     &Record::InstancerBoundChanged,
     {.Bounds = {0, 100000}}},
    {"OrvHideInstancerBase", &Record::HideInstancerBase, &Record::HideInstancerBaseChanged},
    {"OrvComplexShadow", &Record::ComplexShadow, &Record::ComplexShadowChanged},
    {"OrvShadingSamples",
     &Record::ShadingSamples,
     &Record::ShadingSamplesChanged,
     {.Bounds = {1, 32}}},
};

// The texture that the material uses for `type`, or null.
const ON_Texture* UsedTexture(const ON_Material& material, ON_Texture::Type type) {
  const int index = material.FindTexture(nullptr, type);
  if (index < 0) return nullptr;
  const ON_Texture& texture = material.m_textures[static_cast<std::size_t>(index)];
  return texture.m_bOn && !texture.m_image_file.empty() ? &texture : nullptr;
}

double FiniteOr(double value, double otherwise) {
  return std::isfinite(value) ? value : otherwise;
}

// The size of a tile of which there are `count`; 1 for a count that gives no size.
double TileSize(double count) {
  return count > 0 && std::isfinite(count) ? FiniteOr(1 / count, 1) : 1;
}

// The renderer counts y downwards from the upper edge, the host upwards from the lower one.
void ReadTiling(const ON_Texture& texture, std::array<double, 2>& size,
                std::array<double, 2>& origin) {
  double count = 1;
  double offset = 0;
  if (texture.IsTiled(0, &count, &offset)) {
    size[0] = TileSize(count);
    origin[0] = FiniteOr(-(offset * size[0]), 0);
  }
  if (texture.IsTiled(1, &count, &offset)) {
    size[1] = TileSize(count);
    origin[1] = FiniteOr(size[1] * offset + (1 - size[1]), 0);
  }
}

// Leaves the defaults of a material that doesn't shine.
void ReadShine(const ON_Material& material, MaterialAttributes& attributes) {
  const double shine = material.Shine();
  if (!(shine > 0)) return;
  const double roughness = 22 / (shine * 255 / ON_Material::MaxShine);
  if (roughness > 0 && std::isfinite(roughness)) attributes.SpecularRoughness = roughness;
  attributes.Specular = material.m_specular;
}

void ReadTextures(const ON_Material& material, MaterialAttributes& attributes) {
  if (const auto* map = UsedTexture(material, ON_Texture::Type::bitmap)) {
    attributes.ColorMap = map->m_image_file;
    ReadTiling(*map, attributes.MapSize, attributes.MapOrigin);
  }
  if (const auto* map = UsedTexture(material, ON_Texture::Type::transparency)) {
    attributes.OpacityMap = map->m_image_file;
    if (attributes.ColorMap.empty()) {
      ReadTiling(*map, attributes.MapSize, attributes.MapOrigin);
    }
  }
  if (const auto* map = UsedTexture(material, ON_Texture::Type::bump)) {
    attributes.BumpMap = map->m_image_file;
    attributes.BumpHeight = FiniteOr(map->m_bump_scale[1], attributes.BumpHeight);
    ReadTiling(*map, attributes.BumpSize, attributes.BumpOrigin);
  }
}

// True when anything was stored.
bool StoreKeys(const MaterialAttributes& attributes, ON_Material& material) {
  bool stored = false;
  for (const MaterialAttributeField& field : kFields) {
    if (!(attributes.*field.Changed)) continue;
    field.Store(attributes, material);
    stored = true;
  }
  return stored;
}

// Stores what the host keeps. True when anything was stored.
bool StoreHostFields(const MaterialAttributes& attributes, ON_Material& material) {
  const bool colorDiffers = attributes.ColorChanged && attributes.Diffuse != material.m_diffuse;
  if (colorDiffers) material.SetDiffuse(attributes.Diffuse);
  if (attributes.TransparencyChanged) material.SetTransparency(attributes.Transparency);
  if (attributes.NameChanged) material.m_name = attributes.Name;
  return colorDiffers || attributes.TransparencyChanged || attributes.NameChanged;
}

}  // namespace

std::span<const MaterialAttributeField> MaterialAttributeFields() {
  return kFields;
}

MaterialAttributes ReadMaterialAttributes(const ON_Material& material) {
  MaterialAttributes attributes;
  ReadAttributeFields(MaterialAttributeFields(), material, attributes);
  attributes.Diffuse = material.m_diffuse;
  attributes.Name = material.m_name;
  attributes.Transparency = material.Transparency();
  ReadShine(material, attributes);
  ReadTextures(material, attributes);
  return attributes;
}

MaterialAttributes ReadMaterialAttributes(const CRhinoObject& object) {
  return ReadMaterialAttributes(object.ObjectMaterial());
}

bool WriteMaterialAttributes(CRhinoDoc& doc, const CRhinoObject& object,
                             const MaterialAttributes& attributes) {
  if (object.ObjectType() == ON_ObjectType::light) return false;
  const int index = doc.MaterialToEdit(object);
  const ON_Material* present = doc.m_material_table.At(index);
  if (present == nullptr) return false;
  ON_Material material = *present;
  const bool keysStored = StoreKeys(attributes, material);
  const bool hostFieldsStored = StoreHostFields(attributes, material);
  if (!keysStored && !hostFieldsStored) return true;
  return doc.m_material_table.ModifyMaterial(material, index);
}

}  // namespace orv
