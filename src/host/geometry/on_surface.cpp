#include "host/geometry/on_surface.h"

#include <algorithm>

namespace {

// How far inside the domain a normal is looked for, as a part of the domain.
constexpr double kInside = 0x1p-20;

double MovedInside(ON_Interval domain, double t) {
  const double middle = domain.ParameterAt(0.5);
  if (t == middle) return t;
  return t < middle ? t + kInside * domain.Length() : t - kInside * domain.Length();
}

// The direction of du x dv; a zero vector where they have none in common but for rounding. They are
// compared as what a walk through the whole domain would give.
ON_3dVector NormalOf(const ON_Surface& surface, double u, double v) {
  constexpr double kRounding = 1e-12;
  ON_3dPoint point;
  ON_3dVector du, dv;
  surface.Ev1Der(u, v, &point, &du, &dv);
  du = du * surface.Domain(0).Length();
  dv = dv * surface.Domain(1).Length();
  const double longest = std::max(du.Length(), dv.Length());
  const ON_3dVector normal = ON_CrossProduct(du * (1 / longest), dv * (1 / longest));
  const double length = normal.Length();
  return length > kRounding ? normal * (1 / length) : ON_3dVector{0, 0, 0};
}

}  // namespace

const ON_Surface* ON_Surface::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_Surface*>(object);
}

ON_3dVector ON_Surface::NormalAt(double u, double v) const {
  const double inner_u = MovedInside(Domain(0), u);
  const double inner_v = MovedInside(Domain(1), v);
  const ON_2dPoint places[] = {{u, v}, {u, inner_v}, {inner_u, v}, {inner_u, inner_v}};
  for (const ON_2dPoint& place : places) {
    const ON_3dVector normal = NormalOf(*this, place.x, place.y);
    if (normal != ON_3dVector{0, 0, 0}) return normal;
  }
  return {0, 0, 0};
}
