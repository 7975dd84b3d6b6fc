#pragma once

#include <string>

#include "host/geometry/on_color.h"

class CRhinoDoc;
class CRhinoObject;

namespace orv {

// What the renderer needs to know of an object, kept as user strings on it. A fresh record has the
// defaults.
struct ObjectAttributes {
  // What WriteObjectAttributes stores.
  struct ChangeMarks {
    bool VisibleToCamera = false;
    bool Reflected = false;
    bool CastShadow = false;
    bool UseLineWidth = false;
    bool UseLineColor = false;
    bool LineWidth = false;
    bool LineColor = false;
    bool BackFace = false;
    bool WeldPolyVerts = false;
    bool Archive = false;
    bool UseFlatness = false;
    bool Flatness = false;
    bool RenderMesh = false;
    bool UseMeshFile = false;
    bool MeshFile = false;
    bool ShadeCurves = false;
    bool SubdivisionMesh = false;
    bool PointType = false;
    bool CurveType = false;
    bool ArchiveMode = false;
  };

  bool VisibleToCamera = true;
  bool Reflected = true;
  bool CastShadow = true;
  bool UseLineWidth = false;
  bool UseLineColor = false;
  bool UseFlatness = false;
  // Back faces are drawn.
  bool BackFace = true;
  // Curves and points get the material's shader.
  bool ShadeCurves = false;
  // Vertices of a mesh at the same place become one.
  bool WeldPolyVerts = false;
  // A mesh is the cage of a subdivision surface.
  bool SubdivisionMesh = false;
  ChangeMarks Changed;
  ON_Color LineColor{0, 0, 0};
  // A factor on line widths, 0 to 100.
  double LineWidth = 1;
  // 0.001 to 100.
  double Flatness = 0.5;
  // The host's mesh in place of the surface: 0 no, 1 as the scene says, 2 yes.
  int RenderMesh = 1;
  // 0 sphere, 1 patch, 2 blobby, 3 volume, 4 disk.
  int PointType = 0;
  // 0 auto, 1 polyline, 2 ribbon, 3 tube.
  int CurveType = 0;
  // What the archive does to the object: 0 off, 1 insert, 2 replace.
  int ArchiveMode = 0;
  // 0 no, 1 yes, 2 bake, 3 bake and use.
  int UseMeshFile = 0;
  std::string Archive;
  std::string MeshFile;
};

ObjectAttributes ReadObjectAttributes(const CRhinoObject& object);

// Stores what the change marks name, and tells the document that the attributes have changed even
// when there is no mark. False for a light, which has no such attributes.
[[nodiscard]] bool WriteObjectAttributes(CRhinoDoc& doc, CRhinoObject& object,
                                         const ObjectAttributes& attributes);

}  // namespace orv
