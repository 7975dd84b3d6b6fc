#pragma once

#include <vector>

#include "host/geometry/on_surface.h"
#include "host/geometry/on_uuid.h"

// A rectangle in a plane.
class ON_PlaneSurface : public ON_Surface {
 public:
  static const ON_PlaneSurface* Cast(const ON_Object* object);

  ON_BoundingBox BoundingBox() const override;
  bool IsValid() const override;
  ON_Interval Domain(int direction) const override { return m_domain[direction]; }
  ON_3dPoint PointAt(double u, double v) const override;
  void Ev1Der(double u, double v, ON_3dPoint* point, ON_3dVector* du,
              ON_3dVector* dv) const override;
  bool IsClosed(int) const override { return false; }
  bool IsSingular(Side) const override { return false; }
  // Exact, and the parameters agree.
  bool GetNurbForm(ON_NurbsSurface& form) const override;
  std::unique_ptr<ON_Surface> DuplicateSurface() const override;

  ON_Plane m_plane;
  ON_Interval m_domain[2] = {{-1, 1}, {-1, 1}};
  // The rectangle's sides in the coordinates of the plane: along its x axis and its y axis. The
  // domain is stretched over them.
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
  std::unique_ptr<ON_Brep> BrepForm() const override;
  std::unique_ptr<ON_Surface> DuplicateSurface() const override;

  // The viewports that it cuts, unless it is switched off.
  std::vector<ON_UUID> m_viewport_ids;
  bool m_bEnabled = true;
};
