#include "host/archive/chunk_writer.h"
#include "host/archive/typecodes.h"
#include "support/record_writers.h"

namespace model_writer {
namespace {

void WriteItem(ON_BinaryArchive& archive, const ON_Curve& curve) {
  WriteClass(archive, CurveClass(curve), curve.m_user_strings,
             [&](ON_BinaryArchive& data) { WriteCurveData(data, curve); });
}

void WriteItem(ON_BinaryArchive& archive, const ON_Surface& surface) {
  WriteClass(archive, SurfaceClass(surface), surface.m_user_strings,
             [&](ON_BinaryArchive& data) { WriteSurfaceData(data, surface); });
}

template <class T>
void WriteItems(ON_BinaryArchive& archive, const std::vector<std::shared_ptr<const T>>& items) {
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK);
  archive.Write3dmChunkVersion(1, 0);
  archive.WriteInt(static_cast<std::int32_t>(items.size()));
  for (const auto& item : items) {
    archive.WriteInt(item != nullptr ? 1 : 0);
    if (item != nullptr) WriteItem(archive, *item);
  }
}

// Whether trims and edges tell the parameters that they have themselves beside those of their
// curves.
bool HasOwnDomains(const ON_BinaryArchive& archive) {
  return archive.ArchiveOpenNURBSVersion() >= 200206180;
}

void WriteEnd(ON_BinaryArchive& archive, const ON_BrepVertex& vertex) {
  archive.WritePoint(vertex.point);
  WriteArray(archive, vertex.m_ei);
  archive.WriteDouble(vertex.m_tolerance);
}

void WriteEnd(ON_BinaryArchive& archive, const ON_BrepEdge& edge) {
  archive.WriteInt(edge.m_c3i);
  archive.WriteInt(edge.m_bReversed ? 1 : 0);
  archive.WriteInterval(edge.m_domain);
  for (const int vertex : edge.m_vi) archive.WriteInt(vertex);
  WriteArray(archive, edge.m_ti);
  archive.WriteDouble(edge.m_tolerance);
  if (HasOwnDomains(archive)) archive.WriteInterval(edge.m_domain);
}

// Its own parameters and whether it runs against its curve; two points in older documents.
void WriteReversal(ON_BinaryArchive& archive, const ON_BrepTrim& trim) {
  constexpr std::byte kUnused[7 + 24] = {};
  constexpr ON_3dPoint kAnyPoint{0.1, 0.2, 0.3};
  if (!HasOwnDomains(archive)) {
    archive.WritePoint(kAnyPoint);
    archive.WritePoint(kAnyPoint);
    return;
  }
  archive.WriteInterval(trim.m_domain);
  archive.WriteBool(trim.m_bReversed);
  archive.WriteByte(kUnused);
}

void WriteEnd(ON_BinaryArchive& archive, const ON_BrepTrim& trim) {
  archive.WriteInt(trim.m_c2i);
  archive.WriteInterval(trim.m_domain);
  archive.WriteInt(trim.m_ei);
  for (const int vertex : trim.m_vi) archive.WriteInt(vertex);
  archive.WriteInt(trim.m_bRev3d ? 1 : 0);
  archive.WriteInt(static_cast<std::int32_t>(trim.m_type));
  archive.WriteInt(static_cast<std::int32_t>(trim.m_iso));
  archive.WriteInt(trim.m_li);
  for (const double tolerance : trim.m_tolerance) archive.WriteDouble(tolerance);
  WriteReversal(archive, trim);
  for (const double tolerance : trim.m_tolerance) archive.WriteDouble(tolerance);
}

void WriteEnd(ON_BinaryArchive& archive, const ON_BrepLoop& loop) {
  WriteArray(archive, loop.m_ti);
  archive.WriteInt(static_cast<std::int32_t>(loop.m_type));
  archive.WriteInt(loop.m_fi);
}

void WriteEnd(ON_BinaryArchive& archive, const ON_BrepFace& face) {
  WriteArray(archive, face.m_li);
  archive.WriteInt(face.m_si);
  archive.WriteInt(face.m_bRev ? 1 : 0);
  archive.WriteInt(face.m_material_channel_index);
}

// A table whose parts begin with their position.
template <class Part>
void WriteParts(ON_BinaryArchive& archive, const std::vector<Part>& parts) {
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK);
  archive.Write3dmChunkVersion(1, 0);
  archive.WriteInt(static_cast<std::int32_t>(parts.size()));
  std::int32_t position = 0;
  for (const Part& part : parts) {
    archive.WriteInt(position++);
    WriteEnd(archive, part);
  }
}

void WriteMeshes(ON_BinaryArchive& archive, const std::vector<ON_BrepFace>& faces,
                 std::shared_ptr<const ON_Mesh> ON_BrepFace::*mesh) {
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK);
  for (const ON_BrepFace& face : faces) {
    archive.WriteChar((face.*mesh) != nullptr ? 1 : 0);
    if ((face.*mesh) == nullptr) continue;
    WriteClass(archive, kMeshClass, (face.*mesh)->m_user_strings,
               [&](ON_BinaryArchive& data) { WriteMeshData(data, *(face.*mesh)); });
  }
}

}  // namespace

void WriteBrepData(ON_BinaryArchive& archive, const ON_Brep& brep) {
  archive.Write3dmChunkVersion(3, 2);
  WriteItems(archive, brep.m_C2);
  WriteItems(archive, brep.m_C3);
  WriteItems(archive, brep.m_S);
  WriteParts(archive, brep.m_V);
  WriteParts(archive, brep.m_E);
  WriteParts(archive, brep.m_T);
  WriteParts(archive, brep.m_L);
  WriteParts(archive, brep.m_F);
  archive.WriteBoundingBox(brep.m_bbox);
  WriteMeshes(archive, brep.m_F, &ON_BrepFace::m_render_mesh);
  WriteMeshes(archive, brep.m_F, &ON_BrepFace::m_analysis_mesh);
  archive.WriteInt(brep.m_is_solid);
}

}  // namespace model_writer
