#include "host/document/object.h"

#include <utility>

#include "host/archive/class_names.h"
#include "host/document/app.h"

CRhinoObject::CRhinoObject(CRhinoDoc& doc, unsigned serial_number, ONX_ModelObject model_object)
    : doc_(doc),
      serial_number_(serial_number),
      attributes_(std::move(model_object.m_attributes)),
      geometry_(std::move(model_object.m_geometry)),
      class_id_(model_object.m_class_id),
      stored_type_(static_cast<ON_ObjectType>(model_object.m_object_type)),
      span_(model_object.m_span) {}

CRhinoObject::~CRhinoObject() = default;

ON_BoundingBox CRhinoObject::BoundingBox() const {
  return geometry_ == nullptr ? ON_BoundingBox() : geometry_->BoundingBox();
}

ON_ObjectType CRhinoObject::ObjectType() const {
  return geometry_ != nullptr ? geometry_->ObjectType() : stored_type_;
}

std::string CRhinoObject::ShortDescription() const {
  if (!class_id_.IsNil()) return host::ClassName(class_id_);
  switch (ObjectType()) {
    case ON_ObjectType::point:
      return "point";
    case ON_ObjectType::pointset:
      return "point cloud";
    case ON_ObjectType::curve:
      return "curve";
    case ON_ObjectType::surface:
      return "surface";
    case ON_ObjectType::brep:
      return "brep";
    case ON_ObjectType::mesh:
      return "mesh";
    case ON_ObjectType::light:
      return "light";
    case ON_ObjectType::annotation:
      return "annotation";
    case ON_ObjectType::instance_reference:
      return "block reference";
    case ON_ObjectType::text_dot:
      return "text dot";
    case ON_ObjectType::detail:
      return "detail";
    case ON_ObjectType::hatch:
      return "hatch";
    case ON_ObjectType::subd:
      return "SubD";
    case ON_ObjectType::clipping_plane:
      return "clipping plane";
    case ON_ObjectType::extrusion:
      return "extrusion";
    case ON_ObjectType::unknown:
      break;
  }
  return "object";
}

const ON_Material& CRhinoObject::ObjectMaterial() const {
  int index = -1;
  switch (attributes_.MaterialSource()) {
    case ON_AttributeSource::layer:
      if (const ON_Layer* layer = doc_.m_layer_table.At(attributes_.m_layer_index)) {
        index = layer->RenderMaterialIndex();
      }
      break;
    case ON_AttributeSource::object:
    case ON_AttributeSource::parent:
      index = attributes_.m_material_index;
      break;
    case ON_AttributeSource::material:
      break;
  }
  const ON_Material* material = doc_.m_material_table.At(index);
  return material == nullptr ? RhinoApp().AppSettings().DefaultMaterial() : *material;
}

bool CRhinoObject::IsVisible() const {
  return !IsDeleted() && !IsHidden() && !IsInstanceDefinitionGeometry() &&
         doc_.m_layer_table.IsLayerVisible(attributes_.m_layer_index);
}

bool CRhinoObject::IsLocked() const {
  return attributes_.m_mode == ON_ObjectMode::locked ||
         doc_.m_layer_table.IsLayerLocked(attributes_.m_layer_index);
}

bool CRhinoObject::IsHidden() const {
  return attributes_.m_mode == ON_ObjectMode::hidden || !attributes_.m_visible;
}

bool CRhinoObject::IsInstanceDefinitionGeometry() const {
  return listed_in_definition_ || attributes_.m_mode == ON_ObjectMode::idef_member;
}

bool CRhinoObject::Select(bool select) {
  if (select == selected_ || (select && (!IsVisible() || IsLocked()))) return false;
  selected_ = select;
  doc_.selected_count_ += select ? 1 : -1;
  return true;
}

bool CRhinoObject::Hide(bool hide) {
  if (hide == IsHidden() || IsInstanceDefinitionGeometry() || (hide && IsLocked())) return false;
  ON_3dmObjectAttributes attributes = attributes_;
  attributes.m_mode = hide ? ON_ObjectMode::hidden : ON_ObjectMode::normal;
  attributes.m_visible = true;
  return doc_.ModifyObjectAttributes(*this, attributes);
}

void CRhinoObject::DeselectUnlessSelectable() {
  if (selected_ && (!IsVisible() || IsLocked())) Select(false);
}
