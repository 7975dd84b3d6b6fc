#include "jobs/objects_to_edit.h"

#include <gmock/gmock.h>

#include "command_fixture.h"
#include "host/document/object.h"
#include "host/geometry/on_annotation.h"
#include "host/geometry/on_extrusion.h"
#include "host/geometry/on_instance_ref.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_plane_surface.h"
#include "host/geometry/on_point_cloud.h"
#include "host/geometry/on_subd.h"
#include "support/brep_shapes.h"

namespace orv {
namespace {

using testing::ElementsAre;

class ObjectsToEditTest : public CommandTest {
 protected:
  // Whether an object of the geometry, which is selected, is taken without asking.
  bool IsTaken(std::shared_ptr<ON_Geometry> geometry) {
    ONX_Model model;
    model.m_object_table.emplace_back().m_geometry = std::move(geometry);
    doc_.SetModel(std::move(model), "");
    EXPECT_TRUE(doc_.Objects()[0]->Select());
    return Get({"!"}) == CommandResult::success;
  }
  CommandResult Get(std::vector<std::string> answers) {
    TypedInput input(std::move(answers));
    CRhinoCommandContext context(doc_, input, true);
    objects_.clear();
    const CommandResult result = GetObjectsToEdit(context, objects_);
    prompts_ = input.Prompts();
    return result;
  }

  std::vector<CRhinoObject*> objects_;
};

TEST_F(ObjectsToEditTest, TakesWhatHasASurfaceOrALook) {
  EXPECT_TRUE(IsTaken(std::make_shared<ON_PointCloud>()));
  EXPECT_TRUE(IsTaken(std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{1, 0, 0})));
  EXPECT_TRUE(IsTaken(std::make_shared<ON_PlaneSurface>()));
  EXPECT_TRUE(IsTaken(MakeBoxBrep({{0, 0, 0}, {1, 1, 1}})));
  EXPECT_TRUE(IsTaken(std::make_shared<ON_Mesh>()));
  EXPECT_TRUE(IsTaken(std::make_shared<ON_InstanceRef>()));
  EXPECT_TRUE(IsTaken(std::make_shared<ON_Extrusion>()));
  EXPECT_TRUE(IsTaken(std::make_shared<ON_SubD>()));
  EXPECT_FALSE(IsTaken(std::make_shared<ON_Annotation>()));
}

TEST_F(ObjectsToEditTest, ThoseOfOtherKindsArePassedOver) {
  ONX_Model model;
  model.m_object_table.resize(2);
  model.m_object_table[0].m_geometry = std::make_shared<ON_Annotation>();
  model.m_object_table[1].m_geometry = std::make_shared<ON_Mesh>();
  doc_.SetModel(std::move(model), "");
  for (const auto& object : doc_.Objects()) EXPECT_TRUE(object->Select());
  EXPECT_EQ(Get({}), CommandResult::success);
  EXPECT_THAT(objects_, ElementsAre(doc_.Objects()[1].get()));
}

TEST_F(ObjectsToEditTest, AnyNumberIsAskedFor) {
  const std::string first = std::to_string(doc_.Objects()[0]->RuntimeSerialNumber());
  const std::string second = std::to_string(doc_.Objects()[1]->RuntimeSerialNumber());
  EXPECT_EQ(Get({second, first, "Enter"}), CommandResult::success);
  EXPECT_THAT(objects_, ElementsAre(doc_.Objects()[1].get(), doc_.Objects()[0].get()));
  EXPECT_EQ(prompts_.at(0), "Select objects: ");
}

TEST_F(ObjectsToEditTest, WithoutOneTheResultIsTold) {
  EXPECT_EQ(Get({"Enter"}), CommandResult::cancel);
  EXPECT_EQ(Get({"!"}), CommandResult::cancel);
  EXPECT_TRUE(objects_.empty());
}

}  // namespace
}  // namespace orv
