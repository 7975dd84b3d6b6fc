#pragma once

class CRhinoObject;

namespace orv {

// What the user strings of an object tell the renderer about it. A yes/no string is true unless it
// is "no" in any case; an absent one leaves the default.
struct ObjectAttributes {
  // OrvWeldPolyVerts: vertices of a mesh at the same place become one.
  bool WeldPolyVerts = false;
  // OrvSubdivisionMesh: a mesh is the cage of a subdivision surface.
  bool SubdivisionMesh = false;
};

ObjectAttributes ReadObjectAttributes(const CRhinoObject& object);

}  // namespace orv
