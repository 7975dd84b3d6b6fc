#include "export/bake_maps.h"

#include <array>
#include <vector>

#include "export/bake_map_size.h"
#include "export/baked_name.h"
#include "export/image_output.h"
#include "export/rib_text.h"
#include "host/document/render_meshes.h"
#include "host/geometry/on_brep.h"

namespace orv {
namespace {

// One of the maps that are made of each object.
struct BakeMap {
  bool isUsed;
  std::string_view suffix;
  std::string_view channels;
};

std::vector<BakeMap> MapsInUse(const RenderSettings& settings) {
  const std::array<BakeMap, 5> maps{{
      {settings.BakeUseMap1, {}, settings.DisplayMode},
      {settings.BakeUseMap2, settings.BakeSuffix2, settings.BakeDisplayChannels2},
      {settings.BakeUseMap3, settings.BakeSuffix3, settings.BakeDisplayChannels3},
      {settings.BakeUseMap4, settings.BakeSuffix4, settings.BakeDisplayChannels4},
      {settings.BakeUseMap5, settings.BakeSuffix5, settings.BakeDisplayChannels5},
  }};
  std::vector<BakeMap> used;
  for (const BakeMap& map : maps) {
    if (map.isUsed) used.push_back(map);
  }
  return used;
}

// With their render meshes, which are made at once for all of them.
std::vector<const CRhinoObject*> ObjectsWithMaps(const ObjectList& bakeObjects) {
  std::vector<const CRhinoObject*> objects;
  for (const CRhinoObject* object : bakeObjects) {
    if (CanBeBaked(*object)) objects.push_back(object);
  }
  std::vector<CRhinoObjRef> meshes;
  RhinoGetRenderMeshes(objects, meshes);
  return objects;
}

void WriteChannelDeclarations(RibWriter& writer) {
  RibPrintf(writer, "Declare \"__diffuse\" \"varying color\"\n");
  RibPrintf(writer, "Declare \"__constant\" \"varying color\"\n");
  RibPrintf(writer, "Declare \"__bump\" \"varying float\"\n");
  RibPrintf(writer, "Declare \"__lights\" \"varying color[10]\"\n");
  RibPrintf(writer, "Declare \"__lights_diffuse\" \"varying color[10]\"\n");
  RibPrintf(writer, "Declare \"__lights_specular\" \"varying color[10]\"\n");
  RibPrintf(writer, "Declare \"__lights_shadow\" \"varying color[10]\"\n");
}

// In parts, so that the line can be broken between long names.
void WriteBakeDisplay(RibWriter& writer, std::string_view name, std::string_view channels,
                      const std::string& quantizeText) {
  RibPrintf(writer, "Display \"%s\"", RibString(name).c_str());
  RibPrintf(writer, " \"file\" \"%s\"", RibString(channels).c_str());
  RibPrintf(writer, " %s\n", quantizeText.c_str());
}

}  // namespace

bool CanBeBaked(const CRhinoObject& object) {
  const ON_Geometry* geometry = object.Geometry();
  return !object.IsHidden() &&
         (ON_Brep::Cast(geometry) != nullptr || ON_Mesh::Cast(geometry) != nullptr);
}

std::string BakeMapName(const RenderSettings& settings, const CRhinoObject& object,
                        std::string_view suffix) {
  return ToRibPath(BakedMapFileName(settings.ImageName, object, suffix));
}

std::string BakeMapList(const RenderSettings& settings, const CRhinoObject& object) {
  std::string names;
  for (const BakeMap& map : MapsInUse(settings)) {
    if (!names.empty()) names += ',';
    names += BakeMapName(settings, object, map.suffix);
  }
  return names;
}

void WriteBakeDisplays(RibWriter& writer, RenderSettings& settings, const ObjectList& bakeObjects) {
  const std::string quantizeText = QuantizeText(settings.ImagePrecision);
  const std::vector<BakeMap> maps = MapsInUse(settings);
  WriteChannelDeclarations(writer);
  settings.BakeDisplayCount = 0;
  for (const CRhinoObject* object : ObjectsWithMaps(bakeObjects)) {
    int width = settings.ImageWidth;
    int height = settings.ImageHeight;
    if (!FitBakeMapSize(*object, settings.BakeTexelSize, width, height)) continue;
    RibPrintf(writer, "Format %d %d 1\n", width, height);
    for (const BakeMap& map : maps) {
      WriteBakeDisplay(writer, BakeMapName(settings, *object, map.suffix), map.channels,
                       quantizeText);
      ++settings.BakeDisplayCount;
    }
  }
}

void WriteBakeOutput(RibWriter& writer, RenderSettings& settings, const ObjectList& bakeObjects) {
  RibPrintf(writer, "Format %d %d 1\n", settings.ImageWidth, settings.ImageHeight);
  WriteBakeDisplays(writer, settings, bakeObjects);
  RibPrintf(writer, "Option \"bake\" \"float border\" [%g]\n", settings.BakeBorder);
  if (settings.BakeBorderWrap) RibPrintf(writer, "Option \"bake\" \"integer borderwrap\" [1]\n");
}

}  // namespace orv
