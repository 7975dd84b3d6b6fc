#include "export/object_walk.h"

#include <unordered_set>

#include "export/annotation_writer.h"
#include "export/attribute_block.h"
#include "export/attribute_scope.h"
#include "export/bake_maps.h"
#include "export/curve_writer.h"
#include "export/line_look.h"
#include "export/mesh_writer.h"
#include "export/object_material.h"
#include "export/object_stream.h"
#include "export/point_cloud_writer.h"
#include "export/point_writer.h"
#include "export/rib_text.h"
#include "export/subd_writer.h"
#include "export/surface_geometry.h"
#include "host/document/app.h"
#include "host/document/object_name.h"
#include "host/system/interrupt.h"
#include "host/system/progress_meter.h"

namespace orv {
namespace {

constexpr int kFirstToonId = 100000;
constexpr int kToonIdPerObject = 2;

// The material comes from the placement of the block.
bool HasMaterialOfParent(const RIBRhinoObject& record) {
  return record.Parent != nullptr &&
         record.Object->Attributes().MaterialSource() == ON_AttributeSource::parent;
}

// Writes the blocks of one export's objects.
class ObjectWriter {
 public:
  ObjectWriter(const ObjectStream& stream, BlockIds& blocks) : stream_(stream), blocks_(blocks) {}

  // False when a writer has failed.
  [[nodiscard]] bool Write(const RIBRhinoObject& record) {
    const ON_Geometry* geometry = record.Object->Geometry();
    if (geometry == nullptr || !IsShown(record)) return true;
    if (geometry->HasBrepForm()) return WriteSurface(record, *geometry);
    if (const ON_Mesh* mesh = ON_Mesh::Cast(geometry)) return WriteMeshObject(record, *mesh);
    if (const ON_SubD* subd = ON_SubD::Cast(geometry)) return WriteSubDObject(record, *subd);
    if (stream_.Settings.RenderCurves) WriteCurveOrPoints(record, *geometry);
    if (stream_.Settings.RenderDimensions) WriteDimension(*record.Object);
    return true;
  }

 private:
  enum class Kind { Surface, Mesh };
  // What became of an object's body.
  enum class Body { Written, Replaced, Failed };

  bool WriteMaterial(const CRhinoObject& object) {
    return WriteObjectMaterial(stream_.Writer, object, stream_.Materials, stream_.UseObjectNumbers);
  }

  bool WriteSurface(const RIBRhinoObject& record, const ON_Geometry& geometry) {
    std::shared_ptr<const ON_Brep> brep;
    if (leftOut_.count(record.Object) != 0) return true;
    // An object with an archive has a brep form, which isn't needed again.
    if (!record.IsPiece || !blocks_.Contains(record.Object->RuntimeSerialNumber())) {
      brep = BrepFormOf(geometry);
      if (brep == nullptr) {
        TellLeftOut(*record.Object);
        return true;
      }
    }
    return WriteBlock(
        record, Kind::Surface, [&](const ObjectAttributes& attributes, bool wantsRenderMesh) {
          return WriteSurfaceGeometry(stream_, *record.Object, *brep, attributes, wantsRenderMesh);
        });
  }

  // Once, however often a block shows it.
  void TellLeftOut(const CRhinoObject& object) {
    leftOut_.insert(&object);
    RhinoApp().Print("Not exported: the surface of " + host::DescribeByName(object) +
                     " can't be made.\n");
  }

  bool WriteMeshObject(const RIBRhinoObject& record, const ON_Mesh& mesh) {
    return WriteBlock(record, Kind::Mesh, [&](const ObjectAttributes& attributes, bool) {
      return mesh.FaceCount() == 0 ||
             WriteMesh(stream_.Writer, mesh, attributes.WeldPolyVerts, attributes.SubdivisionMesh);
    });
  }

  bool WriteSubDObject(const RIBRhinoObject& record, const ON_SubD& subd) {
    return WriteBlock(record, Kind::Mesh, [&](const ObjectAttributes&, bool) {
      return WriteSubD(stream_.Writer, subd);
    });
  }

  // The block of a surface or a mesh. `writeGeometry` is false when it has failed.
  template <class WriteGeometry>
  bool WriteBlock(const RIBRhinoObject& record, Kind kind, WriteGeometry writeGeometry) {
    RibWriter& writer = stream_.Writer;
    BeginObjectBlock(writer);
    const ArchiveUse archive = UseOfArchive(record, blocks_);
    if (kind == Kind::Surface) WriteToonId();
    WriteBakeMapNames(*record.Object);
    WriteGroups(writer, *record.Object, stream_.Doc);
    Body body = Body::Written;
    if (archive.WriteBody) body = WriteBody(record, kind, archive.Defining, writeGeometry);
    if (body == Body::Failed) return false;
    if (record.IsPiece && body != Body::Replaced) WritePlace(record);
    EndAttributes(writer);
    return true;
  }

  void WriteToonId() {
    if (!stream_.Settings.Outline || stream_.Settings.ToonId != kToonIdPerObject) return;
    RibPrintf(stream_.Writer, "Attribute \"toon\" \"id\" [%d]\n", nextToonId_++);
  }

  void WriteBakeMapNames(const CRhinoObject& object) {
    if (!stream_.Settings.BakeEnable) return;
    RibPrintf(stream_.Writer, "Attribute \"bake\" \"string bakemaps\" [\"%s\"]\n",
              RibString(BakeMapList(stream_.Settings, object)).c_str());
  }

  // Material, attributes and geometry. What replaces the geometry leaves an archive open.
  template <class WriteGeometry>
  Body WriteBody(const RIBRhinoObject& record, Kind kind, bool defining,
                 WriteGeometry writeGeometry) {
    const bool wantsRenderMesh = BeginBody(record, kind, defining);
    const ObjectAttributes attributes = ReadObjectAttributes(*record.Object);
    if (WriteAttributeBlock(stream_.Writer, *record.Object, attributes, stream_.Settings)) {
      return Body::Replaced;
    }
    if (!writeGeometry(attributes, wantsRenderMesh)) return Body::Failed;
    if (defining) EndArchive(stream_.Writer);
    return Body::Written;
  }

  // Writes the material, and opens the archive where there is one: behind the placement's material,
  // which a mesh doesn't write here, or before the object's own. True when the object must be
  // written as a render mesh.
  bool BeginBody(const RIBRhinoObject& record, Kind kind, bool defining) {
    const bool ofParent = HasMaterialOfParent(record);
    bool wantsRenderMesh = false;
    if (ofParent && kind == Kind::Surface) wantsRenderMesh = WriteMaterial(*record.Parent);
    if (defining) BeginArchive(stream_.Writer, *record.Object);
    if (!ofParent) wantsRenderMesh = WriteMaterial(*record.Object);
    return wantsRenderMesh;
  }

  void WritePlace(const RIBRhinoObject& piece) {
    if (HasMaterialOfParent(piece)) WriteMaterial(*piece.Parent);
    WriteArchiveInstance(stream_.Writer, piece);
  }

  // What the settings must ask for. Points are written where they stand in a block's definition.
  void WriteCurveOrPoints(const RIBRhinoObject& record, const ON_Geometry& geometry) {
    const CRhinoObject& object = *record.Object;
    const ObjectAttributes attributes = ReadObjectAttributes(object);
    if (const ON_Curve* curve = ON_Curve::Cast(&geometry)) {
      WriteCurve(record, *curve, attributes);
    } else if (const ON_PointCloud* cloud = ON_PointCloud::Cast(&geometry)) {
      WritePointCloud(stream_, object, *cloud, attributes);
    } else if (const ON_Point* point = ON_Point::Cast(&geometry)) {
      WritePointObject(stream_, object, *point, attributes);
    }
  }

  void WriteDimension(const CRhinoObject& object) {
    const auto* annotation = CRhinoAnnotationObject::Cast(&object);
    if (annotation != nullptr) WriteAnnotation(stream_, *annotation, ReadObjectAttributes(object));
  }

  void WriteCurve(const RIBRhinoObject& record, const ON_Curve& curve,
                  const ObjectAttributes& attributes) {
    if (SkipsLines(attributes)) return;
    RibWriter& writer = stream_.Writer;
    BeginObjectBlock(writer);
    const ArchiveUse archive = UseOfArchive(record, blocks_);
    if (archive.Defining) BeginArchive(writer, *record.Object);
    if (archive.WriteBody) WriteCurveBody(stream_, *record.Object, curve, attributes);
    if (archive.Defining) EndArchive(writer);
    if (record.IsPiece) WriteArchiveInstance(writer, record);
    EndAttributes(writer);
  }

  const ObjectStream& stream_;
  BlockIds& blocks_;
  int nextToonId_ = kFirstToonId;
  // Objects that have no surface after all.
  std::unordered_set<const CRhinoObject*> leftOut_;
};

}  // namespace

bool WriteObjects(RibWriter& writer, const CRhinoDoc& doc,
                  const std::vector<RIBRhinoObject>& objects, const RenderSettings& settings,
                  const IprSettings* iprSettings, TextureConverter& textures, BlockIds& blocks) {
  SceneMaterials materials(settings, textures);
  const ObjectStream stream{writer, doc, settings, materials, iprSettings != nullptr};
  ObjectWriter objectWriter(stream, blocks);
  host::ProgressMeter progress(RhinoApp().CommandWindow(), "Writing", objects.size());
  std::size_t done = 0;
  for (const RIBRhinoObject& object : objects) {
    progress.Show(done++, writer.Size());
    if (host::InterruptRequested()) return false;
    if (writer.HasError()) return true;
    if (!objectWriter.Write(object)) return false;
  }
  return !host::InterruptRequested();
}

}  // namespace orv
