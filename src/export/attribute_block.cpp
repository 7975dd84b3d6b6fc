#include "export/attribute_block.h"

#include <array>
#include <string>
#include <utility>

#include "export/baked_name.h"
#include "export/rib_text.h"
#include "host/document/doc.h"
#include "host/system/text.h"

namespace orv {
namespace {

constexpr std::size_t kMaxMeshFile = 1000;
enum ArchiveMode { kNoArchive = 0, kReplace = 2 };
enum MeshFileMode { kNoMeshFile = 0, kMeshFile = 1, kBakeAndUse = 3 };

void WriteRayVisibility(RibWriter& writer, const ObjectAttributes& attributes) {
  const std::array<std::pair<const char*, bool>, 3> rays{{
      {"camera", attributes.VisibleToCamera},
      {"trace", attributes.Reflected},
      {"transmission", attributes.CastShadow},
  }};
  for (const auto& [name, isVisible] : rays) {
    if (isVisible) continue;
    RibPrintf(writer, "Attribute \"visibility\" \"integer %s\" [0]\n", name);
  }
  if (!attributes.BackFace) RibPrintf(writer, "Sides 1\n");
}

void WriteInk(RibWriter& writer, const ObjectAttributes& attributes,
              const RenderSettings& settings) {
  if (!settings.Outline) return;
  if (attributes.UseLineWidth) {
    RibPrintf(writer, "Attribute \"toon\" \"float inkwidth\" [%g]\n",
              attributes.LineWidth * settings.InkWidth);
  }
  if (attributes.UseLineColor) {
    const ON_Color ink = GammaAdjustColor(attributes.LineColor, settings.RhinoGamma);
    RibPrintf(writer, "Attribute \"toon\" \"color ink\" [%g %g %g]\n", ink.FractionRed(),
              ink.FractionGreen(), ink.FractionBlue());
  }
}

void WriteGeometryForm(RibWriter& writer, const ObjectAttributes& attributes) {
  constexpr std::array<const char*, 4> kCurveTypes{nullptr, "polyline", "ribbon", "tube"};
  if (attributes.UseFlatness) {
    RibPrintf(writer, "GeometricApproximation \"flatness\" [%g]\n", attributes.Flatness);
  }
  const char* const curveType = kCurveTypes.at(static_cast<std::size_t>(attributes.CurveType));
  if (curveType != nullptr) {
    RibPrintf(writer, "Attribute \"curve\" \"string type\" \"%s\"\n", curveType);
  }
}

void ReadArchive(RibWriter& writer, std::string_view name) {
  RibPrintf(writer, "ReadArchive \"%s\"\n", RibPath(name).c_str());
}

// True when the archive takes the object's place.
bool WriteArchive(RibWriter& writer, const ObjectAttributes& attributes) {
  if (attributes.ArchiveMode == kNoArchive || attributes.Archive.empty()) return false;
  ReadArchive(writer, attributes.Archive);
  return attributes.ArchiveMode == kReplace;
}

// True when the mesh file takes the object's place.
bool WriteMeshFile(RibWriter& writer, const CRhinoObject& object,
                   const ObjectAttributes& attributes, const RenderSettings& settings) {
  const int mode = attributes.UseMeshFile;
  if (mode == kNoMeshFile || attributes.MeshFile.empty()) return false;
  if (settings.BakeEnable && settings.Selected && !object.IsSelected()) return false;
  std::string name(host::FirstCodePoints(attributes.MeshFile, kMaxMeshFile));
  if (mode == kBakeAndUse) name = BakedMapFileName(name, object);
  if (settings.BakeEnable || mode == kMeshFile) {
    RibPrintf(writer, "Attribute \"render\" \"string meshfile\" \"%s\"\n", RibPath(name).c_str());
    return false;
  }
  if (mode != kBakeAndUse) return false;
  ReadArchive(writer, name);
  return true;
}

}  // namespace

void WriteGroups(RibWriter& writer, const CRhinoObject& object, const CRhinoDoc& doc) {
  std::string names;
  bool isFirst = true;
  for (const int index : object.Attributes().GroupList()) {
    const ON_Group* group = doc.m_group_table.FindGroup(index);
    if (group == nullptr) continue;
    if (!isFirst) names += ',';
    names += group->m_name;
    isFirst = false;
  }
  if (names.empty()) return;
  RibPrintf(writer, "Attribute \"grouping\" \"string membership\" \"+%s\"\n",
            RibString(names).c_str());
}

bool WriteAttributeBlock(RibWriter& writer, const CRhinoObject& object,
                         const ObjectAttributes& attributes, const RenderSettings& settings) {
  WriteRayVisibility(writer, attributes);
  WriteInk(writer, attributes, settings);
  WriteGeometryForm(writer, attributes);
  const bool isReplaced = WriteArchive(writer, attributes);
  return WriteMeshFile(writer, object, attributes, settings) || isReplaced;
}

}  // namespace orv
