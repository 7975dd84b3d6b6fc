#include "export/subd_writer.h"

#include "export/crease_chains.h"

namespace orv {
namespace {

std::vector<int> FindCorners(const ON_SubD& subd) {
  std::vector<int> corners;
  for (int i = 0; i < subd.VertexCount(); ++i) {
    const auto tag = subd.m_vertex[static_cast<std::size_t>(i)].m_tag;
    if (tag == ON_SubDVertex::Tag::corner) corners.push_back(i);
  }
  return corners;
}

void WriteFaces(RibWriter& writer, const ON_SubD& subd) {
  RibPrintf(writer, "SubdivisionMesh \"catmull-clark\" [ ");
  for (const ON_SubDFace& face : subd.m_face) {
    RibIntegers(writer, static_cast<int>(face.m_vi.size()));
  }
  RibPrintf(writer, "] [");
  for (const ON_SubDFace& face : subd.m_face) {
    for (const int vi : face.m_vi) RibIntegers(writer, vi);
  }
  RibPrintf(writer, "]\n");
}

// Names, the counts of integers and reals of each, the integers, the reals.
void WriteTags(RibWriter& writer, const std::vector<CreaseChain>& chains,
               const std::vector<int>& corners) {
  if (chains.empty() && corners.empty()) {
    RibPrintf(writer, " [\"interpolateboundary\"] [1 0] [1] [0]\n");
    return;
  }
  RibPrintf(writer, " [\"interpolateboundary\" ");
  for (std::size_t i = 0; i < chains.size(); ++i) RibPrintf(writer, "\"crease\" ");
  if (!corners.empty()) RibPrintf(writer, "\"corner\" ");
  RibPrintf(writer, "] [1 0 ");
  for (const CreaseChain& chain : chains) {
    RibIntegers(writer, static_cast<int>(chain.Vertices.size()), 1);
  }
  if (!corners.empty()) RibIntegers(writer, static_cast<int>(corners.size()), 1);
  RibPrintf(writer, "] [1 ");
  for (const CreaseChain& chain : chains) {
    for (const int vi : chain.Vertices) RibIntegers(writer, vi);
  }
  for (const int vi : corners) RibIntegers(writer, vi);
  RibPrintf(writer, "] [");
  for (const CreaseChain& chain : chains) RibNumbers(writer, chain.Sharpness);
  if (!corners.empty()) RibNumbers(writer, kInfinitelySharp);
  RibPrintf(writer, "]\n");
}

}  // namespace

bool WriteSubD(RibWriter& writer, const ON_SubD& subd) {
  if (subd.FaceCount() == 0 || !subd.IsValid()) return true;
  WriteFaces(writer, subd);
  WriteTags(writer, FindCreaseChains(subd), FindCorners(subd));
  RibPrintf(writer, " \"P\" [ ");
  for (const ON_SubDVertex& vertex : subd.m_vertex) {
    RibNumbers(writer, vertex.m_P.x, vertex.m_P.y, vertex.m_P.z);
  }
  RibPrintf(writer, " ]\n");
  return true;
}

}  // namespace orv
