#pragma once

#include <optional>
#include <string_view>

#include "host/command/getter.h"
#include "host/geometry/on_point.h"

// Asks for a point in world coordinates, typed as "x,y,z" or "x,y" (on the plane z = 0).
class CRhinoGetPoint : public CRhinoGet {
 public:
  explicit CRhinoGetPoint(CRhinoCommandContext& context) : CRhinoGet(context) {}

  // point, nothing, option, cancel or no_result.
  Result GetPoint() { return Get(); }
  ON_3dPoint Point() const { return point_; }

 protected:
  std::optional<Result> TakeText(const Answer& answer) override;

 private:
  ON_3dPoint point_{0, 0, 0};
};

// Reads 2 or 3 finite numbers that commas separate; nothing for any other text.
std::optional<ON_3dPoint> ParsePoint(std::string_view text);
