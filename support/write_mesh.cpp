#include <algorithm>
#include <initializer_list>
#include <vector>

#include "host/archive/chunk_writer.h"
#include "host/archive/typecodes.h"
#include "support/record_writers.h"

namespace model_writer {
namespace {

void WriteFloats(ON_BinaryArchive& archive, std::initializer_list<float> values) {
  for (const float value : values) archive.WriteFloat(value);
}

// The boxes of vertices, normals and texture coordinates, minima first. Readers make their own.
void WriteBoxes(ON_BinaryArchive& archive, const ON_Mesh& mesh) {
  const ON_BoundingBox box = mesh.BoundingBox();
  for (const ON_3dPoint& corner : {box.m_min, box.m_max}) {
    WriteFloats(archive, {static_cast<float>(corner.x), static_cast<float>(corner.y),
                          static_cast<float>(corner.z)});
  }
  WriteFloats(archive, {-1, -1, -1, 1, 1, 1});
  WriteFloats(archive, {0, 0, 1, 1});
}

template <class Index>
void WriteIndices(ON_BinaryArchive& archive, const ON_SimpleArray<ON_MeshFace>& faces) {
  std::vector<std::array<Index, 4>> stored(faces.size());
  for (std::size_t i = 0; i < faces.size(); ++i) {
    std::transform(faces[i].vi.begin(), faces[i].vi.end(), stored[i].begin(),
                   [](std::int32_t index) { return static_cast<Index>(index); });
  }
  archive.WriteInt(sizeof(Index));
  archive.WriteByte(std::as_bytes(std::span(stored)));
}

// In the smallest type that holds all of them.
void WriteFaces(ON_BinaryArchive& archive, const ON_Mesh& mesh) {
  if (mesh.m_V.size() < 256) {
    WriteIndices<std::uint8_t>(archive, mesh.m_F);
  } else if (mesh.m_V.size() < 65536) {
    WriteIndices<std::uint16_t>(archive, mesh.m_F);
  } else {
    WriteIndices<std::int32_t>(archive, mesh.m_F);
  }
}

template <class T>
void WritePacked(ON_BinaryArchive& archive, const ON_SimpleArray<T>& channel) {
  archive.WriteCompressedBuffer(std::as_bytes(std::span(channel)));
}

void WriteMappingTag(ON_BinaryArchive& archive, const ON_MappingTag& tag) {
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK, 1, 1);
  archive.WriteUuid(tag.m_mapping_id);
  archive.WriteInt(static_cast<std::int32_t>(tag.m_mapping_crc));
  archive.WriteXform(tag.m_mesh_xform);
  archive.WriteInt(tag.m_mapping_type);
}

void WriteNgons(ON_BinaryArchive& archive, const std::vector<ON_MeshNgon>& ngons) {
  archive.WriteBool(!ngons.empty());
  if (ngons.empty()) return;
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
  archive.WriteInt(static_cast<std::int32_t>(ngons.size()));
  for (const ON_MeshNgon& ngon : ngons) {
    archive.WriteInt(static_cast<std::int32_t>(ngon.m_vi.size()));
    archive.WriteInt(static_cast<std::int32_t>(ngon.m_fi.size()));
    archive.WriteByte(std::as_bytes(std::span(ngon.m_vi)));
    archive.WriteByte(std::as_bytes(std::span(ngon.m_fi)));
  }
}

void WriteDoublePoints(ON_BinaryArchive& archive, const ON_SimpleArray<ON_3dPoint>& points) {
  archive.WriteBool(!points.empty());
  if (points.empty()) return;
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
  archive.WriteInt(static_cast<std::int32_t>(points.size()));
  WritePacked(archive, points);
}

void WriteHead(ON_BinaryArchive& archive, const ON_Mesh& mesh) {
  archive.WriteInt(mesh.VertexCount());
  archive.WriteInt(mesh.FaceCount());
  for (const ON_Interval& domain : mesh.m_packed_tex_domain) archive.WriteInterval(domain);
  for (const ON_Interval& domain : mesh.m_srf_domain) archive.WriteInterval(domain);
  for (const double scale : mesh.m_srf_scale) archive.WriteDouble(scale);
  WriteBoxes(archive, mesh);
  archive.WriteInt(mesh.m_closed);
  // Neither mesh parameters nor curvature figures.
  for (int i = 0; i < 5; ++i) archive.WriteChar(0);
}

}  // namespace

void WriteMeshData(ON_BinaryArchive& archive, const ON_Mesh& mesh) {
  const bool wide = archive.Archive3dmVersion() >= 50;
  const bool hasVertices = !mesh.m_V.empty();
  archive.Write3dmChunkVersion(3, wide ? 7 : 4);
  WriteHead(archive, mesh);
  WriteFaces(archive, mesh);
  if (hasVertices) {
    WritePacked(archive, mesh.m_V);
    WritePacked(archive, mesh.m_N);
    WritePacked(archive, mesh.m_T);
    WritePacked(archive, mesh.m_K);
    WritePacked(archive, mesh.m_C);
  }
  archive.WriteInt(mesh.m_packed_tex_rotate);
  archive.WriteUuid(mesh.m_Ttag ? mesh.m_Ttag->m_mapping_id : ON_UUID());
  if (hasVertices) WritePacked(archive, mesh.m_S);
  WriteMappingTag(archive, mesh.m_Ttag.value_or(ON_MappingTag()));
  if (!wide) return;
  for (int i = 0; i < 3; ++i) archive.WriteChar(0);  // manifold, oriented, solid: not known
  WriteNgons(archive, mesh.m_Ngon);
  WriteDoublePoints(archive, mesh.m_dV);
}

}  // namespace model_writer
