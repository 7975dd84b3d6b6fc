#include "export/camera.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "export_fixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class CameraTest : public testing::Test {
 protected:
  // The camera section of `view`, in a document with a mesh from (0,0,0) to (1,1,0) and one at the
  // height 5.
  std::string Camera(const ON_3dmView& view) {
    ONX_Model model = model_;
    if (!isEmpty_) model.m_object_table = {ObjectOf(SquareMesh()), ObjectOf(SquareMesh(5))};
    doc_.SetModel(std::move(model), "");
    const CRhinoView opened(view);
    return Written(
        [&](orv::RibWriter& writer) { orv::WriteCamera(writer, opened, doc_, settings_); });
  }

  ONX_Model model_;
  CRhinoDoc doc_;
  orv::RenderSettings settings_;
  bool isEmpty_ = false;
};

// The transform of PerspectiveView.
constexpr std::string_view kPerspectiveTransform =
    "ConcatTransform [ 1 0 0 0.0 0 0 1 0.0 0 1 0 0.0 -1 -2 10 1.0 ]\n";

TEST_F(CameraTest, OfAPerspectiveView) {
  EXPECT_EQ(Camera(PerspectiveView()),
            "Clipping 1.9 105\n"
            "Format 640 480 1\n"
            "Projection \"perspective\" \"fov\" [ 45 ]\n" +
                std::string(kPerspectiveTransform));
  EXPECT_EQ(settings_.FormatWidth, 640);
  EXPECT_EQ(settings_.FormatHeight, 480);
  EXPECT_NEAR(settings_.CameraFov, 45, 1e-12);
  const std::array<double, 16> matrix = {1, 0, 0, 0, 0, 0, 1, 0, 0, 1, 0, 0, -1, -2, 10, 1};
  EXPECT_EQ(settings_.CameraMatrix, matrix);
}

TEST_F(CameraTest, OfAParallelView) {
  settings_.CameraFov = 30;
  EXPECT_EQ(Camera(ParallelView()),
            "ScreenWindow -20 20 -10 10\n"
            "Clipping 42.75 52.5\n"
            "Format 800 400 1\n"
            "Projection \"orthographic\"\n"
            "ConcatTransform [ 1 0 0 0.0 -0 1 0 0.0 0 0 -1 0.0 -2 -3 50 1.0 ]\n");
  EXPECT_EQ(settings_.CameraFov, 0);
}

TEST_F(CameraTest, AnEmptyDocumentInAParallelViewHasNoClipping) {
  isEmpty_ = true;
  EXPECT_THAT(Camera(ParallelView()), Not(HasSubstr("Clipping")));
}

TEST_F(CameraTest, WithoutCameraStatementsTheFormatStays) {
  settings_.WriteCamera = false;
  settings_.StereoEnable = true;
  settings_.DofEnable = true;
  settings_.UseCropWindow = true;
  settings_.Enlarge = true;
  EXPECT_EQ(Camera(ParallelView()), "Format 800 400 1\n");
  EXPECT_EQ(Camera(PerspectiveView()), "Format 640 480 1\n");
}

TEST_F(CameraTest, ACameraOnAPathIsLeftOut) {
  settings_.AnimMode = 2;
  EXPECT_EQ(Camera(PerspectiveView()), "Format 640 480 1\n");
  settings_.AnimMode = 3;
  EXPECT_EQ(Camera(PerspectiveView()), "Format 640 480 1\n");
}

TEST_F(CameraTest, TheTurntableTurnsEvenWithoutCameraStatements) {
  settings_.WriteCamera = false;
  settings_.AnimMode = 1;
  settings_.TurntableMaxAngle = 90;
  ON_3dmView view = PerspectiveView();
  view.m_target = {1, 2.5, -3};
  EXPECT_EQ(Camera(view),
            "Format 640 480 1\n"
            "Translate 1 2.5 -3\n"
            "MotionBegin [0 1]\n"
            "  Rotate 0  0 0 1\n"
            "  Rotate 90  0 0 1\n"
            "MotionEnd\n"
            "Translate -1 -2.5 3\n");
}

TEST_F(CameraTest, AnImageSizeReplacesTheViewports) {
  settings_.ImageWidth = 1920;
  settings_.ImageHeight = 1080;
  EXPECT_THAT(Camera(PerspectiveView()), HasSubstr("Format 1920 1080 1\n"));
  EXPECT_EQ(settings_.FormatWidth, 1920);
  EXPECT_EQ(settings_.FormatHeight, 1080);
}

TEST_F(CameraTest, HalfAnImageSizeIsNone) {
  settings_.ImageWidth = 0;
  settings_.ImageHeight = 1080;
  EXPECT_THAT(Camera(PerspectiveView()), HasSubstr("Format 640 480 1\n"));
  settings_.ImageWidth = 1920;
  settings_.ImageHeight = 0;
  EXPECT_THAT(Camera(ParallelView()), HasSubstr("ScreenWindow -20 20 -10 10\n"));
  EXPECT_EQ(settings_.FormatWidth, 800);
}

TEST_F(CameraTest, ALandscapeImageKeepsTheHeightOfAParallelView) {
  settings_.ImageWidth = 300;
  settings_.ImageHeight = 200;
  EXPECT_THAT(Camera(ParallelView()), HasSubstr("ScreenWindow -15 15 -10 10\n"));
  settings_.ImageWidth = 200;
  EXPECT_THAT(Camera(ParallelView()), HasSubstr("ScreenWindow -10 10 -10 10\n"));
}

TEST_F(CameraTest, APortraitImageKeepsTheWidthOfAParallelView) {
  settings_.ImageWidth = 100;
  settings_.ImageHeight = 200;
  EXPECT_THAT(Camera(ParallelView()), HasSubstr("ScreenWindow -20 20 -40 40\n"));
}

TEST_F(CameraTest, AStereoPairHasTheMainCameraToTheLeft) {
  settings_.StereoEnable = true;
  settings_.InterocularDistance = 6;
  const std::string transform(kPerspectiveTransform);
  EXPECT_EQ(Camera(PerspectiveView()),
            "Clipping 1.9 105\n"
            "Format 640 480 1\n"
            "Projection \"perspective\" \"fov\" [ 45 ]\n"
            "Translate -3 0 0\n" +
                transform +
                "AttributeBegin\n"
                "  Identity\n"
                "  Translate 3 0 0\n"
                "  " +
                transform +
                "  Camera \"right\"\n"
                "AttributeEnd\n");
}

TEST_F(CameraTest, DepthOfFieldFocusesOnTheTarget) {
  settings_.DofEnable = true;
  settings_.DofFocusDistance = 7;
  model_.m_settings.m_model_units.m_unit_system = ON_UnitSystem::centimeters;
  EXPECT_THAT(Camera(PerspectiveView()),
              HasSubstr(std::string(kPerspectiveTransform) + "DepthOfField 8 5 10\n"));
}

TEST_F(CameraTest, DepthOfFieldCanHaveADistanceOfItsOwn) {
  settings_.DofEnable = true;
  settings_.DofFocusOnTarget = false;
  settings_.DofFocusDistance = 7;
  settings_.DofFstop = 2.8;
  settings_.DofCameraLens = 35;
  EXPECT_THAT(Camera(PerspectiveView()), HasSubstr("DepthOfField 2.8 35 7\n"));
}

TEST_F(CameraTest, ACropWindowWithoutEnlargeIsNoMatterOfTheCamera) {
  settings_.UseCropWindow = true;
  EXPECT_THAT(Camera(PerspectiveView()), Not(HasSubstr("ScreenWindow")));
  settings_.UseCropWindow = false;
  settings_.Enlarge = true;
  EXPECT_THAT(Camera(PerspectiveView()), Not(HasSubstr("ScreenWindow")));
}

TEST_F(CameraTest, AnEnlargedCropOfAParallelViewHasAWindowOfTheViewBeforeItsOwn) {
  settings_.UseCropWindow = true;
  settings_.Enlarge = true;
  settings_.CropWindow = {0.25, 0.75, 0.25, 0.75};
  EXPECT_EQ(Camera(ParallelView()),
            "ScreenWindow -20 20 -10 10\n"
            "Clipping 42.75 52.5\n"
            "Format 800 400 1\n"
            "Projection \"orthographic\"\n"
            "ScreenWindow [-2 2 -0.5 0.5]\n"
            "ConcatTransform [ 1 0 0 0.0 -0 1 0 0.0 0 0 -1 0.0 -2 -3 50 1.0 ]\n");
}

class EnlargedCropTest : public CameraTest {
 protected:
  // The screen window of a crop in a 640 x 480 viewport.
  std::string ScreenWindow(std::array<double, 4> cropWindow, int imageWidth, int imageHeight) {
    settings_.UseCropWindow = true;
    settings_.Enlarge = true;
    settings_.CropWindow = cropWindow;
    settings_.ImageWidth = imageWidth;
    settings_.ImageHeight = imageHeight;
    const std::string text = Camera(PerspectiveView());
    const std::size_t start = text.find("ScreenWindow");
    return text.substr(start, text.find('\n', start) - start);
  }
};

TEST_F(EnlargedCropTest, OfTheWholeSquareImageIsTheWholeView) {
  ON_3dmView view = PerspectiveView();
  view.m_vp.m_port = {.left = 0, .right = 500, .bottom = 500, .top = 0};
  settings_.UseCropWindow = true;
  settings_.Enlarge = true;
  settings_.CropWindow = {0, 1, 0, 1};
  EXPECT_THAT(Camera(view), HasSubstr("fov\" [ 45 ]\nScreenWindow [-1 1 -1 1]\nConcatTransform"));
}

TEST_F(EnlargedCropTest, OfTheWholeImageKeepsToTheImage) {
  // 4 : 3 exceeds the fractions' 1 : 1, so the width would grow beyond the image.
  EXPECT_EQ(ScreenWindow({0, 1, 0, 1}, 0, 0), "ScreenWindow [-1.33333 1.33333 -1 1]");
}

TEST_F(EnlargedCropTest, AWideCropGrowsInHeight) {
  // 0.5 x 0.1 in a square image: the height grows to 0.5 about its middle, 0.5.
  EXPECT_EQ(ScreenWindow({0.25, 0.75, 0.45, 0.55}, 100, 100),
            "ScreenWindow [-0.666667 0.666667 -0.5 0.5]");
}

TEST_F(EnlargedCropTest, AHighCropGrowsInWidth) {
  EXPECT_EQ(ScreenWindow({0.45, 0.55, 0.25, 0.75}, 100, 100),
            "ScreenWindow [-0.666667 0.666667 -0.5 0.5]");
}

TEST_F(EnlargedCropTest, ACropThatGrowsOverTheTopIsMovedDown) {
  // y from -0.2 to 0.3 becomes 0 to 0.5.
  EXPECT_EQ(ScreenWindow({0.25, 0.75, 0, 0.1}, 100, 100), "ScreenWindow [-0.666667 0.666667 0 1]");
}

TEST_F(EnlargedCropTest, ACropThatGrowsOverTheBottomIsMovedUp) {
  EXPECT_EQ(ScreenWindow({0.25, 0.75, 0.9, 1}, 100, 100), "ScreenWindow [-0.666667 0.666667 -1 0]");
}

TEST_F(EnlargedCropTest, ACropThatGrowsOverASideIsMovedIn) {
  EXPECT_EQ(ScreenWindow({0, 0.1, 0.25, 0.75}, 100, 100), "ScreenWindow [-1.33333 0 -0.5 0.5]");
  EXPECT_EQ(ScreenWindow({0.9, 1, 0.25, 0.75}, 100, 100), "ScreenWindow [0 1.33333 -0.5 0.5]");
}

TEST_F(EnlargedCropTest, ACropThatCannotGrowEnoughStaysInTheImage) {
  EXPECT_EQ(ScreenWindow({0, 1, 0.5, 0.6}, 100, 200), "ScreenWindow [-1.33333 1.33333 -1 1]");
}

TEST_F(EnlargedCropTest, OfAPortraitViewportIsWiderThanOneUpward) {
  ON_3dmView view = PerspectiveView();
  view.m_vp.m_port = {.left = 0, .right = 300, .bottom = 600, .top = 0};
  settings_.UseCropWindow = true;
  settings_.Enlarge = true;
  settings_.CropWindow = {0.25, 0.75, 0, 1};
  // 1 : 2 equals the fractions' proportion, so nothing grows.
  EXPECT_THAT(Camera(view), HasSubstr("ScreenWindow [-0.5 0.5 -2 2]\n"));
}

TEST_F(CameraTest, APortWithoutSizeDoesNoHarm) {
  settings_.UseCropWindow = true;
  settings_.Enlarge = true;
  ON_3dmView view = ParallelView();
  view.m_vp.m_port = {.left = 5, .right = 5, .bottom = 5, .top = 5};
  EXPECT_THAT(Camera(view), HasSubstr("Format 0 0 1\n"));
  view.m_vp.m_port = {.left = -2147483647, .right = 2147483647, .bottom = 10, .top = 0};
  EXPECT_THAT(Camera(view), HasSubstr("Format 2147483647 10 1\n"));
}

TEST_F(CameraTest, ClippingBehindAParallelCameraGrowsAwayFromIt) {
  ON_3dmView view = ParallelView();
  // Between the two meshes, and above both.
  ASSERT_TRUE(view.m_vp.SetCameraFrame({2, 3, 1}, {0, 0, -2}, {0, 1, 0}));
  EXPECT_THAT(Camera(view), HasSubstr("Clipping -4.2 1.05\n"));
  ASSERT_TRUE(view.m_vp.SetCameraFrame({2, 3, -10}, {0, 0, -2}, {0, 1, 0}));
  EXPECT_THAT(Camera(view), HasSubstr("Clipping -15.75 -9.5\n"));
}

TEST_F(CameraTest, ANearPlaneAtThePerspectiveCameraIsMovedOff) {
  ON_3dmView view = PerspectiveView();
  view.m_vp.m_frustum.near = 0;
  EXPECT_THAT(Camera(view), HasSubstr("Clipping 0.00095 105\n"));
}

}  // namespace
