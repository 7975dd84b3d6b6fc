#include "host/geometry/on_extrusion.h"

#include <algorithm>

#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_parameters.h"
#include "host/geometry/on_poly_curve.h"

namespace {

// The cosine of 89 degrees. An end that is cut off flatter counts as not mitred.
constexpr double kMinNormalZ = 0.01745240643728351;

bool IsVector(ON_3dVector v) {
  return ON_IsValid(v.x) && ON_IsValid(v.y) && ON_IsValid(v.z);
}

ON_3dVector Unit(ON_3dVector v) {
  return v * (1 / v.Length());
}

// Half of the largest that is squared without leaving the range of a double.
bool HasUnit(ON_3dVector v) {
  constexpr double kShortest = 1e-150, kLongest = 1e150;
  return IsVector(v) && v.Length() > kShortest && v.Length() < kLongest;
}

}  // namespace

const ON_Extrusion* ON_Extrusion::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_Extrusion*>(object);
}

bool ON_Extrusion::IsValid() const {
  const ON_3dVector path = m_path.to - m_path.from;
  if (!m_path.from.IsValid() || !m_path.to.IsValid() || !HasUnit(path) || !HasUnit(m_up) ||
      !HasUnit(ON_CrossProduct(Unit(m_up), Unit(path)))) {
    return false;
  }
  if (!m_t.IsIncreasing() || !m_path_domain.IsIncreasing()) return false;
  for (std::size_t end = 0; end < 2; ++end) {
    if (m_bHaveN[end] && !IsVector(m_N[end])) return false;
  }
  if (m_profile == nullptr || !m_profile->IsValid()) return false;
  if (m_profile_count <= 1) return m_profile_count == 1;
  const ON_PolyCurve* profiles = ON_PolyCurve::Cast(m_profile.get());
  return profiles != nullptr &&
         profiles->m_segment.size() == static_cast<std::size_t>(m_profile_count) &&
         std::all_of(profiles->m_segment.begin(), profiles->m_segment.end(),
                     [](const auto& profile) { return profile->IsClosed(); });
}

const ON_Curve& ON_Extrusion::Profile(int index) const {
  if (m_profile_count == 1) return *m_profile;
  return *ON_PolyCurve::Cast(m_profile.get())->m_segment[static_cast<std::size_t>(index)];
}

ON_Interval ON_Extrusion::ProfileDomain(int index) const {
  if (m_profile_count == 1) return m_profile->Domain();
  const auto& t = ON_PolyCurve::Cast(m_profile.get())->m_t;
  const auto i = static_cast<std::size_t>(index);
  return {t[i], t[i + 1]};
}

ON_Plane ON_Extrusion::PathPlane(int end) const {
  ON_Plane plane;
  plane.origin = ON_PointBetween(m_path.from, m_path.to, end == 0 ? m_t.Min : m_t.Max);
  plane.zaxis = Unit(m_path.to - m_path.from);
  plane.xaxis = Unit(ON_CrossProduct(Unit(m_up), plane.zaxis));
  plane.yaxis = ON_CrossProduct(plane.zaxis, plane.xaxis);
  return plane;
}

ON_3dVector ON_Extrusion::EndNormal(int end) const {
  const auto i = static_cast<std::size_t>(end);
  if (!m_bHaveN[i] || !HasUnit(m_N[i])) return {0, 0, 1};
  const ON_3dVector normal = Unit(m_N[i]);
  return normal.z > kMinNormalZ ? normal : ON_3dVector{0, 0, 1};
}

ON_Xform ON_Extrusion::ProfileTransform(int end) const {
  const ON_Plane plane = PathPlane(end);
  const ON_3dVector n = EndNormal(end);
  // Points go along the path to the end's plane.
  const ON_3dVector x = plane.xaxis - plane.zaxis * (n.x / n.z);
  const ON_3dVector y = plane.yaxis - plane.zaxis * (n.y / n.z);
  const ON_3dVector& z = plane.zaxis;
  const ON_3dPoint& o = plane.origin;
  return {{{{x.x, y.x, z.x, o.x}, {x.y, y.y, z.y, o.y}, {x.z, y.z, z.z, o.z}, {0, 0, 0, 1}}}};
}

ON_Plane ON_Extrusion::EndPlane(int end) const {
  const ON_Plane plane = PathPlane(end);
  const ON_3dVector n = EndNormal(end);
  // The turn that takes the z axis to n, along the great circle between them. See Rodrigues'
  // formula, with the axis (-n.y, n.x, 0) and n.z as the cosine.
  const auto turned = [&](ON_3dVector v) {
    const ON_3dVector axis{-n.y, n.x, 0};
    const ON_3dVector once = ON_CrossProduct(axis, v);
    const ON_3dVector local = v + once + ON_CrossProduct(axis, once) * (1 / (1 + n.z));
    return plane.xaxis * local.x + plane.yaxis * local.y + plane.zaxis * local.z;
  };
  return {plane.origin, turned({1, 0, 0}), turned({0, 1, 0}), turned({0, 0, 1})};
}

ON_BoundingBox ON_Extrusion::BoundingBox() const {
  ON_BoundingBox box;
  for (const int end : {0, 1}) {
    const ON_Xform xform = ProfileTransform(end);
    for (int i = 0; i < m_profile_count; ++i) {
      ON_NurbsCurve form;
      if (!Profile(i).GetNurbForm(form)) continue;
      form.Transform(xform);
      box.Include(form.BoundingBox());
    }
  }
  return box;
}
