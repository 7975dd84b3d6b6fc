#include "brep_facts.h"

#include <algorithm>
#include <array>
#include <map>

#include "curve_facts.h"
#include "facts_documents.h"
#include "surface_facts.h"

using nlohmann::json;

namespace {

// Two evaluations of the same surface differ by rounding only, and so do sums of them.
constexpr double kTolerance = 1e-9;

template <class T>
json Count(const std::vector<T>& table) {
  return table.size();
}

void ExpectCounts(const json& fact, const ON_Brep& brep, const std::string& place) {
  const json found{{"faces", Count(brep.m_F)}, {"surfaces", Count(brep.m_S)},
                   {"C2", Count(brep.m_C2)},   {"C3", Count(brep.m_C3)},
                   {"edges", Count(brep.m_E)}, {"trims", Count(brep.m_T)},
                   {"loops", Count(brep.m_L)}, {"vertices", Count(brep.m_V)}};
  EXPECT_EQ(fact, found) << place;
}

void ExpectClasses(const json& fact, const ON_Brep& brep, const std::string& place) {
  std::map<std::string, int> curves2, curves3, surfaces;
  for (const auto& curve : brep.m_C2) ++curves2[CurveClassName(*curve)];
  for (const auto& curve : brep.m_C3) ++curves3[CurveClassName(*curve)];
  for (const auto& surface : brep.m_S) ++surfaces[SurfaceClassName(*surface)];
  EXPECT_EQ(fact["C2_classes"], json(curves2)) << place;
  EXPECT_EQ(fact["C3_classes"], json(curves3)) << place;
  EXPECT_EQ(fact["surface_classes"], json(surfaces)) << place;
}

void ExpectTrimKinds(const json& fact, const ON_Brep& brep, const std::string& place) {
  const auto count = [&](auto is_counted) {
    return std::count_if(brep.m_T.begin(), brep.m_T.end(), is_counted);
  };
  EXPECT_EQ(fact["trims_rev3d"], count([](const ON_BrepTrim& t) { return t.m_bRev3d; })) << place;
  EXPECT_EQ(fact["trims_singular"],
            count([](const ON_BrepTrim& t) { return t.m_type == ON_BrepTrim::Type::singular; }))
      << place;
  EXPECT_EQ(fact["trims_seam"],
            count([](const ON_BrepTrim& t) { return t.m_type == ON_BrepTrim::Type::seam; }))
      << place;
}

template <class Part>
ON_3dVector MidpointSum(const ON_Brep& brep, const std::vector<Part>& parts) {
  ON_3dVector sum{0, 0, 0};
  for (const Part& part : parts) {
    sum = sum + ON_FromOrigin(brep.CurveOf(part).PointAt(part.m_domain.ParameterAt(0.5)));
  }
  return sum;
}

void ExpectPoints(const json& fact, const ON_Brep& brep, const std::string& place) {
  ON_3dVector vertices{0, 0, 0};
  for (const ON_BrepVertex& vertex : brep.m_V) vertices = vertices + ON_FromOrigin(vertex.point);
  const ON_3dVector edges = MidpointSum(brep, brep.m_E);
  const ON_3dVector trims = MidpointSum(brep, brep.m_T);
  ExpectNearly(fact["vertex_sum"], std::array{vertices.x, vertices.y, vertices.z}, kTolerance,
               place + ".vertex_sum");
  ExpectNearly(fact["edge_midpoint_sum"], std::array{edges.x, edges.y, edges.z}, kTolerance,
               place + ".edge_midpoint_sum");
  ExpectNearly(fact["trim_midpoint_sum_uv"], std::array{trims.x, trims.y}, kTolerance,
               place + ".trim_midpoint_sum_uv");
}

json LoopFacts(const ON_Brep& brep, const ON_BrepFace& face) {
  constexpr const char* kTypes[] = {"unknown", "outer", "inner", "slit"};
  json loops = json::array();
  for (const int li : face.m_li) {
    const ON_BrepLoop& loop = brep.m_L[static_cast<std::size_t>(li)];
    const char* type = kTypes[static_cast<std::size_t>(loop.m_type)];
    loops.push_back({{"type", type}, {"trims", loop.m_ti.size()}});
  }
  return loops;
}

void ExpectFace(const json& fact, const ON_Brep& brep, const ON_BrepFace& face,
                const std::string& place) {
  EXPECT_EQ(fact["rev"], face.m_bRev) << place;
  EXPECT_EQ(fact["surface"], face.m_si) << place;
  EXPECT_EQ(fact["material_channel"], face.m_material_channel_index) << place;
  EXPECT_EQ(fact["loops"], LoopFacts(brep, face)) << place;
  ExpectSurface(fact["srf"], brep.SurfaceOf(face), place);
  ASSERT_EQ(fact.contains("render_mesh"), face.m_render_mesh != nullptr) << place;
  if (face.m_render_mesh == nullptr) return;
  EXPECT_EQ(fact["render_mesh"]["V"], face.m_render_mesh->VertexCount()) << place;
  EXPECT_EQ(fact["render_mesh"]["F"], face.m_render_mesh->FaceCount()) << place;
}

void ExpectMeshTotals(const json& fact, const ON_Brep& brep, const std::string& place) {
  std::vector<std::shared_ptr<const ON_Mesh>> meshes, analysis;
  EXPECT_EQ(fact["faces_with_mesh"], brep.GetMesh(ON_Brep::MeshType::render, meshes)) << place;
  EXPECT_EQ(fact["faces_with_analysis_mesh"], brep.GetMesh(ON_Brep::MeshType::analysis, analysis))
      << place;
  int vertices = 0, faces = 0;
  for (const auto& mesh : meshes) {
    vertices += mesh->VertexCount();
    faces += mesh->FaceCount();
  }
  EXPECT_EQ(fact["V"], vertices) << place;
  EXPECT_EQ(fact["F"], faces) << place;
}

}  // namespace

void ExpectBrep(const json& fact, const ON_Brep& brep, const std::string& place) {
  EXPECT_TRUE(brep.IsValid()) << place;
  ExpectCounts(fact["counts"], brep, place);
  ExpectClasses(fact, brep, place);
  EXPECT_EQ(fact["is_surface"], brep.IsSurface()) << place;
  ExpectTrimKinds(fact, brep, place);
  ExpectPoints(fact, brep, place);
  ExpectMeshTotals(fact["render_mesh_total"], brep, place);
  ASSERT_EQ(fact["face"].size(), brep.m_F.size()) << place;
  for (std::size_t i = 0; i < brep.m_F.size(); ++i) {
    ExpectFace(fact["face"][i], brep, brep.m_F[i], place + ".face[" + std::to_string(i) + "]");
  }
}
