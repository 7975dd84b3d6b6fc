#include "host/modeling/mesh_quality.h"

#include <gtest/gtest.h>

#include <limits>
#include <numbers>

#include "support/brep_shapes.h"

namespace {

using host::MeshQuality;
using host::QualityOf;

constexpr double kDegree = std::numbers::pi / 180;

TEST(MeshQuality, IsAThousandthOfTheSizeWhenNothingIsAsked) {
  const MeshQuality quality = QualityOf({}, 50);
  EXPECT_DOUBLE_EQ(quality.tolerance, 0.05);
  EXPECT_DOUBLE_EQ(quality.angle, 20 * kDegree);
  EXPECT_EQ(quality.max_edge, 0);
  EXPECT_DOUBLE_EQ(quality.min_edge, 0.0001);
}

TEST(MeshQuality, TakesTheToleranceThatIsAsked) {
  ON_MeshParameters parameters;
  parameters.m_tolerance = 0.01;
  EXPECT_DOUBLE_EQ(QualityOf(parameters, 50).tolerance, 0.01);
}

TEST(MeshQuality, IsNeverCoarserThanTheDefault) {
  ON_MeshParameters parameters;
  parameters.m_tolerance = 1;
  parameters.m_relative_tolerance = 0.1;
  EXPECT_DOUBLE_EQ(QualityOf(parameters, 50).tolerance, 0.05);
}

TEST(MeshQuality, FollowsTheRelativeTolerance) {
  ON_MeshParameters parameters;
  parameters.m_relative_tolerance = 1;
  EXPECT_DOUBLE_EQ(QualityOf(parameters, 50).tolerance, 0.005);
  parameters.m_relative_tolerance = 0.8;
  EXPECT_NEAR(QualityOf(parameters, 50).tolerance, 50 * 3.981e-4, 1e-5);
  parameters.m_relative_tolerance = 7;
  EXPECT_DOUBLE_EQ(QualityOf(parameters, 50).tolerance, 0.005);
}

TEST(MeshQuality, BoundsWhatIsAsked) {
  ON_MeshParameters parameters;
  parameters.m_tolerance = 1e-300;
  parameters.m_grid_angle = 1e-9;
  parameters.m_max_edge_length = 1e-9;
  parameters.m_min_edge_length = 1e9;
  const MeshQuality quality = QualityOf(parameters, 50);
  EXPECT_DOUBLE_EQ(quality.tolerance, 0.0005);
  EXPECT_DOUBLE_EQ(quality.angle, 2 * kDegree);
  EXPECT_DOUBLE_EQ(quality.max_edge, 0.5);
  EXPECT_DOUBLE_EQ(quality.min_edge, 0.0005);
  parameters.m_grid_angle = 3;
  EXPECT_DOUBLE_EQ(QualityOf(parameters, 50).angle, 60 * kDegree);
}

TEST(MeshQuality, PassesOverWhatIsNoNumber) {
  for (const double value : {std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity(), -1.0, ON_UNSET_VALUE}) {
    ON_MeshParameters parameters;
    parameters.m_tolerance = value;
    parameters.m_relative_tolerance = value;
    parameters.m_grid_angle = value;
    parameters.m_max_edge_length = value;
    parameters.m_min_edge_length = value;
    const MeshQuality quality = QualityOf(parameters, 50);
    EXPECT_DOUBLE_EQ(quality.tolerance, 0.05);
    EXPECT_DOUBLE_EQ(quality.angle, 20 * kDegree);
    EXPECT_EQ(quality.max_edge, 0);
    EXPECT_EQ(quality.min_edge, 0);
  }
}

TEST(TrimmedBox, HoldsTheEdgesAndNotTheWholeSurfaces) {
  // The caps are cut from squares that reach farther than the circles.
  const ON_BoundingBox box = host::TrimmedBox(*MakeCylinderBrep(2, 10));
  EXPECT_NEAR(box.m_min.x, -2, 1e-9);
  EXPECT_NEAR(box.m_max.y, 2, 1e-9);
  EXPECT_EQ(box.m_min.z, 0);
  EXPECT_EQ(box.m_max.z, 10);
}

}  // namespace
