#include "export/point_writer.h"

#include "export/attribute_block.h"
#include "export/attribute_scope.h"
#include "export/coordinates.h"
#include "export/line_look.h"

namespace orv {
namespace {

constexpr int kPatchPoints = 1;

}  // namespace

void WritePointObject(const ObjectStream& stream, const CRhinoObject& object, const ON_Point& point,
                      const ObjectAttributes& attributes) {
  if (SkipsLines(attributes) || !AreCoordinates(point.point)) return;
  RibWriter& writer = stream.Writer;
  const RenderSettings& settings = stream.Settings;
  BeginObjectBlock(writer);
  // An archive stands beside a point; it never takes its place.
  static_cast<void>(WriteAttributeBlock(writer, object, attributes, settings));
  if (attributes.ShadeCurves) {
    WriteObjectMaterial(writer, object, stream.Materials, stream.UseObjectNumbers);
  } else {
    WriteConstantLook(writer, LineColor(object, attributes, stream.Doc, settings));
    RibPrintf(writer, "Surface \"constant\"\n");
  }
  RibPrintf(writer, "Attribute \"render\" \"string pointtype\" \"%s\"\n",
            attributes.PointType == kPatchPoints ? "patch" : "sphere");
  RibPrintf(writer, "Points \"P\" [%g %g %g] \"constantwidth\" [%g]\n", point.point.x,
            point.point.y, point.point.z, LineWidth(attributes, settings));
  EndAttributes(writer);
}

}  // namespace orv
