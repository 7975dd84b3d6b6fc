#include "pages/material_changes.h"

#include "host/document/app.h"
#include "host/document/object_iterator.h"
#include "interactive/interactive_render.h"
#include "pages/property_selection.h"
#include "pages/property_undo.h"
#include "shading/attribute_tables.h"
#include "shading/preview_scene.h"

namespace orv {
namespace {

bool IsSeenLive(const MaterialAttributes& change) {
  return change.ColorChanged || change.SurfaceChanged || change.DisplacementChanged ||
         change.DisplacementModeChanged || change.Transparency != 0;
}

// False for an object that can't be changed.
bool GiveNewMaterial(CRhinoDoc& doc, CRhinoObject& object) {
  ON_3dmObjectAttributes attributes = object.Attributes();
  attributes.m_material_index =
      doc.m_material_table.AddMaterial(RhinoApp().AppSettings().DefaultMaterial());
  attributes.m_material_source = ON_AttributeSource::object;
  return doc.ModifyObjectAttributes(object, attributes);
}

void RedrawAll(CRhinoDoc& doc) {
  std::vector<CRhinoView*> views;
  doc.GetViewList(views, true, true);
  for (CRhinoView* view : views) view->Redraw();
}

}  // namespace

MaterialAttributes WithAllMarks(MaterialAttributes attributes) {
  for (const MaterialAttributeField& field : MaterialAttributeFields()) {
    attributes.*field.Changed = true;
  }
  attributes.ColorChanged = attributes.NameChanged = attributes.TransparencyChanged = true;
  return attributes;
}

void TakeChanges(const MaterialAttributes& change, MaterialAttributes& attributes) {
  for (const MaterialAttributeField& field : MaterialAttributeFields()) {
    if (!(change.*field.Changed)) continue;
    std::visit([&](auto member) { attributes.*member = change.*member; }, field.Field);
  }
  if (change.ColorChanged) attributes.Diffuse = change.Diffuse;
  if (change.NameChanged) attributes.Name = change.Name;
  if (change.TransparencyChanged) attributes.Transparency = change.Transparency;
}

void StoreMaterialChange(CRhinoDoc& doc, const MaterialAttributes& change) {
  const PropertyUndo undo(doc, kMaterialUndo);
  for (const CRhinoObject* object : SelectedTargets(doc, PropertyTarget::objects)) {
    // An object without a material is passed over.
    static_cast<void>(WriteMaterialAttributes(doc, *object, change));
  }
}

void SendMaterialChange(CRhinoDoc& doc, const MaterialAttributes& change, InteractiveRender& live) {
  if (!IsSeenLive(change)) return;
  for (const CRhinoObject* object : SelectedTargets(doc, PropertyTarget::objects)) {
    live.SendObject(*object);
  }
}

bool GiveNewMaterials(CRhinoDoc& doc, NewMaterialsFor objects) {
  const PropertyUndo undo(doc, kMaterialUndo);
  bool isAny = false;
  for (CRhinoObject* object : SelectedTargets(doc, PropertyTarget::objects)) {
    const bool hasOwn = object->Attributes().MaterialSource() == ON_AttributeSource::object;
    if (hasOwn && objects == NewMaterialsFor::objectsWithoutTheirOwn) continue;
    isAny = GiveNewMaterial(doc, *object) || isAny;
  }
  return isAny;
}

void SelectMatchingObjects(CRhinoDoc& doc, const MaterialAttributes& attributes) {
  CRhinoObjectIterator objects(doc, 7, CRhinoObjectIterator::active_objects);
  for (CRhinoObject* object = objects.First(); object != nullptr; object = objects.Next()) {
    const MaterialAttributes other = ReadMaterialAttributes(*object);
    if (other.Diffuse == attributes.Diffuse && SameForPreview(other, attributes, true)) {
      object->Select();
    }
  }
  RedrawAll(doc);
}

}  // namespace orv
