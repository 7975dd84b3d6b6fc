#include "host/geometry/on_curve.h"

#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_parameters.h"

const ON_Curve* ON_Curve::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_Curve*>(object);
}

bool ON_Curve::IsClosed() const {
  const ON_3dPoint start = PointAtStart();
  if (!ON_PointsAreCoincident(start, PointAtEnd())) return false;
  const auto is_elsewhere = [&](double fraction) {
    return !ON_PointsAreCoincident(start, PointAt(Domain().ParameterAt(fraction)));
  };
  return is_elsewhere(1.0 / 3) || is_elsewhere(2.0 / 3);
}

int ON_Curve::IsPolyline(std::vector<ON_3dPoint>* points) const {
  if (points != nullptr) points->clear();
  return 0;
}

std::unique_ptr<ON_NurbsCurve> ON_Curve::NurbsCurve() const {
  auto form = std::make_unique<ON_NurbsCurve>();
  return GetNurbForm(*form) ? std::move(form) : nullptr;
}
