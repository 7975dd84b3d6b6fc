#include "host/archive/chunk_writer.h"
#include "host/archive/typecodes.h"
#include "support/record_writers.h"

namespace model_writer {
namespace {

constexpr ON_UUID kMeshClass = "4ed7d4e4-e947-11d3-bfe5-0010830122f0"_uuid;
constexpr ON_UUID kRenderMeshId = "f5e3baa9-a7a2-49fd-b8a1-66eb274a5f91"_uuid;

// Each mesh behind a byte that isn't 0, with the id of what it is for.
void WriteMeshCache(ON_BinaryArchive& archive, const ON_Mesh* mesh) {
  const ChunkWriter cache(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
  if (mesh != nullptr) {
    archive.WriteChar(1);
    const ChunkWriter item(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
    archive.WriteUuid(kRenderMeshId);
    WriteClass(archive, kMeshClass, mesh->m_user_strings,
               [mesh](ON_BinaryArchive& data) { WriteMeshData(data, *mesh); });
  }
  archive.WriteChar(0);
}

}  // namespace

void WriteExtrusionData(ON_BinaryArchive& archive, const ON_Extrusion& extrusion) {
  const ON_Curve& profile = *extrusion.m_profile;
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK, 1, 3);
  WriteClass(archive, CurveClass(profile), profile.m_user_strings,
             [&](ON_BinaryArchive& data) { WriteCurveData(data, profile); });
  archive.WritePoint(extrusion.m_path.from);
  archive.WritePoint(extrusion.m_path.to);
  archive.WriteInterval(extrusion.m_t);
  archive.WriteVector(extrusion.m_up);
  for (const bool is_mitred : extrusion.m_bHaveN) archive.WriteBool(is_mitred);
  for (const ON_3dVector& normal : extrusion.m_N) archive.WriteVector(normal);
  archive.WriteInterval(extrusion.m_path_domain);
  archive.WriteBool(extrusion.m_bTransposed);
  archive.WriteInt(extrusion.m_profile_count);
  for (const bool is_capped : extrusion.m_bCap) archive.WriteBool(is_capped);
  WriteMeshCache(archive, extrusion.m_render_mesh.get());
}

}  // namespace model_writer
