#include "support/shapes.h"

#include <gtest/gtest.h>

namespace {

ON_3dPoint PointOf(const ON_Mesh& mesh, std::int32_t index) {
  const ON_3fPoint& p = mesh.m_V[static_cast<std::size_t>(index)];
  return {p.x, p.y, p.z};
}

ON_3dVector NormalOf(const ON_Mesh& mesh, std::int32_t index) {
  const ON_3fVector& n = mesh.m_N[static_cast<std::size_t>(index)];
  return {n.x, n.y, n.z};
}

// Every face is a polygon that turns counter-clockwise about the normals of its corners.
void ExpectFacesAgreeWithNormals(const ON_Mesh& mesh) {
  ASSERT_TRUE(mesh.HasValidFaceIndices());
  for (const ON_MeshFace& face : mesh.m_F) {
    const ON_3dPoint corner = PointOf(mesh, face.vi[0]);
    const ON_3dVector turn =
        ON_CrossProduct(PointOf(mesh, face.vi[2]) - corner, PointOf(mesh, face.vi[3]) - corner) +
        ON_CrossProduct(PointOf(mesh, face.vi[1]) - corner, PointOf(mesh, face.vi[2]) - corner);
    EXPECT_GT(turn.Length(), 0);
    ON_3dVector sum{0, 0, 0};
    for (const std::int32_t index : face.vi) sum = sum + NormalOf(mesh, index);
    EXPECT_GT(ON_DotProduct(turn, sum), 0);
  }
}

void ExpectWholeChannels(const ON_Mesh& mesh) {
  EXPECT_TRUE(mesh.HasVertexNormals());
  EXPECT_TRUE(mesh.HasTextureCoordinates());
  for (int i = 0; i < mesh.VertexCount(); ++i) EXPECT_NEAR(NormalOf(mesh, i).Length(), 1, 1e-6);
  for (const ON_2fPoint& t : mesh.m_T) {
    EXPECT_TRUE(t.x >= 0 && t.x <= 1 && t.y >= 0 && t.y <= 1);
  }
}

void ExpectSound(const ON_Mesh& mesh) {
  ExpectWholeChannels(mesh);
  ExpectFacesAgreeWithNormals(mesh);
}

TEST(Shapes, ABoxHasFourVerticesASide) {
  const ON_Mesh mesh = MakeBox({{-1, -2, -3}, {1, 2, 3}});
  ExpectSound(mesh);
  EXPECT_EQ(mesh.VertexCount(), 24);
  EXPECT_EQ(mesh.QuadCount(), 6);
  EXPECT_EQ(mesh.BoundingBox().m_min, (ON_3dPoint{-1, -2, -3}));
  EXPECT_EQ(mesh.BoundingBox().m_max, (ON_3dPoint{1, 2, 3}));
  for (int i = 0; i < 24; ++i) {
    EXPECT_GT(ON_DotProduct(NormalOf(mesh, i), ON_FromOrigin(PointOf(mesh, i))), 0);
  }
}

TEST(Shapes, ASphereHasTrianglesAtItsPoles) {
  const ON_Mesh mesh = MakeSphere({1, 2, 3}, 5, 16, 8);
  ExpectSound(mesh);
  EXPECT_EQ(mesh.VertexCount(), 17 * 9);
  EXPECT_EQ(mesh.TriangleCount(), 2 * 16);
  EXPECT_EQ(mesh.QuadCount(), 6 * 16);
  for (int i = 0; i < mesh.VertexCount(); ++i) {
    const ON_3dVector fromCenter = PointOf(mesh, i) - ON_3dPoint{1, 2, 3};
    EXPECT_NEAR(fromCenter.Length(), 5, 1e-6);
    EXPECT_NEAR(ON_DotProduct(fromCenter, NormalOf(mesh, i)), 5, 1e-5);
  }
}

TEST(Shapes, WavesAreAFieldOfQuads) {
  const ON_Mesh mesh = MakeWaves(10, 30, 20);
  ExpectSound(mesh);
  EXPECT_EQ(mesh.VertexCount(), 31 * 21);
  EXPECT_EQ(mesh.QuadCount(), 30 * 20);
  EXPECT_EQ(mesh.BoundingBox().m_max.x, 10);
  EXPECT_NEAR(mesh.BoundingBox().m_max.z, 0.2, 0.01);
}

TEST(Shapes, ATurnedProfileFacesAwayFromItsInside) {
  constexpr ON_2dPoint kProfile[] = {{0, 0}, {3, 0}, {4, 2}, {3, 5}};
  const ON_Mesh mesh = MakeTurned({10, 0, 0}, kProfile, 24, 12);
  ExpectSound(mesh);
  EXPECT_NEAR(mesh.BoundingBox().m_max.z, 5, 0.2);
  const int rim = mesh.VertexCount() - 1;
  EXPECT_GT(ON_DotProduct(NormalOf(mesh, rim), PointOf(mesh, rim) - ON_3dPoint{10, 0, 5}), 0);
}

TEST(Shapes, AKnotIsClosed) {
  TorusKnot knot;
  const ON_Mesh mesh = MakeTorusKnot(knot, 120, 10);
  ExpectSound(mesh);
  const int columns = 121;
  for (int row = 0; row <= 10; ++row) {
    const ON_3dVector gap =
        PointOf(mesh, row * columns) - PointOf(mesh, row * columns + columns - 1);
    EXPECT_LT(gap.Length(), 1e-5);
  }
}

TEST(Shapes, AKnotWithoutWindingsIsARing) {
  TorusKnot ring;
  ring.turns = 1;
  ring.windings = 0;
  const ON_Mesh mesh = MakeTorusKnot(ring, 40, 12);
  ExpectSound(mesh);
  EXPECT_NEAR(mesh.BoundingBox().m_max.x, 12, 1e-5);
  EXPECT_NEAR(mesh.BoundingBox().m_max.z, 2, 1e-5);
}

TEST(Shapes, AQuadWithoutAreaIsLeftOut) {
  const ON_Mesh mesh = MakeSurface(4, 4, [](double u, double) {
    return SurfaceSample{{u, 0, 0}, {1, 0, 0}, {0, 1, 0}};
  });
  EXPECT_EQ(mesh.FaceCount(), 0);
  EXPECT_EQ(mesh.VertexCount(), 25);
}

}  // namespace
