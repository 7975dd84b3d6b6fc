#pragma once

#include <array>
#include <optional>

#include "host/command/getter.h"
#include "host/geometry/on_point.h"

// Asks for a rectangle in space, two of whose corners are known: for a point, typed as "x,y,z" or
// "x,y", through which the side opposite to them goes.
class CRhinoGetRectangle3Point : public CRhinoGet {
 public:
  explicit CRhinoGetRectangle3Point(CRhinoCommandContext& context) : CRhinoGet(context) {}

  // The corners 0 and 1; both are the origin at first.
  void SetBase(ON_3dPoint corner0, ON_3dPoint corner1);

  // rectangle, nothing, option, cancel or no_result.
  Result GetRectangle() { return Get(); }
  // The corners in their order around. The corner 2 is the foot of the point on the line through
  // corner 1 across the base; the point itself when the base has no length.
  const std::array<ON_3dPoint, 4>& Rectangle() const { return corners_; }

 protected:
  std::optional<Result> TakeText(const Answer& answer) override;

 private:
  std::array<ON_3dPoint, 4> corners_{};
};
