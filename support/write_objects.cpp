#include "host/archive/typecodes.h"
#include "host/geometry/on_instance_ref.h"
#include "support/chunk_writer.h"
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
constexpr ON_UUID kLightClass = "85a08513-f383-11d3-bfe7-0010830122f0"_uuid;

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

void WriteLightData(ON_BinaryArchive& archive, const ON_Light& light, int index) {
  archive.Write3dmChunkVersion(1, 2);
  archive.WriteInt(light.m_bOn);
  archive.WriteInt(static_cast<std::int32_t>(light.m_style));
  archive.WriteDouble(light.m_intensity);
  archive.WriteDouble(light.m_watts);
  archive.WriteColor(light.m_ambient);
  archive.WriteColor(light.m_diffuse);
  archive.WriteColor(light.m_specular);
  archive.WriteVector(light.m_direction);
  archive.WritePoint(light.m_location);
  archive.WriteDouble(light.m_spot_angle);
  archive.WriteDouble(light.m_spot_exponent);
  archive.WriteVector(light.m_attenuation);
  archive.WriteDouble(light.m_shadow_intensity);
  archive.WriteInt(index);
  archive.WriteUuid(light.m_light_id);
  archive.WriteString(light.m_light_name);
  archive.WriteVector(light.m_length);
  archive.WriteVector(light.m_width);
  archive.WriteDouble(light.m_hotspot);
}

// Attributes and their user strings, each in its chunk.
void WriteAttributeChunks(ON_BinaryArchive& archive, const ON_3dmObjectAttributes& attributes,
                          std::uint32_t typecode, std::uint32_t user_data_typecode) {
  {
    const ChunkWriter chunk(archive, typecode);
    WriteAttributes(archive, attributes);
  }
  if (attributes.m_user_strings.IsEmpty()) return;
  const ChunkWriter chunk(archive, user_data_typecode);
  WriteUserStrings(archive, attributes.m_user_strings);
  archive.WriteShortChunk(TCODE_OPENNURBS_CLASS_END, 0);
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

void WriteLight(ON_BinaryArchive& archive, const ONX_ModelLight& light, int index) {
  const ChunkWriter record(archive, TCODE_LIGHT_RECORD);
  WriteClass(archive, kLightClass, light.m_light->m_user_strings,
             [&](ON_BinaryArchive& data) { WriteLightData(data, *light.m_light, index); });
  WriteAttributeChunks(archive, light.m_attributes, TCODE_LIGHT_RECORD_ATTRIBUTES,
                       TCODE_LIGHT_RECORD_ATTRIBUTES_USERDATA);
  archive.WriteShortChunk(TCODE_LIGHT_RECORD_END, 0);
}

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
  WriteAttributeChunks(archive, object.m_attributes, TCODE_OBJECT_RECORD_ATTRIBUTES,
                       TCODE_OBJECT_RECORD_ATTRIBUTES_USERDATA);
  archive.WriteShortChunk(TCODE_OBJECT_RECORD_END, 0);
}

void WritePlugInData(ON_BinaryArchive& archive, const ONX_PlugInData& data) {
  WriteTable(archive, TCODE_USER_TABLE, [&](ON_BinaryArchive& table) {
    {
      const ChunkWriter id(table, TCODE_USER_TABLE_UUID);
      table.WriteUuid(data.m_plugin_id);
      if (table.Archive3dmVersion() >= 50) {
        const ChunkWriter header(table, TCODE_USER_TABLE_RECORD_HEADER, 1, 0);
        table.WriteBool(data.m_saved_as_goo);
        table.WriteInt(data.m_archive_version);
        table.WriteInt(static_cast<std::int32_t>(data.m_opennurbs_version));
      }
    }
    const ChunkWriter record(table, TCODE_USER_RECORD);
    table.WriteByte(std::as_bytes(std::span(data.m_bytes)));
  });
}

void WriteDocumentUserStrings(ON_BinaryArchive& archive, const ON_UserStringList& strings) {
  constexpr ON_UUID kDocumentStrings = "06f3218e-f5ec-4f6c-b74c-14583f0ed7bc"_uuid;
  if (strings.IsEmpty()) return;
  ON_BinaryArchive bytes(archive.Archive3dmVersion(), archive.ArchiveOpenNURBSVersion());
  WriteClass(bytes, kDocumentStrings, strings, [](ON_BinaryArchive& data) {
    const ChunkWriter empty(data, TCODE_ANONYMOUS_CHUNK, 1, 0);
  });
  ONX_PlugInData data;
  data.m_plugin_id = kDocumentStrings;
  data.m_archive_version = archive.Archive3dmVersion();
  data.m_opennurbs_version = archive.ArchiveOpenNURBSVersion();
  data.m_bytes = bytes.TakeBytes();
  WritePlugInData(archive, data);
}

}  // namespace model_writer
