#include "host/document/view.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "host/document/doc.h"
#include "model_parts.h"

namespace {

constexpr auto kParallel = ON_Viewport::View::parallel;
constexpr auto kPerspective = ON_Viewport::View::perspective;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

ONX_Model ModelWithViews(std::vector<ON_3dmView> views) {
  ONX_Model model;
  model.m_object_table = {TriangleObject(TestId(1), {20, 30, 40}),
                          TriangleObject(TestId(2), {50, 30, 60})};
  model.m_settings.m_views = std::move(views);
  return model;
}

std::vector<CRhinoView*> ViewsOf(const CRhinoDoc& doc) {
  std::vector<CRhinoView*> views;
  doc.GetViewList(views, true, true);
  return views;
}

double Width(const ON_Viewport& vp) {
  return vp.GetFrustum().right - vp.GetFrustum().left;
}
double Height(const ON_Viewport& vp) {
  return vp.GetFrustum().top - vp.GetFrustum().bottom;
}
double PortWidth(const ON_Viewport& vp) {
  return vp.GetScreenPort().right - vp.GetScreenPort().left;
}
double PortHeight(const ON_Viewport& vp) {
  return vp.GetScreenPort().bottom - vp.GetScreenPort().top;
}

// Whether the camera sees `p`, between its near and far plane and inside its frame.
void ExpectSees(const ON_Viewport& vp, ON_3dPoint p) {
  const ON_3dVector v = p - vp.CameraLocation();
  const double depth = -ON_DotProduct(v, vp.CameraZ());
  const ON_Viewport::Frustum f = vp.GetFrustum();
  EXPECT_GT(depth, f.near);
  EXPECT_LT(depth, f.far);
  const double scale = vp.Projection() == kPerspective ? f.near / depth : 1;
  const double x = ON_DotProduct(v, vp.CameraX()) * scale;
  const double y = ON_DotProduct(v, vp.CameraY()) * scale;
  EXPECT_GT(x, f.left);
  EXPECT_LT(x, f.right);
  EXPECT_GT(y, f.bottom);
  EXPECT_LT(y, f.top);
}

void ExpectSeesModel(const CRhinoDoc& doc, const ON_Viewport& vp) {
  ASSERT_TRUE(doc.BoundingBox().IsValid());
  for (const ON_3dPoint& corner : doc.BoundingBox().GetCorners()) ExpectSees(vp, corner);
  EXPECT_NEAR(Width(vp) / Height(vp), PortWidth(vp) / PortHeight(vp), 1e-9);
}

TEST(Views, ADocumentWithoutViewsGetsFourThatShowTheModel) {
  CRhinoDoc doc;
  doc.SetModel(ModelWithViews({}), "");
  const std::vector<CRhinoView*> views = ViewsOf(doc);
  ASSERT_EQ(views.size(), 4u);
  const char* const names[] = {"Top", "Front", "Right", "Perspective"};
  for (std::size_t i = 0; i < 4; ++i) {
    const CRhinoViewport& viewport = views[i]->Viewport();
    SCOPED_TRACE(names[i]);
    EXPECT_EQ(viewport.Name(), names[i]);
    EXPECT_EQ(viewport.VP().Projection(), i == 3 ? kPerspective : kParallel);
    EXPECT_FALSE(viewport.ViewportId().IsNil());
    EXPECT_EQ(PortWidth(viewport.VP()), 800);
    EXPECT_EQ(PortHeight(viewport.VP()), 600);
    ExpectSeesModel(doc, viewport.VP());
    EXPECT_NEAR((viewport.Target() - ON_3dPoint{35.5, 30.5, 50}).Length(), 0, 1e-9);
  }
  EXPECT_EQ(doc.ActiveView(), views[3]);
}

TEST(Views, DefaultCamerasLookTheirWay) {
  CRhinoDoc doc;
  doc.SetModel(ModelWithViews({}), "");
  const std::vector<CRhinoView*> views = ViewsOf(doc);
  EXPECT_EQ(views[0]->Viewport().VP().CameraZ(), (ON_3dVector{0, 0, 1}));
  EXPECT_EQ(views[0]->Viewport().VP().CameraX(), (ON_3dVector{1, 0, 0}));
  EXPECT_EQ(views[1]->Viewport().VP().CameraZ(), (ON_3dVector{0, -1, 0}));
  EXPECT_EQ(views[1]->Viewport().VP().CameraX(), (ON_3dVector{1, 0, 0}));
  EXPECT_EQ(views[2]->Viewport().VP().CameraZ(), (ON_3dVector{1, 0, 0}));
  EXPECT_EQ(views[2]->Viewport().VP().CameraX(), (ON_3dVector{0, 1, 0}));
  EXPECT_GT(views[3]->Viewport().VP().CameraZ().z, 0);
}

TEST(Views, DefaultViewsOfAnEmptyOrBoundlessModelAreFinite) {
  for (const float size : {0.0f, std::numeric_limits<float>::max()}) {
    ONX_Model model;
    if (size > 0) model.m_object_table = {TriangleObject(TestId(1), {size, 0, 0})};
    CRhinoDoc doc;
    doc.SetModel(std::move(model), "");
    for (const CRhinoView* view : ViewsOf(doc)) {
      EXPECT_TRUE(std::isfinite(Width(view->Viewport().VP())));
      EXPECT_GT(Width(view->Viewport().VP()), 0);
      EXPECT_TRUE(std::isfinite(view->Viewport().VP().CameraLocation().x));
    }
  }
}

TEST(Views, AViewOfTheFileIsTakenAsItIs) {
  ON_3dmView view = View("Persp", kPerspective, {10, -20, 30});
  view.m_vp.m_id = TestId(7);
  view.m_target = {1, 2, 3};
  const ON_Viewport::Frustum stored = view.m_vp.m_frustum;
  CRhinoDoc doc;
  doc.SetModel(ModelWithViews({view}), "");
  const std::vector<CRhinoView*> views = ViewsOf(doc);
  ASSERT_EQ(views.size(), 1u);
  const CRhinoViewport& viewport = views[0]->Viewport();
  EXPECT_EQ(viewport.Name(), "Persp");
  EXPECT_EQ(viewport.ViewportId(), TestId(7));
  EXPECT_EQ(viewport.VP().CameraLocation(), (ON_3dPoint{10, -20, 30}));
  EXPECT_EQ(viewport.VP().GetFrustum().left, stored.left);
  EXPECT_EQ(viewport.VP().GetFrustum().near, stored.near);
  EXPECT_EQ(PortWidth(viewport.VP()), 800);
  EXPECT_EQ(viewport.Target(), (ON_3dPoint{1, 2, 3}));
}

TEST(Views, TheViewportsOwnTargetCountsFirst) {
  ON_3dmView view = View("A", kParallel);
  view.m_target = {1, 2, 3};
  view.m_vp.m_target = ON_3dPoint{4, 5, 6};
  CRhinoDoc doc;
  doc.SetModel(ModelWithViews({view}), "");
  EXPECT_EQ(doc.ActiveView()->Viewport().Target(), (ON_3dPoint{4, 5, 6}));
}

TEST(Views, ATargetWithoutValueIsReplaced) {
  ON_3dmView view = View("A", kParallel, {0, 0, 100});
  view.m_vp.m_target = ON_3dPoint{kNan, 0, 0};
  view.m_target = {ON_UNSET_VALUE, ON_UNSET_VALUE, ON_UNSET_VALUE};
  CRhinoDoc doc;
  doc.SetModel(ModelWithViews({view}), "");
  EXPECT_EQ(doc.ActiveView()->Viewport().Target(), (ON_3dPoint{0, 0, 0}));
}

TEST(Views, APortThatIsMissingOrAbsurdTakesTheFrustumsShape) {
  ON_3dmView view = View("A", kParallel);
  view.m_vp.m_frustum = {-10, 10, -2, 2, 1, 100};
  const ON_Viewport::ScreenPort ports[] = {
      {0, 0, 600, 0, 0, 1}, {0, 800, 5, 5, 0, 1}, {INT_MIN, INT_MAX, 600, 0, 0, 1}};
  for (const ON_Viewport::ScreenPort& port : ports) {
    view.m_vp.m_port = port;
    CRhinoDoc doc;
    doc.SetModel(ModelWithViews({view}), "");
    EXPECT_EQ(PortWidth(doc.ActiveView()->Viewport().VP()), 800);
    EXPECT_EQ(PortHeight(doc.ActiveView()->Viewport().VP()), 160);
  }
  view.m_vp.m_port_valid = false;
  view.m_vp.m_frustum = {-1, 1, -1, 1, 1, 100};
  CRhinoDoc doc;
  doc.SetModel(ModelWithViews({view}), "");
  EXPECT_EQ(PortWidth(doc.ActiveView()->Viewport().VP()), 600);
  EXPECT_EQ(PortHeight(doc.ActiveView()->Viewport().VP()), 600);
}

TEST(Views, APortWithItsBottomAboveIsTurned) {
  ON_3dmView view = View("A", kParallel);
  view.m_vp.m_port = {800, 0, 0, 600, 0, 1};
  CRhinoDoc doc;
  doc.SetModel(ModelWithViews({view}), "");
  EXPECT_EQ(PortWidth(doc.ActiveView()->Viewport().VP()), 800);
  EXPECT_EQ(PortHeight(doc.ActiveView()->Viewport().VP()), 600);
}

TEST(Views, AViewWithoutFrustumShowsTheModelFromWhereItLooks) {
  for (const auto projection : {kParallel, kPerspective}) {
    ON_3dmView view = View("A", projection, {10, 20, 30});
    const ON_3dVector z = view.m_vp.CameraZ();
    view.m_vp.m_frustum = {1, -1, -1, 1, 1, 100};
    CRhinoDoc doc;
    doc.SetModel(ModelWithViews({view}), "");
    EXPECT_EQ(doc.ActiveView()->Viewport().VP().CameraZ(), z);
    ExpectSeesModel(doc, doc.ActiveView()->Viewport().VP());
  }
}

TEST(Views, AFrustumMarkedAsInvalidOrWithoutDepthIsReplaced) {
  ON_3dmView marked = View("A", kPerspective, {10, 20, 30});
  marked.m_vp.m_frustum_valid = false;
  ON_3dmView flat = View("B", kPerspective, {10, 20, 30});
  flat.m_vp.m_frustum.near = 0;
  ON_3dmView notANumber = View("C", kParallel, {10, 20, 30});
  notANumber.m_vp.m_frustum.top = kNan;
  CRhinoDoc doc;
  doc.SetModel(ModelWithViews({marked, flat, notANumber}), "");
  for (const CRhinoView* view : ViewsOf(doc)) ExpectSeesModel(doc, view->Viewport().VP());
}

TEST(Views, AViewWithoutCameraLooksAsItsNameSays) {
  ON_3dmView front = View("FRONT", kParallel);
  front.m_vp.m_camera_valid = false;
  ON_3dmView other = View("Other", kParallel);
  other.m_vp.m_x = {0, 0, 0};
  ON_3dmView far = View("Other", kPerspective);
  far.m_vp.m_location.x = kNan;
  CRhinoDoc doc;
  doc.SetModel(ModelWithViews({front, other, far}), "");
  const std::vector<CRhinoView*> views = ViewsOf(doc);
  EXPECT_EQ(views[0]->Viewport().VP().CameraZ(), (ON_3dVector{0, -1, 0}));
  EXPECT_EQ(views[1]->Viewport().VP().CameraZ(), (ON_3dVector{0, 0, 1}));
  for (const CRhinoView* view : views) ExpectSeesModel(doc, view->Viewport().VP());
}

TEST(Views, IdsThatAreMissingOrGivenTwiceAreMade) {
  ON_3dmView a = View("A", kParallel);
  ON_3dmView b = View("B", kParallel);
  ON_3dmView c = View("C", kParallel);
  b.m_vp.m_id = c.m_vp.m_id = TestId(1);
  CRhinoDoc doc;
  doc.SetModel(ModelWithViews({a, b, c}), "");
  const std::vector<CRhinoView*> views = ViewsOf(doc);
  EXPECT_FALSE(views[0]->Viewport().ViewportId().IsNil());
  EXPECT_EQ(views[1]->Viewport().ViewportId(), TestId(1));
  EXPECT_NE(views[2]->Viewport().ViewportId(), TestId(1));
  EXPECT_NE(views[2]->Viewport().ViewportId(), views[0]->Viewport().ViewportId());
}

class ActiveViewTest : public testing::Test {
 protected:
  ActiveViewTest() {
    ON_3dmView page = View("Page", kPerspective);
    page.m_view_type = 1;
    page.m_maximized = true;
    views_ = {page, View("Top", kParallel), View("Persp 1", kPerspective),
              View("Persp 2", kPerspective)};
    for (unsigned i = 0; i < views_.size(); ++i) views_[i].m_vp.m_id = TestId(i + 1);
  }

  std::string ActiveName(const ON_UUID& named = {}) {
    ONX_Model model;
    model.m_settings.m_views = views_;
    model.m_settings.m_active_view_id = named;
    doc_.SetModel(std::move(model), "");
    return doc_.ActiveView()->Viewport().Name();
  }

  std::vector<ON_3dmView> views_;
  CRhinoDoc doc_;
};

TEST_F(ActiveViewTest, IsTheOneThatTheDocumentNames) {
  views_[2].m_maximized = true;
  EXPECT_EQ(ActiveName(TestId(4)), "Persp 2");
  EXPECT_EQ(ActiveName(TestId(1)), "Page");
}

TEST_F(ActiveViewTest, IsElseTheFirstMaximizedModelView) {
  views_[1].m_maximized = true;
  views_[3].m_maximized = true;
  EXPECT_EQ(ActiveName(), "Top");
  EXPECT_EQ(ActiveName(TestId(99)), "Top");
}

TEST_F(ActiveViewTest, IsElseTheFirstPerspectiveModelView) {
  EXPECT_EQ(ActiveName(), "Persp 1");
}

TEST_F(ActiveViewTest, IsElseTheFirstView) {
  views_.resize(2);
  EXPECT_EQ(ActiveName(), "Page");
}

TEST_F(ActiveViewTest, NoIdNamesNoView) {
  for (ON_3dmView& view : views_) view.m_vp.m_id = {};
  EXPECT_EQ(ActiveName(), "Persp 1");
}

TEST_F(ActiveViewTest, CanBeChanged) {
  EXPECT_EQ(ActiveName(), "Persp 1");
  doc_.SetActiveView(ViewsOf(doc_)[1]);
  EXPECT_EQ(doc_.ActiveView()->Viewport().Name(), "Top");
}

TEST_F(ActiveViewTest, ListsModelAndPageViews) {
  ActiveName();
  std::vector<CRhinoView*> views;
  doc_.GetViewList(views, true, false);
  EXPECT_EQ(views.size(), 3u);
  doc_.GetViewList(views, false, true);
  ASSERT_EQ(views.size(), 1u);
  EXPECT_TRUE(views[0]->IsPage());
  doc_.GetViewList(views, true, true);
  EXPECT_EQ(views.size(), 4u);
  doc_.GetViewList(views, false, false);
  EXPECT_TRUE(views.empty());
}

TEST(NamedView, GivesItsCameraTargetAndProjection) {
  ON_3dmView named = View("From above", kPerspective, {0, 0, 500});
  named.m_target = {1, 1, 1};
  named.m_vp.m_id = TestId(9);
  named.m_vp.m_port = {0, 100, 100, 0, 0, 1};
  named.m_vp.m_frustum = {-2, 2, -2, 2, 10, 1000};
  ON_3dmView view = View("Wide", kParallel);
  view.m_vp.m_id = TestId(1);
  CRhinoViewport viewport(view);
  viewport.SetFromNamedView(named);
  EXPECT_EQ(viewport.Name(), "Wide");
  EXPECT_EQ(viewport.ViewportId(), TestId(1));
  EXPECT_EQ(PortWidth(viewport.VP()), 800);
  EXPECT_EQ(viewport.VP().Projection(), kPerspective);
  EXPECT_EQ(viewport.VP().CameraLocation(), (ON_3dPoint{0, 0, 500}));
  EXPECT_EQ(viewport.Target(), (ON_3dPoint{1, 1, 1}));
  EXPECT_DOUBLE_EQ(Height(viewport.VP()), 4);
  EXPECT_DOUBLE_EQ(Width(viewport.VP()), 4 * 800.0 / 600.0);
}

TEST(NamedView, AWideOneKeepsItsWidthInANarrowView) {
  ON_3dmView named = View("Wide", kParallel);
  named.m_vp.m_frustum = {-10, 30, -1, 1, 10, 1000};
  ON_3dmView view = View("Square", kParallel);
  view.m_vp.m_port = {0, 300, 300, 0, 0, 1};
  CRhinoViewport viewport(view);
  viewport.SetFromNamedView(named);
  EXPECT_DOUBLE_EQ(viewport.VP().GetFrustum().left, -10);
  EXPECT_DOUBLE_EQ(viewport.VP().GetFrustum().right, 30);
  EXPECT_DOUBLE_EQ(viewport.VP().GetFrustum().bottom, -20);
  EXPECT_DOUBLE_EQ(viewport.VP().GetFrustum().top, 20);
}

TEST(ViewDepth, AnImportIsSeenWhole) {
  ON_3dmView view = View("Persp", kPerspective, {0, -100, 0});
  view.m_vp.m_frustum = {-5, 5, -5, 5, 90, 110};
  CRhinoDoc doc;
  doc.SetModel(ModelWithViews({view}), "");
  ONX_Model added;
  added.m_object_table = {TriangleObject(TestId(8), {0, -50, 0}),
                          TriangleObject(TestId(9), {0, 500, 0})};
  doc.ImportModel(std::move(added));
  const ON_Viewport::Frustum f = doc.ActiveView()->Viewport().VP().GetFrustum();
  EXPECT_LE(f.near, 50);
  EXPECT_GE(f.far, 601);
  EXPECT_NEAR(f.right / f.near, 5.0 / 90, 1e-12);
  EXPECT_NEAR(f.bottom / f.near, -5.0 / 90, 1e-12);
}

TEST(ViewDepth, WhatStandsBehindTheCameraKeepsTheNearPlaneBeforeIt) {
  ON_3dmView view = View("Persp", kPerspective, {0, -100, 0});
  view.m_vp.m_frustum = {-5, 5, -5, 5, 90, 110};
  CRhinoViewport viewport(view);
  viewport.IncludeInDepth({{-1, -500, -1}, {1, 400, 1}});
  EXPECT_DOUBLE_EQ(viewport.VP().GetFrustum().far, 500);
  EXPECT_DOUBLE_EQ(viewport.VP().GetFrustum().near, 0.05);
}

TEST(ViewDepth, NeverBecomesLess) {
  ON_3dmView view = View("Persp", kPerspective, {0, -100, 0});
  CRhinoViewport viewport(view);
  viewport.IncludeInDepth({{-1, -1, -1}, {1, 1, 1}});
  EXPECT_EQ(viewport.VP().GetFrustum().near, 10);
  EXPECT_EQ(viewport.VP().GetFrustum().far, 1000);
}

}  // namespace
