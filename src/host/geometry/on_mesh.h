#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "host/geometry/on_array.h"
#include "host/geometry/on_color.h"
#include "host/geometry/on_object.h"
#include "host/geometry/on_uuid.h"

// Four vertex indices; a triangle has its third and fourth equal.
struct ON_MeshFace {
  std::array<std::int32_t, 4> vi;
  bool IsTriangle() const { return vi[2] == vi[3]; }
  friend bool operator==(const ON_MeshFace&, const ON_MeshFace&) = default;
};

// Several faces that count as one polygon: indices of its boundary vertices and of its faces.
struct ON_MeshNgon {
  std::vector<std::uint32_t> m_vi;
  std::vector<std::uint32_t> m_fi;
};

// How texture coordinates were made: the id of the mapping and the transform of the object then.
struct ON_MappingTag {
  ON_UUID m_mapping_id;
  int m_mapping_type = 0;
  std::uint32_t m_mapping_crc = 0;
  ON_Xform m_mesh_xform;
};

// Triangles and quads over shared vertices. All channels are per vertex; an optional one is either
// empty or as long as m_V.
class ON_Mesh : public ON_Geometry {
 public:
  static const ON_Mesh* Cast(const ON_Object* object);

  ON_ObjectType ObjectType() const override { return ON_ObjectType::mesh; }
  // The box of m_V, computed anew at each call.
  ON_BoundingBox BoundingBox() const override;

  int VertexCount() const { return static_cast<int>(m_V.size()); }
  int FaceCount() const { return static_cast<int>(m_F.size()); }
  int TriangleCount() const;
  int QuadCount() const { return FaceCount() - TriangleCount(); }
  bool HasVertexNormals() const { return !m_V.empty() && m_N.size() == m_V.size(); }
  bool HasTextureCoordinates() const { return !m_V.empty() && m_T.size() == m_V.size(); }
  bool HasVertexColors() const { return !m_V.empty() && m_C.size() == m_V.size(); }
  // True when the surface's scale is known (both numbers positive) and the packed texture domain is
  // a part of the unit square, and not the whole of it.
  bool HasPackedTextureRegion() const;
  // True when every index of every face names a vertex.
  bool HasValidFaceIndices() const;

  ON_SimpleArray<ON_3fPoint> m_V;   // vertices
  ON_SimpleArray<ON_MeshFace> m_F;  // faces
  ON_SimpleArray<ON_3fVector> m_N;  // unit normals, optional
  ON_SimpleArray<ON_2fPoint> m_T;   // texture coordinates s, t; optional
  ON_SimpleArray<ON_Color> m_C;     // colours, optional
  ON_SimpleArray<ON_3dPoint> m_dV;  // vertices in double precision, optional
  ON_SimpleArray<ON_2dPoint> m_S;   // surface parameters u, v; optional
  ON_SimpleArray<ON_2dPoint> m_K;   // principal curvatures, optional

  std::array<ON_Interval, 2> m_packed_tex_domain;
  bool m_packed_tex_rotate = false;
  std::array<ON_Interval, 2> m_srf_domain;
  std::array<double, 2> m_srf_scale{0, 0};
  std::optional<ON_MappingTag> m_Ttag;
  std::vector<ON_MeshNgon> m_Ngon;
  // 0 open, 1 closed and oriented, 2 closed; -1 not known. As stored.
  int m_closed = -1;
};
