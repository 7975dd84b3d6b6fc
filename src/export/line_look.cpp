#include "export/line_look.h"

#include "export/rib_text.h"
#include "host/document/doc.h"

namespace orv {
namespace {

constexpr ON_Color kBlack{0, 0, 0};
enum ColorMode { kDisplayColors = 1, kPrintColors = 2 };

// What a layer's objects are shown in.
ON_Color LayerColor(const CRhinoObject& object, const CRhinoDoc& doc) {
  const ON_Layer* layer = doc.m_layer_table.At(object.Attributes().m_layer_index);
  return layer == nullptr ? kBlack : layer->m_color;
}

ON_Color DisplayColor(const CRhinoObject& object, const CRhinoDoc& doc) {
  switch (object.Attributes().m_color_source) {
    case ON_AttributeSource::object:
      return object.Attributes().m_color;
    case ON_AttributeSource::layer:
      return LayerColor(object, doc);
    default:
      return kBlack;
  }
}

// The layer's display colour stands for its print colour.
ON_Color PrintColor(const CRhinoObject& object, const CRhinoDoc& doc) {
  // The value that means the material elsewhere means the display colour here.
  constexpr ON_AttributeSource kDisplay = ON_AttributeSource::material;
  switch (object.Attributes().m_plot_color_source) {
    case ON_AttributeSource::object:
      return object.Attributes().m_plot_color;
    case ON_AttributeSource::layer:
      return LayerColor(object, doc);
    case kDisplay:
      return object.Attributes().m_color;
    default:
      return kBlack;
  }
}

ON_Color UnadjustedColor(const CRhinoObject& object, const ObjectAttributes& attributes,
                         const CRhinoDoc& doc, const RenderSettings& settings) {
  if (attributes.UseLineColor) return attributes.LineColor;
  if (settings.ColorMode == kDisplayColors) return DisplayColor(object, doc);
  if (settings.ColorMode == kPrintColors) return PrintColor(object, doc);
  return kBlack;
}

}  // namespace

bool SkipsLines(const ObjectAttributes& attributes) {
  return attributes.UseLineWidth && attributes.LineWidth <= 0;
}

double LineWidth(const ObjectAttributes& attributes, const RenderSettings& settings) {
  return attributes.UseLineWidth ? settings.CurveWidth * attributes.LineWidth : settings.CurveWidth;
}

ON_Color LineColor(const CRhinoObject& object, const ObjectAttributes& attributes,
                   const CRhinoDoc& doc, const RenderSettings& settings) {
  return GammaAdjustColor(UnadjustedColor(object, attributes, doc, settings), settings.RhinoGamma);
}

void WriteColor(RibWriter& writer, ON_Color color) {
  RibPrintf(writer, "Color %g %g %g\n", color.FractionRed(), color.FractionGreen(),
            color.FractionBlue());
}

void WriteConstantLook(RibWriter& writer, ON_Color color) {
  WriteColor(writer, color);
  RibPrintf(writer, "Attribute \"visibility\" \"indirect\" [0]\n");
  RibPrintf(writer, "Attribute \"toon\" \"float inkwidth\" [0]\n");
  RibPrintf(writer, "Attribute \"indirect\" \"prepass\" [0]\n");
  RibPrintf(writer, "Attribute \"visibility\" \"integer transmission\" [0]\n");
  RibPrintf(writer, "Attribute \"visibility\" \"trace\" [0]\n");
}

}  // namespace orv
