#include "side_export/vrml_shape.h"

#include <gmock/gmock.h>

#include "host/geometry/on_plane_surface.h"
#include "support/brep_shapes.h"
#include "vrml_checker.h"
#include "vrml_fixture.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class VrmlShapes : public VrmlTest {
 protected:
  VrmlShapes() { model_.m_object_table = {NamedObject(TexturedRectangle(4, 2), 1)}; }

  std::vector<VrmlShape> Shapes() {
    Open();
    return CheckVrml(Vrml()).shapes;
  }
};

TEST_F(VrmlShapes, OfAMesh) {
  auto mesh = TexturedRectangle(4, 2);
  mesh->m_V.push_back({1, 2, 3});
  mesh->m_T.push_back({0.5F, 0.25F});
  mesh->m_F.push_back({{2, 3, 4, 4}});
  model_.m_object_table = {NamedObject(mesh, 1)};
  Open();
  EXPECT_EQ(Vrml(), R"(#VRML V2.0 utf8
Background {
skyColor [0.2 0.4 1]
}
Shape {  appearance Appearance {
    texture ImageTexture {
      repeatS FALSE
      repeatT FALSE
      url "hall_00000000-0000-4000-8000-000000000001.png" } )"
                    "\n"
                    R"( } # appearance
geometry IndexedFaceSet {
  ccw FALSE
  convex TRUE
  solid FALSE
  coordIndex [
0, 1, 2, 3, -1
 , 2, 3, 4, -1
]
  coord Coordinate { point [
0 0 -0
 , 4 0 -0
 , 4 0 -2
 , 0 0 -2
 , 1 3 -2
  ] }
texCoord TextureCoordinate { point [
0 0
 , 1 0
 , 1 1
 , 0 1
 , 0.5 0.25
  ]
}
 } # geometry
} # shape
)");
}

TEST_F(VrmlShapes, MapsAreNamedWithoutAFolder) {
  Open();
  const std::string path = folder_.File("a.wrl");
  for (const char* pattern : {"C:\\maps\\größe \"1\".v2", "/maps/größe \"1\".v2"}) {
    EXPECT_EQ(orv::ExportVrml(path, doc_, {ON_Color(), pattern}), CommandResult::success);
    const VrmlReport report = CheckVrml(FileContent(path));
    EXPECT_THAT(report.complaints, IsEmpty());
    EXPECT_EQ(report.shapes.at(0).map, "größe \"1\"_00000000-0000-4000-8000-000000000001.v2");
  }
}

TEST_F(VrmlShapes, OfABrepHasAllItsMeshes) {
  std::shared_ptr<ON_Brep> box = MakeBoxBrep({{0, 0, 0}, {1, 1, 1}});
  float height = 0;
  for (ON_BrepFace& face : box->m_F) face.m_render_mesh = TexturedRectangle(1, ++height);
  model_.m_object_table = {NamedObject(box, 1)};
  const std::vector<VrmlShape> shapes = Shapes();
  ASSERT_THAT(shapes, SizeIs(1));
  ASSERT_THAT(shapes[0].meshes, SizeIs(6));
  EXPECT_EQ(shapes[0].meshes[4].points[2][2], -5);
}

TEST_F(VrmlShapes, OfABrepWithoutMeshesHasThemMade) {
  model_.m_object_table = {NamedObject(MakeBoxBrep({{0, 0, 0}, {1, 1, 1}}), 1)};
  EXPECT_THAT(Shapes().at(0).meshes, SizeIs(6));
}

TEST_F(VrmlShapes, WithoutFacesOrTextureCoordinatesHasNoGeometry) {
  auto plain = TexturedRectangle(1, 1);
  plain->m_T.clear();
  auto empty = TexturedRectangle(1, 1);
  empty->m_F.clear();
  auto broken = TexturedRectangle(1, 1);
  broken->m_F = {{{0, 1, 2, 9}}};
  model_.m_object_table = {NamedObject(plain, 1), NamedObject(empty, 2), NamedObject(broken, 3)};
  const std::vector<VrmlShape> shapes = Shapes();
  ASSERT_THAT(shapes, SizeIs(3));
  for (const VrmlShape& shape : shapes) EXPECT_THAT(shape.meshes, IsEmpty());
}

TEST_F(VrmlShapes, AreThoseOfBrepsAndMeshesThatAreNotHidden) {
  model_.m_layer_table.resize(2);
  model_.m_layer_table[1].m_visible = false;
  auto& objects = model_.m_object_table;
  for (std::uint8_t number = 2; number <= 6; ++number) {
    objects.push_back(NamedObject(TexturedRectangle(1, 1), number));
  }
  objects[1].m_attributes.m_mode = ON_ObjectMode::hidden;
  objects[2].m_attributes.m_mode = ON_ObjectMode::hidden;
  objects[2].m_attributes.m_layer_index = 1;
  objects[3].m_attributes.m_mode = ON_ObjectMode::locked;
  // Only its layer is off.
  objects[4].m_attributes.m_layer_index = 1;
  objects[5].m_attributes.m_mode = ON_ObjectMode::idef_member;
  objects.push_back(NamedObject(std::make_shared<ON_PlaneSurface>(), 7));
  model_.m_light_table.resize(1);
  std::vector<char> numbers;
  for (const VrmlShape& shape : Shapes()) numbers.push_back(shape.map[shape.map.size() - 5]);
  EXPECT_THAT(numbers, ElementsAre('1', '4', '5'));
}

}  // namespace
