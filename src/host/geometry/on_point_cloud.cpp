#include "host/geometry/on_point_cloud.h"

const ON_Point* ON_Point::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_Point*>(object);
}

ON_BoundingBox ON_Point::BoundingBox() const {
  ON_BoundingBox box;
  box.Include(point);
  return box;
}

const ON_PointCloud* ON_PointCloud::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_PointCloud*>(object);
}

ON_BoundingBox ON_PointCloud::BoundingBox() const {
  ON_BoundingBox box;
  for (const ON_3dPoint& p : m_P) box.Include(p);
  return box;
}
