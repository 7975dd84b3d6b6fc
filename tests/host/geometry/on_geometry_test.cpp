#include <gtest/gtest.h>

#include <limits>

#include "host/geometry/on_light.h"
#include "host/geometry/on_mesh.h"
#include "host/geometry/on_point_cloud.h"

namespace {

ON_Mesh TwoFaces() {
  ON_Mesh mesh;
  mesh.m_V = {{0, 0, 0}, {1, 0, 0}, {1, 2, 0}, {0, 2, -1}, {0, 0, 3}};
  mesh.m_F = {{{0, 1, 2, 3}}, {{0, 1, 4, 4}}};
  return mesh;
}

TEST(Geometry, ACastFindsTheKind) {
  const ON_Mesh mesh;
  const ON_Light light;
  const ON_Point point;
  const ON_PointCloud cloud;
  EXPECT_EQ(ON_Mesh::Cast(&mesh), &mesh);
  EXPECT_EQ(ON_Light::Cast(&light), &light);
  EXPECT_EQ(ON_Point::Cast(&point), &point);
  EXPECT_EQ(ON_PointCloud::Cast(&cloud), &cloud);
  EXPECT_EQ(ON_Mesh::Cast(&light), nullptr);
  EXPECT_EQ(ON_Light::Cast(&mesh), nullptr);
  EXPECT_EQ(ON_Point::Cast(&cloud), nullptr);
  EXPECT_EQ(ON_PointCloud::Cast(nullptr), nullptr);
}

TEST(Mesh, CountsTrianglesAndQuads) {
  const ON_Mesh mesh = TwoFaces();
  EXPECT_EQ(mesh.VertexCount(), 5);
  EXPECT_EQ(mesh.FaceCount(), 2);
  EXPECT_EQ(mesh.TriangleCount(), 1);
  EXPECT_EQ(mesh.QuadCount(), 1);
}

TEST(Mesh, ItsBoxHoldsAllVertices) {
  const ON_BoundingBox box = TwoFaces().BoundingBox();
  EXPECT_EQ(box.m_min, (ON_3dPoint{0, 0, -1}));
  EXPECT_EQ(box.m_max, (ON_3dPoint{1, 2, 3}));
  EXPECT_FALSE(ON_Mesh().BoundingBox().IsValid());
}

TEST(Mesh, AVertexThatIsNoPointDoesNotCountForTheBox) {
  ON_Mesh mesh = TwoFaces();
  constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
  mesh.m_V.push_back({kNan, kNan, kNan});
  EXPECT_EQ(mesh.BoundingBox().m_max, (ON_3dPoint{1, 2, 3}));
  mesh.m_V = {{kNan, kNan, kNan}};
  EXPECT_FALSE(mesh.BoundingBox().IsValid());
}

TEST(Mesh, AChannelCountsOnlyWhenItIsWhole) {
  ON_Mesh mesh = TwoFaces();
  EXPECT_FALSE(mesh.HasVertexNormals());
  mesh.m_N.assign(4, {0, 0, 1});
  mesh.m_T.assign(6, {0, 0});
  mesh.m_C.assign(5, ON_Color());
  EXPECT_FALSE(mesh.HasVertexNormals());
  EXPECT_FALSE(mesh.HasTextureCoordinates());
  EXPECT_TRUE(mesh.HasVertexColors());
  EXPECT_FALSE(ON_Mesh().HasVertexNormals());
}

TEST(Mesh, FindsFacesThatNameNoVertex) {
  ON_Mesh mesh = TwoFaces();
  EXPECT_TRUE(mesh.HasValidFaceIndices());
  mesh.m_F[1].vi[3] = 5;
  EXPECT_FALSE(mesh.HasValidFaceIndices());
  mesh.m_F[1].vi[3] = -1;
  EXPECT_FALSE(mesh.HasValidFaceIndices());
  EXPECT_TRUE(ON_Mesh().HasValidFaceIndices());
}

bool IsPacked(ON_Interval u, ON_Interval v, std::array<double, 2> scale = {6, 18}) {
  ON_Mesh mesh;
  mesh.m_packed_tex_domain = {u, v};
  mesh.m_srf_scale = scale;
  return mesh.HasPackedTextureRegion();
}

TEST(Mesh, APackedTextureRegionIsAPartOfTheUnitSquare) {
  EXPECT_TRUE(IsPacked({0, 0.2700515314180359}, {0.4999999999999996, 0.7142724296678085}));
  EXPECT_TRUE(IsPacked({0, 1}, {0, 0.5}));
  EXPECT_FALSE(IsPacked({0, 1}, {0, 1}));
  EXPECT_FALSE(IsPacked({0.2715163751680359, 1.0000000000000002}, {0, 0.480737814833799}));
  EXPECT_FALSE(IsPacked({-0.1, 0.5}, {0, 0.5}));
  EXPECT_FALSE(IsPacked({0.5, 0.5}, {0, 0.5}));
}

TEST(Mesh, APackedTextureRegionMustBeSet) {
  EXPECT_FALSE(ON_Mesh().HasPackedTextureRegion());
  EXPECT_FALSE(IsPacked({}, {0, 0.5}));
  EXPECT_FALSE(IsPacked({0, 0.5}, {0, ON_UNSET_VALUE}));
  EXPECT_FALSE(IsPacked({0, 0.5}, {0, std::numeric_limits<double>::quiet_NaN()}));
  EXPECT_FALSE(IsPacked({0, 0.7399304813482293}, {0, 0.99853515625}, {0, 0}));
}

TEST(PointCloud, ItsBoxHoldsAllPoints) {
  ON_PointCloud cloud;
  EXPECT_FALSE(cloud.BoundingBox().IsValid());
  EXPECT_FALSE(cloud.HasPointColors());
  cloud.m_P = {{1, 2, 3}, {-1, 0, 5}};
  cloud.m_C = {ON_Color(1, 2, 3)};
  cloud.m_N = {{0, 0, 1}, {0, 0, 1}};
  EXPECT_EQ(cloud.PointCount(), 2);
  EXPECT_EQ(cloud.BoundingBox().m_min, (ON_3dPoint{-1, 0, 3}));
  EXPECT_EQ(cloud.BoundingBox().m_max, (ON_3dPoint{1, 2, 5}));
  EXPECT_FALSE(cloud.HasPointColors());
  EXPECT_TRUE(cloud.HasPointNormals());
}

TEST(Point, ItsBoxIsThePoint) {
  ON_Point point;
  point.point = {1, 2, 3};
  EXPECT_EQ(point.BoundingBox().m_min, (ON_3dPoint{1, 2, 3}));
  EXPECT_EQ(point.BoundingBox().m_max, (ON_3dPoint{1, 2, 3}));
}

TEST(Light, OnlyALinearOrRectangularOneIsMoreThanAPoint) {
  ON_Light light;
  light.m_location = {1, 1, 1};
  light.m_length = {4, 0, 0};
  light.m_width = {0, 0, -2};
  light.m_style = ON_LightStyle::world_spot;
  EXPECT_EQ(light.BoundingBox().m_max, (ON_3dPoint{1, 1, 1}));
  light.m_style = ON_LightStyle::world_linear;
  EXPECT_EQ(light.BoundingBox().m_min, (ON_3dPoint{1, 1, 1}));
  EXPECT_EQ(light.BoundingBox().m_max, (ON_3dPoint{5, 1, 1}));
  light.m_style = ON_LightStyle::world_rectangular;
  EXPECT_EQ(light.BoundingBox().m_min, (ON_3dPoint{1, 1, -1}));
  EXPECT_EQ(light.BoundingBox().m_max, (ON_3dPoint{5, 1, 1}));
}

TEST(Geometry, ACopyHasTheUserStrings) {
  ON_Mesh mesh = TwoFaces();
  mesh.SetUserString("key", "value");
  const ON_Mesh copy = mesh;
  EXPECT_EQ(copy.GetUserString("KEY"), "value");
  EXPECT_EQ(copy.m_V, mesh.m_V);
}

}  // namespace
