#include "host/archive/chunk_writer.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_rev_surface.h"
#include "host/geometry/on_sum_surface.h"
#include "support/record_writers.h"

namespace model_writer {
namespace {

void WriteCurve(ON_BinaryArchive& archive, const ON_Curve& curve) {
  WriteClass(archive, CurveClass(curve), curve.m_user_strings,
             [&](ON_BinaryArchive& data) { WriteCurveData(data, curve); });
}

void WriteRevSurface(ON_BinaryArchive& archive, const ON_RevSurface& surface) {
  archive.Write3dmChunkVersion(2, 0);
  archive.WritePoint(surface.m_axis.from);
  archive.WritePoint(surface.m_axis.to);
  archive.WriteInterval(surface.m_angle);
  archive.WriteInterval(surface.m_t);
  archive.WriteBoundingBox(surface.BoundingBox());
  archive.WriteInt(surface.m_bTransposed ? 1 : 0);
  archive.WriteBool(true);
  WriteCurve(archive, *surface.m_curve);
}

void WriteSumSurface(ON_BinaryArchive& archive, const ON_SumSurface& surface) {
  archive.Write3dmChunkVersion(1, 0);
  archive.WriteVector(surface.m_basepoint);
  archive.WriteBoundingBox(surface.BoundingBox());
  for (const auto& curve : surface.m_curve) WriteCurve(archive, *curve);
}

void WriteNurbsSurface(ON_BinaryArchive& archive, const ON_NurbsSurface& surface) {
  constexpr std::int32_t kDimension = 3;
  archive.Write3dmChunkVersion(1, 0);
  archive.WriteInt(kDimension);
  archive.WriteInt(surface.IsRational() ? 1 : 0);
  for (const int direction : {0, 1}) archive.WriteInt(surface.Order(direction));
  for (const int direction : {0, 1}) archive.WriteInt(surface.CVCount(direction));
  archive.WriteBigInt(0);
  archive.WriteBoundingBox(surface.BoundingBox());
  for (const int direction : {0, 1}) WriteArray(archive, surface.Knots(direction));
  archive.WriteInt(static_cast<std::int32_t>(surface.m_cv.size()));
  for (const ON_4dPoint& cv : surface.m_cv) {
    archive.WritePoint({cv.x, cv.y, cv.z});
    if (surface.IsRational()) archive.WriteDouble(cv.w);
  }
}

}  // namespace

void WritePlaneSurfaceData(ON_BinaryArchive& archive, const ON_PlaneSurface& surface) {
  archive.Write3dmChunkVersion(1, 1);
  archive.WritePlane(surface.m_plane);
  for (const ON_Interval& domain : surface.m_domain) archive.WriteInterval(domain);
  for (const ON_Interval& side : surface.m_extents) archive.WriteInterval(side);
}

ON_UUID SurfaceClass(const ON_Surface& surface) {
  if (ON_PlaneSurface::Cast(&surface)) return "4ed7d4df-e947-11d3-bfe5-0010830122f0"_uuid;
  if (ON_RevSurface::Cast(&surface)) return "a16220d3-163b-11d4-8000-0010830122f0"_uuid;
  if (ON_SumSurface::Cast(&surface)) return "c4cd5359-446d-4690-9ff5-29059732472b"_uuid;
  return "4ed7d4de-e947-11d3-bfe5-0010830122f0"_uuid;
}

void WriteSurfaceData(ON_BinaryArchive& archive, const ON_Surface& surface) {
  if (const auto* plane = ON_PlaneSurface::Cast(&surface)) WritePlaneSurfaceData(archive, *plane);
  if (const auto* rev = ON_RevSurface::Cast(&surface)) WriteRevSurface(archive, *rev);
  if (const auto* sum = ON_SumSurface::Cast(&surface)) WriteSumSurface(archive, *sum);
  if (const auto* nurbs = ON_NurbsSurface::Cast(&surface)) WriteNurbsSurface(archive, *nurbs);
}

}  // namespace model_writer
