#include "export/clipping_planes.h"

#include <gtest/gtest.h>

#include <cmath>

#include "export/view_choice.h"
#include "export_fixture.h"
#include "host/geometry/on_plane_surface.h"
#include "rib_fragment.h"

namespace {

class ClippingPlanes : public testing::Test {
 protected:
  ClippingPlanes() { model_.m_settings.m_views = {PerspectiveView(), ParallelView()}; }

  // Each cuts the view "Camera", but not the view "Plan".
  void Add(ON_3dPoint origin, ON_3dVector normal) {
    auto surface = std::make_shared<ON_ClippingPlaneSurface>();
    surface->m_plane.origin = origin;
    surface->m_plane.zaxis = normal;
    surface->m_viewport_ids = {kCamera};
    surfaces_.push_back(surface);
    model_.m_object_table.push_back(ObjectOf(surface));
  }

  std::string Rib(std::string_view viewName = "Camera") {
    model_.m_settings.m_views[0].m_vp.m_id = kCamera;
    CRhinoDoc doc;
    doc.SetModel(model_, "");
    const CRhinoView* view = orv::ChooseView(doc, viewName);
    const orv::ObjectList objects = orv::GatherObjects(doc, false, {});
    return WrittenRib(
        [&](orv::RibWriter& writer) { orv::WriteClippingPlanes(writer, *view, objects); });
  }

  static constexpr ON_UUID kCamera = "6f9619ff-8b86-d011-b42d-00cf4fc964ff"_uuid;
  ONX_Model model_;
  std::vector<std::shared_ptr<ON_ClippingPlaneSurface>> surfaces_;
};

TEST_F(ClippingPlanes, CutOffWhatTheirNormalPointsAwayFrom) {
  Add({1, 2.5, 3}, {0.6, -0.8, 1});
  model_.m_object_table.push_back(ObjectOf(SquareMesh()));
  Add({4, 5, 6}, {-1, -0.5, -0.25});
  EXPECT_EQ(Rib(),
            "ClippingPlane 1 2.5 3  -0.6 0.8 -1\n"
            "ClippingPlane 4 5 6  1 0.5 0.25\n");
}

TEST_F(ClippingPlanes, OfOtherViewsAreLeftOut) {
  Add({1, 2, 3}, {0, 0, 1});
  EXPECT_EQ(Rib("Plan"), "");
}

TEST_F(ClippingPlanes, ThatAreOffOrHiddenAreLeftOut) {
  Add({1, 2, 3}, {0, 0, 1});
  Add({1, 2, 3}, {0, 0, 1});
  surfaces_[0]->m_bEnabled = false;
  model_.m_object_table[1].m_attributes.m_mode = ON_ObjectMode::hidden;
  EXPECT_EQ(Rib(), "");
}

TEST_F(ClippingPlanes, WithNumbersThatAreNoneAreLeftOut) {
  Add({1, std::nan(""), 3}, {0, 0, 1});
  Add({1, 2, ON_UNSET_VALUE}, {0, 0, 1});
  Add({1, 2, 3}, {0, 0, std::nan("")});
  EXPECT_EQ(Rib(), "");
}

}  // namespace
