#pragma once

#include <vector>

#include "host/geometry/on_object.h"
#include "host/geometry/on_uuid.h"

// A rectangle in a plane.
class ON_PlaneSurface : public ON_Geometry {
 public:
  ON_ObjectType ObjectType() const override { return ON_ObjectType::surface; }
  ON_BoundingBox BoundingBox() const override;
  bool HasBrepForm() const override { return true; }

  ON_Plane m_plane;
  // The rectangle's sides in the coordinates of the plane: along its x axis and its y axis.
  ON_Interval m_extents[2] = {{-1, 1}, {-1, 1}};
};

// A plane that cuts off, in some views, what lies on one side of it. The rectangle only shows where
// it is.
class ON_ClippingPlaneSurface : public ON_PlaneSurface {
 public:
  static const ON_ClippingPlaneSurface* Cast(const ON_Object* object);

  ON_ObjectType ObjectType() const override { return ON_ObjectType::clipping_plane; }
  // It isn't a part of what is shown.
  bool HasBrepForm() const override { return false; }

  // The viewports that it cuts, unless it is switched off.
  std::vector<ON_UUID> m_viewport_ids;
  bool m_bEnabled = true;
};
