#include "host/command/get_rectangle_3_point.h"

#include "host/command/get_point.h"

namespace {

// The part of `v` across `direction`.
ON_3dVector Across(ON_3dVector v, ON_3dVector direction) {
  const double length = direction.Length();
  if (!(length > 0)) return v;
  const ON_3dVector axis = direction * (1 / length);
  return v - axis * ON_DotProduct(v, axis);
}

}  // namespace

void CRhinoGetRectangle3Point::SetBase(ON_3dPoint corner0, ON_3dPoint corner1) {
  corners_ = {corner0, corner1, corner1, corner0};
}

std::optional<CRhinoGet::Result> CRhinoGetRectangle3Point::TakeText(const Answer& answer) {
  const std::optional<ON_3dPoint> point = ParsePoint(answer.Text);
  if (!point) return Refuse("A point is typed as x,y,z or x,y, not '" + answer.Text + "'.");
  const ON_3dVector side = Across(*point - corners_[1], corners_[1] - corners_[0]);
  corners_[2] = corners_[1] + side;
  corners_[3] = corners_[0] + side;
  return Result::rectangle;
}
