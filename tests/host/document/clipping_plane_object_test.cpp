#include "host/document/clipping_plane_object.h"

#include <gtest/gtest.h>

#include "host/document/app.h"
#include "host/document/doc.h"
#include "model_parts.h"

namespace {

const ON_UUID kFront = TestId(71);
const ON_UUID kTop = TestId(72);

ONX_ModelObject ClippingPlane(bool enabled = true) {
  auto surface = std::make_shared<ON_ClippingPlaneSurface>();
  surface->m_plane.origin = {1, 2, 3};
  surface->m_plane.zaxis = {0, 0, -1};
  surface->m_viewport_ids = {TestId(70), kFront};
  surface->m_bEnabled = enabled;
  ONX_ModelObject object;
  object.m_geometry = std::move(surface);
  return object;
}

class ClippingPlaneObjectTest : public testing::Test {
 protected:
  void SetObjects(std::vector<ONX_ModelObject> objects) {
    ONX_Model model;
    model.m_object_table = std::move(objects);
    doc_.SetModel(std::move(model), "");
  }

  CRhinoDoc doc_;
};

TEST_F(ClippingPlaneObjectTest, OnlyAClippingPlaneIsOne) {
  SetObjects({TriangleObject(TestId(1)), ClippingPlane(), ONX_ModelObject()});
  EXPECT_EQ(CRhinoClippingPlaneObject::Cast(doc_.Objects()[0].get()), nullptr);
  EXPECT_EQ(CRhinoClippingPlaneObject::Cast(doc_.Objects()[1].get()), doc_.Objects()[1].get());
  EXPECT_EQ(CRhinoClippingPlaneObject::Cast(doc_.Objects()[2].get()), nullptr);
  EXPECT_EQ(CRhinoClippingPlaneObject::Cast(nullptr), nullptr);
  EXPECT_EQ(doc_.Objects()[1]->ShortDescription(), "clipping plane");
}

TEST_F(ClippingPlaneObjectTest, ItHasAPlane) {
  SetObjects({ClippingPlane()});
  const auto* object = CRhinoClippingPlaneObject::Cast(doc_.Objects()[0].get());
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(object->PlaneSurface().m_plane.Origin(), (ON_3dPoint{1, 2, 3}));
  EXPECT_EQ(object->PlaneSurface().m_plane.Normal(), (ON_3dVector{0, 0, -1}));
}

TEST_F(ClippingPlaneObjectTest, ItClipsTheViewportsThatItNames) {
  SetObjects({ClippingPlane()});
  const auto* object = CRhinoClippingPlaneObject::Cast(doc_.Objects()[0].get());
  EXPECT_TRUE(object->ClipsViewport(kFront));
  EXPECT_FALSE(object->ClipsViewport(kTop));
  EXPECT_FALSE(object->ClipsViewport({}));
}

TEST_F(ClippingPlaneObjectTest, OneThatIsSwitchedOffClipsNothing) {
  SetObjects({ClippingPlane(false)});
  const auto* object = CRhinoClippingPlaneObject::Cast(doc_.Objects()[0].get());
  ASSERT_NE(object, nullptr);
  EXPECT_FALSE(object->ClipsViewport(kFront));
}

TEST_F(ClippingPlaneObjectTest, AnImportedOneClipsToo) {
  ONX_Model model;
  model.m_object_table = {ClippingPlane()};
  doc_.ImportModel(std::move(model));
  const auto* object = CRhinoClippingPlaneObject::Cast(doc_.Objects()[0].get());
  ASSERT_NE(object, nullptr);
  EXPECT_TRUE(object->ClipsViewport(kFront));
}

}  // namespace
