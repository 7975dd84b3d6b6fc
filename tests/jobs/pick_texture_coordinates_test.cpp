#include "jobs/pick_texture_coordinates.h"

#include <gmock/gmock.h>

#include <numbers>

#include "command_fixture.h"
#include "host/document/object.h"
#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_extrusion.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_plane_surface.h"
#include "host/geometry/on_rev_surface.h"
#include "support/brep_shapes.h"
#include "support/typed_numbers.h"

namespace orv {
namespace {

using testing::ElementsAre;

class PickTextureCoordinatesTest : public CommandTest {
 protected:
  std::optional<ON_2dPoint> Pick(std::shared_ptr<ON_Geometry> geometry, std::string typed) {
    ONX_Model model;
    model.m_object_table.emplace_back().m_geometry = std::move(geometry);
    doc_.ImportModel(std::move(model));
    return PickOn(*doc_.Objects().back(), {std::move(typed)});
  }
  std::optional<ON_2dPoint> PickOn(const CRhinoObject& object, std::vector<std::string> answers) {
    TypedInput input(std::move(answers));
    CRhinoCommandContext context(doc_, input, true);
    const auto place = PickTextureCoordinates(context, object);
    prompts_ = input.Prompts();
    return place;
  }
  void ExpectPlace(const std::optional<ON_2dPoint>& place, double s, double t) {
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->x, s, 1e-7);
    EXPECT_NEAR(place->y, t, 1e-7);
  }

  // The rectangle from 0 to 10 and 0 to 4.
  static std::shared_ptr<ON_PlaneSurface> Rectangle() {
    auto plane = std::make_shared<ON_PlaneSurface>();
    plane->m_domain[0] = plane->m_extents[0] = {0, 10};
    plane->m_domain[1] = plane->m_extents[1] = {0, 4};
    return plane;
  }
  static std::shared_ptr<ON_Brep> Box() { return MakeBoxBrep({{0, 0, 0}, {1, 2, 3}}); }
  // The box with a mesh on its face 1, which looks up, that is packed into a part of the map.
  static std::shared_ptr<ON_Brep> PackedBox(bool isRotated) {
    std::shared_ptr<ON_Brep> box = Box();
    auto mesh = std::make_shared<ON_Mesh>();
    const ON_Surface& surface = box->SurfaceOf(box->m_F[1]);
    mesh->m_srf_domain = {surface.Domain(0), surface.Domain(1)};
    mesh->m_srf_scale = {1, 2};
    mesh->m_packed_tex_domain = {{{0.5, 0.75}, {0.2, 0.4}}};
    mesh->m_packed_tex_rotate = isRotated;
    box->m_F[1].m_render_mesh = mesh;
    return box;
  }
  // A square of a quad whose texture coordinates are its x and y, divided by 4.
  static std::shared_ptr<ON_Mesh> TexturedSquare() {
    auto mesh = std::make_shared<ON_Mesh>();
    mesh->m_V = {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}};
    mesh->m_F = {{{0, 1, 2, 3}}};
    mesh->m_T = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    return mesh;
  }
};

TEST_F(PickTextureCoordinatesTest, OfASurfaceAreItsParametersWithTDownwards) {
  ExpectPlace(Pick(Rectangle(), "2.5,1,7"), 0.25, 0.75);
  EXPECT_THAT(prompts_, ElementsAre("Pick point on surface: "));
  ExpectPlace(Pick(Rectangle(), "10,4"), 1, 0);
  ExpectPlace(Pick(Rectangle(), "-3,99,0"), 0, 0);
}

TEST_F(PickTextureCoordinatesTest, OfASphere) {
  constexpr double kPi = std::numbers::pi;
  auto sphere = std::make_shared<ON_RevSurface>();
  sphere->m_angle = sphere->m_t = {0, 2 * kPi};
  sphere->m_curve = std::make_shared<ON_ArcCurve>(
      ON_Arc{{{0, 0, 0}, {1, 0, 0}, {0, 0, 1}, {0, -1, 0}}, 2, {-kPi / 2, kPi / 2}});
  // A quarter around, 30 degrees up.
  ExpectPlace(Pick(sphere, "0," + Typed(std::sqrt(3)) + ",1"), 0.25, 1.0 / 3);
}

TEST_F(PickTextureCoordinatesTest, OfATrimmedPlane) {
  const std::shared_ptr<ON_Brep> plate = MakePlateBrep(5, 2);
  ExpectPlace(Pick(plate, "3,-4,1"), 0.8, 0.9);
  // Over the hole.
  ExpectPlace(Pick(plate, "0.6,0.8,0"), 0.62, 0.34);
}

TEST_F(PickTextureCoordinatesTest, OfABoxAreThoseOfTheFace) {
  const std::shared_ptr<ON_Brep> box = Box();
  for (int i = 0; i < 6; ++i) {
    const ON_Surface& surface = box->SurfaceOf(*box->Face(i));
    const ON_3dPoint p =
        surface.PointAt(surface.Domain(0).ParameterAt(0.25), surface.Domain(1).ParameterAt(0.625));
    ExpectPlace(Pick(box, Typed(p)), 0.25, 0.375);
  }
  const double u = box->SurfaceOf(*box->Face(3)).Domain(0).ParameterAt(0.5);
  ExpectPlace(Pick(box, "3:" + Typed(u) + ",0"), 0.5, 1);
}

TEST_F(PickTextureCoordinatesTest, OfAPackedFaceLieInItsRegion) {
  const std::shared_ptr<ON_Brep> box = PackedBox(false);
  const ON_Surface& surface = box->SurfaceOf(box->m_F[1]);
  const auto typed = [&surface](double u, double v) {
    return "1:" + Typed(surface.Domain(0).ParameterAt(u), surface.Domain(1).ParameterAt(v));
  };
  ExpectPlace(Pick(box, typed(0, 0)), 0.5, 0.8);
  ExpectPlace(Pick(box, typed(0.5, 0.25)), 0.625, 0.75);
  ExpectPlace(Pick(box, typed(1, 1)), 0.75, 0.6);
  const std::shared_ptr<ON_Brep> rotated = PackedBox(true);
  ExpectPlace(Pick(rotated, typed(0, 0)), 0.75, 0.8);
  ExpectPlace(Pick(rotated, typed(0.5, 0.25)), 0.6875, 0.7);
  ExpectPlace(Pick(rotated, typed(1, 1)), 0.5, 0.6);
}

TEST_F(PickTextureCoordinatesTest, OfAPackedMeshOverAnotherDomainAreTakenInThat) {
  const std::shared_ptr<ON_Brep> box = PackedBox(false);
  auto mesh = std::make_shared<ON_Mesh>(*box->m_F[1].m_render_mesh);
  const ON_Interval u = box->SurfaceOf(box->m_F[1]).Domain(0);
  mesh->m_srf_domain[0] = {u.Min, u.Min + 2 * u.Length()};
  box->m_F[1].m_render_mesh = mesh;
  ExpectPlace(Pick(box, "1:" + Typed(u.Max) + ",0"), 0.625, 0.8);
  // One of nothing isn't used.
  mesh->m_srf_domain[0] = {1, 1};
  ExpectPlace(Pick(box, "1:" + Typed(u.Max) + ",0"), 1, 1);
}

TEST_F(PickTextureCoordinatesTest, ASingleSurfaceIsNeverPacked) {
  const std::shared_ptr<ON_Brep> brep = Rectangle()->BrepForm();
  auto mesh = std::make_shared<ON_Mesh>(*PackedBox(false)->m_F[1].m_render_mesh);
  brep->m_F[0].m_render_mesh = mesh;
  ASSERT_TRUE(brep->IsSurface());
  ExpectPlace(Pick(brep, "2.5,1,7"), 0.25, 0.75);
}

TEST_F(PickTextureCoordinatesTest, OfAnExtrusionAreThoseOfItsFaces) {
  auto extrusion = std::make_shared<ON_Extrusion>();
  extrusion->m_profile = std::make_unique<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{4, 0, 0});
  extrusion->m_profile_count = 1;
  extrusion->m_path = {{0, 0, 0}, {0, 0, 2}};
  ASSERT_TRUE(extrusion->IsValid());
  const std::unique_ptr<ON_Brep> form = extrusion->BrepForm();
  ASSERT_NE(form, nullptr);
  const ON_Surface& surface = form->SurfaceOf(form->m_F[0]);
  const ON_3dPoint p =
      surface.PointAt(surface.Domain(0).ParameterAt(0.25), surface.Domain(1).ParameterAt(0.75));
  ExpectPlace(Pick(extrusion, Typed(p)), 0.25, 0.25);
}

TEST_F(PickTextureCoordinatesTest, OfAMeshAreInterpolatedWithTDownwards) {
  ExpectPlace(Pick(TexturedSquare(), "3,1,5"), 0.75, 0.75);
  EXPECT_THAT(prompts_, ElementsAre("Pick point on mesh: "));
  ExpectPlace(Pick(TexturedSquare(), "1,3,5"), 0.25, 0.25);
  ExpectPlace(Pick(TexturedSquare(), "-9,4,0"), 0, 0);
}

// In a quad that isn't flat in the map, each triangle counts for itself.
TEST_F(PickTextureCoordinatesTest, OfAQuadAreThoseOfTheTriangle) {
  const std::shared_ptr<ON_Mesh> mesh = TexturedSquare();
  mesh->m_T[3] = {9, 9};
  ExpectPlace(Pick(mesh, "3,1,0"), 0.75, 0.75);
  // A half of the corner 0, a quarter of the corners 2 and 3.
  ExpectPlace(Pick(mesh, "1,2,0"), 2.5, -1.5);
}

TEST_F(PickTextureCoordinatesTest, WithoutAPointThereAreNone) {
  EXPECT_FALSE(Pick(Rectangle(), "!"));
  EXPECT_FALSE(Pick(Rectangle(), "Enter"));
  EXPECT_FALSE(Pick(TexturedSquare(), "!"));
  EXPECT_EQ(messages_, "");
}

TEST_F(PickTextureCoordinatesTest, OtherObjectsAreRefused) {
  // A mesh without texture coordinates, a curve, and one that isn't read.
  EXPECT_FALSE(PickOn(*doc_.Objects()[0], {}));
  EXPECT_THAT(prompts_, ElementsAre());
  EXPECT_EQ(messages_, "Unable to pick point on selected object.\n");
  messages_.clear();
  EXPECT_FALSE(
      Pick(std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{4, 0, 0}), "0,0,0"));
  EXPECT_EQ(messages_, "Unable to pick point on selected object.\n");
  messages_.clear();
  EXPECT_FALSE(Pick(nullptr, "0,0,0"));
  EXPECT_EQ(messages_, "Unable to pick point on selected object.\n");
}

}  // namespace
}  // namespace orv
