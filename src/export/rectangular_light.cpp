#include "export/rectangular_light.h"

#include <cmath>
#include <string>

#include "export/attribute_scope.h"
#include "export/rib_text.h"
#include "host/system/path.h"
#include "host/system/text.h"

namespace orv {
namespace {

enum class AreaKind { photometric, fast, portal, textured, normal };

// The values of LightAttributes::AreaType.
constexpr int kNormal = 0;
constexpr int kFast = 1;
constexpr int kPortal = 2;

bool HasTexture(const LightAttributes& attributes) {
  return attributes.UseTexture && !attributes.Texture.empty();
}

// A session does without textures. Measured lamps, whose files it takes, are told apart before.
bool IsTextured(const LightSource& source) {
  return !source.IsInteractive && HasTexture(source.Attributes);
}

// The texture is the file of a measured lamp.
bool IsPhotometric(const LightAttributes& attributes) {
  return HasTexture(attributes) &&
         host::EqualNoCase(host::SplitPath(attributes.Texture).Extension, ".ies");
}

// A light with an archive counts as normal. In a session all other normal ones are fast.
AreaKind KindOf(const LightSource& source) {
  const LightAttributes& attributes = source.Attributes;
  if (IsPhotometric(attributes)) return AreaKind::photometric;
  const int type = attributes.UseArchive ? kNormal : attributes.AreaType;
  if (type == kPortal) return AreaKind::portal;
  if (IsTextured(source)) return AreaKind::textured;
  const bool becomesFast = source.IsInteractive && !attributes.UseArchive;
  return type == kFast || becomesFast ? AreaKind::fast : AreaKind::normal;
}

// A vector without a length stays as it is.
ON_3dVector Unitized(ON_3dVector v) {
  const double length = v.Length();
  return length > 0 ? ON_3dVector{v.x / length, v.y / length, v.z / length} : v;
}

// A lamp of unit size at the rectangle's centre, which shines along its negative z axis.
void WritePhotometricSource(RibWriter& writer, const LightSource& source) {
  const ON_Light& light = source.Light;
  const ON_3dPoint center = light.Location() + (light.Length() + light.Width()) * 0.5;
  WriteLightTransform(writer, Unitized(light.Length()), Unitized(light.Width()),
                      -Unitized(light.Direction()), center);
  RibPrintf(writer,
            "LightSource \"photometric_pointlight\" %d \"color lightcolor\" [ %g %g %g ] "
            "\"float intensity\" [%g]\n",
            source.Number, source.Color.Red, source.Color.Green, source.Color.Blue,
            source.Attributes.Intensity);
  RibPrintf(writer, " \"string iesname\" \"%s\"\n", RibPath(source.Attributes.Texture).c_str());
}

void WritePortalSource(RibWriter& writer, const LightSource& source) {
  RibPrintf(writer,
            "AreaLightSource \"portallight\" %d \"color lightcolor\" [ %g %g %g ] "
            "\"float intensity\" [%g]\n",
            source.Number, source.Color.Red, source.Color.Green, source.Color.Blue,
            source.Attributes.Intensity);
  if (!IsTextured(source)) return;
  RibPrintf(writer,
            " \"string environmentmap\" \"%s\" \"string environmentspace\" \"reflectionspace\"\n",
            RibPath(source.Attributes.Texture).c_str());
}

void WriteTexturedSource(RibWriter& writer, const LightSource& source) {
  WriteAreaLightSource(writer, "texturedarealight", source);
  RibPrintf(writer, " \"string texturename\" \"%s\"\n", RibPath(source.Attributes.Texture).c_str());
}

// The shape of an archive stands in the world as it is.
void WriteShapeTransform(RibWriter& writer, const LightSource& source) {
  const ON_Light& light = source.Light;
  if (source.Attributes.UseArchive) return;
  WriteLightTransform(writer, light.Length(), light.Width(), light.Direction(), light.Location());
}

void WriteSource(RibWriter& writer, const LightSource& source, AreaKind kind) {
  if (kind == AreaKind::photometric) {
    WritePhotometricSource(writer, source);
    return;
  }
  if (kind != AreaKind::fast) {
    RibPrintf(writer, "Attribute \"light\" \"nsamples\" [%d]\n", source.ShadowSamples);
  }
  WriteShapeTransform(writer, source);
  if (kind == AreaKind::fast) {
    RibPrintf(writer, "Sides 1\n");
    WriteAreaLightSource(writer, "arealight2", source);
  } else if (kind == AreaKind::portal) {
    WritePortalSource(writer, source);
  } else if (kind == AreaKind::textured) {
    WriteTexturedSource(writer, source);
  } else {
    WriteAreaLightSource(writer, "arealight", source);
  }
}

void WriteShadow(RibWriter& writer, const LightSource& source, AreaKind kind) {
  WriteAreaShadow(writer, source);
  if (source.Shadow <= 0) return;
  if (kind == AreaKind::photometric) {
    WriteShadowSampling(writer, source);
  } else if (kind == AreaKind::fast) {
    RibPrintf(writer, " \"float samples\" [%d] ", source.ShadowSamples);
  }
}

// The light's surface shows its texture or colour.
void WriteShapeSurface(RibWriter& writer, const LightSource& source) {
  if (IsTextured(source)) {
    RibPrintf(writer, "Surface \"VTexturedConstant\" \"string ColorMapName\" \"%s\"\n",
              RibPath(source.Attributes.Texture).c_str());
  } else {
    RibPrintf(writer, "Surface \"constant\"\n");
  }
  RibPrintf(writer, "Color %g %g %g\n", source.Color.Red, source.Color.Green, source.Color.Blue);
}

void WriteShapeVisibility(RibWriter& writer, const LightAttributes& attributes) {
  if (!attributes.InCamera) RibPrintf(writer, "Attribute \"visibility\" \"integer camera\" 0\n");
  RibPrintf(writer, "Attribute \"visibility\" \"integer trace\" %d\n",
            attributes.Reflected ? 1 : 0);
  RibPrintf(writer, "Attribute \"visibility\" \"integer indirect\" 0\n");
  RibPrintf(writer, "Attribute \"visibility\" \"integer transmission\" 0\n");
  RibPrintf(writer, "Attribute \"indirect\" \"integer prepass\" 0\n");
}

// The unit square, facing where the light shines.
void WriteSquare(RibWriter& writer, const ON_Light& light) {
  const ON_3dVector normal = ON_CrossProduct(light.Width(), light.Length());
  if (ON_DotProduct(normal, light.Direction()) < 0) RibPrintf(writer, "ReverseOrientation\n");
  RibPrintf(writer, "Polygon \"P\" [0 0 0  1 0 0  1 1 0  0 1 0] \"st\" [0 0  1 0  1 1  0 1]\n");
}

void WriteShape(RibWriter& writer, const LightSource& source) {
  const LightAttributes& attributes = source.Attributes;
  WriteShapeSurface(writer, source);
  WriteShapeVisibility(writer, attributes);
  if (!attributes.UseArchive) {
    WriteSquare(writer, source.Light);
  } else if (!attributes.Archive.empty()) {
    RibPrintf(writer, "ReadArchive \"%s\"\n", RibPath(attributes.Archive).c_str());
  }
}

}  // namespace

void WriteRectangularLight(RibWriter& writer, const LightSource& source) {
  const AreaKind kind = KindOf(source);
  BeginAttributes(writer);
  WriteSource(writer, source, kind);
  WriteShadow(writer, source, kind);
  WriteLightComponents(writer, source);
  if (kind != AreaKind::photometric) WriteShape(writer, source);
  EndAttributes(writer);
}

}  // namespace orv
