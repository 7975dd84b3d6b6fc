#include "old_brep_record.h"

#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_poly_curve.h"
#include "support/record_writers.h"

namespace {

void WriteCurve(ON_BinaryArchive& archive, const ON_Curve& curve) {
  ON_PolyCurve poly;
  poly.m_segment.push_back(curve.NurbsCurve());
  poly.m_t = {curve.Domain().Min, curve.Domain().Max};
  model_writer::WriteCurveData(archive, poly);
}

void WriteSurface(ON_BinaryArchive& archive, const ON_Surface& surface) {
  ON_NurbsSurface form;
  static_cast<void>(surface.GetNurbForm(form));
  model_writer::WriteSurfaceData(archive, form);
}

void WriteTrim(ON_BinaryArchive& archive, const ON_BrepTrim& trim, int index) {
  constexpr int kNoTwin = -1;
  archive.WriteInt(index);
  archive.WriteInt(kNoTwin);
  archive.WriteBool(true);
  archive.WriteInt(trim.m_ei);
  archive.WriteInt(trim.m_bRev3d ? 1 : 0);
  archive.WriteInt(0);
  archive.WriteInt(1);
  for (const double tolerance : trim.m_tolerance) archive.WriteDouble(tolerance);
}

void WriteLoop(ON_BinaryArchive& archive, const ON_Brep& brep, int index) {
  using enum ON_BrepLoop::Type;
  const ON_BrepLoop& loop = brep.m_L[static_cast<std::size_t>(index)];
  archive.WriteInt(index);
  archive.WriteInt(loop.m_type == outer ? 0 : loop.m_type == inner ? 1 : -1);
  for (int i = 0; i < 4; ++i) archive.WriteDouble(0);
  archive.WriteInt(static_cast<int>(loop.m_ti.size()));
  for (const int ti : loop.m_ti) WriteTrim(archive, brep.m_T[static_cast<std::size_t>(ti)], ti);
}

void WriteFace(ON_BinaryArchive& archive, const ON_Brep& brep, std::size_t index) {
  const ON_BrepFace& face = brep.m_F[index];
  archive.WriteInt(static_cast<int>(index));
  archive.WriteInt(-1);
  archive.WriteInt(face.m_bRev ? 1 : 0);
  archive.WriteInt(0);
  archive.WriteBoundingBox({});
  archive.WriteInt(static_cast<int>(face.m_li.size()));
  for (const int li : face.m_li) WriteLoop(archive, brep, li);
}

void WriteMeshes(ON_BinaryArchive& archive, const ON_Brep& brep,
                 std::shared_ptr<const ON_Mesh> ON_BrepFace::*mesh) {
  for (const ON_BrepFace& face : brep.m_F) {
    archive.WriteBool((face.*mesh) != nullptr);
    if ((face.*mesh) == nullptr) continue;
    WriteClass(archive, model_writer::kMeshClass,
               [&](ON_BinaryArchive& data) { model_writer::WriteMeshData(data, *(face.*mesh)); });
  }
}

int Count(std::size_t truth, int told) {
  return told < 0 ? static_cast<int>(truth) : told;
}

}  // namespace

WriteContent Writer(const OldBrepRecord& record, const ON_Brep& brep) {
  return [record, &brep](ON_BinaryArchive& archive) {
    archive.Write3dmChunkVersion(record.major, record.minor);
    archive.WriteInt(Count(brep.m_F.size(), record.face_count));
    archive.WriteInt(Count(brep.m_E.size(), record.edge_count));
    archive.WriteInt(Count(brep.m_L.size(), record.loop_count));
    archive.WriteInt(Count(brep.m_T.size(), record.trim_count));
    archive.WriteInt(brep.m_is_solid);
    archive.WriteBoundingBox({});
    for (const ON_BrepTrim& trim : brep.m_T) WriteCurve(archive, brep.CurveOf(trim));
    for (const ON_BrepEdge& edge : brep.m_E) WriteCurve(archive, brep.CurveOf(edge));
    for (const ON_BrepFace& face : brep.m_F) WriteSurface(archive, brep.SurfaceOf(face));
    for (std::size_t i = 0; i < brep.m_F.size(); ++i) WriteFace(archive, brep, i);
    WriteMeshes(archive, brep, &ON_BrepFace::m_render_mesh);
    if (record.minor >= 1) WriteMeshes(archive, brep, &ON_BrepFace::m_analysis_mesh);
  };
}
