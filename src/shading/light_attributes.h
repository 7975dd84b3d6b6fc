#pragma once

#include <string>

#include "host/geometry/on_color.h"

class CRhinoDoc;
class CRhinoObject;
class ON_Light;

namespace orv {

// What the renderer needs to know of a light: values kept as user strings on the light, and the
// host's own fields. A fresh record has the defaults.
struct LightAttributes {
  ON_Color Color{255, 255, 255};
  ON_Color ShadowColor{0, 0, 0};
  // 0 to 1e9.
  double Intensity = 1;
  // 0 to 1.
  double ShadowBlur = 0.01;
  // The host's: 0 no shadow to 1.
  double ShadowIntensity = 1;
  // 0 none, 1 linear, 2 squared.
  int Falloff = 0;
  // Shadow rays, 0 to 1024.
  int ShadowSamples = 8;
  // The output channel, 1 to 9.
  int Channel = 1;
  // 0 normal, 1 fast, 2 portal.
  int AreaType = 0;
  bool Enabled = true;
  bool EmitDiffuse = true;
  bool EmitSpecular = true;
  // An area light can be seen, and is reflected.
  bool InCamera = false;
  bool Reflected = false;
  bool UseTexture = false;
  bool EmitPhotons = false;
  bool UseArchive = false;
  // Millions, 0 to 1e9.
  double Photons = 0.1;
  std::string Texture;
  std::string Archive;
};

// The fields that WriteLightChange stores.
enum class LightField {
  Intensity = 0,
  Diffuse = 1,
  Falloff = 2,
  EmitDiffuse = 3,
  EmitSpecular = 4,
  ShadowSamples = 5,
  ShadowBlur = 6,
  Enabled = 7,
  ShadowIntensity = 8,
  ShadowColor = 9,
  InCamera = 10,
  Reflected = 11,
  AreaType = 12,
  UseTexture = 13,
  Texture = 14,
  Channel = 15,
  EmitPhotons = 16,
  Photons = 17,
  UseArchive = 18,
  Archive = 19,
};

// The attributes of a light; the defaults for null.
LightAttributes ReadLightAttributes(const ON_Light* light);

// Stores one field in a light of the document. False for an object that is no light.
[[nodiscard]] bool WriteLightChange(CRhinoDoc& doc, const CRhinoObject& light, LightField field,
                                    const LightAttributes& attributes);

}  // namespace orv
