#pragma once

#include <memory>

#include "host/geometry/on_object.h"

class ON_NurbsSurface;

// The base of all surfaces: a point in space for each pair of parameters u and v of a rectangular
// domain. Direction 0 is u, direction 1 is v. What is asked of a surface holds for valid surfaces
// only; documents give no others.
class ON_Surface : public ON_Geometry {
 public:
  // The sides of the domain, counterclockwise, as the bits of a set of sides count them.
  enum class Side { south = 0, east = 1, north = 2, west = 3 };

  static const ON_Surface* Cast(const ON_Object* object);

  ON_ObjectType ObjectType() const override { return ON_ObjectType::surface; }
  bool HasBrepForm() const override { return true; }
  // One face with the sides of the domain as its boundary, counterclockwise from the south. Edges
  // are the NURBS curves that the sides are, with the domain of the trims beside them. Sides that
  // are one curve share an edge; one that is a point has none.
  std::unique_ptr<ON_Brep> BrepForm() const override;
  virtual std::unique_ptr<ON_Surface> DuplicateSurface() const = 0;

  // True when the surface can be evaluated: enough points, parameters that increase, no number that
  // isn't one.
  virtual bool IsValid() const = 0;
  virtual ON_Interval Domain(int direction) const = 0;
  // Outside the domain the surface goes on as it begins or ends.
  virtual ON_3dPoint PointAt(double u, double v) const = 0;
  // Point and first derivatives.
  virtual void Ev1Der(double u, double v, ON_3dPoint* point, ON_3dVector* du,
                      ON_3dVector* dv) const = 0;
  // The unit normal, the direction of du x dv. Where that vanishes, at a pole, it is taken a little
  // inside the domain; a zero vector when it vanishes there too.
  ON_3dVector NormalAt(double u, double v) const;
  // True when the surface ends in a direction where it begins: its two sides are one curve.
  virtual bool IsClosed(int direction) const = 0;
  // True when a side is a single point.
  virtual bool IsSingular(Side side) const = 0;
  // The same surface as a NURBS surface with the same domain. Points agree, their parameters inside
  // the domain may not, as for curves. False when there is none.
  virtual bool GetNurbForm(ON_NurbsSurface& form) const = 0;
};
