#include "host/archive/chunk_writer.h"
#include "host/archive/typecodes.h"
#include "host/geometry/on_instance_ref.h"
#include "support/record_writers.h"

namespace model_writer {
namespace {

constexpr ON_UUID kBrepClass = "60b5dbc5-e660-11d3-bfe4-0010830122f0"_uuid;
constexpr ON_UUID kPointClass = "c3101a1d-f157-11d3-bfe7-0010830122f0"_uuid;
constexpr ON_UUID kPointCloudClass = "2488f347-f8fa-11d3-bfec-0010830122f0"_uuid;
constexpr ON_UUID kClippingPlaneClass = "dbc5a584-ce3f-4170-98a8-497069ca5c36"_uuid;
constexpr ON_UUID kInstanceRefClass = "f9cfb638-b9d4-4340-87e3-c56e7865d96a"_uuid;
constexpr ON_UUID kExtrusionClass = "36f53175-72b8-4d47-bf1f-b4e6fc24f4b9"_uuid;
constexpr ON_UUID kSubDClass = "f09ba4d9-455b-42c3-ba3b-e6ccacef853b"_uuid;

void WritePointData(ON_BinaryArchive& archive, const ON_Point& point) {
  archive.Write3dmChunkVersion(1, 0);
  archive.WritePoint(point.point);
}

void WritePointCloudData(ON_BinaryArchive& archive, const ON_PointCloud& cloud) {
  archive.Write3dmChunkVersion(1, 2);
  WriteArray(archive, cloud.m_P);
  archive.WritePlane(cloud.m_plane);
  archive.WriteBoundingBox(cloud.BoundingBox());
  archive.WriteInt(cloud.m_flags);
  WriteArray(archive, cloud.m_N);
  WriteArray(archive, cloud.m_C);
  WriteArray(archive, cloud.m_V);
}

void WriteInstanceRefData(ON_BinaryArchive& archive, const ON_InstanceRef& reference) {
  archive.Write3dmChunkVersion(1, 0);
  archive.WriteUuid(reference.m_instance_definition_uuid);
  archive.WriteXform(reference.m_xform);
  archive.WriteBoundingBox(reference.m_bbox);
}

// The class of an object and how its data is written.
struct GeometryWriter {
  ON_UUID class_id;
  WriteContent data;
};

GeometryWriter WriterFor(const ONX_ModelObject& object, const std::vector<ON_DimStyle>& styles) {
  const ON_Geometry* geometry = object.m_geometry.get();
  if (const ON_Mesh* mesh = ON_Mesh::Cast(geometry)) {
    return {kMeshClass, [mesh](ON_BinaryArchive& data) { WriteMeshData(data, *mesh); }};
  }
  if (const ON_Point* point = ON_Point::Cast(geometry)) {
    return {kPointClass, [point](ON_BinaryArchive& data) { WritePointData(data, *point); }};
  }
  if (const ON_PointCloud* cloud = ON_PointCloud::Cast(geometry)) {
    return {kPointCloudClass,
            [cloud](ON_BinaryArchive& data) { WritePointCloudData(data, *cloud); }};
  }
  if (const ON_ClippingPlaneSurface* plane = ON_ClippingPlaneSurface::Cast(geometry)) {
    return {kClippingPlaneClass,
            [plane](ON_BinaryArchive& data) { WriteClippingPlaneData(data, *plane); }};
  }
  if (const ON_InstanceRef* reference = ON_InstanceRef::Cast(geometry)) {
    return {kInstanceRefClass,
            [reference](ON_BinaryArchive& data) { WriteInstanceRefData(data, *reference); }};
  }
  if (const ON_Brep* brep = ON_Brep::Cast(geometry)) {
    return {kBrepClass, [brep](ON_BinaryArchive& data) { WriteBrepData(data, *brep); }};
  }
  if (const ON_Extrusion* extrusion = ON_Extrusion::Cast(geometry)) {
    return {kExtrusionClass,
            [extrusion](ON_BinaryArchive& data) { WriteExtrusionData(data, *extrusion); }};
  }
  if (const ON_SubD* subd = ON_SubD::Cast(geometry)) {
    return {kSubDClass, [subd](ON_BinaryArchive& data) { WriteSubDData(data, *subd); }};
  }
  if (const ON_Curve* curve = ON_Curve::Cast(geometry)) {
    return {CurveClass(*curve), [curve](ON_BinaryArchive& data) { WriteCurveData(data, *curve); }};
  }
  if (const ON_Surface* surface = ON_Surface::Cast(geometry)) {
    return {SurfaceClass(*surface),
            [surface](ON_BinaryArchive& data) { WriteSurfaceData(data, *surface); }};
  }
  if (const ON_Annotation* annotation = ON_Annotation::Cast(geometry)) {
    return {AnnotationClass(*annotation), [annotation, &styles](ON_BinaryArchive& data) {
              WriteAnnotationData(data, *annotation, styles);
            }};
  }
  return {object.m_class_id, [](ON_BinaryArchive& data) { data.Write3dmChunkVersion(1, 0); }};
}

}  // namespace

void WriteObject(ON_BinaryArchive& archive, const ONX_ModelObject& object,
                 const std::vector<ON_DimStyle>& styles) {
  const ON_Geometry* geometry = object.m_geometry.get();
  const unsigned type =
      geometry != nullptr ? static_cast<unsigned>(geometry->ObjectType()) : object.m_object_type;
  const GeometryWriter writer = WriterFor(object, styles);
  const ChunkWriter record(archive, TCODE_OBJECT_RECORD);
  archive.WriteShortChunk(TCODE_OBJECT_RECORD_TYPE, type);
  WriteClass(archive, writer.class_id,
             geometry != nullptr ? geometry->m_user_strings : ON_UserStringList(), writer.data);
  host::WriteAttributeChunks(archive, object.m_attributes, TCODE_OBJECT_RECORD_ATTRIBUTES,
                             TCODE_OBJECT_RECORD_ATTRIBUTES_USERDATA);
  archive.WriteShortChunk(TCODE_OBJECT_RECORD_END, 0);
}

}  // namespace model_writer
