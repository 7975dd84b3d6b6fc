#pragma once

#include "host/geometry/on_array.h"
#include "host/geometry/on_color.h"
#include "host/geometry/on_object.h"

// A single point.
class ON_Point : public ON_Geometry {
 public:
  static const ON_Point* Cast(const ON_Object* object);

  ON_ObjectType ObjectType() const override { return ON_ObjectType::point; }
  ON_BoundingBox BoundingBox() const override;

  ON_3dPoint point{0, 0, 0};
};

// Many points. An optional channel is either empty or as long as m_P.
class ON_PointCloud : public ON_Geometry {
 public:
  static const ON_PointCloud* Cast(const ON_Object* object);

  ON_ObjectType ObjectType() const override { return ON_ObjectType::pointset; }
  ON_BoundingBox BoundingBox() const override;
  int PointCount() const { return static_cast<int>(m_P.size()); }
  bool HasPointColors() const { return !m_P.empty() && m_C.size() == m_P.size(); }
  bool HasPointNormals() const { return !m_P.empty() && m_N.size() == m_P.size(); }

  ON_SimpleArray<ON_3dPoint> m_P;
  ON_SimpleArray<ON_3dVector> m_N;  // optional
  ON_SimpleArray<ON_Color> m_C;     // optional
  ON_SimpleArray<double> m_V;       // values, optional
  ON_Plane m_plane;
  int m_flags = 0;
};
