#pragma once

#include <array>
#include <memory>

#include "host/geometry/on_curve.h"
#include "host/geometry/on_line.h"
#include "host/geometry/on_mesh.h"
#include "host/geometry/on_xform.h"

// What planar curves, the profiles, sweep along a straight path. They are curves in x and y; z is
// the direction of the path. The first one is the outer one; the others are closed and lie inside.
class ON_Extrusion : public ON_Geometry {
 public:
  static const ON_Extrusion* Cast(const ON_Object* object);

  ON_ObjectType ObjectType() const override { return ON_ObjectType::extrusion; }
  bool HasBrepForm() const override { return true; }
  // First a face for each piece of a profile between its kinks, then the caps at the start and the
  // end. There are caps only when all profiles are closed, the outer one runs counterclockwise and
  // the inner ones clockwise. Null when the profiles have no NURBS form or no length.
  std::unique_ptr<ON_Brep> BrepForm() const override;
  // The box of the profiles' control points at both ends.
  ON_BoundingBox BoundingBox() const override;
  // True when all numbers are ones, the path and its piece have a length, and there are as many
  // profiles as m_profile_count says. All else is asked of valid extrusions only.
  bool IsValid() const;

  int ProfileCount() const { return m_profile_count; }
  const ON_Curve& Profile(int index) const;
  // The part of the profiles' common domain that belongs to a profile.
  ON_Interval ProfileDomain(int index) const;
  // Maps profiles to where they stand at the start of the path (0) or its end (1).
  ON_Xform ProfileTransform(int end) const;
  // The plane of a profile at an end. Mitred, it is turned out of the plane across the path about
  // the line in which the two meet.
  ON_Plane EndPlane(int end) const;

  // The path is the piece m_t of this line, 0 being its start and 1 its end.
  ON_Line m_path{{0, 0, 0}, {0, 0, 1}};
  ON_Interval m_t{0, 1};
  // The direction of the profiles' y axis, across the path.
  ON_3dVector m_up{0, 1, 0};
  // Whether an end is cut off along a plane that isn't across the path, and that plane's normal in
  // the profiles' coordinates. Its z is positive.
  std::array<bool, 2> m_bHaveN{false, false};
  std::array<ON_3dVector, 2> m_N{{{0, 0, 1}, {0, 0, 1}}};
  // The parameters along the path.
  ON_Interval m_path_domain{0, 1};
  // When true, the first parameter of the side faces runs along the path, not the profile.
  bool m_bTransposed = false;
  int m_profile_count = 0;
  // With several profiles, a polycurve of them.
  std::unique_ptr<ON_Curve> m_profile;
  // Whether the ends are closed.
  std::array<bool, 2> m_bCap{false, false};
  // As the document holds it; null when it doesn't.
  std::shared_ptr<const ON_Mesh> m_render_mesh;

 private:
  // Across the path at an end: the frame in which profiles stand when they aren't mitred.
  ON_Plane PathPlane(int end) const;
  // The unit normal of an end's plane in the profiles' coordinates.
  ON_3dVector EndNormal(int end) const;
};
