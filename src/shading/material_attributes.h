#pragma once

#include <array>
#include <string>
#include <string_view>

#include "host/geometry/on_color.h"

class CRhinoDoc;
class CRhinoObject;
class ON_Material;

namespace orv {

// In the place of a shader call: the material's shader is made of the host's material.
inline constexpr std::string_view kHostShader = "\"Rhino\"";

// How a displacement shader is rendered: not at all, as bumps, by moving the surface, by moving a
// mesh.
enum : int {
  kNoDisplacement = 0,
  kBumpDisplacement = 1,
  kRegularDisplacement = 2,
  kMeshDisplacement = 3,
};

// What the renderer needs to know of a material: shader calls and values kept as user strings, and
// the host's own fields. A fresh record has the defaults.
//
// Of the host's shine, bump strength and tiling, a number that RIB has no way to write (one that is
// infinite or none) leaves the default.
struct MaterialAttributes {
  // What WriteMaterialAttributes stores, and two of the values.
  bool ColorChanged = false;
  bool NameChanged = false;
  bool ShadingSamplesChanged = false;
  bool TransparencyChanged = false;
  bool SurfaceChanged = false;
  bool SurfaceLayoutChanged = false;
  bool DisplacementChanged = false;
  bool DisplacementLayoutChanged = false;
  bool DisplacementModeChanged = false;
  bool ComplexShadowChanged = false;
  // The surface modifies its transparency, so shadow rays have to run it.
  bool ComplexShadow = false;
  bool InstancerChanged = false;
  bool InstancerLayoutChanged = false;
  bool InstancerBoundChanged = false;
  bool HideInstancerBaseChanged = false;
  // The object that carries the instancer isn't drawn.
  bool HideInstancerBase = false;

  ON_Color Diffuse{255, 255, 255};
  // Black unless the host's material shines.
  ON_Color Specular{0, 0, 0};
  std::string Name;
  // Shader calls; an instancer may be empty.
  std::string Surface{kHostShader};
  // Which groups of parameters a page shows, a character a parameter: '-' open, '+' closed, ' ' not
  // said. Empty means all closed.
  std::string SurfaceLayout;
  std::string Displacement{kHostShader};
  std::string DisplacementLayout;
  // Files of the host's textures that are switched on; empty without one.
  std::string ColorMap;
  std::string BumpMap;
  std::string OpacityMap;
  std::string Instancer;
  std::string InstancerLayout;
  // 0 opaque to 1.
  double Transparency = 0;
  // The bound of the instanced geometry, 0 to 100,000.
  double InstancerBound = 1;
  // 1 to 32; the shading rate is its reciprocal.
  int ShadingSamples = 1;
  // One of the modes above.
  int DisplacementMode = kBumpDisplacement;
  double SpecularRoughness = 0.1;
  // The strength of the host's bump texture.
  double BumpHeight = 0;
  // Size of one tile, and origin, of the colour or opacity map and of the bump map; x and y.
  std::array<double, 2> MapSize{1, 1};
  std::array<double, 2> MapOrigin{0, 0};
  std::array<double, 2> BumpSize{1, 1};
  std::array<double, 2> BumpOrigin{0, 0};
};

// Reads the attributes of a material, or of the one that an object has.
MaterialAttributes ReadMaterialAttributes(const ON_Material& material);
MaterialAttributes ReadMaterialAttributes(const CRhinoObject& object);

// Stores in the object's material what the change marks name. An object that takes its material
// from its layer, which has none, gets one made for the layer. False when there is no material.
[[nodiscard]] bool WriteMaterialAttributes(CRhinoDoc& doc, const CRhinoObject& object,
                                           const MaterialAttributes& attributes);

}  // namespace orv
