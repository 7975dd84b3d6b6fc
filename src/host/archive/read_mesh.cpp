#include <algorithm>
#include <cmath>

#include "host/archive/chunk_scope.h"
#include "host/archive/class_wrapper.h"
#include "host/archive/read_geometry.h"
#include "host/archive/read_mesh_extras.h"

namespace host {
namespace {

struct MeshCounts {
  std::size_t vertices = 0;
  std::size_t faces = 0;
};

// A byte that tells whether a chunk follows, which isn't used: mesh parameters, curvature figures.
bool SkipOptionalChunk(ON_BinaryArchive& archive) {
  std::uint8_t present = 0;
  return archive.ReadChar(&present) && (present == 0 || SkipChunk(archive));
}

bool ReadMeshHead(ON_BinaryArchive& archive, MeshCounts& counts, ON_Mesh& mesh) {
  // Boxes of the vertices, normals and texture coordinates.
  constexpr std::uint64_t kBoxesSize = (6 + 6 + 4) * sizeof(float);
  constexpr int kOptionalChunks = 1 + 4;
  std::int32_t vertices = 0, faces = 0;
  if (!archive.ReadInt(&vertices) || !archive.ReadInt(&faces)) return false;
  if (vertices < 0 || faces < 0) return archive.Fail("a mesh has a negative count");
  counts = {static_cast<std::size_t>(vertices), static_cast<std::size_t>(faces)};
  if (!archive.ReadInterval(&mesh.m_packed_tex_domain[0]) ||
      !archive.ReadInterval(&mesh.m_packed_tex_domain[1]) ||
      !archive.ReadInterval(&mesh.m_srf_domain[0]) ||
      !archive.ReadInterval(&mesh.m_srf_domain[1]) || !archive.ReadDouble(&mesh.m_srf_scale[0]) ||
      !archive.ReadDouble(&mesh.m_srf_scale[1]) || !archive.Skip(kBoxesSize) ||
      !archive.ReadInt(&mesh.m_closed)) {
    return false;
  }
  for (int i = 0; i < kOptionalChunks; ++i) {
    if (!SkipOptionalChunk(archive)) return false;
  }
  return true;
}

// Indices of a smaller type, block by block.
template <class T>
bool ReadSmallIndices(ON_BinaryArchive& archive, std::span<ON_MeshFace> faces) {
  constexpr std::size_t kBlock = 1024;
  std::array<std::array<T, 4>, kBlock> block;
  while (!faces.empty()) {
    const auto stored = std::span(block).first(std::min(kBlock, faces.size()));
    if (!archive.ReadByte(std::as_writable_bytes(stored))) return false;
    for (std::size_t i = 0; i < stored.size(); ++i) {
      std::copy(stored[i].begin(), stored[i].end(), faces[i].vi.begin());
    }
    faces = faces.subspan(stored.size());
  }
  return true;
}

bool ReadFaces(ON_BinaryArchive& archive, std::size_t count, ON_SimpleArray<ON_MeshFace>& faces) {
  static_assert(sizeof(ON_MeshFace) == 4 * sizeof(std::int32_t), "faces are read as they stand");
  std::int32_t index_size = 0;
  if (!archive.ReadInt(&index_size)) return false;
  if (index_size != 1 && index_size != 2 && index_size != 4) {
    return archive.Fail("a mesh has vertex indices of an unknown size");
  }
  if (count > archive.BytesLeft() / (4 * static_cast<std::size_t>(index_size))) {
    return archive.Fail("a mesh has more faces than its chunk can hold");
  }
  faces.resize(count);
  switch (index_size) {
    case 1:
      return ReadSmallIndices<std::uint8_t>(archive, faces);
    case 2:
      return ReadSmallIndices<std::uint16_t>(archive, faces);
    default:
      return archive.ReadByte(std::as_writable_bytes(std::span(faces)));
  }
}

// The channels of version 1, which aren't compressed.
bool ReadPlainChannels(ON_BinaryArchive& archive, std::size_t count, ON_Mesh& mesh) {
  if (!ReadArray(archive, mesh.m_V) || !ReadArray(archive, mesh.m_N) ||
      !ReadArray(archive, mesh.m_T) || !ReadArray(archive, mesh.m_K) ||
      !ReadArray(archive, mesh.m_C)) {
    return false;
  }
  const auto fits = [count](const auto& channel) {
    return channel.empty() || channel.size() == count;
  };
  if (fits(mesh.m_N) && fits(mesh.m_T) && fits(mesh.m_K) && fits(mesh.m_C)) return true;
  return archive.Fail("a mesh has a channel of another length than its vertices");
}

bool ReadPackedChannels(ON_BinaryArchive& archive, std::size_t count, ON_Mesh& mesh) {
  if (count == 0) return true;
  return archive.ReadCompressedArray(count, &mesh.m_V) &&
         archive.ReadCompressedArray(count, &mesh.m_N) &&
         archive.ReadCompressedArray(count, &mesh.m_T) &&
         archive.ReadCompressedArray(count, &mesh.m_K) &&
         archive.ReadCompressedArray(count, &mesh.m_C);
}

// Older writers left surface parameters of any length behind.
bool ReadSurfaceParameters(ON_BinaryArchive& archive, std::size_t count, ON_Mesh& mesh) {
  constexpr unsigned kLastCarelessWriter = 201011049;
  if (count == 0) return true;
  std::size_t size = 0;
  if (!archive.ReadCompressedBufferSize(&size)) return false;
  if (size == 0) return true;
  const bool fits = size % sizeof(ON_2dPoint) == 0 && size / sizeof(ON_2dPoint) == count;
  if (!fits && archive.ArchiveOpenNURBSVersion() > kLastCarelessWriter) {
    return archive.Fail("a mesh has a channel of another length than its vertices");
  }
  ON_SimpleArray<std::byte> misfit(fits ? 0 : size);
  if (!fits) return archive.ReadCompressedBuffer(misfit);
  mesh.m_S.resize(count);
  return archive.ReadCompressedBuffer(std::as_writable_bytes(std::span(mesh.m_S)));
}

bool ReadMappingTag(ON_BinaryArchive& archive, ON_Mesh& mesh) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  ON_MappingTag tag;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("a mapping tag of an unknown version");
  if (!archive.ReadUuid(&tag.m_mapping_id) || !archive.ReadInt(&tag.m_mapping_crc) ||
      !archive.ReadXform(&tag.m_mesh_xform)) {
    return false;
  }
  if (minor >= 1 && !archive.ReadInt(&tag.m_mapping_type)) return false;
  if (tag.m_mapping_type != 0 || !tag.m_mapping_id.IsNil()) mesh.m_Ttag = tag;
  return true;
}

// What came with the minor versions of version 3 behind the packed texture region's turn.
bool ReadLaterFields(ON_BinaryArchive& archive, int minor, std::size_t vertex_count,
                     ON_Mesh& mesh) {
  constexpr unsigned kFirstTagWriter = 200606010;
  ON_UUID mapping_id;
  if (minor < 3) return true;
  if (!archive.ReadUuid(&mapping_id) || !ReadSurfaceParameters(archive, vertex_count, mesh)) {
    return false;
  }
  if (minor < 4 || archive.ArchiveOpenNURBSVersion() < kFirstTagWriter) return true;
  if (!ReadMappingTag(archive, mesh)) return false;
  // Whether it is manifold, oriented, solid.
  if (minor >= 5 && !archive.Skip(3)) return false;
  if (minor >= 6 && !ReadNgons(archive, mesh)) return false;
  return minor < 7 || ReadDoublePoints(archive, mesh);
}

bool AreNumbers(const ON_3fPoint& p) {
  return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

// Normals and texture coordinates that aren't numbers become zero.
void MendChannels(ON_Mesh& mesh) {
  for (ON_3fVector& n : mesh.m_N) {
    if (!AreNumbers(n)) n = {0, 0, 0};
  }
  for (ON_2fPoint& st : mesh.m_T) {
    if (!std::isfinite(st.x) || !std::isfinite(st.y)) st = {0, 0};
  }
}

bool ReadMeshBody(ON_BinaryArchive& archive, int major, int minor, ON_Mesh& mesh) {
  MeshCounts counts;
  if (!ReadMeshHead(archive, counts, mesh) || !ReadFaces(archive, counts.faces, mesh.m_F)) {
    return false;
  }
  const bool read = major == 1 ? ReadPlainChannels(archive, counts.vertices, mesh)
                               : ReadPackedChannels(archive, counts.vertices, mesh);
  if (!read) return false;
  if (mesh.m_V.size() != counts.vertices) return archive.Fail("a mesh lacks its vertices");
  if (!std::all_of(mesh.m_V.begin(), mesh.m_V.end(), AreNumbers)) {
    return archive.Fail("a mesh with a vertex whose coordinates are no numbers");
  }
  MendChannels(mesh);
  if (!mesh.HasValidFaceIndices()) {
    return archive.Fail("a face of a mesh names a vertex that isn't there");
  }
  std::int32_t rotated = 0;
  if (minor >= 2 && !archive.ReadInt(&rotated)) return false;
  mesh.m_packed_tex_rotate = rotated != 0;
  return major == 1 || ReadLaterFields(archive, minor, counts.vertices, mesh);
}

}  // namespace

bool ReadMesh(ON_BinaryArchive& archive, ON_Mesh& mesh) {
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1 && major != 3) return archive.Fail("a mesh of an unknown version");
  return ReadMeshBody(archive, major, minor, mesh);
}

std::shared_ptr<ON_Mesh> ReadWrappedMesh(ON_BinaryArchive& archive) {
  auto mesh = std::make_shared<ON_Mesh>();
  const auto read_data = [&](ON_BinaryArchive& data, const ON_UUID& class_id) {
    if (class_id != kMeshClass) {
      return data.Fail("a part that should be a mesh is of another class");
    }
    return ReadMesh(data, *mesh);
  };
  const auto read_user_data = [&](ON_BinaryArchive& payload, const ON_UUID& class_id) {
    ReadMeshUserData(payload, class_id, *mesh);
  };
  const bool read = ReadWrappedClass(archive, &mesh->m_user_strings, read_data, read_user_data);
  return read ? mesh : nullptr;
}

}  // namespace host
