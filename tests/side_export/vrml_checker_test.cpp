#include "vrml_checker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::string_view kShape =
    "#VRML V2.0 utf8\n"
    "Shape { appearance Appearance { texture ImageTexture { repeatS FALSE repeatT FALSE\n"
    "url \"a \\\" b\" } } # appearance\n"
    "geometry IndexedFaceSet { ccw FALSE convex TRUE solid FALSE coordIndex [\n0, 1, 2, -1\n]\n"
    "coord Coordinate { point [ 0 0 0, 1 0 0, 0 1 -2.5e3 ] }\n"
    "texCoord TextureCoordinate { point [ 0 0 , 1 0 , 0 1 ] } } } # shape\n";

// The shape with another text in the place of `part`.
std::string With(std::string_view part, std::string_view text) {
  std::string shape(kShape);
  return shape.replace(shape.find(part), part.size(), text);
}

TEST(VrmlChecker, ReadsAShape) {
  const VrmlReport report = CheckVrml(kShape);
  EXPECT_THAT(report.complaints, IsEmpty());
  ASSERT_EQ(report.shapes.size(), 1U);
  EXPECT_EQ(report.shapes[0].map, "a \" b");
  ASSERT_EQ(report.shapes[0].meshes.size(), 1U);
  const VrmlMesh& mesh = report.shapes[0].meshes[0];
  EXPECT_THAT(mesh.faces, ElementsAre(ElementsAre(0, 1, 2)));
  EXPECT_EQ(mesh.points.at(2), (std::array<double, 3>{0, 1, -2500}));
  EXPECT_EQ(mesh.texture.at(1), (std::array<double, 2>{1, 0}));
}

TEST(VrmlChecker, FindsWhatIsWrong) {
  const std::pair<std::string, std::string> wrongs[] = {
      {With("V2.0", "V1.0"), "it has no head"},
      {With("Shape", "Group"), "it is no node"},
      {With("ccw FALSE", "ccw TRUE"), "'FALSE' is expected, not 'TRUE'"},
      {With("1 0 0", "1 0,5 0 0"), "a number is missing"},
      {With("1 0 0", "1 nan 0"), "'nan' is no finite number"},
      {With("1 0 0,", ""), "a corner is no point"},
      {With("1 0 ,", ""), "texture coordinates are missing"},
      {With("2, -1", "-1"), "a face has no three or four corners"},
      {With("2, -1", "2"), "a face is not closed"},
      {With("} } } # shape", "} }"), "the shape is not closed"},
      {With("\\\" b\"", "\\\" b"), "a text is not closed"},
  };
  for (const auto& [vrml, complaint] : wrongs) {
    const std::vector<std::string> complaints = CheckVrml(vrml).complaints;
    ASSERT_FALSE(complaints.empty()) << complaint;
    EXPECT_THAT(complaints, testing::Contains(HasSubstr(complaint)));
  }
}

}  // namespace
