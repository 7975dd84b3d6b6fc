#include "solid_facts.h"

#include <algorithm>
#include <array>
#include <map>

#include "brep_facts.h"
#include "curve_facts.h"
#include "facts_documents.h"

using nlohmann::json;

namespace {

// Points that are computed differ by rounding only, and so do sums.
constexpr double kTolerance = 1e-12;

void ExpectPoint(const json& fact, const ON_3dPoint& p, const std::string& what) {
  ExpectNearly(fact, std::array{p.x, p.y, p.z}, kTolerance, what);
}

ON_Interval CommonDomain(const ON_Extrusion& extrusion) {
  const int last = extrusion.ProfileCount() - 1;
  return {extrusion.ProfileDomain(0).Min, extrusion.ProfileDomain(last).Max};
}

void ExpectEnds(const json& fact, const ON_Extrusion& extrusion, const std::string& place) {
  ExpectPoint(fact["path_start"], extrusion.EndPlane(0).origin, place + ".path_start");
  ExpectPoint(fact["path_end"], extrusion.EndPlane(1).origin, place + ".path_end");
  const ON_3dVector& up = extrusion.m_up;
  ExpectNearly(fact["up"], std::array{up.x, up.y, up.z}, 0, place + ".up");
  ExpectNumbers(fact["t"], {extrusion.m_t.Min, extrusion.m_t.Max}, place + ".t");
  const auto flags = [](const std::array<bool, 2>& set) { return json{int{set[0]}, int{set[1]}}; };
  EXPECT_EQ(fact["cap_flags"], flags(extrusion.m_bCap)) << place;
  EXPECT_EQ(fact["miter_flags"], flags(extrusion.m_bHaveN)) << place;
}

}  // namespace

void ExpectExtrusion(const json& fact, const ON_Extrusion& extrusion, const std::string& place) {
  EXPECT_TRUE(extrusion.IsValid()) << place;
  EXPECT_EQ(fact["profile_count"], extrusion.ProfileCount()) << place;
  EXPECT_EQ(fact["profile_class"], CurveClassName(*extrusion.m_profile)) << place;
  EXPECT_EQ(fact["transposed"], extrusion.m_bTransposed) << place;
  const ON_Interval u = CommonDomain(extrusion), v = extrusion.m_path_domain;
  ExpectNumbers(fact["domain"], {u.Min, u.Max, v.Min, v.Max}, place + ".domain");
  ExpectEnds(fact, extrusion, place);
  EXPECT_EQ(fact.contains("render_mesh"), extrusion.m_render_mesh != nullptr) << place;
  const std::unique_ptr<ON_Brep> brep = extrusion.BrepForm();
  ASSERT_NE(brep, nullptr) << place;
  EXPECT_EQ(fact["brep_form"]["is_solid"], brep->m_is_solid == 1) << place;
  ExpectBrep(fact["brep_form"], *brep, place + ".brep_form");
}

void ExpectSubD(const json& fact, const ON_SubD& subd, const std::string& place) {
  EXPECT_TRUE(subd.IsValid()) << place;
  EXPECT_EQ(fact["V"], subd.VertexCount()) << place;
  EXPECT_EQ(fact["E"], subd.EdgeCount()) << place;
  EXPECT_EQ(fact["F"], subd.FaceCount()) << place;
  ON_3dVector sum{0, 0, 0};
  std::map<ON_SubDVertex::Tag, int> tags;
  for (const ON_SubDVertex& vertex : subd.m_vertex) {
    sum = sum + ON_FromOrigin(vertex.m_P);
    ++tags[vertex.m_tag];
  }
  ExpectNearly(fact["control_net_sum"], std::array{sum.x, sum.y, sum.z}, kTolerance,
               place + ".control_net_sum");
  ASSERT_FALSE(subd.m_vertex.empty()) << place;
  ExpectPoint(fact["first_vertex"], subd.m_vertex.front().m_P, place + ".first_vertex");
  EXPECT_EQ(fact["crease_vertices"], tags[ON_SubDVertex::Tag::crease]) << place;
  EXPECT_EQ(fact["corner_vertices"], tags[ON_SubDVertex::Tag::corner]) << place;
  EXPECT_EQ(fact["dart_vertices"], tags[ON_SubDVertex::Tag::dart]) << place;
  EXPECT_EQ(fact["crease_edges"],
            std::count_if(subd.m_edge.begin(), subd.m_edge.end(),
                          [](const ON_SubDEdge& edge) { return edge.m_is_crease; }))
      << place;
  const bool is_closed =
      std::all_of(subd.m_edge.begin(), subd.m_edge.end(),
                  [](const ON_SubDEdge& edge) { return edge.m_face_count == 2; });
  EXPECT_EQ(fact["is_solid"], is_closed) << place;
  std::map<std::string, int> faces;
  for (const ON_SubDFace& face : subd.m_face) ++faces[std::to_string(face.m_vi.size())];
  EXPECT_EQ(fact["faces_by_edge_count"], json(faces)) << place;
}
