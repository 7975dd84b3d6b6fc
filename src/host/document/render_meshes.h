#pragma once

#include <memory>
#include <span>
#include <vector>

#include "host/document/object.h"
#include "host/geometry/on_mesh.h"

// A part of an object: one of its render meshes.
class CRhinoObjRef {
 public:
  CRhinoObjRef(const CRhinoObject& object, std::shared_ptr<const ON_Mesh> mesh);

  const CRhinoObject& Object() const { return *object_; }
  const ON_Mesh* Mesh() const { return mesh_.get(); }

 private:
  const CRhinoObject* object_;
  std::shared_ptr<const ON_Mesh> mesh_;
};

// Appends the render meshes of the objects, in their order: of a brep those of its faces, in their
// order. Meshes that the document holds are taken from it; those that it lacks are made as its
// settings ask and kept with the object while it is open. A face that can't be meshed is left out,
// with a message in the command window. Returns the number of meshes.
int RhinoGetRenderMeshes(std::span<const CRhinoObject* const> objects,
                         std::vector<CRhinoObjRef>& meshes);
