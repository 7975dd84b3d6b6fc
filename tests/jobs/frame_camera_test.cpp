#include "jobs/frame_camera.h"

#include <gmock/gmock.h>

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_polyline_curve.h"
#include "host/system/number_text.h"
#include "sequence_fixture.h"

// The camera of the frames, and how its curves are found.

namespace orv {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class FrameCameraTest : public SequenceTest {
 protected:
  static RenderSettings WithFrames(int count) {
    RenderSettings settings;
    settings.AnimFrames = count;
    return settings;
  }

  // The twelve numbers of a frame's transform.
  static std::vector<double> Transform(const std::string& statements) {
    std::vector<double> numbers;
    std::size_t at = statements.find("Transform [ ") + 12;
    for (int i = 0; i < 15; ++i) {
      const std::size_t end = statements.find(' ', at);
      if (i % 4 != 3) numbers.push_back(host::ParseReal(statements.substr(at, end - at)));
      at = end + 1;
    }
    return numbers;
  }

  // Where the camera of the statements stands.
  static ON_3dPoint Location(const std::string& statements) {
    const std::vector<double> m = Transform(statements);
    const auto coordinate = [&](std::size_t row) {
      return -(m[row] * m[9] + m[row + 1] * m[10] + m[row + 2] * m[11]);
    };
    return {coordinate(0), coordinate(3), coordinate(6)};
  }
  // Where it looks.
  static ON_3dVector Direction(const std::string& statements) {
    const std::vector<double> m = Transform(statements);
    return {m[2], m[5], m[8]};
  }

  static void ExpectLocation(ON_3dPoint expected, const std::string& statements) {
    const ON_3dPoint found = Location(statements);
    EXPECT_NEAR(found.x, expected.x, 1e-4) << statements;
    EXPECT_NEAR(found.y, expected.y, 1e-4) << statements;
    EXPECT_NEAR(found.z, expected.z, 1e-4) << statements;
  }
  static void ExpectDirection(ON_3dVector expected, const std::string& statements) {
    const ON_3dVector found = Direction(statements);
    EXPECT_NEAR(found.x, expected.x, 1e-5) << statements;
    EXPECT_NEAR(found.y, expected.y, 1e-5) << statements;
    EXPECT_NEAR(found.z, expected.z, 1e-5) << statements;
  }
};

TEST_F(FrameCameraTest, NamesAreFoundInAnyCase) {
  SetCurves({{"PATH", Line({0, 0, 0}, {1, 0, 0})},
             {"path", Line({0, 0, 0}, {2, 0, 0})},
             {"WÄG", Line({0, 0, 0}, {3, 0, 0})}});
  const ON_Curve* first = FindNamedCurve(doc_, "Path");
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first->PointAtEnd().x, 1) << "the first one";
  const ON_Curve* other = FindNamedCurve(doc_, "wäg");
  ASSERT_NE(other, nullptr);
  EXPECT_EQ(other->PointAtEnd().x, 3);
  EXPECT_EQ(FindNamedCurve(doc_, "Pat"), nullptr);
  EXPECT_EQ(FindNamedCurve(doc_, ""), nullptr);
}

TEST_F(FrameCameraTest, OnlyACurveCounts) {
  ONX_Model model;
  ONX_ModelObject& mesh = model.m_object_table.emplace_back();
  mesh.m_attributes.m_name = "Path";
  mesh.m_geometry = std::make_shared<ON_Mesh>();
  ONX_ModelObject& unnamed = model.m_object_table.emplace_back();
  unnamed.m_geometry = Line({0, 0, 0}, {1, 0, 0});
  doc_.SetModel(std::move(model), "");
  EXPECT_EQ(FindNamedCurve(doc_, "Path"), nullptr);
  EXPECT_EQ(FindNamedCurve(doc_, ""), nullptr);
}

TEST_F(FrameCameraTest, AHiddenOrLockedCurveCounts) {
  ONX_Model model;
  for (const auto mode : {ON_ObjectMode::hidden, ON_ObjectMode::locked}) {
    ONX_ModelObject& object = model.m_object_table.emplace_back();
    object.m_attributes.m_name = mode == ON_ObjectMode::hidden ? "Hidden" : "Locked";
    object.m_attributes.m_mode = mode;
    object.m_geometry = Line({0, 0, 0}, {1, 0, 0});
  }
  doc_.SetModel(std::move(model), "");
  EXPECT_NE(FindNamedCurve(doc_, "hidden"), nullptr);
  EXPECT_NE(FindNamedCurve(doc_, "locked"), nullptr);
}

TEST_F(FrameCameraTest, TheLensGivesTheFieldOfView) {
  const ON_LineCurve line({0, 0, 0}, {4, 0, 0});
  const std::pair<double, const char*> rows[] = {
      {50, "26.9915"}, {12, "90.0001"}, {1, "170.473"}, {1000, "1.37503"}};
  for (const auto& [lens, angle] : rows) {
    RenderSettings settings = WithFrames(4);
    settings.AnimCameraLens = lens;
    EXPECT_THAT(FrameCamera(line, nullptr, settings, 1).Statements(0),
                StartsWith("  Projection \"perspective\" \"fov\" [" + std::string(angle) + "]\n"))
        << lens;
  }
}

TEST_F(FrameCameraTest, AFlyThroughLooksAhead) {
  ON_PolylineCurve path;
  path.m_pline = {{0, 0, 0}, {3, 0, 0}, {3, 3, 0}};
  path.m_t = {0, 1, 100};
  const RenderSettings settings = WithFrames(4);
  const FrameCamera camera(path, nullptr, settings, 1);
  ExpectLocation({0, 0, 0}, camera.Statements(0));
  ExpectDirection({1, 0, 0}, camera.Statements(0));
  ExpectLocation({1.5, 0, 0}, camera.Statements(1));
  ExpectLocation({3, 0, 0}, camera.Statements(2));
  ExpectDirection({0, 1, 0}, camera.Statements(2));
  ExpectLocation({3, 1.5, 0}, camera.Statements(3));
  ExpectDirection({0, 1, 0}, camera.Statements(3));
}

TEST_F(FrameCameraTest, ASingleFrameLooksFromTheStartToTheEnd) {
  ON_PolylineCurve path;
  path.m_pline = {{1, 0, 0}, {1, 5, 0}, {1, 5, 5}, {1, 0, 5}, {9, 0, 0}};
  path.m_t = {0, 1, 2, 3, 4};
  for (const int count : {1, 0, -7}) {
    const RenderSettings settings = WithFrames(count);
    const std::string statements = FrameCamera(path, nullptr, settings, 1).Statements(0);
    ExpectLocation({1, 0, 0}, statements);
    ExpectDirection({1, 0, 0}, statements);
  }
}

TEST_F(FrameCameraTest, UnevenControlPointsGiveEvenSteps) {
  ON_NurbsCurve path;
  path.Create(4, {0, 0, 0, 1, 1, 1}, {{0, 0, 0, 1}, {0, 0, 0, 1}, {0, 0, 0, 1}, {8, 0, 0, 1}});
  const RenderSettings settings = WithFrames(4);
  const FrameCamera camera(path, nullptr, settings, 1);
  for (int i = 0; i < 4; ++i) ExpectLocation({2.0 * i, 0, 0}, camera.Statements(i));
}

TEST_F(FrameCameraTest, AClosedPathIsFollowedAround) {
  const ON_ArcCurve circle({{}, 2, {0, 6.283185307179586}});
  const RenderSettings settings = WithFrames(4);
  const FrameCamera camera(circle, nullptr, settings, 1);
  ExpectLocation({2, 0, 0}, camera.Statements(0));
  ExpectLocation({0, 2, 0}, camera.Statements(1));
  ExpectLocation({0, -2, 0}, camera.Statements(3));
  ExpectDirection({0.707107, 0.707107, 0}, camera.Statements(3));
}

TEST_F(FrameCameraTest, TwoPathsArePassedAtTheSameTime) {
  const ON_LineCurve path({0, -10, 0}, {0, -10, 8});
  const ON_LineCurve target({0, 0, 0}, {0, 0, 8});
  const RenderSettings settings = WithFrames(4);
  const FrameCamera camera(path, &target, settings, 1);
  ExpectLocation({0, -10, 4}, camera.Statements(2));
  ExpectDirection({0, 1, 0}, camera.Statements(2));
  const RenderSettings single = WithFrames(1);
  const FrameCamera still(path, &target, single, 1);
  ExpectLocation({0, -10, 0}, still.Statements(0));
  ExpectDirection({0, 1, 0}, still.Statements(0));
}

// A new viewport looks straight down, and stays so where up and forward are one.
TEST_F(FrameCameraTest, AVerticalPathLooksDown) {
  const std::string expected = "  Transform [ 1 0 -0 0.0 0 1 -0 0.0 0 0 -1 0.0 -1 -2 ";
  const RenderSettings settings = WithFrames(2);
  const ON_LineCurve up({1, 2, 3}, {1, 2, 7});
  EXPECT_THAT(FrameCamera(up, nullptr, settings, 1).Statements(0),
              EndsWith(expected + "3 1.0 ]\n"));
  const ON_LineCurve down({1, 2, 7}, {1, 2, 3});
  EXPECT_THAT(FrameCamera(down, nullptr, settings, 1).Statements(0),
              EndsWith(expected + "7 1.0 ]\n"));
}

TEST_F(FrameCameraTest, ATargetAtTheCameraLooksDown) {
  const ON_LineCurve path({1, 2, 3}, {1, 9, 3});
  const RenderSettings settings = WithFrames(2);
  EXPECT_THAT(FrameCamera(path, &path, settings, 1).Statements(0),
              EndsWith("  Transform [ 1 0 -0 0.0 0 1 -0 0.0 0 0 -1 0.0 -1 -2 3 1.0 ]\n"));
}

TEST_F(FrameCameraTest, APointOutOfReachIsNoNumberOfTheStream) {
  RenderSettings settings = WithFrames(2);
  settings.DofEnable = true;
  ON_PolylineCurve far;
  far.m_pline = {{1e308, -1e308, 1e308}, {-1e308, 1e308, -1e308}};
  far.m_t = {0, 1};
  const ON_LineCurve near({1, 2, 3}, {4, 5, 6});
  for (const std::string& statements : {FrameCamera(far, nullptr, settings, 1).Statements(0),
                                        FrameCamera(far, &near, settings, 1).Statements(1),
                                        FrameCamera(near, &far, settings, 1).Statements(0)}) {
    EXPECT_THAT(statements, Not(HasSubstr("nan")));
    EXPECT_THAT(statements, Not(HasSubstr("inf")));
  }
}

TEST_F(FrameCameraTest, DepthOfFieldStandsWithoutIndent) {
  const ON_LineCurve path({0, -10, 0}, {0, -10, 8});
  const ON_LineCurve target({0, 0, 0}, {0, 0, 8});
  RenderSettings settings = WithFrames(2);
  settings.DofEnable = true;
  settings.DofFstop = 5.7;
  settings.DofCameraLens = 35;
  settings.DofFocusDistance = 42;
  settings.DofFocusOnTarget = true;
  // Centimetres.
  EXPECT_THAT(FrameCamera(path, nullptr, settings, 0.1).Statements(0),
              EndsWith(" 1.0 ]\nDepthOfField 5.7 3.5 42\n"))
      << "a fly-through has no target";
  EXPECT_THAT(FrameCamera(path, &target, settings, 0.1).Statements(0),
              EndsWith(" 1.0 ]\nDepthOfField 5.7 3.5 10\n"));
  settings.DofFocusOnTarget = false;
  EXPECT_THAT(FrameCamera(path, &target, settings, 0.1).Statements(0),
              EndsWith(" 1.0 ]\nDepthOfField 5.7 3.5 42\n"));
}

}  // namespace
}  // namespace orv
