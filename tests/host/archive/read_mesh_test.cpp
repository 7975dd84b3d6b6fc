#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/archive/record_readers.h"
#include "host/geometry/on_mesh.h"
#include "record_bytes.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr ON_UUID kMeshClass = "4ed7d4e4-e947-11d3-bfe5-0010830122f0"_uuid;
constexpr ON_UUID kDoublePointsId = "17f24e75-21be-4a7b-9f3d-7f85225247e3"_uuid;
constexpr ON_UUID kNgonsId = "31f55aa3-71fb-49f5-a975-757584d937ff"_uuid;
constexpr unsigned kNewLibrary = 0x90000000;

// A mesh of two triangles that share an edge; what a test doesn't set is what a writer leaves.
struct StoredMesh {
  int major = 3;
  int minor = 8;
  int index_size = 1;
  std::vector<int> indices = {0, 1, 2, 2, 0, 2, 3, 3};
  std::vector<float> points = {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0};
  std::vector<float> normals;
  std::vector<float> texture;
  std::vector<double> surface_parameters;
  std::vector<std::vector<std::vector<std::uint32_t>>> ngons;
  std::vector<double> double_points;
};

template <class T>
void WritePacked(ON_BinaryArchive& a, const std::vector<T>& values) {
  a.WriteCompressedBuffer(std::as_bytes(std::span(values)));
}

template <class T>
void WritePlain(ON_BinaryArchive& a, const std::vector<T>& values, std::size_t per_element) {
  a.WriteInt(static_cast<int>(values.size() / per_element));
  a.WriteByte(std::as_bytes(std::span(values)));
}

void WriteHead(ON_BinaryArchive& a, const StoredMesh& mesh) {
  a.Write3dmChunkVersion(mesh.major, mesh.minor);
  a.WriteInt(static_cast<int>(mesh.points.size() / 3));
  a.WriteInt(static_cast<int>(mesh.indices.size() / 4));
  for (int i = 0; i < 4; ++i) a.WriteInterval({});
  a.WriteDouble(2);
  a.WriteDouble(3);
  for (int i = 0; i < 16; ++i) a.WriteFloat(0);
  a.WriteInt(0);
  // Mesh parameters are there, curvature figures aren't.
  a.WriteChar(1);
  WriteChunk(a, TCODE_ANONYMOUS_CHUNK, [](ON_BinaryArchive& b) { b.WriteDouble(1); });
  for (int i = 0; i < 4; ++i) a.WriteChar(0);
}

void WriteIndices(ON_BinaryArchive& a, const StoredMesh& mesh) {
  a.WriteInt(mesh.index_size);
  for (const int index : mesh.indices) {
    if (mesh.index_size == 1) a.WriteChar(static_cast<std::uint8_t>(index));
    if (mesh.index_size == 2) a.WriteShort(static_cast<std::int16_t>(index));
    if (mesh.index_size == 4) a.WriteInt(index);
  }
}

void WriteNgons(ON_BinaryArchive& a, const StoredMesh& mesh) {
  a.WriteBool(!mesh.ngons.empty());
  if (mesh.ngons.empty()) return;
  WriteVersioned(a, 1, 0, [&](ON_BinaryArchive& b) {
    b.WriteInt(static_cast<int>(mesh.ngons.size()));
    for (const auto& ngon : mesh.ngons) {
      b.WriteInt(ngon.empty() ? 0 : static_cast<int>(ngon[0].size()));
      if (ngon.empty()) continue;
      b.WriteInt(static_cast<int>(ngon[1].size()));
      for (const std::uint32_t vertex : ngon[0]) b.WriteInt(static_cast<int>(vertex));
      for (const std::uint32_t face : ngon[1]) b.WriteInt(static_cast<int>(face));
    }
  });
}

void WriteDoublePoints(ON_BinaryArchive& a, const StoredMesh& mesh) {
  a.WriteBool(!mesh.double_points.empty());
  if (mesh.double_points.empty()) return;
  WriteVersioned(a, 1, 0, [&](ON_BinaryArchive& b) {
    b.WriteInt(static_cast<int>(mesh.double_points.size() / 3));
    WritePacked(b, mesh.double_points);
  });
}

void WriteLaterFields(ON_BinaryArchive& a, const StoredMesh& mesh) {
  if (mesh.minor >= 2) a.WriteInt(1);
  if (mesh.minor < 3) return;
  a.WriteUuid({});
  if (!mesh.points.empty()) WritePacked(a, mesh.surface_parameters);
  if (mesh.minor < 4) return;
  WriteVersioned(a, 1, 1, [](ON_BinaryArchive& b) {
    b.WriteUuid({});
    b.WriteInt(0);
    b.WriteXform({});
    b.WriteInt(5);
  });
  for (int i = 0; mesh.minor >= 5 && i < 3; ++i) a.WriteChar(0);
  if (mesh.minor >= 6) WriteNgons(a, mesh);
  if (mesh.minor >= 7) WriteDoublePoints(a, mesh);
  if (mesh.minor >= 8) a.WriteBoundingBox({});
}

void WriteMeshData(ON_BinaryArchive& a, const StoredMesh& mesh) {
  WriteHead(a, mesh);
  WriteIndices(a, mesh);
  if (mesh.major == 1) {
    WritePlain(a, mesh.points, 3);
    WritePlain(a, mesh.normals, 3);
    for (int i = 0; i < 3; ++i) a.WriteInt(0);
    if (mesh.minor >= 2) a.WriteInt(1);
    return;
  }
  if (!mesh.points.empty()) {
    WritePacked(a, mesh.points);
    WritePacked(a, mesh.normals);
    WritePacked(a, mesh.texture);
    for (int i = 0; i < 2; ++i) a.WriteInt(0);
  }
  WriteLaterFields(a, mesh);
}

struct ReadResult {
  Reading reading;
  std::shared_ptr<ON_Mesh> mesh;
};

ReadResult ReadRecord(const std::string& bytes, int version, unsigned library) {
  ReadResult result;
  ONX_ModelObject object;
  host::UnreadCounter unread;
  result.reading = ReadBytes(bytes, version, library, [&](ON_BinaryArchive& archive) {
    return host::ReadObjectRecord(archive, object, unread);
  });
  result.mesh = std::dynamic_pointer_cast<ON_Mesh>(object.m_geometry);
  return result;
}

ReadResult WriteAndRead(const StoredMesh& mesh, const WriteContent& user_data = nullptr,
                        int version = 80, unsigned library = kNewLibrary) {
  const std::string bytes = RecordBytes(version, library, [&](ON_BinaryArchive& archive) {
    WriteClass(
        archive, kMeshClass, [&](ON_BinaryArchive& a) { WriteMeshData(a, mesh); }, user_data);
    archive.WriteShortChunk(TCODE_OBJECT_RECORD_END, 0);
  });
  return ReadRecord(bytes, version, library);
}

// The payload that holds vertices in double precision before they were part of the mesh.
WriteContent DoublePointsPayload(const std::vector<double>& points) {
  return [points](ON_BinaryArchive& archive) {
    WriteVersioned(archive, 1, 0, [&](ON_BinaryArchive& a) {
      for (int i = 0; i < 4; ++i) a.WriteInt(0);
      WritePlain(a, points, 3);
    });
  };
}

// What the floats round: the vertices in double precision.
const std::vector<double> kFinePoints = {0, 0, 0, 1.000000001, 0, 0, 1, 0.999999999, 0, 0, 1, 0};

}  // namespace

TEST(ReadMesh, IndicesOfEachSizeGiveTheSameFaces) {
  for (const int size : {1, 2, 4}) {
    StoredMesh stored;
    stored.index_size = size;
    const auto [reading, mesh] = WriteAndRead(stored);
    ASSERT_TRUE(reading.ok) << size;
    EXPECT_THAT(reading.problems, IsEmpty());
    EXPECT_THAT(mesh->m_F, ElementsAre(ON_MeshFace{{0, 1, 2, 2}}, ON_MeshFace{{0, 2, 3, 3}}));
  }
}

TEST(ReadMesh, AnIndexOfTwoBytesIsNotSigned) {
  StoredMesh stored;
  stored.index_size = 2;
  stored.points.assign(3 * 40000, 0.5f);
  stored.indices = {39999, 0, 1, 1};
  const auto [reading, mesh] = WriteAndRead(stored);
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ(39999, mesh->m_F[0].vi[0]);
}

TEST(ReadMesh, AFaceThatNamesAMissingVertexFailsTheRecord) {
  for (const int size : {1, 2, 4}) {
    StoredMesh stored;
    stored.index_size = size;
    stored.indices[6] = 4;
    const auto [reading, mesh] = WriteAndRead(stored);
    EXPECT_FALSE(reading.ok);
    EXPECT_EQ(nullptr, mesh);
    ASSERT_THAT(reading.problems, testing::SizeIs(1));
    EXPECT_THAT(reading.problems[0], HasSubstr("a face of a mesh names a vertex that isn't there"));
  }
}

TEST(ReadMesh, ANegativeIndexFailsTheRecord) {
  StoredMesh stored;
  stored.index_size = 4;
  stored.indices[0] = -1;
  EXPECT_FALSE(WriteAndRead(stored).reading.ok);
}

TEST(ReadMesh, AVertexWithoutAPlaceIsTold) {
  for (const float wrong :
       {std::numeric_limits<float>::quiet_NaN(), -std::numeric_limits<float>::infinity()}) {
    StoredMesh stored;
    stored.points[4] = wrong;
    const auto reading = WriteAndRead(stored).reading;
    EXPECT_FALSE(reading.ok);
    ASSERT_THAT(reading.problems, testing::SizeIs(1));
    EXPECT_THAT(reading.problems[0],
                HasSubstr("a mesh with a vertex whose coordinates are no numbers"));
  }
}

TEST(ReadMesh, NormalsAndTextureCoordinatesThatAreNoNumbersAreZero) {
  StoredMesh stored;
  stored.normals.assign(stored.points.size(), 1.0f);
  stored.normals[4] = std::numeric_limits<float>::quiet_NaN();
  stored.texture.assign(stored.points.size() / 3 * 2, 0.5f);
  stored.texture[3] = std::numeric_limits<float>::infinity();
  const auto [reading, mesh] = WriteAndRead(stored);
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ((ON_3fVector{1, 1, 1}), mesh->m_N[0]);
  EXPECT_EQ((ON_3fVector{0, 0, 0}), mesh->m_N[1]);
  EXPECT_EQ((ON_2fPoint{0.5f, 0.5f}), mesh->m_T[0]);
  EXPECT_EQ((ON_2fPoint{0, 0}), mesh->m_T[1]);
}

TEST(ReadMesh, AnUnknownIndexSizeIsTold) {
  StoredMesh stored;
  stored.index_size = 3;
  const auto reading = WriteAndRead(stored).reading;
  EXPECT_FALSE(reading.ok);
  ASSERT_THAT(reading.problems, testing::SizeIs(1));
  EXPECT_THAT(reading.problems[0], HasSubstr("a mesh has vertex indices of an unknown size"));
}

TEST(ReadMesh, AnUnknownVersionIsTold) {
  StoredMesh stored;
  stored.major = 2;
  const auto reading = WriteAndRead(stored).reading;
  EXPECT_FALSE(reading.ok);
  ASSERT_THAT(reading.problems, testing::SizeIs(1));
  EXPECT_THAT(reading.problems[0], HasSubstr("a mesh of an unknown version"));
}

TEST(ReadMesh, AMeshWithoutVerticesHasNoChannels) {
  StoredMesh stored;
  stored.points.clear();
  stored.indices.clear();
  const auto [reading, mesh] = WriteAndRead(stored);
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ(0, mesh->VertexCount());
  EXPECT_THAT(reading.problems, IsEmpty());
}

TEST(ReadMesh, EachMinorVersionIsRead) {
  for (int minor = 1; minor <= 8; ++minor) {
    StoredMesh stored;
    stored.minor = minor;
    const auto [reading, mesh] = WriteAndRead(stored);
    ASSERT_TRUE(reading.ok) << minor;
    EXPECT_THAT(reading.problems, IsEmpty());
    EXPECT_EQ(4, mesh->VertexCount());
    EXPECT_EQ(minor >= 2, mesh->m_packed_tex_rotate);
    EXPECT_EQ(minor >= 4, mesh->m_Ttag.has_value());
  }
}

TEST(ReadMesh, AnOldMeshIsNotCompressed) {
  StoredMesh stored;
  stored.major = 1;
  stored.minor = 2;
  stored.normals = {0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1};
  const auto [reading, mesh] = WriteAndRead(stored, nullptr, 2, 200012210);
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_EQ((ON_3fPoint{1, 1, 0}), mesh->m_V[2]);
  EXPECT_TRUE(mesh->HasVertexNormals());
  EXPECT_TRUE(mesh->m_packed_tex_rotate);
  EXPECT_EQ(2, mesh->m_srf_scale[0]);
}

TEST(ReadMesh, AnOldMeshWithAChannelOfAnotherLengthFails) {
  StoredMesh stored;
  stored.major = 1;
  stored.normals = {0, 0, 1};
  EXPECT_FALSE(WriteAndRead(stored).reading.ok);
}

TEST(ReadMesh, ANormalChannelOfAnotherLengthFails) {
  StoredMesh stored;
  stored.normals = {0, 0, 1};
  const auto reading = WriteAndRead(stored).reading;
  EXPECT_FALSE(reading.ok);
  ASSERT_THAT(reading.problems, testing::SizeIs(1));
  EXPECT_THAT(reading.problems[0], HasSubstr("a compressed buffer has the wrong size"));
}

TEST(ReadMesh, SurfaceParametersOfAnotherLengthAreLeftOutOfOldFilesOnly) {
  StoredMesh stored;
  stored.minor = 5;
  stored.surface_parameters = {1, 2};
  const auto old = WriteAndRead(stored, nullptr, 50, 201011049);
  ASSERT_TRUE(old.reading.ok);
  EXPECT_THAT(old.mesh->m_S, IsEmpty());
  EXPECT_THAT(old.reading.problems, IsEmpty());
  EXPECT_FALSE(WriteAndRead(stored, nullptr, 50, 201011050).reading.ok);
}

TEST(ReadMesh, DoublePointsAreTakenWhenTheyAreTheVertices) {
  StoredMesh stored;
  stored.double_points = kFinePoints;
  const auto [reading, mesh] = WriteAndRead(stored);
  ASSERT_TRUE(reading.ok);
  ASSERT_EQ(4u, mesh->m_dV.size());
  EXPECT_EQ(1.000000001, mesh->m_dV[1].x);
}

TEST(ReadMesh, DoublePointsThatDisagreeAreLeftOut) {
  StoredMesh stored;
  stored.double_points = kFinePoints;
  for (const double wrong : {1.00001, std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity()}) {
    for (const std::size_t place : {3u, 7u}) {
      stored.double_points = kFinePoints;
      stored.double_points[place] = wrong;
      const auto [reading, mesh] = WriteAndRead(stored);
      ASSERT_TRUE(reading.ok);
      EXPECT_THAT(mesh->m_dV, IsEmpty()) << wrong;
    }
  }
}

TEST(ReadMesh, OlderDoublePointsAreUserData) {
  StoredMesh stored;
  stored.minor = 5;
  const auto user_data = [](ON_BinaryArchive& a) {
    WriteUserData(a, kDoublePointsId, {2, 50, 201008125}, DoublePointsPayload(kFinePoints));
  };
  const auto [reading, mesh] = WriteAndRead(stored, user_data, 50, 201008125);
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  ASSERT_EQ(4u, mesh->m_dV.size());
  EXPECT_EQ(1.000000001, mesh->m_dV[1].x);
}

TEST(ReadMesh, OlderPolygonsAreUserData) {
  StoredMesh stored;
  stored.minor = 5;
  const auto write_ngons = [](ON_BinaryArchive& archive) {
    WriteVersioned(archive, 1, 1, [](ON_BinaryArchive& a) {
      for (const int value : {1, 4, 0, 1, 2, 3, 0, 1, -1, -1, 2, 4}) a.WriteInt(value);
    });
  };
  const auto user_data = [&](ON_BinaryArchive& a) {
    WriteUserData(a, kNgonsId, {1, 4, 0}, write_ngons);
  };
  const auto [reading, mesh] = WriteAndRead(stored, user_data, 4, 200710174);
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  ASSERT_EQ(1u, mesh->m_Ngon.size());
  EXPECT_THAT(mesh->m_Ngon[0].m_vi, ElementsAre(0, 1, 2, 3));
  EXPECT_THAT(mesh->m_Ngon[0].m_fi, ElementsAre(0, 1));
}

TEST(ReadMesh, PolygonsAreReadAndEmptyPlacesLeftOut) {
  StoredMesh stored;
  stored.ngons = {{}, {{0, 1, 2, 3}, {0, 1}}};
  const auto [reading, mesh] = WriteAndRead(stored);
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  ASSERT_EQ(1u, mesh->m_Ngon.size());
  EXPECT_THAT(mesh->m_Ngon[0].m_vi, ElementsAre(0, 1, 2, 3));
}

TEST(ReadMesh, BrokenPolygonsAreToldAndTheMeshStaysGood) {
  StoredMesh stored;
  stored.ngons = {{{0, 1, 2, 4}, {0, 1}}};
  stored.double_points = kFinePoints;
  const auto [reading, mesh] = WriteAndRead(stored);
  ASSERT_TRUE(reading.ok);
  ASSERT_THAT(reading.problems, testing::SizeIs(1));
  EXPECT_THAT(reading.problems[0], HasSubstr("a polygon names a vertex or face that isn't there"));
  EXPECT_THAT(mesh->m_Ngon, IsEmpty());
  EXPECT_EQ(4u, mesh->m_dV.size());
}

// A mesh cut short at any byte is told and never read past its end.
TEST(ReadMesh, ATruncatedRecordFailsAtEveryLength) {
  StoredMesh stored;
  stored.ngons = {{{0, 1, 2, 3}, {0, 1}}};
  stored.double_points = kFinePoints;
  const std::string whole = RecordBytes(80, kNewLibrary, [&](ON_BinaryArchive& archive) {
    WriteClass(archive, kMeshClass, [&](ON_BinaryArchive& a) { WriteMeshData(a, stored); });
  });
  for (std::size_t length = 0; length < whole.size(); ++length) {
    const auto [reading, mesh] = ReadRecord(whole.substr(0, length), 80, kNewLibrary);
    EXPECT_FALSE(reading.ok && reading.problems.empty()) << length;
    if (mesh) {
      EXPECT_TRUE(mesh->HasValidFaceIndices());
    }
  }
}

// Whatever a damaged byte says, the mesh that comes out can be used.
TEST(ReadMesh, ADamagedByteNeverGivesAMeshThatCannotBeUsed) {
  StoredMesh stored;
  stored.ngons = {{{0, 1, 2, 3}, {0, 1}}};
  stored.double_points = kFinePoints;
  const std::string whole = RecordBytes(80, kNewLibrary, [&](ON_BinaryArchive& archive) {
    WriteClass(archive, kMeshClass, [&](ON_BinaryArchive& a) { WriteMeshData(a, stored); });
  });
  for (std::size_t place = 0; place < whole.size(); ++place) {
    for (const int change : {0x01, 0x80, 0xff}) {
      std::string damaged = whole;
      damaged[place] = static_cast<char>(damaged[place] ^ change);
      const auto mesh = ReadRecord(damaged, 80, kNewLibrary).mesh;
      if (!mesh) continue;
      EXPECT_TRUE(mesh->HasValidFaceIndices());
      for (const std::size_t count :
           {mesh->m_N.size(), mesh->m_T.size(), mesh->m_C.size(), mesh->m_dV.size()}) {
        EXPECT_TRUE(count == 0 || count == mesh->m_V.size()) << place;
      }
    }
  }
}
