#include "export/bake_map_size.h"

#include <cmath>
#include <limits>
#include <utility>

#include "bake_fixture.h"
#include "host/geometry/on_brep.h"
#include "support/brep_shapes.h"

namespace {

// The size of a map, or none.
using Size = std::pair<int, int>;
constexpr Size kNone{-1, -1};

// Fits maps of objects.
class BakeMapSize : public testing::Test {
 protected:
  Size Fit(std::shared_ptr<ON_Geometry> geometry, double texelSize, Size greatest = {256, 256}) {
    ONX_Model model;
    model.m_object_table = {ObjectOf(std::move(geometry))};
    doc_.SetModel(std::move(model), "");
    auto [width, height] = greatest;
    if (orv::FitBakeMapSize(*doc_.Objects()[0], texelSize, width, height)) return {width, height};
    EXPECT_EQ(Size(width, height), greatest);
    return kNone;
  }

  CRhinoDoc doc_;
};

TEST_F(BakeMapSize, HalvesAsLongAsThereAreTexelsEnough) {
  // 4 * 1.333 / 0.1 is 53.32 texels, 2 * 1.333 / 0.1 is 26.66.
  EXPECT_EQ(Fit(TexturedRectangle(4, 2), 0.1), Size(32, 16));
  EXPECT_EQ(Fit(TexturedRectangle(2, 4), 0.1), Size(16, 32));
  EXPECT_EQ(Fit(TexturedRectangle(4, 2), 0.1, {100, 100}), Size(50, 25));
}

TEST_F(BakeMapSize, HalvesOnceMoreWhereTheWholeTexelsAreFewer) {
  // 48 * 1.333 is 63.98, 48.1 * 1.333 is 64.1.
  EXPECT_EQ(Fit(TexturedRectangle(48, 48.1F), 1), Size(32, 64));
}

TEST_F(BakeMapSize, NeverGrows) {
  EXPECT_EQ(Fit(TexturedRectangle(4, 2), 0.00001), Size(256, 256));
  EXPECT_EQ(Fit(TexturedRectangle(4, 2), 0.00001, {64, 8}), Size(64, 8));
}

TEST_F(BakeMapSize, StopsAtTwoTexelsOrFewer) {
  EXPECT_EQ(Fit(TexturedRectangle(1, 1), 10000), Size(2, 2));
  EXPECT_EQ(Fit(TexturedRectangle(1, 1), 10000, {300, 3}), Size(2, 1));
}

TEST_F(BakeMapSize, WithoutATexelSizeIsTheGreatest) {
  EXPECT_EQ(Fit(TexturedRectangle(4, 2), 0), Size(256, 256));
  EXPECT_EQ(Fit(TexturedRectangle(0, 0), 0), Size(256, 256));
  EXPECT_EQ(Fit(TexturedRectangle(4, 2), std::nan("")), Size(256, 256));
  EXPECT_EQ(Fit(TexturedRectangle(4, 2), std::numeric_limits<double>::denorm_min()),
            Size(256, 256));
  EXPECT_EQ(Fit(TexturedRectangle(4, 2), std::numeric_limits<double>::infinity()), Size(2, 2));
  EXPECT_EQ(Fit(TexturedRectangle(4, 2), -1), Size(2, 2));
}

TEST_F(BakeMapSize, CountsTheLengthOfOneRunOfTheTexture) {
  auto mesh = TexturedRectangle(8, 2);
  for (ON_2fPoint& st : mesh->m_T) st.x *= 2;
  EXPECT_EQ(Fit(mesh, 0.1), Size(32, 16));
}

TEST_F(BakeMapSize, TakesTheMeanOfTheEdges) {
  auto mesh = TexturedRectangle(4, 2);
  // The upper side is 12 long, the mean 8: 106.64 texels.
  mesh->m_V[2].x = 12;
  mesh->m_V[2].y = 2;
  EXPECT_EQ(Fit(mesh, 0.1).first, 64);
}

TEST_F(BakeMapSize, DiagonalEdgesCountForNeitherCoordinate) {
  auto mesh = TexturedRectangle(1, 1);
  mesh->m_T = {{0.5F, 0}, {1, 0.5F}, {0.5F, 1}, {0, 0.5F}};
  EXPECT_EQ(Fit(mesh, 0.1), kNone);
  // A tenth of the other coordinate is still diagonal.
  mesh->m_T = {{0, 0}, {10, 1}, {9, 11}, {-1, 10}};
  EXPECT_EQ(Fit(mesh, 0.1), kNone);
  mesh->m_T = {{0, 0}, {10, 0.99F}, {9.01F, 10.99F}, {-0.99F, 10}};
  EXPECT_NE(Fit(mesh, 0.1), kNone);
}

TEST_F(BakeMapSize, NeedsEdgesAlongBothCoordinates) {
  auto mesh = TexturedRectangle(1, 1);
  for (ON_2fPoint& st : mesh->m_T) st.y = 0;
  EXPECT_EQ(Fit(mesh, 0.1), kNone);
  mesh = TexturedRectangle(1, 1);
  for (ON_2fPoint& st : mesh->m_T) st.x = 0;
  EXPECT_EQ(Fit(mesh, 0.1), kNone);
}

TEST_F(BakeMapSize, OfATriangleCountsItsThreeEdges) {
  auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_V = {{0, 0, 0}, {4, 0, 0}, {4, 0, 1}};
  // Two edges along u, of 4 and 4.123 units, and one along v that is a twentieth of it.
  mesh->m_T = {{0, 0}, {1, 0}, {1, 0.05F}};
  mesh->m_F = {{{0, 1, 2, 2}}};
  // 4.06 * 1.333 is 5.4 texels, 20 * 1.333 is 26.6.
  EXPECT_EQ(Fit(mesh, 1), Size(4, 16));
  mesh->m_V[2] = {4, 0, 40};
  // (4 + 40.2) / 2 * 1.333 is 29.46 texels: the third edge counts.
  EXPECT_EQ(Fit(mesh, 1).first, 16);
}

TEST_F(BakeMapSize, NeedsFacesAndTextureCoordinates) {
  EXPECT_EQ(Fit(SquareMesh(), 0.1), kNone);
  auto mesh = TexturedRectangle(1, 1);
  mesh->m_F.clear();
  EXPECT_EQ(Fit(mesh, 0.1), kNone);
  EXPECT_EQ(Fit(std::make_shared<ON_Mesh>(), 0.1), kNone);
  EXPECT_EQ(Fit(nullptr, 0.1), kNone);
}

TEST_F(BakeMapSize, OfABrepTakesAllItsRenderMeshes) {
  std::shared_ptr<ON_Brep> box = MakeBoxBrep({{0, 0, 0}, {1, 1, 1}});
  for (ON_BrepFace& face : box->m_F) face.m_render_mesh = SquareMesh();
  EXPECT_EQ(Fit(box, 0.1), kNone);
  box->m_F[2].m_render_mesh = TexturedRectangle(2, 2);
  box->m_F[4].m_render_mesh = TexturedRectangle(6, 2);
  EXPECT_EQ(Fit(box, 0.1), Size(32, 16));
}

TEST_F(BakeMapSize, OfABrepWithoutRenderMeshesMakesThem) {
  EXPECT_NE(Fit(MakeBoxBrep({{0, 0, 0}, {1, 1, 1}}), 0.1), kNone);
}

TEST_F(BakeMapSize, TakesCoordinatesOfAnySize) {
  auto mesh = TexturedRectangle(3e38F, 3e38F);
  mesh->m_T = {{0, 0}, {3e38F, 0}, {3e38F, 3e38F}, {0, 3e38F}};
  EXPECT_NE(Fit(mesh, 0.1), kNone);
  mesh->m_T = {{0, 0}, {1e-38F, 0}, {1e-38F, 1e-38F}, {0, 1e-38F}};
  EXPECT_EQ(Fit(mesh, 0.1), Size(256, 256));
}

}  // namespace
