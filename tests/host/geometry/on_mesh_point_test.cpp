#include "host/geometry/on_mesh_point.h"

#include <gtest/gtest.h>

#include <limits>

#include "surface_checks.h"

namespace {

ON_Mesh Mesh(std::vector<ON_3fPoint> vertices, std::vector<ON_MeshFace> faces) {
  ON_Mesh mesh;
  mesh.m_V.assign(vertices.begin(), vertices.end());
  mesh.m_F.assign(faces.begin(), faces.end());
  return mesh;
}

// The square from 0 to 4 and a triangle beside it, at z = 1.
ON_Mesh SquareAndTriangle() {
  return Mesh({{0, 0, 1}, {4, 0, 1}, {4, 4, 1}, {0, 4, 1}, {8, 0, 1}},
              {{{0, 1, 2, 3}}, {{1, 4, 2, 2}}});
}

// The point that the weights make of the face's vertices.
ON_3dPoint Mixed(const ON_Mesh& mesh, const ON_MESH_POINT& point) {
  ON_3dPoint mixed{0, 0, 0};
  const ON_MeshFace& face = mesh.m_F[static_cast<std::size_t>(point.m_face_index)];
  for (std::size_t i = 0; i < 4; ++i) {
    const ON_3fPoint& v = mesh.m_V[static_cast<std::size_t>(face.vi[i])];
    mixed = mixed + ON_3dVector{v.x, v.y, v.z} * point.m_t[i];
  }
  return mixed;
}

ON_MESH_POINT Closest(const ON_Mesh& mesh, ON_3dPoint p) {
  const auto found = ON_ClosestPointOnMesh(mesh, p);
  EXPECT_TRUE(found);
  if (!found) return {};
  ExpectPointsAgree(Mixed(mesh, *found), found->m_P);
  EXPECT_NEAR(found->m_t[0] + found->m_t[1] + found->m_t[2] + found->m_t[3], 1, 1e-12);
  return *found;
}

TEST(ClosestMeshPoint, InsideAFaceIsTheFoot) {
  const ON_MESH_POINT found = Closest(SquareAndTriangle(), {3, 1, 7});
  EXPECT_EQ(found.m_face_index, 0);
  ExpectPointsAgree({3, 1, 1}, found.m_P);
  EXPECT_EQ(found.m_t, (std::array<double, 4>{0.25, 0.5, 0.25, 0}));
  std::array<int, 3> corners{};
  EXPECT_TRUE(found.GetTriangle(corners));
  EXPECT_EQ(corners, (std::array<int, 3>{0, 1, 2}));
}

TEST(ClosestMeshPoint, TheOtherHalfOfAQuadIsTheOtherTriangle) {
  const ON_MESH_POINT found = Closest(SquareAndTriangle(), {1, 2, -7});
  EXPECT_EQ(found.m_Triangle, 'B');
  EXPECT_EQ(found.m_t, (std::array<double, 4>{0.5, 0, 0.25, 0.25}));
  std::array<int, 3> corners{};
  EXPECT_TRUE(found.GetTriangle(corners));
  EXPECT_EQ(corners, (std::array<int, 3>{0, 2, 3}));
}

// Its diagonal from 1 to 3 is the shorter one.
TEST(ClosestMeshPoint, QuadsAreCutAlongTheirShorterDiagonal) {
  const ON_Mesh mesh = Mesh({{-3, 0, 0}, {0, -1, 0}, {3, 0, 0}, {0, 1, 0}}, {{{0, 1, 2, 3}}});
  const ON_MESH_POINT left = Closest(mesh, {-1, 0, 2});
  EXPECT_EQ(left.m_Triangle, 'C');
  EXPECT_EQ(left.m_t[2], 0);
  EXPECT_NEAR(left.m_t[0], 1.0 / 3, 1e-15);
  const ON_MESH_POINT right = Closest(mesh, {1.5, 0, 2});
  EXPECT_EQ(right.m_Triangle, 'D');
  EXPECT_EQ(right.m_t[0], 0);
  std::array<int, 3> corners{};
  EXPECT_TRUE(right.GetTriangle(corners));
  EXPECT_EQ(corners, (std::array<int, 3>{1, 2, 3}));
  EXPECT_TRUE(left.GetTriangle(corners));
  EXPECT_EQ(corners, (std::array<int, 3>{0, 1, 3}));
}

TEST(ClosestMeshPoint, OutsideIsOnAnEdgeOrAVertex) {
  const ON_Mesh mesh = SquareAndTriangle();
  ExpectPointsAgree({0, 3, 1}, Closest(mesh, {-5, 3, 2}).m_P);
  ExpectPointsAgree({0, 0, 1}, Closest(mesh, {-5, -3, 1}).m_P);
  const ON_MESH_POINT slope = Closest(mesh, {8, 4, 1});
  EXPECT_EQ(slope.m_face_index, 1);
  ExpectPointsAgree({6, 2, 1}, slope.m_P);
  EXPECT_EQ(slope.m_t[3], 0);
}

TEST(ClosestMeshPoint, OnASharedEdgeIsOnTheFirstFace) {
  EXPECT_EQ(Closest(SquareAndTriangle(), {4, 1, 5}).m_face_index, 0);
}

TEST(ClosestMeshPoint, UsesVerticesInDoublePrecisionWhereThereAreSome) {
  ON_Mesh mesh = SquareAndTriangle();
  for (const ON_3fPoint& v : mesh.m_V) mesh.m_dV.push_back({v.x, v.y, 1 + 1e-12});
  EXPECT_EQ(ON_ClosestPointOnMesh(mesh, {1, 1, 5})->m_P.z, 1 + 1e-12);
}

TEST(ClosestMeshPoint, FacesWithoutAnAreaAreLinesAndPoints) {
  const ON_Mesh line = Mesh({{0, 0, 0}, {2, 0, 0}, {4, 0, 0}}, {{{0, 1, 2, 2}}});
  ExpectPointsAgree({3, 0, 0}, Closest(line, {3, 9, 0}).m_P);
  const ON_Mesh point = Mesh({{1, 2, 3}}, {{{0, 0, 0, 0}}});
  ExpectPointsAgree({1, 2, 3}, Closest(point, {3, 9, 0}).m_P);
}

TEST(ClosestMeshPoint, ThereIsOneForEveryPoint) {
  constexpr double kFar = std::numeric_limits<double>::max();
  for (const ON_3dPoint& p : {ON_3dPoint{kFar, kFar, -kFar}, {1e200, 0, 0}, {0, -1e-320, 0}}) {
    EXPECT_TRUE(ON_ClosestPointOnMesh(SquareAndTriangle(), p));
  }
}

TEST(ClosestMeshPoint, ThereIsNoneWithoutAFace) {
  EXPECT_FALSE(ON_ClosestPointOnMesh(Mesh({{0, 0, 0}}, {}), {0, 0, 0}));
  constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
  EXPECT_FALSE(
      ON_ClosestPointOnMesh(Mesh({{kNone, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{{0, 1, 2, 2}}}), {}));
  std::array<int, 3> corners{};
  EXPECT_FALSE(ON_MESH_POINT().GetTriangle(corners));
}

}  // namespace
