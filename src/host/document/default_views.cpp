#include "host/document/default_views.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "host/system/text.h"

namespace {

struct DefaultView {
  std::string_view name;
  ON_Viewport::View projection;
  ON_3dVector direction;
  ON_3dVector up;
};

constexpr std::array<DefaultView, 4> kDefaultViews = {{
    {"Top", ON_Viewport::View::parallel, {0, 0, -1}, {0, 1, 0}},
    {"Front", ON_Viewport::View::parallel, {0, 1, 0}, {0, 0, 1}},
    {"Right", ON_Viewport::View::parallel, {-1, 0, 0}, {0, 0, 1}},
    {"Perspective", ON_Viewport::View::perspective, {-0.43, 0.75, -0.5}, {0, 0, 1}},
}};
constexpr const DefaultView& kTop = kDefaultViews[0];
constexpr const DefaultView& kPerspective = kDefaultViews[3];

constexpr int kDefaultWidth = 800;
constexpr int kDefaultHeight = 600;
constexpr int kMaxPortSize = 1 << 20;
// Half of the film's 24 mm over a lens of 50 mm.
constexpr double kDefaultHalfAngleTangent = 12.0 / 50.0;
// How much wider than the model a view is.
constexpr double kMargin = 1.1;
// Cameras aren't set up for models beyond this size.
constexpr double kMaxRadius = 1e100;

// False for the number that stands for "no value" as well.
bool IsUsablePoint(ON_3dPoint p) {
  return ON_FromOrigin(p).Length() < kMaxRadius;
}

struct Sphere {
  ON_3dPoint center{0, 0, 0};
  double radius = 20;
};

Sphere SphereAround(const ON_BoundingBox& box) {
  if (!box.IsValid()) return {};
  const ON_3dVector half = (box.m_max - box.m_min) * 0.5;
  const double radius = half.Length();
  if (!(radius < kMaxRadius) || !IsUsablePoint(box.m_min)) return {};
  return {box.m_min + half, radius > 0 ? radius : 1};
}

bool IsUnit(ON_3dVector v) {
  return std::abs(v.Length() - 1) < 1e-6;
}

bool HasUsableCamera(const ON_Viewport& vp) {
  constexpr double kTolerance = 1e-6;
  const double length = vp.m_direction.Length();
  return vp.m_camera_valid && IsUsablePoint(vp.m_location) && std::isfinite(length) && length > 0 &&
         IsUnit(vp.m_x) && IsUnit(vp.m_y) && IsUnit(vp.m_z) &&
         std::abs(ON_DotProduct(vp.m_x, vp.m_y)) < kTolerance &&
         (ON_CrossProduct(vp.m_x, vp.m_y) - vp.m_z).Length() < kTolerance;
}

bool HasUsableFrustum(const ON_Viewport& vp) {
  const ON_Viewport::Frustum& f = vp.m_frustum;
  const bool isPerspective = vp.m_projection == ON_Viewport::View::perspective;
  return vp.m_frustum_valid && f.left < f.right && f.bottom < f.top && f.near < f.far &&
         std::isfinite(f.right - f.left) && std::isfinite(f.top - f.bottom) &&
         std::isfinite(f.far - f.near) && (!isPerspective || f.near > 0);
}

bool IsUsableSide(int from, int to) {
  const auto inRange = [](int value) { return value > -kMaxPortSize && value < kMaxPortSize; };
  return from != to && inRange(from) && inRange(to);
}

bool HasUsablePort(const ON_Viewport& vp) {
  return vp.m_port_valid && IsUsableSide(vp.m_port.left, vp.m_port.right) &&
         IsUsableSide(vp.m_port.bottom, vp.m_port.top);
}

double FrustumAspect(const ON_Viewport::Frustum& f) {
  return (f.right - f.left) / (f.top - f.bottom);
}

double PortAspect(const ON_Viewport::ScreenPort& port) {
  return static_cast<double>(port.right - port.left) / (port.bottom - port.top);
}

void SetDefaultPort(ON_Viewport& vp, double aspect) {
  constexpr double kDefaultAspect = static_cast<double>(kDefaultWidth) / kDefaultHeight;
  const double width = aspect < kDefaultAspect ? kDefaultHeight * aspect : kDefaultWidth;
  const double height = aspect < kDefaultAspect ? kDefaultHeight : kDefaultWidth / aspect;
  vp.m_port.left = 0;
  vp.m_port.top = 0;
  vp.m_port.right = std::max(1, static_cast<int>(std::lround(width)));
  vp.m_port.bottom = std::max(1, static_cast<int>(std::lround(height)));
  vp.m_port_valid = true;
}

// The default camera that a view of this name and projection has.
const DefaultView& DefaultFor(const ON_3dmView& view) {
  for (const DefaultView& candidate : kDefaultViews) {
    if (candidate.projection == view.m_vp.m_projection &&
        host::EqualNoCase(candidate.name, view.m_name)) {
      return candidate;
    }
  }
  return view.m_vp.m_projection == ON_Viewport::View::perspective ? kPerspective : kTop;
}

// Places the camera so that the view shows the sphere, looking as it looks.
void AimAt(ON_3dmView& view, const Sphere& sphere) {
  ON_Viewport& vp = view.m_vp;
  const bool isPerspective = vp.m_projection == ON_Viewport::View::perspective;
  const double shown = kMargin * sphere.radius;
  const double distance =
      isPerspective ? shown / std::sin(std::atan(kDefaultHalfAngleTangent)) : 4 * sphere.radius;
  vp.m_location = sphere.center + vp.m_z * distance;
  vp.m_direction = vp.m_z * -distance;
  vp.m_target = sphere.center;
  view.m_target = sphere.center;
  vp.m_frustum.near = distance - 2 * sphere.radius;
  vp.m_frustum.far = distance + 2 * sphere.radius;
  const double half = isPerspective ? vp.m_frustum.near * kDefaultHalfAngleTangent : shown;
  vp.m_frustum.left = vp.m_frustum.bottom = -half;
  vp.m_frustum.right = vp.m_frustum.top = half;
  vp.m_frustum_valid = true;
  FitFrustumToPort(vp);
}

void SetDefaultCamera(ON_3dmView& view) {
  const DefaultView& source = DefaultFor(view);
  view.m_vp.m_camera_valid =
      view.m_vp.SetCameraFrame(ON_3dPoint{0, 0, 0}, source.direction, source.up);
}

}  // namespace

void FitFrustumToPort(ON_Viewport& viewport) {
  ON_Viewport::Frustum& f = viewport.m_frustum;
  const double change = PortAspect(viewport.m_port) / FrustumAspect(f);
  const auto grow = [](double& from, double& to, double factor) {
    const double middle = (from + to) / 2;
    const double half = (to - from) / 2 * factor;
    from = middle - half;
    to = middle + half;
  };
  if (change > 1) grow(f.left, f.right, change);
  if (change < 1) grow(f.bottom, f.top, 1 / change);
}

void CompleteView(ON_3dmView& view, const ON_BoundingBox& box) {
  ON_Viewport& vp = view.m_vp;
  if (vp.m_projection != ON_Viewport::View::perspective) {
    vp.m_projection = ON_Viewport::View::parallel;
  }
  const bool hasCamera = HasUsableCamera(vp);
  const bool hasFrustum = hasCamera && HasUsableFrustum(vp);
  if (!HasUsablePort(vp)) {
    SetDefaultPort(vp, hasFrustum ? FrustumAspect(vp.m_frustum)
                                  : static_cast<double>(kDefaultWidth) / kDefaultHeight);
  }
  if (vp.m_port.left > vp.m_port.right) std::swap(vp.m_port.left, vp.m_port.right);
  if (vp.m_port.top > vp.m_port.bottom) std::swap(vp.m_port.top, vp.m_port.bottom);
  if (!hasCamera) SetDefaultCamera(view);
  if (!hasFrustum) AimAt(view, SphereAround(box));
  if (vp.m_target && !IsUsablePoint(*vp.m_target)) vp.m_target.reset();
  if (!IsUsablePoint(view.m_target)) view.m_target = vp.m_location + vp.m_direction;
}

std::vector<ON_3dmView> DefaultViews(const ON_BoundingBox& box) {
  std::vector<ON_3dmView> views;
  for (const DefaultView& source : kDefaultViews) {
    ON_3dmView& view = views.emplace_back();
    view.m_name = source.name;
    view.m_vp.m_projection = source.projection;
    view.m_vp.m_camera_valid = false;
    view.m_vp.m_frustum_valid = false;
    view.m_vp.m_port_valid = false;
    CompleteView(view, box);
  }
  return views;
}
