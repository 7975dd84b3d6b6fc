#include <algorithm>

#include "host/archive/class_names.h"
#include "host/archive/class_wrapper.h"
#include "host/archive/file_layout.h"
#include "host/archive/read_annotation.h"
#include "host/archive/read_attributes.h"
#include "host/archive/read_brep.h"
#include "host/archive/read_curve.h"
#include "host/archive/read_extrusion.h"
#include "host/archive/read_geometry.h"
#include "host/archive/read_subd.h"
#include "host/archive/read_surface.h"
#include "host/archive/record_readers.h"

namespace host {
namespace {

constexpr ON_UUID kPointClass = "c3101a1d-f157-11d3-bfe7-0010830122f0"_uuid;
constexpr ON_UUID kPointCloudClass = "2488f347-f8fa-11d3-bfec-0010830122f0"_uuid;
constexpr ON_UUID kClippingPlaneClass = "dbc5a584-ce3f-4170-98a8-497069ca5c36"_uuid;
constexpr ON_UUID kInstanceRefClass = "f9cfb638-b9d4-4340-87e3-c56e7865d96a"_uuid;

// Reads the data and the user data of the class wrapper that is the open chunk, behind its id.
template <class T>
bool ReadGeometryOf(ON_BinaryArchive& archive, bool (*read_data)(ON_BinaryArchive&, T&),
                    std::shared_ptr<ON_Geometry>& geometry,
                    void (*read_user_data)(ON_BinaryArchive&, const ON_UUID&, T&) = nullptr) {
  const auto read = std::make_shared<T>();
  if (!BeginReadClassData(archive)) return false;
  const bool has_data = read_data(archive, *read);
  if (!archive.EndRead3dmChunk() || !has_data) return false;
  UserDataReader reader;
  if (read_user_data) {
    reader = [&](ON_BinaryArchive& payload, const ON_UUID& class_id) {
      read_user_data(payload, class_id, *read);
    };
  }
  if (!ReadUserData(archive, &read->m_user_strings, reader)) return false;
  geometry = read;
  return true;
}

std::shared_ptr<ON_Geometry> ReadCurveOf(ON_BinaryArchive& archive, const ON_UUID& class_id) {
  return ReadCurveData(archive, class_id);
}

std::shared_ptr<ON_Geometry> ReadSurfaceOf(ON_BinaryArchive& archive, const ON_UUID& class_id) {
  return ReadSurfaceData(archive, class_id);
}

// The same for a geometry whose class has many ids.
bool ReadGeometryWith(std::shared_ptr<ON_Geometry> (*read_data)(ON_BinaryArchive&, const ON_UUID&),
                      ON_BinaryArchive& archive, ONX_ModelObject& object) {
  if (!BeginReadClassData(archive)) return false;
  const std::shared_ptr<ON_Geometry> geometry = read_data(archive, object.m_class_id);
  if (!archive.EndRead3dmChunk() || !geometry) return false;
  if (!ReadUserData(archive, &geometry->m_user_strings)) return false;
  object.m_geometry = geometry;
  return true;
}

bool ReadAnnotationObject(ON_BinaryArchive& archive, ONX_ModelObject& object,
                          const AnnotationStyles& styles) {
  const auto annotation = std::make_shared<ON_Annotation>();
  if (!BeginReadClassData(archive)) return false;
  const bool read = ReadAnnotation(archive, object.m_class_id, styles, *annotation);
  if (!archive.EndRead3dmChunk() || !read) return false;
  const UserDataReader reader = [&](ON_BinaryArchive& payload, const ON_UUID& class_id) {
    ReadAnnotationUserData(payload, class_id, *annotation);
  };
  if (!ReadUserData(archive, &annotation->m_user_strings, reader)) return false;
  object.m_geometry = annotation;
  return true;
}

// Reads the class wrapper that is the open chunk.
bool ReadGeometry(ON_BinaryArchive& archive, ONX_ModelObject& object, UnreadCounter& unread,
                  const AnnotationStyles& styles) {
  if (!ReadClassId(archive, &object.m_class_id)) return false;
  const ON_UUID& id = object.m_class_id;
  if (id == kMeshClass) {
    return ReadGeometryOf<ON_Mesh>(archive, ReadMesh, object.m_geometry, ReadMeshUserData);
  }
  if (id == kPointClass) return ReadGeometryOf<ON_Point>(archive, ReadPoint, object.m_geometry);
  if (id == kPointCloudClass) {
    return ReadGeometryOf<ON_PointCloud>(archive, ReadPointCloud, object.m_geometry);
  }
  if (id == kClippingPlaneClass) {
    return ReadGeometryOf<ON_ClippingPlaneSurface>(archive, ReadClippingPlane, object.m_geometry);
  }
  if (id == kInstanceRefClass) {
    return ReadGeometryOf<ON_InstanceRef>(archive, ReadInstanceRef, object.m_geometry);
  }
  if (IsCurveClass(id)) return ReadGeometryWith(ReadCurveOf, archive, object);
  if (IsSurfaceClass(id)) return ReadGeometryWith(ReadSurfaceOf, archive, object);
  if (IsBrepClass(id)) return ReadGeometryOf<ON_Brep>(archive, ReadBrep, object.m_geometry);
  if (IsAnnotationClass(id)) return ReadAnnotationObject(archive, object, styles);
  if (id == kExtrusionClass) {
    return ReadGeometryOf<ON_Extrusion>(archive, ReadExtrusion, object.m_geometry);
  }
  if (id == kSubDClass) return ReadGeometryOf<ON_SubD>(archive, ReadSubD, object.m_geometry);
  unread.Add(ClassName(id));
  return true;
}

// A chunk of the record that is open, of the kind `typecode`.
bool ReadObjectPart(ON_BinaryArchive& archive, std::uint32_t typecode, std::int64_t value,
                    ONX_ModelObject& object, UnreadCounter& unread,
                    const AnnotationStyles& styles) {
  switch (typecode) {
    case TCODE_OBJECT_RECORD_TYPE:
      object.m_object_type = static_cast<unsigned>(value);
      return true;
    case TCODE_OPENNURBS_CLASS:
      return ReadGeometry(archive, object, unread, styles);
    case TCODE_OBJECT_RECORD_ATTRIBUTES:
      return ReadAttributes(archive, object.m_attributes);
    case TCODE_OBJECT_RECORD_ATTRIBUTES_USERDATA:
      return ReadUserData(archive, &object.m_attributes.m_user_strings);
    default:
      return true;
  }
}

}  // namespace

void UnreadCounter::Add(std::string_view kind) {
  // A hostile file may hold as many kinds as objects.
  constexpr std::size_t kMaxKinds = 100;
  constexpr std::string_view kOthers = "other kinds";
  const auto find = [this](std::string_view name) {
    return std::find_if(kinds_.begin(), kinds_.end(),
                        [name](const ONX_UnreadKind& k) { return k.m_name == name; });
  };
  auto found = find(kind);
  if (found == kinds_.end() && kinds_.size() >= kMaxKinds) found = find(kind = kOthers);
  if (found == kinds_.end()) found = kinds_.insert(found, {std::string(kind), 0});
  ++found->m_count;
}

bool ReadObjectRecord(ON_BinaryArchive& archive, ONX_ModelObject& object, UnreadCounter& unread,
                      const AnnotationStyles& styles) {
  bool has_class = false;
  while (archive.BytesLeft() > 0) {
    std::uint32_t typecode = 0;
    std::int64_t value = 0;
    if (!archive.BeginRead3dmChunk(&typecode, &value)) return false;
    const bool read = ReadObjectPart(archive, typecode, value, object, unread, styles);
    if (!archive.EndRead3dmChunk() || !read) return false;
    has_class = has_class || typecode == TCODE_OPENNURBS_CLASS;
    if (typecode == TCODE_OBJECT_RECORD_END) break;
  }
  return has_class || archive.Fail("an object record without an object");
}

bool ReadObjectAttributes(ON_BinaryArchive& archive, ON_3dmObjectAttributes& attributes) {
  return ReadChunks(archive, [&](const Record& part) {
    bool read = true;
    if (part.typecode == TCODE_OBJECT_RECORD_ATTRIBUTES) {
      read = ReadAttributes(archive, attributes);
    } else if (part.typecode == TCODE_OBJECT_RECORD_ATTRIBUTES_USERDATA) {
      read = ReadUserData(archive, &attributes.m_user_strings);
    }
    return read && part.typecode != TCODE_OBJECT_RECORD_END;
  });
}

bool ReadDocumentUserStrings(const ONX_PlugInData& table, ON_UserStringList& strings) {
  ByteSource source(std::as_bytes(std::span(table.m_bytes)));
  ON_BinaryArchive archive(source, table.m_archive_version, table.m_opennurbs_version);
  return ReadWrappedClass(archive, &strings,
                          [](ON_BinaryArchive&, const ON_UUID&) { return true; });
}

}  // namespace host
