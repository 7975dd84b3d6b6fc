#pragma once

#include <array>
#include <vector>

#include "host/geometry/on_object.h"

struct ON_SubDVertex {
  // The values are those of documents.
  enum class Tag { unset = 0, smooth = 1, crease = 2, corner = 3, dart = 4 };

  ON_3dPoint m_P{0, 0, 0};
  Tag m_tag = Tag::smooth;
};

struct ON_SubDEdge {
  // The positions of its two vertices.
  std::array<int, 2> m_vi{-1, -1};
  // True when the surface has a sharp edge there.
  bool m_is_crease = false;
  // How sharp an edge without a crease is at its ends: from 0, smooth, to 4.
  std::array<double, 2> m_sharpness{0, 0};
  // How many faces meet in it; 1 at the surface's boundary.
  int m_face_count = 0;
};

struct ON_SubDFace {
  // The positions of its vertices, counterclockwise seen from where it looks to: at least three.
  std::vector<int> m_vi;
};

// A subdivision surface by the rule of Catmull and Clark: the net of its control points, before it
// is subdivided.
class ON_SubD : public ON_Geometry {
 public:
  static const ON_SubD* Cast(const ON_Object* object);

  ON_ObjectType ObjectType() const override { return ON_ObjectType::subd; }
  // The box of the control points.
  ON_BoundingBox BoundingBox() const override;

  int VertexCount() const { return static_cast<int>(m_vertex.size()); }
  int EdgeCount() const { return static_cast<int>(m_edge.size()); }
  int FaceCount() const { return static_cast<int>(m_face.size()); }
  // True when all points and sharpnesses are numbers, all positions name a vertex that is there and
  // each face has three vertices or more.
  bool IsValid() const;

  std::vector<ON_SubDVertex> m_vertex;
  std::vector<ON_SubDEdge> m_edge;
  std::vector<ON_SubDFace> m_face;
};
