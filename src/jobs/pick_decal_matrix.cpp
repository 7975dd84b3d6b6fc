#include "jobs/pick_decal_matrix.h"

#include <algorithm>
#include <string_view>

#include "host/command/get_point.h"
#include "host/command/get_rectangle_3_point.h"

namespace orv {
namespace {

std::optional<ON_3dPoint> PickCorner(CRhinoCommandContext& context, std::string_view prompt) {
  CRhinoGetPoint get(context);
  get.SetCommandPrompt(prompt);
  if (get.GetPoint() != CRhinoGet::Result::point) return std::nullopt;
  return get.Point();
}

// The direction of a vector, divided by `size`.
ON_3dVector Axis(ON_3dVector v, double size) {
  const double length = v.Length();
  return length > 0 ? v * (1 / length) * (1 / size) : ON_3dVector{0, 0, 0};
}

}  // namespace

std::array<double, 16> DecalMatrix(const std::array<ON_3dPoint, 3>& corners) {
  constexpr double kLeastSize = 1e-7;
  const ON_3dVector a = corners[1] - corners[0];
  const ON_3dVector b = corners[2] - corners[1];
  const double width = std::max(a.Length(), kLeastSize);
  const double height = std::max(b.Length(), kLeastSize);
  const ON_3dVector x = Axis(a, width);
  const ON_3dVector y = Axis(b, height);
  const ON_3dVector z = Axis(ON_CrossProduct(a, b), height);
  const ON_3dVector origin = ON_FromOrigin(corners[0]);
  // The last row without a minus in front of a zero.
  const auto moved = [&](ON_3dVector axis) { return 0 - ON_DotProduct(origin, axis); };
  return {x.x, y.x, z.x, 0, x.y, y.y, z.y, 0, x.z, y.z, z.z, 0, moved(x), moved(y), moved(z), 1};
}

std::optional<std::array<double, 16>> PickDecalMatrix(CRhinoCommandContext& context) {
  const auto left = PickCorner(context, "Pick top, left corner");
  if (!left) return std::nullopt;
  const auto right = PickCorner(context, "Pick top, right corner");
  if (!right) return std::nullopt;
  CRhinoGetRectangle3Point get(context);
  get.SetCommandPrompt("End rectangle");
  get.SetBase(*left, *right);
  if (get.GetRectangle() != CRhinoGet::Result::rectangle) return std::nullopt;
  const std::array<ON_3dPoint, 4>& corners = get.Rectangle();
  return DecalMatrix({corners[0], corners[1], corners[2]});
}

}  // namespace orv
