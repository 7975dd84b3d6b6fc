#include "host/archive/chunk_writer.h"
#include "host/archive/typecodes.h"
#include "support/record_writers.h"

// The control net of a SubD. Documents name a part by its number, counted through vertices, edges
// and faces from 1.

namespace model_writer {
namespace {

// A part by its number, and whether it is taken in the other direction.
struct Reference {
  int number = 0;
  bool is_reversed = false;
};

// What vertices and edges list of the parts that they belong to, and faces of their edges.
struct Links {
  std::vector<std::vector<Reference>> vertex_edges, vertex_faces, edge_faces, face_edges;
};

int FirstEdge(const ON_SubD& subd) {
  return 1 + subd.VertexCount();
}

int FirstFace(const ON_SubD& subd) {
  return FirstEdge(subd) + subd.EdgeCount();
}

// The edge from a vertex to another; number 0 when there is none.
Reference FindEdge(const ON_SubD& subd, int from, int to) {
  for (int i = 0; i < subd.EdgeCount(); ++i) {
    const std::array<int, 2>& ends = subd.m_edge[static_cast<std::size_t>(i)].m_vi;
    if (ends == std::array{from, to}) return {FirstEdge(subd) + i, false};
    if (ends == std::array{to, from}) return {FirstEdge(subd) + i, true};
  }
  return {};
}

void LinkFace(const ON_SubD& subd, int face, Links& links) {
  const std::vector<int>& ring = subd.m_face[static_cast<std::size_t>(face)].m_vi;
  const int number = FirstFace(subd) + face;
  std::vector<Reference>& edges = links.face_edges.emplace_back();
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Reference edge = FindEdge(subd, ring[i], ring[(i + 1) % ring.size()]);
    edges.push_back(edge);
    links.vertex_faces[static_cast<std::size_t>(ring[i])].push_back({number});
    if (edge.number == 0) continue;
    const auto index = static_cast<std::size_t>(edge.number - FirstEdge(subd));
    links.edge_faces[index].push_back({number, edge.is_reversed});
  }
}

Links LinksOf(const ON_SubD& subd) {
  Links links;
  links.vertex_edges.resize(subd.m_vertex.size());
  links.vertex_faces.resize(subd.m_vertex.size());
  links.edge_faces.resize(subd.m_edge.size());
  for (int i = 0; i < subd.EdgeCount(); ++i) {
    const std::array<int, 2>& ends = subd.m_edge[static_cast<std::size_t>(i)].m_vi;
    for (std::size_t end = 0; end < 2; ++end) {
      const auto vertex = static_cast<std::size_t>(ends[end]);
      links.vertex_edges[vertex].push_back({FirstEdge(subd) + i, end == 1});
    }
  }
  for (int i = 0; i < subd.FaceCount(); ++i) LinkFace(subd, i, links);
  return links;
}

void WriteReference(ON_BinaryArchive& archive, Reference reference) {
  archive.WriteInt(reference.number);
  archive.WriteChar(reference.is_reversed ? 1 : 0);
}

void WriteReferences(ON_BinaryArchive& archive, const std::vector<Reference>& references) {
  archive.WriteShort(static_cast<std::int16_t>(references.size()));
  for (const Reference reference : references) WriteReference(archive, reference);
}

bool HasAdditions(const ON_BinaryArchive& archive) {
  return archive.Archive3dmVersion() >= 70;
}

// Parts of version 7 on end with additions of which there are none; older ones with a zero.
void WriteEnd(ON_BinaryArchive& archive) {
  archive.WriteChar(HasAdditions(archive) ? 255 : 0);
}

// What each part begins with: its number and id, the level, no saved points or additions.
void WriteBase(ON_BinaryArchive& archive, int number) {
  archive.WriteInt(number);
  archive.WriteInt(number);
  archive.WriteShort(0);
  if (!HasAdditions(archive)) archive.WriteChar(0);
  WriteEnd(archive);
}

void WriteVertex(ON_BinaryArchive& archive, int number, const ON_SubDVertex& vertex,
                 const std::vector<Reference>& edges, const std::vector<Reference>& faces) {
  WriteBase(archive, number);
  archive.WriteChar(static_cast<std::uint8_t>(vertex.m_tag));
  archive.WritePoint(vertex.m_P);
  archive.WriteShort(static_cast<std::int16_t>(edges.size()));
  archive.WriteShort(static_cast<std::int16_t>(faces.size()));
  // No points on the surface.
  archive.WriteChar(0);
  WriteReferences(archive, edges);
  WriteReferences(archive, faces);
  WriteEnd(archive);
}

void WriteEdge(ON_BinaryArchive& archive, int number, const ON_SubDEdge& edge,
               const std::vector<Reference>& faces) {
  WriteBase(archive, number);
  archive.WriteChar(edge.m_is_crease ? 2 : 1);
  archive.WriteShort(static_cast<std::int16_t>(faces.size()));
  // How the rule weighs its ends, which readers find out again.
  archive.WriteDouble(0);
  archive.WriteDouble(0);
  archive.WriteDouble(edge.m_sharpness[0]);
  WriteReferences(archive, {{1 + edge.m_vi[0]}, {1 + edge.m_vi[1]}});
  WriteReferences(archive, faces);
  if (archive.Archive3dmVersion() >= 80) {
    archive.WriteChar(sizeof(double));
    archive.WriteDouble(edge.m_sharpness[1]);
  }
  WriteEnd(archive);
}

void WriteFace(ON_BinaryArchive& archive, int number, const std::vector<Reference>& edges) {
  WriteBase(archive, number);
  archive.WriteInt(number);
  archive.WriteInt(0);
  archive.WriteShort(static_cast<std::int16_t>(edges.size()));
  WriteReferences(archive, edges);
  WriteEnd(archive);
}

void WriteLevel(ON_BinaryArchive& archive, const ON_SubD& subd) {
  const Links links = LinksOf(subd);
  const ChunkWriter level(archive, TCODE_ANONYMOUS_CHUNK, 1, 1);
  archive.WriteShort(0);
  for (int i = 0; i < 3; ++i) archive.WriteChar(4);
  archive.WriteBoundingBox(subd.BoundingBox());
  const int end = FirstFace(subd) + subd.FaceCount();
  for (const int number : {1, FirstEdge(subd), FirstFace(subd), end}) archive.WriteInt(number);
  int number = 1;
  for (std::size_t i = 0; i < subd.m_vertex.size(); ++i) {
    WriteVertex(archive, number++, subd.m_vertex[i], links.vertex_edges[i], links.vertex_faces[i]);
  }
  for (std::size_t i = 0; i < subd.m_edge.size(); ++i) {
    WriteEdge(archive, number++, subd.m_edge[i], links.edge_faces[i]);
  }
  for (const auto& edges : links.face_edges) WriteFace(archive, number++, edges);
  // No mesh.
  archive.WriteChar(0);
}

}  // namespace

void WriteSubDData(ON_BinaryArchive& archive, const ON_SubD& subd) {
  archive.WriteChar(1);
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
  // One level, the highest ids, and a box that isn't used.
  archive.WriteInt(1);
  for (const int id : {subd.VertexCount(), subd.EdgeCount(), subd.FaceCount()}) {
    archive.WriteInt(id);
  }
  archive.WriteBoundingBox({});
  WriteLevel(archive, subd);
}

}  // namespace model_writer
