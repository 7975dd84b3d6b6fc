#include "host/archive/chunk_writer.h"
#include "host/archive/typecodes.h"
#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_poly_curve.h"
#include "host/geometry/on_polyline_curve.h"
#include "support/record_writers.h"

namespace model_writer {
namespace {

constexpr std::int32_t kDimension = 3;

void WriteLineCurve(ON_BinaryArchive& archive, const ON_LineCurve& curve) {
  archive.WritePoint(curve.m_line.from);
  archive.WritePoint(curve.m_line.to);
  archive.WriteInterval(curve.m_t);
  archive.WriteInt(kDimension);
}

void WriteArcCurve(ON_BinaryArchive& archive, const ON_ArcCurve& curve) {
  const ON_Arc& arc = curve.m_arc;
  archive.WritePlane(arc.plane);
  archive.WriteDouble(arc.radius);
  // The points of the circle at no turn, a quarter of one and a half.
  archive.WritePoint(arc.plane.PointAt(arc.radius, 0));
  archive.WritePoint(arc.plane.PointAt(0, arc.radius));
  archive.WritePoint(arc.plane.PointAt(-arc.radius, 0));
  archive.WriteInterval(arc.m_angle);
  archive.WriteInterval(curve.m_t);
  archive.WriteInt(kDimension);
}

void WritePolylineCurve(ON_BinaryArchive& archive, const ON_PolylineCurve& curve) {
  WriteArray(archive, curve.m_pline);
  WriteArray(archive, curve.m_t);
  archive.WriteInt(kDimension);
}

// Eight bytes that nobody uses, and the box.
void WriteReserved(ON_BinaryArchive& archive, const ON_Curve& curve) {
  archive.WriteBigInt(0);
  archive.WriteBoundingBox(curve.BoundingBox());
}

void WriteNurbsCurve(ON_BinaryArchive& archive, const ON_NurbsCurve& curve) {
  archive.WriteInt(curve.m_dim);
  archive.WriteInt(curve.m_is_rat ? 1 : 0);
  archive.WriteInt(curve.m_order);
  archive.WriteInt(curve.CVCount());
  WriteReserved(archive, curve);
  WriteArray(archive, curve.m_knot);
  archive.WriteInt(curve.CVCount());
  for (const ON_4dPoint& cv : curve.m_cv) {
    const double coordinates[] = {cv.x, cv.y, cv.z};
    for (int i = 0; i < curve.m_dim; ++i) archive.WriteDouble(coordinates[i]);
    if (curve.m_is_rat) archive.WriteDouble(cv.w);
  }
}

void WritePolyCurve(ON_BinaryArchive& archive, const ON_PolyCurve& curve) {
  archive.WriteInt(static_cast<std::int32_t>(curve.m_segment.size()));
  WriteReserved(archive, curve);
  WriteArray(archive, curve.m_t);
  for (const auto& segment : curve.m_segment) {
    WriteClass(archive, CurveClass(*segment), segment->m_user_strings,
               [&](ON_BinaryArchive& data) { WriteCurveData(data, *segment); });
  }
}

}  // namespace

ON_UUID CurveClass(const ON_Curve& curve) {
  if (ON_LineCurve::Cast(&curve)) return "4ed7d4db-e947-11d3-bfe5-0010830122f0"_uuid;
  if (ON_ArcCurve::Cast(&curve)) return "cf33be2a-09b4-11d4-bffb-0010830122f0"_uuid;
  if (ON_PolylineCurve::Cast(&curve)) return "4ed7d4e6-e947-11d3-bfe5-0010830122f0"_uuid;
  if (ON_PolyCurve::Cast(&curve)) return "4ed7d4e0-e947-11d3-bfe5-0010830122f0"_uuid;
  return "4ed7d4dd-e947-11d3-bfe5-0010830122f0"_uuid;
}

void WriteCurveData(ON_BinaryArchive& archive, const ON_Curve& curve) {
  archive.Write3dmChunkVersion(1, 0);
  if (const auto* line = ON_LineCurve::Cast(&curve)) WriteLineCurve(archive, *line);
  if (const auto* arc = ON_ArcCurve::Cast(&curve)) WriteArcCurve(archive, *arc);
  if (const auto* polyline = ON_PolylineCurve::Cast(&curve)) WritePolylineCurve(archive, *polyline);
  if (const auto* poly = ON_PolyCurve::Cast(&curve)) WritePolyCurve(archive, *poly);
  if (const auto* nurbs = ON_NurbsCurve::Cast(&curve)) WriteNurbsCurve(archive, *nurbs);
}

}  // namespace model_writer
