#include <cstddef>
#include <cstdint>
#include <span>

#include "host/archive/model_reader.h"
#include "host/geometry/on_brep.h"
#include "host/geometry/on_curve.h"
#include "host/geometry/on_extrusion.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_subd.h"
#include "host/modeling/annotation_drawings.h"

namespace {

// Curves that were read are valid, and have an answer to everything.
void Ask(const ON_Curve& curve) {
  if (!curve.IsValid()) __builtin_trap();
  double length = 0;
  static_cast<void>(curve.GetLength(&length));
  static_cast<void>(curve.IsClosed());
  static_cast<void>(curve.IsPolyline());
  static_cast<void>(curve.NurbsCurve());
  static_cast<void>(curve.BoundingBox());
}

// So do surfaces. Those of a clipping plane may be without extent.
void Ask(const ON_Surface& surface) {
  if (surface.ObjectType() != ON_ObjectType::surface) return;
  if (!surface.IsValid()) __builtin_trap();
  for (const double u : {surface.Domain(0).Min, surface.Domain(0).ParameterAt(0.5)}) {
    static_cast<void>(surface.NormalAt(u, surface.Domain(1).Max));
  }
  static_cast<void>(surface.BrepForm());
  static_cast<void>(surface.BoundingBox());
}

// And breps, which can be changed too.
void Ask(const ON_Brep& brep) {
  if (!brep.IsValid()) __builtin_trap();
  ON_Brep changed = brep;
  static_cast<void>(changed.IsSurface());
  static_cast<void>(changed.MakeValidForV2());
  static_cast<void>(changed.SetFaceDomain(0, {0, 1}, {0, 1}));
  changed.Compact();
  if (!changed.IsValid()) __builtin_trap();
}

// And what extrusions are made of.
void Ask(const ON_Extrusion& extrusion) {
  if (!extrusion.IsValid()) __builtin_trap();
  static_cast<void>(extrusion.BoundingBox());
  const auto brep = extrusion.BrepForm();
  if (brep != nullptr && !brep->IsValid()) __builtin_trap();
}

void Ask(const ON_SubD& subd) {
  if (!subd.IsValid()) __builtin_trap();
  static_cast<void>(subd.BoundingBox());
}

// And annotations, whose drawings are made of valid curves and texts at points.
void Ask(const ON_Annotation& annotation) {
  if (!annotation.IsValid()) __builtin_trap();
  static_cast<void>(annotation.BoundingBox());
  const ON_DimStyle& style = annotation.DimStyle(nullptr);
  const host::MeasureText measure = [](const ON_TextEntity2& text) {
    return 0.5 * text.m_height * static_cast<double>(text.m_text.size());
  };
  const host::ExplodedAnnotation drawing = host::DrawAnnotation(annotation, style, measure);
  for (const auto& curve : drawing.curves) Ask(*curve);
  for (const ON_TextEntity2& text : drawing.texts) {
    if (!text.m_plane.origin.IsValid()) __builtin_trap();
  }
}

}  // namespace

// Documents of foreign bytes: whatever they are, reading ends with a result.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ONX_Model model;
  const ON_ReadResult result = ON_ReadModel(std::as_bytes(std::span(data, size)), model);
  // An error has words, a success has none.
  if (result.ok != result.error.empty()) __builtin_trap();
  for (const ONX_ModelObject& object : model.m_object_table) {
    if (const ON_Curve* curve = ON_Curve::Cast(object.m_geometry.get())) Ask(*curve);
    if (const ON_Surface* surface = ON_Surface::Cast(object.m_geometry.get())) Ask(*surface);
    if (const ON_Brep* brep = ON_Brep::Cast(object.m_geometry.get())) Ask(*brep);
    if (const auto* extrusion = ON_Extrusion::Cast(object.m_geometry.get())) Ask(*extrusion);
    if (const ON_SubD* subd = ON_SubD::Cast(object.m_geometry.get())) Ask(*subd);
    if (const auto* annotation = ON_Annotation::Cast(object.m_geometry.get())) Ask(*annotation);
  }
  return 0;
}
