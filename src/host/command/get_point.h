#pragma once

#include <optional>
#include <string_view>

#include "host/command/getter.h"
#include "host/geometry/on_brep_point.h"
#include "host/geometry/on_point.h"

struct ON_BrepFace;

// Asks for a point in world coordinates, typed as "x,y,z" or "x,y" (on the plane z = 0).
//
// A point on a brep is typed as "x,y,z", to which the closest point of the brep's faces is taken,
// or by the parameters of a face's surface: as "u,v" when there is one face, as "face:u,v" with the
// face's number, counted from 0, when there are several. So two numbers are never a point of the
// plane z = 0 there.
class CRhinoGetPoint : public CRhinoGet {
 public:
  explicit CRhinoGetPoint(CRhinoCommandContext& context) : CRhinoGet(context) {}

  // Asks for a point on the brep, which outlives the getter.
  void Constrain(const ON_Brep& brep) { brep_ = &brep; }

  // point, nothing, option, cancel or no_result.
  Result GetPoint();
  ON_3dPoint Point() const { return point_; }
  // The face on which the point lies, and the parameters of its surface there. Null when no point
  // on a brep was had; the parameters are then unchanged.
  const ON_BrepFace* PointOnBrep(double* u, double* v) const;

 protected:
  std::optional<Result> TakeText(const Answer& answer) override;

 private:
  std::optional<Result> TakePointOnBrep(std::string_view text);

  ON_3dPoint point_{0, 0, 0};
  const ON_Brep* brep_ = nullptr;
  std::optional<ON_BrepPoint> on_brep_;
};

// Reads 2 or 3 finite numbers that commas separate; nothing for any other text.
std::optional<ON_3dPoint> ParsePoint(std::string_view text);
