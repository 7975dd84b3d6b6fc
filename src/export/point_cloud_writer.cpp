#include "export/point_cloud_writer.h"

#include <algorithm>

#include "export/attribute_block.h"
#include "export/attribute_scope.h"
#include "export/coordinates.h"
#include "export/line_look.h"
#include "shading/material_attributes.h"

namespace orv {
namespace {

enum PointType { kSpheres = 0, kPatches = 1, kBlobby = 2, kVolume = 3, kDisks = 4 };

// The points that have coordinates, with their colours.
ON_PointCloud WithCoordinates(const ON_PointCloud& cloud) {
  ON_PointCloud kept;
  for (std::size_t i = 0; i < cloud.m_P.size(); ++i) {
    if (!AreCoordinates(cloud.m_P[i])) continue;
    kept.m_P.push_back(cloud.m_P[i]);
    if (cloud.HasPointColors()) kept.m_C.push_back(cloud.m_C[i]);
  }
  return kept;
}

bool AllHaveCoordinates(const ON_PointCloud& cloud) {
  return std::all_of(cloud.m_P.begin(), cloud.m_P.end(),
                     [](const ON_3dPoint& p) { return AreCoordinates(p); });
}

bool HasMaterial(const ObjectAttributes& attributes) {
  return attributes.ShadeCurves || attributes.PointType == kBlobby ||
         attributes.PointType == kVolume;
}

void WriteLook(const ObjectStream& stream, const CRhinoObject& object,
               const ObjectAttributes& attributes) {
  RibWriter& writer = stream.Writer;
  // An archive stands beside a cloud; it never takes its place.
  static_cast<void>(WriteAttributeBlock(writer, object, attributes, stream.Settings));
  if (HasMaterial(attributes)) {
    WriteObjectMaterial(writer, object, stream.Materials, stream.UseObjectNumbers);
  } else {
    WriteConstantLook(writer, LineColor(object, attributes, stream.Doc, stream.Settings));
    RibPrintf(writer, "Surface \"constant\"\n");
  }
}

void WritePointType(RibWriter& writer, int pointType) {
  if (pointType == kSpheres) {
    RibPrintf(writer, "Attribute \"render\" \"string pointtype\" \"sphere\"\n");
  } else if (pointType == kPatches) {
    RibPrintf(writer, "Attribute \"render\" \"string pointtype\" \"patch\"\n");
  } else if (pointType == kDisks) {
    RibPrintf(writer, "Attribute \"point\" \"string type\" \"disk\"\n");
  }
}

// A line width of a shaded object is for its points alone: its ink is as wide as the scene's.
void WriteInkWidth(RibWriter& writer, const ObjectAttributes& attributes,
                   const RenderSettings& settings) {
  if (!attributes.UseLineWidth || !settings.Outline) return;
  if (!attributes.ShadeCurves && attributes.PointType != kBlobby) return;
  RibPrintf(writer, "Attribute \"toon\" \"float inkwidth\" [%g]\n", settings.InkWidth);
}

// No bracket closes the array: that is the form of these statements.
void WriteColors(RibWriter& writer, const ON_PointCloud& cloud) {
  if (!cloud.HasPointColors()) return;
  RibPrintf(writer, "\"varying color Cs\" [");
  for (const ON_Color& color : cloud.m_C) {
    RibNumbers(writer, color.FractionRed(), color.FractionGreen(), color.FractionBlue());
  }
  RibPrintf(writer, "\n");
}

// The code of an ellipsoid, with the place of its 16 numbers, for each point; then the sum of all.
void WriteBlobby(RibWriter& writer, const ON_PointCloud& cloud, double width) {
  constexpr int kEllipsoid = 1001;
  constexpr unsigned kEllipsoidNumbers = 16;
  const int count = cloud.PointCount();
  RibPrintf(writer, "Blobby %d [", count);
  for (int i = 0; i < count; ++i) {
    RibIntegers(writer, kEllipsoid, static_cast<int>(static_cast<unsigned>(i) * kEllipsoidNumbers));
  }
  RibPrintf(writer, "\n0 %d", count);
  for (int i = 0; i < count; ++i) {
    RibGroup(writer, [i](char* out) {
      *out++ = ' ';
      return host::FormatInt(i, out);
    });
  }
  RibPrintf(writer, "]\n[\n");
  for (const ON_3dPoint& p : cloud.m_P) {
    RibPrintf(writer, "%g 0 0 0 0 %g 0 0 0 0 %g 0 %g %g %g 1\n", width, width, width, p.x, p.y,
              p.z);
  }
  RibPrintf(writer, "] [\"\"]\n");
}

void WriteVolume(RibWriter& writer, const CRhinoObject& object, const ON_PointCloud& cloud,
                 double width) {
  constexpr double kRateOfOneSample = 4;
  const double margin = 2 * width;
  const ON_BoundingBox box = cloud.BoundingBox();
  if (!box.IsValid()) return;
  RibPrintf(writer, "ShadingRate %g\n",
            kRateOfOneSample / ReadMaterialAttributes(object).ShadingSamples);
  RibPrintf(writer, "Volume \"box\" [%g %g %g %g %g %g] [0 0 0]\n \"P\" [", box.m_min.x - margin,
            box.m_max.x + margin, box.m_min.y - margin, box.m_max.y + margin, box.m_min.z - margin,
            box.m_max.z + margin);
  for (const ON_3dPoint& p : cloud.m_P) RibPrintf(writer, "%g %g %g\n", p.x, p.y, p.z);
  RibPrintf(writer, "] \"constantwidth\" [%g]\n", width);
}

void WritePoints(RibWriter& writer, const ON_PointCloud& cloud, double width) {
  RibPrintf(writer, "Points \"P\" [");
  for (const ON_3dPoint& p : cloud.m_P) RibNumbers(writer, p.x, p.y, p.z);
  RibPrintf(writer, "]\n");
  RibPrintf(writer, "\"constantwidth\" [%g]\n", width);
}

void WriteGeometry(RibWriter& writer, const CRhinoObject& object, const ON_PointCloud& cloud,
                   int pointType, double width) {
  switch (pointType) {
    case kBlobby:
      WriteBlobby(writer, cloud, width);
      break;
    case kVolume:
      WriteVolume(writer, object, cloud, width);
      break;
    default:
      WritePoints(writer, cloud, width);
  }
  WriteColors(writer, cloud);
}

}  // namespace

void WritePointCloud(const ObjectStream& stream, const CRhinoObject& object,
                     const ON_PointCloud& cloud, const ObjectAttributes& attributes) {
  if (SkipsLines(attributes)) return;
  if (!AllHaveCoordinates(cloud)) {
    return WritePointCloud(stream, object, WithCoordinates(cloud), attributes);
  }
  RibWriter& writer = stream.Writer;
  BeginObjectBlock(writer);
  WriteLook(stream, object, attributes);
  WritePointType(writer, attributes.PointType);
  WriteInkWidth(writer, attributes, stream.Settings);
  WriteGeometry(writer, object, cloud, attributes.PointType,
                LineWidth(attributes, stream.Settings));
  EndAttributes(writer);
}

}  // namespace orv
