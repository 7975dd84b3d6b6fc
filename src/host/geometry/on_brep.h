#pragma once

#include <array>
#include <memory>
#include <vector>

#include "host/geometry/on_curve.h"
#include "host/geometry/on_mesh.h"
#include "host/geometry/on_surface.h"

// The parts of a brep name each other by their positions in its tables; -1 is none.

struct ON_BrepVertex {
  ON_3dPoint point{0, 0, 0};
  std::vector<int> m_ei;
  double m_tolerance = ON_UNSET_VALUE;
};

// A curve in space where faces meet or end. It is the stretch `m_domain` of the curve m_C3[m_c3i],
// backwards when m_bReversed is set.
struct ON_BrepEdge {
  int m_c3i = -1;
  bool m_bReversed = false;
  ON_Interval m_domain;
  // Where it starts and ends.
  std::array<int, 2> m_vi{-1, -1};
  std::vector<int> m_ti;
  double m_tolerance = ON_UNSET_VALUE;
};

// One side of an edge: a piece of a face's boundary in the face's parameters. It is the stretch
// `m_domain` of the curve m_C2[m_c2i], backwards when m_bReversed is set.
struct ON_BrepTrim {
  // The values are those of documents.
  enum class Type { unknown = 0, boundary = 1, mated = 2, seam = 3, singular = 4 };
  // How the trim runs over the surface: along no parameter, along a constant u or v, or along a
  // side of the domain.
  enum class Iso { none = 0, x = 1, y = 2, west = 3, south = 4, east = 5, north = 6 };

  int m_c2i = -1;
  bool m_bReversed = false;
  ON_Interval m_domain;
  // -1 of a singular one, which is a point in space; no other lacks its edge.
  int m_ei = -1;
  std::array<int, 2> m_vi{-1, -1};
  // True when it runs against its edge.
  bool m_bRev3d = false;
  Type m_type = Type::unknown;
  Iso m_iso = Iso::none;
  int m_li = -1;
  std::array<double, 2> m_tolerance{ON_UNSET_VALUE, ON_UNSET_VALUE};
};

struct ON_BrepLoop {
  // The values are those of documents.
  enum class Type { unknown = 0, outer = 1, inner = 2, slit = 3 };

  std::vector<int> m_ti;
  Type m_type = Type::unknown;
  int m_fi = -1;
};

struct ON_BrepFace {
  // The outer loop first.
  std::vector<int> m_li;
  int m_si = -1;
  // True when the face looks to the other side than its surface.
  bool m_bRev = false;
  int m_material_channel_index = 0;
  // As the document holds them; null when it doesn't.
  std::shared_ptr<const ON_Mesh> m_render_mesh;
  std::shared_ptr<const ON_Mesh> m_analysis_mesh;
};

// Trimmed surfaces that share edges. The curves and surfaces never change once they are in the
// brep, so that copies share them.
class ON_Brep : public ON_Geometry {
 public:
  // The values are those of documents.
  enum class MeshType { render = 1, analysis = 2 };

  static const ON_Brep* Cast(const ON_Object* object);

  ON_ObjectType ObjectType() const override { return ON_ObjectType::brep; }
  bool HasBrepForm() const override { return true; }
  // A copy.
  std::unique_ptr<ON_Brep> BrepForm() const override;
  // m_bbox where it is valid. Else the box of the faces, computed anew at each call: of the control
  // points of that part of each surface which the trims of the face need.
  ON_BoundingBox BoundingBox() const override;

  // True when every position names a part that is there and each part is named back by those that
  // it names, so that what was read can be used without further checks.
  bool IsValid() const;

  // Null when there is none.
  const ON_BrepFace* Face(int face_index) const;
  // True when the brep is one face that covers its whole surface.
  bool IsSurface() const;
  // True when a face has one loop and that runs along the sides of the surface's domain.
  bool FaceIsSurface(int face_index) const;
  // Gives a face a surface with another domain in both directions, in NURBS form, and stretches its
  // trims with it: they get whole curves of their own as MakeValidForV2 gives them. Other faces
  // keep theirs; what the face had stays in the tables up to Compact. In a brep of one face the new
  // surface takes the place of the old one. False when the face can't be stretched; it is then
  // unchanged.
  bool SetFaceDomain(int face_index, ON_Interval u, ON_Interval v);
  // Drops curves and surfaces that no trim, edge or face names. The others keep their order.
  void Compact();
  // Makes each trim stand for the whole of a 2D curve of its own in the curve's own direction, in
  // NURBS form. False when a curve has none; the trims that need one then keep what they have.
  bool MakeValidForV2();
  // Appends the meshes of the faces, in their order; faces without one are left out. Returns how
  // many.
  int GetMesh(MeshType type, std::vector<std::shared_ptr<const ON_Mesh>>& meshes) const;

  // The surface of a face, and the curves of a trim and an edge. The positions must be valid.
  const ON_Surface& SurfaceOf(const ON_BrepFace& face) const {
    return *m_S[static_cast<std::size_t>(face.m_si)];
  }
  const ON_Curve& CurveOf(const ON_BrepTrim& trim) const {
    return *m_C2[static_cast<std::size_t>(trim.m_c2i)];
  }
  const ON_Curve& CurveOf(const ON_BrepEdge& edge) const {
    return *m_C3[static_cast<std::size_t>(edge.m_c3i)];
  }

  std::vector<std::shared_ptr<const ON_Curve>> m_C2;
  std::vector<std::shared_ptr<const ON_Curve>> m_C3;
  std::vector<std::shared_ptr<const ON_Surface>> m_S;
  std::vector<ON_BrepVertex> m_V;
  std::vector<ON_BrepEdge> m_E;
  std::vector<ON_BrepTrim> m_T;
  std::vector<ON_BrepLoop> m_L;
  std::vector<ON_BrepFace> m_F;
  // The box of the faces, when it was computed before.
  ON_BoundingBox m_bbox;
  // 0 not known, 1 closed and looking outwards, 2 closed and looking inwards, 3 open. As stored.
  int m_is_solid = 0;
};

// A planar face with these boundaries, which are closed, lie in the plane and don't cross: the
// outer one first. Null when one isn't closed, has no NURBS form or isn't in the plane within
// `tolerance`. The face looks to the side of the plane's z axis; outer boundaries run
// counterclockwise, inner ones clockwise, whatever the curves' own direction.
std::unique_ptr<ON_Brep> ON_BrepTrimmedPlane(
    const ON_Plane& plane, const std::vector<std::shared_ptr<const ON_Curve>>& boundaries,
    double tolerance = 1e-6);
