#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/archive/model.h"
#include "host/geometry/on_mesh.h"
#include "host/geometry/on_object.h"
#include "host/geometry/on_object_attributes.h"
#include "host/geometry/on_tables.h"

class CRhinoDoc;

// An object of the open document: geometry, attributes, selection. Owned by the document.
class CRhinoObject {
 public:
  CRhinoObject(CRhinoDoc& doc, unsigned serial_number, ONX_ModelObject model_object);
  virtual ~CRhinoObject();
  CRhinoObject(const CRhinoObject&) = delete;
  CRhinoObject& operator=(const CRhinoObject&) = delete;

  const CRhinoDoc& Document() const { return doc_; }
  // A number that no other object has or had while the program runs. Starts at 1.
  unsigned RuntimeSerialNumber() const { return serial_number_; }
  // Its id is never nil and no other object's of the document: one that the file doesn't give, or
  // gives twice, is made when the document is opened.
  const ON_3dmObjectAttributes& Attributes() const { return attributes_; }
  // The material that the attributes name, or that the object's layer has; the host's default
  // material when that is none of the document's. The same place for all objects of a material, as
  // long as the document isn't edited.
  const ON_Material& ObjectMaterial() const;
  // Null for an object whose class isn't read; such an object is kept and listed only.
  const ON_Geometry* Geometry() const { return geometry_.get(); }
  std::shared_ptr<const ON_Geometry> SharedGeometry() const { return geometry_; }
  // The box of what is to be seen of it; not valid where there is nothing.
  virtual ON_BoundingBox BoundingBox() const;
  // By the geometry, or by what the document says where there is none.
  ON_ObjectType ObjectType() const;
  // What the object is called in messages: "mesh", "point cloud", "NURBS curve", ...
  std::string ShortDescription() const;
  // Where it stands in the file that the document was opened from; of length 0 when it doesn't.
  const ON_FileSpan& FileSpan() const { return span_; }

  // False when it is hidden or its layer, or a layer above that, is off; false for a member of a
  // block definition, and when it is deleted.
  bool IsVisible() const;
  // True when it or its layer is locked.
  bool IsLocked() const;
  // True for a light that was deleted: nothing shows, finds or counts it, but Undo may bring it
  // back.
  bool IsDeleted() const { return deleted_; }
  bool IsHidden() const;
  // True for a member of a block definition, which isn't drawn on its own.
  bool IsInstanceDefinitionGeometry() const;
  bool IsSelected() const { return selected_; }
  // An object that isn't visible, or is locked, can't be selected. True when the selection changed.
  bool Select(bool select = true);
  // Sets the object's own hidden mode; hiding deselects. A locked object and a member of a block
  // definition stay as they are. True when something changed.
  bool Hide(bool hide = true);

  using Meshes = std::vector<std::shared_ptr<const ON_Mesh>>;
  // The render meshes that were kept with it; nothing before. They belong to its geometry, which
  // never changes, and are no part of what the document says.
  const std::optional<Meshes>& KeptRenderMeshes() const { return render_meshes_; }
  void KeepRenderMeshes(Meshes meshes) const { render_meshes_ = std::move(meshes); }

 private:
  friend class CRhinoDoc;
  friend class CRhinoLightTable;
  friend class DocStates;
  friend class DocumentSaver;

  // A selected object is visible and not locked.
  void DeselectUnlessSelectable();

  CRhinoDoc& doc_;
  unsigned serial_number_;
  ON_3dmObjectAttributes attributes_;
  std::shared_ptr<ON_Geometry> geometry_;
  ON_UUID class_id_;
  ON_ObjectType stored_type_;
  ON_FileSpan span_;
  // The record of a light that was deleted when the document was saved, as it was.
  std::string removed_record_;
  // Its attributes may be others than in that file.
  bool edited_ = false;
  // Set by the document for the objects that its block definitions list.
  bool listed_in_definition_ = false;
  bool deleted_ = false;
  bool selected_ = false;
  mutable std::optional<Meshes> render_meshes_;
};
