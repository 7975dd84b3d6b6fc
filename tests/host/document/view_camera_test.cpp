#include <gmock/gmock.h>

#include "host/document/app.h"
#include "host/document/display_conduit.h"
#include "host/document/view.h"

namespace {

using View = ON_Viewport::View;

// A viewport 800 by 600 that looks from (0,-10,0) to the origin.
CRhinoViewport Viewport(View projection) {
  ON_3dmView view;
  view.m_vp.m_projection = projection;
  EXPECT_TRUE(view.m_vp.SetCameraFrame({0, -10, 0}, {0, 10, 0}, {0, 0, 1}));
  view.m_vp.m_frustum = {-0.4, 0.4, -0.3, 0.3, 1, 100};
  view.m_vp.m_port = {0, 800, 600, 0, 0, 255};
  return CRhinoViewport(view);
}

TEST(ViewCamera, LooksFromOnePointToAnother) {
  CRhinoViewport viewport = Viewport(View::perspective);
  EXPECT_TRUE(viewport.SetCamera({5, 0, 0}, {1, 0, 0}));
  EXPECT_EQ(viewport.VP().CameraLocation(), (ON_3dPoint{5, 0, 0}));
  EXPECT_EQ(viewport.VP().CameraDirection(), (ON_3dVector{-4, 0, 0}));
  EXPECT_EQ(viewport.Target(), (ON_3dPoint{1, 0, 0}));
  EXPECT_EQ(viewport.VP().CameraY(), (ON_3dVector{0, 0, 1}));
}

TEST(ViewCamera, StraightDownAnotherSideIsUp) {
  CRhinoViewport viewport = Viewport(View::perspective);
  EXPECT_TRUE(viewport.SetCamera({0, 0, 5}, {0, 0, 0}));
  EXPECT_EQ(viewport.VP().CameraY(), (ON_3dVector{0, 1, 0}));
}

TEST(ViewCamera, ThePointsStandApart) {
  CRhinoViewport viewport = Viewport(View::perspective);
  EXPECT_FALSE(viewport.SetCamera({5, 0, 0}, {5, 0, 0}));
  EXPECT_EQ(viewport.VP().CameraLocation(), (ON_3dPoint{0, -10, 0}));
}

TEST(ViewCamera, ALensNarrowsAPerspectiveView) {
  CRhinoViewport viewport = Viewport(View::perspective);
  EXPECT_TRUE(viewport.SetCamera35mmLensLength(120));
  EXPECT_DOUBLE_EQ(viewport.VP().Camera35mmLensLength(), 120);
  EXPECT_DOUBLE_EQ(viewport.VP().GetFrustum().right, 0.4 / 3);
  EXPECT_FALSE(viewport.SetCamera35mmLensLength(0));
  EXPECT_FALSE(viewport.SetCamera35mmLensLength(-1));
  EXPECT_FALSE(Viewport(View::parallel).SetCamera35mmLensLength(120));
}

TEST(ViewCamera, AnotherProjectionShowsTheTargetInItsSize) {
  CRhinoViewport viewport = Viewport(View::perspective);
  viewport.SetProjection(View::parallel);
  EXPECT_EQ(viewport.VP().Projection(), View::parallel);
  EXPECT_DOUBLE_EQ(viewport.VP().GetFrustum().right, 4);
  EXPECT_DOUBLE_EQ(viewport.VP().GetFrustum().top, 3);
  viewport.SetProjection(View::perspective);
  EXPECT_DOUBLE_EQ(viewport.VP().GetFrustum().right, 0.4);
}

TEST(ViewCamera, AParallelViewMayReachBehindItsCamera) {
  ON_3dmView view = Viewport(View::parallel).View();
  view.m_vp.m_frustum.near = -50;
  CRhinoViewport viewport(view);
  viewport.SetProjection(View::perspective);
  EXPECT_GT(viewport.VP().GetFrustum().near, 0);
  EXPECT_DOUBLE_EQ(viewport.VP().GetFrustum().right / viewport.VP().GetFrustum().near, 0.4 / 10);
}

// Counts what it is told.
class CountingConduit : public CRhinoDisplayConduit {
 public:
  void NotifyConduit(CRhinoConduitEvent event, CRhinoView&) override {
    EXPECT_EQ(event, CRhinoConduitEvent::view_changed);
    ++count_;
  }
  int count_ = 0;
};

TEST(DisplayConduit, HearsOfViewsWhileItIsEnabled) {
  CRhinoView view(Viewport(View::perspective).View());
  CountingConduit conduit;
  view.Redraw();
  EXPECT_EQ(conduit.count_, 0);
  conduit.Enable();
  conduit.Enable();
  view.Redraw();
  EXPECT_EQ(conduit.count_, 1);
  conduit.Disable();
  view.Redraw();
  EXPECT_EQ(conduit.count_, 1);
  conduit.Enable();
  view.Redraw();
  EXPECT_EQ(conduit.count_, 2);
}

TEST(DisplayConduit, OneThatIsGoneIsNotTold) {
  CRhinoView view(Viewport(View::perspective).View());
  {
    CountingConduit conduit;
    conduit.Enable();
  }
  view.Redraw();
}

}  // namespace
