#include "host/command/describe.h"
#include "host/document/doc.h"
#include "host/document/instance_object.h"
#include "host/geometry/on_curve.h"
#include "host/geometry/on_mesh.h"
#include "host/geometry/on_point_cloud.h"
#include "host/system/number_text.h"
#include "host/system/text.h"

namespace {

std::string PointText(ON_3dPoint point) {
  return host::FormatG(point.x) + "," + host::FormatG(point.y) + "," + host::FormatG(point.z);
}

std::string NameOr(const std::string& name, std::string_view otherwise) {
  return name.empty() ? std::string(otherwise) : "\"" + name + "\"";
}

std::string MaterialText(const CRhinoObject& object) {
  std::string source = "of the object";
  if (object.Attributes().MaterialSource() == ON_AttributeSource::layer) {
    source = "of the layer";
  } else if (object.Attributes().MaterialSource() == ON_AttributeSource::parent) {
    source = "of the block reference";
  }
  const ON_Material& material = object.ObjectMaterial();
  return (material.MaterialIndex() < 0 ? "default" : NameOr(material.m_name, "without a name")) +
         ", " + source;
}

std::string GroupText(const CRhinoDoc& doc, const ON_3dmObjectAttributes& attributes) {
  std::string text;
  for (const int index : attributes.GroupList()) {
    const ON_Group* group = doc.m_group_table.FindGroup(index);
    if (!text.empty()) text += ", ";
    text += group == nullptr ? std::to_string(index) : NameOr(group->m_name, std::to_string(index));
  }
  return text;
}

std::string StateText(const CRhinoObject& object) {
  std::string text = object.IsVisible() ? "visible" : "not visible";
  if (object.IsHidden()) text += ", hidden";
  if (object.IsLocked()) text += ", locked";
  return text;
}

std::string MeshText(const ON_Mesh& mesh) {
  std::string text =
      host::Format("%d vertices, %d faces (%d triangles, %d quads)", mesh.VertexCount(),
                   mesh.FaceCount(), mesh.TriangleCount(), mesh.QuadCount());
  if (mesh.HasVertexNormals()) text += ", normals";
  if (mesh.HasTextureCoordinates()) text += ", texture coordinates";
  if (mesh.HasVertexColors()) text += ", colors";
  return text;
}

std::string CurveText(const ON_Curve& curve) {
  double length = 0;
  std::string text = curve.IsClosed() ? "closed" : "open";
  if (curve.GetLength(&length)) text += ", length " + host::FormatG(length);
  const int points = curve.IsPolyline();
  return points == 0 ? text : text + host::Format(", %d points", points);
}

std::string BlockText(const CRhinoInstanceObject& placement) {
  const ON_InstanceDefinition* block = placement.InstanceDefinition();
  if (block == nullptr) return "a block that the document lacks";
  return "block " + NameOr(block->m_name, "without a name");
}

std::string GeometryText(const CRhinoObject& object) {
  if (const ON_Mesh* mesh = ON_Mesh::Cast(object.Geometry())) return MeshText(*mesh);
  if (const ON_PointCloud* cloud = ON_PointCloud::Cast(object.Geometry())) {
    return host::Format("%d points", cloud->PointCount());
  }
  if (const ON_Curve* curve = ON_Curve::Cast(object.Geometry())) return CurveText(*curve);
  if (const auto* placement = CRhinoInstanceObject::Cast(&object)) return BlockText(*placement);
  return object.Geometry() == nullptr ? "not read" : std::string();
}

void AddLine(std::string& text, std::string_view label, const std::string& value) {
  if (!value.empty()) text += "  " + std::string(label) + ": " + value + "\n";
}

void AddUserStrings(std::string& text, std::string_view label, const ON_Object& carrier) {
  for (const ON_UserString& entry : carrier.m_user_strings.m_e) {
    AddLine(text, label, entry.m_key + "=" + entry.m_string_value);
  }
}

}  // namespace

std::string DescribeObject(const CRhinoDoc& doc, const CRhinoObject& object) {
  const ON_3dmObjectAttributes& attributes = object.Attributes();
  std::string text = object.ShortDescription() + " " + NameOr(attributes.m_name, "without a name") +
                     host::Format(", serial number %u\n", object.RuntimeSerialNumber());
  AddLine(text, "id", attributes.m_uuid.ToString());
  AddLine(text, "layer", doc.m_layer_table.FullPath(attributes.m_layer_index));
  AddLine(text, "material", MaterialText(object));
  AddLine(text, "groups", GroupText(doc, attributes));
  AddLine(text, "state", StateText(object));
  AddLine(text, "geometry", GeometryText(object));
  const ON_BoundingBox box = object.BoundingBox();
  if (box.IsValid()) AddLine(text, "box", PointText(box.m_min) + " to " + PointText(box.m_max));
  AddUserStrings(text, "user string", attributes);
  if (object.Geometry() != nullptr) AddUserStrings(text, "user string", *object.Geometry());
  AddUserStrings(text, "material string", object.ObjectMaterial());
  return text;
}
