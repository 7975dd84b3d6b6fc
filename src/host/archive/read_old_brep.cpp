#include "host/archive/chunk_scope.h"
#include "host/archive/read_brep_parts.h"
#include "host/archive/read_curve_classes.h"
#include "host/archive/read_surface_classes.h"
#include "host/geometry/on_table.h"

// The form of version 2: the curves of the trims and edges and the surfaces of the faces as bare
// data, then the faces with their loops and trims.

namespace host {
namespace {

constexpr std::uint64_t kBoxSize = 6 * sizeof(double);

bool ReadCounts(ON_BinaryArchive& archive, ON_Brep& brep) {
  // What a part takes at least.
  constexpr std::size_t kFaceSize = 170, kCurveSize = 69, kLoopSize = 44;
  std::size_t faces = 0, edges = 0, loops = 0, trims = 0;
  std::int32_t solid = 0;
  if (!archive.ReadCount(kFaceSize, &faces) || !archive.ReadCount(kCurveSize, &edges) ||
      !archive.ReadCount(kLoopSize, &loops) || !archive.ReadCount(kCurveSize, &trims) ||
      !archive.ReadInt(&solid) || !archive.Skip(kBoxSize)) {
    return false;
  }
  brep.m_F.resize(faces);
  brep.m_E.resize(edges);
  brep.m_L.resize(loops);
  brep.m_T.resize(trims);
  brep.m_is_solid = solid == 1 || solid == 2 ? solid : 0;
  return true;
}

// The data of a polycurve; one of a single segment gives the segment.
std::shared_ptr<const ON_Curve> ReadBareCurve(ON_BinaryArchive& archive) {
  auto curve = std::make_shared<ON_PolyCurve>();
  if (!ReadPolyCurve(archive, 0, *curve)) return nullptr;
  if (curve->m_segment.size() == 1) return std::move(curve->m_segment.front());
  return curve;
}

bool ReadCurves(ON_BinaryArchive& archive, std::size_t count,
                std::vector<std::shared_ptr<const ON_Curve>>& curves) {
  while (curves.size() < count) {
    curves.push_back(ReadBareCurve(archive));
    if (curves.back() == nullptr) return false;
  }
  return true;
}

bool ReadSurfaces(ON_BinaryArchive& archive, ON_Brep& brep) {
  while (brep.m_S.size() < brep.m_F.size()) {
    const auto surface = std::make_shared<ON_NurbsSurface>();
    if (!ReadNurbsSurface(archive, *surface)) return false;
    brep.m_S.push_back(surface);
  }
  return true;
}

bool ReadTrim(ON_BinaryArchive& archive, ON_Brep& brep, int loop_index) {
  std::int32_t index = 0, twin = 0, reversed = 0;
  std::uint8_t is_first = 0;
  // Two numbers that nobody uses stand before the tolerances.
  constexpr std::uint64_t kUnusedSize = 2 * sizeof(std::int32_t);
  ON_BrepTrim trim;
  if (!archive.ReadInt(&index) || !archive.ReadInt(&twin) || !archive.ReadChar(&is_first) ||
      !archive.ReadInt(&trim.m_ei) || !archive.ReadInt(&reversed) || !archive.Skip(kUnusedSize) ||
      !archive.ReadDouble(&trim.m_tolerance[0]) || !archive.ReadDouble(&trim.m_tolerance[1])) {
    return false;
  }
  if (!ON_IsIn(index, brep.m_T) || (trim.m_ei != -1 && !ON_IsIn(trim.m_ei, brep.m_E))) {
    return archive.Fail("a brep whose parts don't fit together");
  }
  trim.m_c2i = index;
  trim.m_domain = ON_At(brep.m_C2, index)->Domain();
  trim.m_bRev3d = reversed != 0;
  trim.m_li = loop_index;
  if (trim.m_ei != -1) ON_At(brep.m_E, trim.m_ei).m_ti.push_back(index);
  ON_At(brep.m_L, loop_index).m_ti.push_back(index);
  ON_At(brep.m_T, index) = trim;
  return true;
}

bool ReadLoop(ON_BinaryArchive& archive, ON_Brep& brep, ON_BrepFace& face) {
  // The rectangle of the parameters.
  constexpr std::uint64_t kRectangleSize = 4 * sizeof(double);
  constexpr std::size_t kTrimSize = 41;
  constexpr int kOuter = 0, kInner = 1;
  std::int32_t index = 0, type = 0;
  std::size_t count = 0;
  if (!archive.ReadInt(&index) || !archive.ReadInt(&type) || !archive.Skip(kRectangleSize) ||
      !archive.ReadCount(kTrimSize, &count)) {
    return false;
  }
  if (!ON_IsIn(index, brep.m_L)) return archive.Fail("a brep whose parts don't fit together");
  using enum ON_BrepLoop::Type;
  ON_At(brep.m_L, index).m_type = type == kOuter ? outer : type == kInner ? inner : slit;
  face.m_li.push_back(index);
  for (std::size_t i = 0; i < count; ++i) {
    if (!ReadTrim(archive, brep, index)) return false;
  }
  return true;
}

bool ReadFace(ON_BinaryArchive& archive, ON_Brep& brep, std::size_t index) {
  constexpr std::size_t kLoopSize = 44;
  ON_BrepFace& face = brep.m_F[index];
  std::int32_t reversed = 0;
  std::size_t count = 0;
  // Its position, a number that nobody uses; another one and the box behind the reversal.
  if (!archive.Skip(2 * sizeof(std::int32_t)) || !archive.ReadInt(&reversed) ||
      !archive.Skip(sizeof(std::int32_t) + kBoxSize) || !archive.ReadCount(kLoopSize, &count)) {
    return false;
  }
  face.m_si = static_cast<int>(index);
  face.m_bRev = reversed != 0;
  for (std::size_t i = 0; i < count; ++i) {
    if (!ReadLoop(archive, brep, face)) return false;
  }
  return true;
}

bool ReadGeometry(ON_BinaryArchive& archive, ON_Brep& brep) {
  if (!ReadCurves(archive, brep.m_T.size(), brep.m_C2) ||
      !ReadCurves(archive, brep.m_E.size(), brep.m_C3) || !ReadSurfaces(archive, brep)) {
    return false;
  }
  for (std::size_t i = 0; i < brep.m_E.size(); ++i) {
    brep.m_E[i].m_c3i = static_cast<int>(i);
    brep.m_E[i].m_domain = brep.m_C3[i]->Domain();
  }
  return true;
}

}  // namespace

bool ReadOldBrep(ON_BinaryArchive& archive, int minor, ON_Brep& brep) {
  if (!ReadCounts(archive, brep) || !ReadGeometry(archive, brep)) return false;
  for (std::size_t i = 0; i < brep.m_F.size(); ++i) {
    if (!ReadFace(archive, brep, i)) return false;
  }
  CompleteOldBrep(brep);
  return ReadFaceMeshes(archive, brep.m_F, &ON_BrepFace::m_render_mesh) &&
         (minor < 1 || ReadFaceMeshes(archive, brep.m_F, &ON_BrepFace::m_analysis_mesh));
}

}  // namespace host
