#include "host/geometry/on_subd.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

ON_SubD Triangle() {
  ON_SubD subd;
  subd.m_vertex = {{{0, 0, 0}}, {{2, 0, 0}}, {{0, 3, -1}}};
  for (const auto& ends : {std::array{0, 1}, {1, 2}, {2, 0}}) {
    subd.m_edge.push_back({.m_vi = ends, .m_is_crease = true, .m_face_count = 1});
  }
  subd.m_face = {{{0, 1, 2}}};
  return subd;
}

TEST(SubD, IsAKindOfItsOwn) {
  const ON_SubD subd = Triangle();
  EXPECT_EQ(subd.ObjectType(), ON_ObjectType::subd);
  EXPECT_FALSE(subd.HasBrepForm());
  EXPECT_EQ(ON_SubD::Cast(&subd), &subd);
}

TEST(SubD, BoxHoldsItsControlPoints) {
  const ON_BoundingBox box = Triangle().BoundingBox();
  EXPECT_EQ(box.m_min, (ON_3dPoint{0, 0, -1}));
  EXPECT_EQ(box.m_max, (ON_3dPoint{2, 3, 0}));
  EXPECT_FALSE(ON_SubD().BoundingBox().IsValid());
}

TEST(SubD, IsValidWhenAllThatItNamesIsThere) {
  EXPECT_TRUE(ON_SubD().IsValid());
  EXPECT_TRUE(Triangle().IsValid());
  ON_SubD subd = Triangle();
  subd.m_face[0].m_vi[1] = 3;
  EXPECT_FALSE(subd.IsValid());
  subd.m_face[0].m_vi = {0, 1};
  EXPECT_FALSE(subd.IsValid());
  subd = Triangle();
  subd.m_edge[0].m_vi[1] = -1;
  EXPECT_FALSE(subd.IsValid());
  subd.m_edge[0].m_vi = {1, 1};
  EXPECT_FALSE(subd.IsValid());
  subd = Triangle();
  subd.m_edge[0].m_sharpness[1] = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(subd.IsValid());
  subd = Triangle();
  subd.m_vertex[2].m_P.x = std::numeric_limits<double>::infinity();
  EXPECT_FALSE(subd.IsValid());
}

}  // namespace
