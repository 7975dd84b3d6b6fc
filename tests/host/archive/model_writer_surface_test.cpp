#include <gtest/gtest.h>

#include "host/archive/model_reader.h"
#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_plane_surface.h"
#include "host/geometry/on_rev_surface.h"
#include "host/geometry/on_sum_surface.h"
#include "support/model_writer.h"

namespace {

// Both widths of chunk lengths.
class SurfaceWriterTest : public testing::TestWithParam<int> {
 protected:
  // The surface that comes back from a document that holds this one alone.
  template <class T>
  std::shared_ptr<const T> ReadBack(const T& surface) {
    ONX_Model model;
    model.m_3dm_file_version = GetParam();
    model.m_object_table.emplace_back().m_geometry = std::make_shared<T>(surface);
    const std::string bytes = WriteModel(model);
    ONX_Model read;
    EXPECT_TRUE(ON_ReadModel(std::as_bytes(std::span(bytes)), read).ok);
    for (const std::string& problem : read.m_problems) ADD_FAILURE() << problem;
    if (read.m_object_table.size() != 1) return nullptr;
    EXPECT_EQ(0x8u, read.m_object_table[0].m_object_type);
    return std::dynamic_pointer_cast<const T>(read.m_object_table[0].m_geometry);
  }
};

INSTANTIATE_TEST_SUITE_P(Versions, SurfaceWriterTest, testing::Values(4, 50));

TEST_P(SurfaceWriterTest, KeepsPlaneSurfaces) {
  ON_PlaneSurface surface;
  surface.m_plane = {{1, 2, 3}, {0, 1, 0}, {0, 0, 1}, {1, 0, 0}};
  surface.m_domain[0] = {0, 4};
  surface.m_extents[1] = {-5, 6};
  surface.SetUserString("key", "value");
  const auto back = ReadBack(surface);
  ASSERT_NE(nullptr, back);
  EXPECT_EQ(surface.m_plane.origin, back->m_plane.origin);
  EXPECT_EQ(surface.m_plane.yaxis, back->m_plane.yaxis);
  for (const int i : {0, 1}) {
    EXPECT_EQ(surface.m_domain[i], back->m_domain[i]);
    EXPECT_EQ(surface.m_extents[i], back->m_extents[i]);
  }
  EXPECT_EQ("value", back->GetUserString("key"));
}

TEST_P(SurfaceWriterTest, KeepsSurfacesOfRevolution) {
  ON_RevSurface surface;
  surface.m_axis = {{1, 2, 3}, {1, 2, 5}};
  surface.m_angle = {0.5, 2};
  surface.m_t = {10, 20};
  surface.m_bTransposed = true;
  surface.m_curve = std::make_shared<ON_ArcCurve>(ON_Arc{{{5, 0, 0}}, 1, {0, 3}});
  const auto back = ReadBack(surface);
  ASSERT_NE(nullptr, back);
  EXPECT_EQ(surface.m_axis.from, back->m_axis.from);
  EXPECT_EQ(surface.m_axis.to, back->m_axis.to);
  EXPECT_EQ(surface.m_angle, back->m_angle);
  EXPECT_EQ(surface.m_t, back->m_t);
  EXPECT_TRUE(back->m_bTransposed);
  EXPECT_EQ(surface.PointAt(1, 12), back->PointAt(1, 12));
}

TEST_P(SurfaceWriterTest, KeepsSumSurfaces) {
  ON_SumSurface surface;
  surface.m_basepoint = {1, 2, 3};
  surface.m_curve = {std::make_shared<ON_ArcCurve>(ON_Arc{{}, 2, {0, 3}}),
                     std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{0, 0, 7})};
  const auto back = ReadBack(surface);
  ASSERT_NE(nullptr, back);
  EXPECT_EQ(surface.m_basepoint, back->m_basepoint);
  EXPECT_EQ(surface.PointAt(1, 5), back->PointAt(1, 5));
}

TEST_P(SurfaceWriterTest, KeepsNurbsSurfaces) {
  ON_NurbsSurface surface;
  surface.Create(
      {2, 3}, {{{0, 1}, {0, 0, 1, 1}}},
      {{0, 0, 0, 1}, {0, 1, 1, 2}, {0, 2, 0, 1}, {1, 0, 0, 1}, {1, 1, 1, 0.5}, {1, 2, 0, 1}}, true);
  for (const bool is_rational : {true, false}) {
    surface.m_is_rat = is_rational;
    if (!is_rational) {
      for (ON_4dPoint& cv : surface.m_cv) cv.w = 1;
    }
    const auto back = ReadBack(surface);
    ASSERT_NE(nullptr, back);
    EXPECT_EQ(is_rational, back->IsRational());
    EXPECT_EQ(surface.m_order, back->m_order);
    EXPECT_EQ(surface.m_knot, back->m_knot);
    EXPECT_EQ(surface.m_cv, back->m_cv);
  }
}

}  // namespace
