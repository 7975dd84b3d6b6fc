#include "host/command/get_point_on_mesh.h"

#include <gmock/gmock.h>

#include "host/document/doc.h"
#include "support/typed_input.h"

namespace {

using testing::ElementsAre;

class GetPointOnMesh : public testing::Test {
 protected:
  GetPointOnMesh() {
    mesh_.m_V = {{0, 0, 1}, {4, 0, 1}, {4, 4, 1}, {0, 4, 1}};
    mesh_.m_F = {{{0, 1, 2, 3}}};
  }

  CommandResult Get(std::vector<std::string> answers) {
    TypedInput input(std::move(answers));
    CRhinoCommandContext context(doc_, input, true);
    const CommandResult result = RhinoGetPointOnMesh(context, mesh_, "Pick point on mesh", point_);
    prompts_ = input.Prompts();
    refusals_ = input.Refusals();
    return result;
  }

  CRhinoDoc doc_;
  ON_Mesh mesh_;
  ON_MESH_POINT point_;
  std::vector<std::string> prompts_, refusals_;
};

TEST_F(GetPointOnMesh, TakesTheClosestOneToAPoint) {
  ASSERT_EQ(Get({"3,1,7"}), CommandResult::success);
  EXPECT_EQ(point_.m_P, (ON_3dPoint{3, 1, 1}));
  EXPECT_EQ(point_.m_face_index, 0);
  EXPECT_EQ(point_.m_t, (std::array<double, 4>{0.25, 0.5, 0.25, 0}));
  EXPECT_THAT(prompts_, ElementsAre("Pick point on mesh: "));
  // On the plane z = 0.
  ASSERT_EQ(Get({"9,2"}), CommandResult::success);
  EXPECT_EQ(point_.m_P, (ON_3dPoint{4, 2, 1}));
}

TEST_F(GetPointOnMesh, WithoutAnAnswerThereIsNone) {
  EXPECT_EQ(Get({"Enter"}), CommandResult::cancel);
  EXPECT_EQ(Get({"!"}), CommandResult::cancel);
  EXPECT_EQ(Get({"x", "!"}), CommandResult::cancel);
  EXPECT_THAT(refusals_, ElementsAre("A point is typed as x,y,z or x,y, not 'x'."));
  EXPECT_EQ(point_.m_face_index, -1);
}

TEST_F(GetPointOnMesh, AMeshWithoutFacesHasNone) {
  mesh_.m_F.clear();
  EXPECT_EQ(Get({"1,2,3"}), CommandResult::failure);
}

}  // namespace
