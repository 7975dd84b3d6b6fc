#pragma once

#include <array>
#include <string>

#include "host/geometry/on_color.h"
#include "host/geometry/on_uuid.h"

namespace orv {

// The scene file that a fresh record names: RhinoOrv.rib in the folder that TEMP names, or in the
// root of the current drive when the environment has no TEMP.
std::string DefaultRibName();

// The gamma of a fresh record: 1.8 in single precision.
inline constexpr double kDefaultGamma = static_cast<double>(1.8F);

// All that an export, a render job or an option page works from. A fresh record has the defaults;
// a document's settings are laid over them by LoadRenderSettings. A field that is kept in the
// document has its own name as key; docs/settings.md lists them with their bounds.
struct RenderSettings {
  // Samples and modes.
  int PixelSamples = 4;
  int ShadingSamples = 1;
  int ReflectionSamples = 1;
  int ShadowSamples = 8;
  // Rendering threads: the user's value, not the document's.
  int Threads = 1;
  // 0 off, 1 ambient, 2 indirect, 3 indirect with cache, 4 occlusion, 5 occlusion with cache.
  int GiMode = 0;
  int GiSamples = 256;
  int ReflectionMaxDepth = 6;
  int GiMaxBounce = 1;
  // How surfaces are written: 0 always NURBS, 1 NURBS unless the material needs the texture
  // coordinates of a render mesh, 2 always render meshes.
  int RenderMesh = 1;

  // Gamma and global illumination.
  double RibGamma = kDefaultGamma;
  double RhinoGamma = kDefaultGamma;
  double TextureGamma = kDefaultGamma;
  // 0 constant, 1 diffuse, 2 shader.
  int GiShadeMode = 1;
  double GiMaxError = 0.2;
  double GiBgColorIntensity = 0.5;
  double GiBgMapIntensity = 1;
  double GiPixelDist = 20;
  double GiHitDist = 100000;
  double GiBgBlur = 0.5;
  // In degrees.
  double GiBgRotateX = 0;
  double GiBgRotateY = 0;
  double GiBgRotateZ = 0;
  double GiIndirectIntensity = 1;

  // Ink, trace bias and reflection.
  double TraceBias = 0.01;
  double InkWidth = 1;
  double ReflectionColorIntensity = 0.2;
  double ReflectionMapIntensity = 1;
  double ReflectionBlur = 0;
  // In degrees.
  double ReflectionRotateX = 0;
  double ReflectionRotateY = 0;
  double ReflectionRotateZ = 0;
  // 0 none, 1 colour, 2 map.
  int ReflectionBgMode = 1;
  // 0 colour, 1 map.
  int GiBgMode = 0;
  double Flatness = 0.5;

  // Flags.
  bool Selected = false;
  bool OrvShow = true;
  bool Outline = false;
  bool LowPriority = true;
  bool Draft = false;
  bool SharpFilter = false;
  bool GiAdaptive = false;
  bool GiReadCache = false;
  bool GiWriteCache = false;
  bool Displacable = true;
  bool Colors = true;
  bool UseOptionsArchive = false;
  // Submit through the render queue: the user's value, not the document's.
  bool Gyre = false;
  bool UseLights = true;
  bool UseCropWindow = false;
  bool RenderToFile = false;
  bool Enlarge = false;
  bool EdgeMask = false;

  // Crop window, names and texts.
  // Least and greatest x, least and greatest y, as fractions of the image.
  std::array<double, 4> CropWindow{0.25, 0.75, 0.25, 0.75};
  std::string RibName = DefaultRibName();
  std::string ImageName = "orv.tif";
  std::string GiBgMap;
  std::string ReflectionBgMap;
  std::string GiCacheName = "OrvGiCache.opc";
  // The scene's default surface statement.
  std::string Surface;
  // A view's name, or "Current" for the active one.
  std::string ViewName = "Current";
  std::string ImageBgMap;
  std::string OptionsArchive;
  // "r", "rgb" or "rgba".
  std::string DisplayMode = "rgba";
  std::string ExtraChannels;
  bool UseExtraChannels = false;
  bool SingleImageFile = false;
  bool BounceChannels = false;
  bool ReflectChannels = false;
  double Zmin = 0;
  double Zmax = 0;
  // 0 8-bit, 1 16-bit, 2 float.
  int ImagePrecision = 0;

  // Colours and toon.
  ON_Color GiBgColor{255, 255, 255};
  ON_Color ReflectionBgColor{255, 255, 255};
  ON_Color InkColor{0, 0, 0};
  ON_Color ImageBgColor{160, 160, 160};
  ON_Color ImageBgBottom{0, 0, 0};
  ON_Color GiOccShadow{0, 0, 0};
  double Silhouette = 0.5;
  double MinInkWidth = 0;
  double FadeThreshold = 0;
  // In degrees.
  double MinEdgeAngle = 0;
  // 0 none, 1 per scene, 2 per object, 3 per surface, 4 per polygon.
  int ToonId = 2;
  bool FrontBack = false;
  bool IncludeNakedEdges = false;
  bool ExportVectors = false;
  bool UseMinEdgeAngle = false;
  bool RenderCurves = false;
  bool ClampToAlpha = true;
  bool RenderDimensions = false;
  bool AbsoluteTolerance = false;
  double CurveWidth = 1;

  // Image, tiles and animation.
  // In pixels; below 1 the viewport's size holds.
  int ImageWidth = 0;
  int ImageHeight = 0;
  // 0 transparent, 1 colour, 2 gradient, 3 wallpaper, 4 environment.
  int ImageBgMode = 1;
  // "Columns", "Rows" or "Spiral".
  std::string TileOrder = "Rows";
  std::string VectorExportName;
  int TileSize = 32;
  int AnimFrames = 30;
  // 0 off, 1 turntable, 2 fly-through, 3 paths.
  int AnimMode = 0;
  // In degrees.
  double TurntableMaxAngle = 360;
  // In millimetres.
  double AnimCameraLens = 50;
  std::string CameraPath;
  std::string TargetPath;

  // Switches that only commands set.
  // Convert textures to the renderer's format: the user's value, not the document's.
  bool ConvertTextures = true;
  bool WriteCamera = true;
  bool WriteDisplay = true;
  // Only object statements: no header, options, lights or frame.
  bool ArchiveOnly = false;
  bool WriteMaterials = true;

  // Colours of curves, image background, depth of field.
  // 0 black, 1 display, 2 print colours for curves and points.
  int ColorMode = 0;
  // In degrees.
  double ImageBgRotateZ = 0;
  double ImageBgBlur = 0;
  double ImageBgIntensity = 1;
  bool DofEnable = false;
  bool DofFocusOnTarget = true;
  double DofFstop = 8;
  double DofFocusDistance = 100;
  double DofCameraLens = 50;
  int DofSamples = 64;

  // Frame and bake switches.
  // The number of the frame in a sequence; negative when there is none.
  int FrameNumber = -1;
  bool BakeEnable = false;
  bool BakeBorderWrap = false;
  double BakeTexelSize = 0.1;
  double BakeBorder = 1;

  // Units and caustics.
  // The user's value, not the document's.
  double IlluminanceUnity = 500;
  int CausticMinPhotons = 75;
  // 0 no cache, 1 read, 2 write.
  int CausticCacheMode = 0;
  double CausticSearchDistance = 10;
  bool CausticsEnable = false;
  // Lights shoot photons in this run. Derived on loading.
  bool CausticPhotonPass = false;
  std::string CausticCacheName = "OrvCausticCache.opc";
  bool StereoEnable = false;
  double InterocularDistance = 6.5;

  // Data of a bake pass.
  std::string BakeDisplayChannels2;
  std::string BakeDisplayChannels3;
  std::string BakeDisplayChannels4;
  std::string BakeDisplayChannels5;
  std::string BakeSuffix2;
  std::string BakeSuffix3;
  std::string BakeSuffix4;
  std::string BakeSuffix5;
  bool BakeUseMap1 = false;
  bool BakeUseMap2 = false;
  bool BakeUseMap3 = false;
  bool BakeUseMap4 = false;
  bool BakeUseMap5 = false;
  // The pass writes a mesh and no map.
  bool BakeMesh = false;
  int BakeMeshMode = 0;
  bool BakeNormals = true;
  bool BakeTexCoords = true;
  double BakeEdgeLength = 0;

  // Results of an export.
  int FormatWidth = 1;
  int FormatHeight = 1;
  ON_UUID ViewportId;
  // The camera transform that was written, row after row.
  std::array<double, 16> CameraMatrix{};
  // The field of view that was written, 0 for a parallel view.
  double CameraFov = 0;
  // How many maps a bake pass asks for.
  int BakeDisplayCount = 0;
};

}  // namespace orv
