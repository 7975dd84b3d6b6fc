#include "export/annotation_writer.h"

#include <memory>
#include <utility>
#include <vector>

#include "export/attribute_scope.h"
#include "export/coordinates.h"
#include "export/line_look.h"
#include "export/nurbs_curve_writer.h"
#include "export/nurbs_writer.h"
#include "host/modeling/planar_breps.h"
#include "host/modeling/text_outlines.h"

namespace orv {
namespace {

// How wide the lines of an annotation are, by its arrows.
constexpr double kLineWidthOfArrows = 0.05;

// The same statements as of other lines, in an order of their own.
void WriteLook(RibWriter& writer, ON_Color color) {
  WriteColor(writer, color);
  RibPrintf(writer, "Surface \"constant\"\n");
  RibPrintf(writer, "Attribute \"visibility\" \"indirect\" [0]\n");
  RibPrintf(writer, "Attribute \"visibility\" \"integer transmission\" [0]\n");
  RibPrintf(writer, "Attribute \"visibility\" \"trace\" [0]\n");
  RibPrintf(writer, "Attribute \"toon\" \"float inkwidth\" [0]\n");
  RibPrintf(writer, "Attribute \"indirect\" \"prepass\" [0]\n");
}

double WidthOf(const CRhinoAnnotationObject& object, const ObjectAttributes& attributes,
               const RenderSettings& settings) {
  ON_DimStyle style;
  if (!attributes.UseLineWidth && object.GetDimStyle(style) && IsSetNumber(style.m_arrowsize) &&
      style.m_arrowsize >= 0) {
    return style.m_arrowsize * kLineWidthOfArrows;
  }
  return LineWidth(attributes, settings);
}

// Writes what fills a closed curve. Null is nothing.
void WriteFilled(RibWriter& writer, std::unique_ptr<ON_Brep> brep) {
  if (brep != nullptr && brep->MakeValidForV2()) WriteBrep(writer, std::move(*brep));
}

// A closed curve is an arrowhead, or another filled shape.
void WriteCurve(RibWriter& writer, const std::shared_ptr<const ON_Curve>& curve,
                const ON_Plane& plane, double width) {
  if (curve->IsClosed()) {
    WriteFilled(writer, ON_BrepTrimmedPlane(plane, {curve}));
  } else {
    WriteRibbonType(writer);
    WriteNurbsForm(writer, *curve, width);
  }
}

void WriteText(RibWriter& writer, const ON_TextEntity2& text) {
  // The outlines lie in the text's plane but for rounding.
  constexpr double kTolerance = 1e-3;
  for (auto& brep : RhinoMakePlanarBreps(host::TextOutlines(text), kTolerance * text.m_height)) {
    WriteFilled(writer, std::move(brep));
  }
}

}  // namespace

void WriteAnnotation(const ObjectStream& stream, const CRhinoAnnotationObject& object,
                     const ObjectAttributes& attributes) {
  if (SkipsLines(attributes)) return;
  std::vector<std::shared_ptr<const ON_Curve>> curves;
  std::vector<ON_TextEntity2> texts;
  if (!object.Explode(curves, texts)) return;
  RibWriter& writer = stream.Writer;
  const RenderSettings& settings = stream.Settings;
  BeginObjectBlock(writer);
  WriteLook(writer, LineColor(object, attributes, stream.Doc, settings));
  const double width = WidthOf(object, attributes, settings);
  for (const auto& curve : curves) WriteCurve(writer, curve, object.Plane(), width);
  for (const ON_TextEntity2& text : texts) WriteText(writer, text);
  EndAttributes(writer);
}

}  // namespace orv
