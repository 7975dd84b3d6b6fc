#include "host/modeling/explode_annotation.h"

#include "host/modeling/annotation_drawings.h"
#include "host/modeling/text_outlines.h"

namespace host {

// A text stands as its plane says, however it is looked at.
void DrawTextObject(AnnotationSketch& sketch) {
  const ON_Annotation& annotation = sketch.Annotation();
  const ON_2dPoint right = OnCircle(1, annotation.m_text_rotation);
  sketch.AddText(sketch.Wrapped(annotation.m_text), {0, 0}, {right, {-right.y, right.x}},
                 annotation.m_halign, annotation.m_valign);
}

ExplodedAnnotation DrawAnnotation(const ON_Annotation& annotation, const ON_DimStyle& style,
                                  const MeasureText& measure) {
  using Type = ON_Annotation::Type;
  if (!annotation.IsValid()) return {};
  AnnotationSketch sketch(annotation, style, measure);
  switch (annotation.m_type) {
    case Type::linear:
    case Type::aligned:
      DrawLinearDimension(sketch);
      break;
    case Type::angular:
      DrawAngularDimension(sketch);
      break;
    case Type::diameter:
    case Type::radius:
      DrawRadialDimension(sketch);
      break;
    case Type::leader:
      DrawLeader(sketch);
      break;
    case Type::text:
      DrawTextObject(sketch);
      break;
    case Type::ordinate:
      DrawOrdinateDimension(sketch);
      break;
  }
  return sketch.Take();
}

ExplodedAnnotation ExplodeAnnotation(const ON_Annotation& annotation, const ON_DimStyle& style) {
  return DrawAnnotation(annotation, style, TextWidth);
}

}  // namespace host
