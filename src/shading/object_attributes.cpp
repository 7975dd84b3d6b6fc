#include "shading/object_attributes.h"

#include "host/document/doc.h"
#include "host/document/object.h"
#include "shading/attribute_tables.h"

namespace orv {
namespace {

using Record = ObjectAttributes;
using Marks = ObjectAttributes::ChangeMarks;

constexpr std::string_view kRenderMeshWords[] = {"No", "Inherit", "Yes"};
constexpr std::string_view kMeshFileWords[] = {"No", "Yes", "Bake", "BakeAndUse"};
constexpr std::string_view kPointTypeWords[] = {"sphere", "patch", "blobby", "volume", "disk"};
constexpr std::string_view kCurveTypeWords[] = {"auto", "polyline", "ribbon", "tube"};
constexpr std::string_view kArchiveModeWords[] = {"off", "insert", "replace"};

constexpr ObjectAttributeField kFields[] = {
    {"OrvVisibleToCamera", &Record::VisibleToCamera, &Marks::VisibleToCamera},
    {"OrvReflected", &Record::Reflected, &Marks::Reflected},
    {"OrvCastShadow", &Record::CastShadow, &Marks::CastShadow},
    {"OrvUseLineWidth", &Record::UseLineWidth, &Marks::UseLineWidth},
    {"OrvUseLineColor", &Record::UseLineColor, &Marks::UseLineColor},
    {"OrvLineWidth", &Record::LineWidth, &Marks::LineWidth, {.Bounds = {0, 100}}},
    {"OrvLineColor", &Record::LineColor, &Marks::LineColor},
    {"OrvBackFace", &Record::BackFace, &Marks::BackFace},
    {"OrvWeldPolyVerts", &Record::WeldPolyVerts, &Marks::WeldPolyVerts},
    {"OrvArchive", &Record::Archive, &Marks::Archive},
    {"OrvUseFlatness", &Record::UseFlatness, &Marks::UseFlatness},
    {"OrvFlatness", &Record::Flatness, &Marks::Flatness, {.Bounds = {0.001, 100}}},
    {"OrvRenderMesh", &Record::RenderMesh, &Marks::RenderMesh, {.Words = kRenderMeshWords}},
    {"OrvUseMeshFile", &Record::UseMeshFile, &Marks::UseMeshFile, {.Words = kMeshFileWords}},
    {"OrvMeshFile", &Record::MeshFile, &Marks::MeshFile},
    {"OrvShadeCurves", &Record::ShadeCurves, &Marks::ShadeCurves},
    {"OrvSubdivisionMesh", &Record::SubdivisionMesh, &Marks::SubdivisionMesh},
    {"OrvPointType", &Record::PointType, &Marks::PointType, {.Words = kPointTypeWords}},
    {"OrvCurveType", &Record::CurveType, &Marks::CurveType, {.Words = kCurveTypeWords}},
    {"OrvArchiveMode", &Record::ArchiveMode, &Marks::ArchiveMode, {.Words = kArchiveModeWords}},
};

}  // namespace

std::span<const ObjectAttributeField> ObjectAttributeFields() {
  return kFields;
}

ObjectAttributes ReadObjectAttributes(const CRhinoObject& object) {
  ObjectAttributes attributes;
  ReadAttributeFields(ObjectAttributeFields(), object.Attributes(), attributes);
  return attributes;
}

bool WriteObjectAttributes(CRhinoDoc& doc, CRhinoObject& object,
                           const ObjectAttributes& attributes) {
  if (object.ObjectType() == ON_ObjectType::light) return false;
  ON_3dmObjectAttributes changed = object.Attributes();
  for (const ObjectAttributeField& field : kFields) {
    if (attributes.Changed.*field.Changed) field.Store(attributes, changed);
  }
  return doc.ModifyObjectAttributes(object, changed);
}

}  // namespace orv
