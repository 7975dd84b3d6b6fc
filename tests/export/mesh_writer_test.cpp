#include "export/mesh_writer.h"

#include <gtest/gtest.h>

#include <limits>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "export/weld.h"
#include "export_fixture.h"
#include "host/system/text.h"
#include "line_model.h"

namespace orv {
namespace {

// A quad and a triangle over five vertices.
ON_Mesh HouseMesh() {
  ON_Mesh mesh;
  mesh.m_V = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0.5, 1.5, 0}};
  mesh.m_F = {{{2, 4, 3, 3}}, {{0, 1, 2, 3}}};
  return mesh;
}

void AddNormals(ON_Mesh& mesh) {
  for (int i = 0; i < mesh.VertexCount(); ++i) mesh.m_N.push_back({0, 0, -1});
}

void AddTexture(ON_Mesh& mesh) {
  for (const ON_3fPoint& p : mesh.m_V) mesh.m_T.push_back({p.x / 2, p.y / 2});
}

void AddColors(ON_Mesh& mesh) {
  for (int i = 0; i < mesh.VertexCount(); ++i) mesh.m_C.push_back({255, 51 * i, 128});
}

// The house with its triangle's corners as vertices of their own.
ON_Mesh UnweldedHouseMesh() {
  ON_Mesh mesh = HouseMesh();
  mesh.m_V.push_back(mesh.m_V[2]);
  mesh.m_V.push_back(mesh.m_V[3]);
  mesh.m_F[0] = {{5, 4, 6, 6}};
  return mesh;
}

std::string MeshStream(const ON_Mesh& mesh, bool weld, bool subdivide) {
  return Written([&](RibWriter& writer) { EXPECT_TRUE(WriteMesh(writer, mesh, weld, subdivide)); });
}

TEST(MeshWriter, WritesTrianglesAndQuads) {
  EXPECT_EQ(MeshStream(HouseMesh(), false, false),
            "PointsPolygons [ 3 4 ] [2 4 3 0 1 2 3 ]\n"
            " \"P\" [ 0 0 0 1 0 0 1 1 0 0 1 0 0.5 1.5 0  ]\n");
}

TEST(MeshWriter, WritesNormalsTextureAndColoursForEachVertex) {
  ON_Mesh mesh = HouseMesh();
  AddNormals(mesh);
  AddTexture(mesh);
  AddColors(mesh);
  EXPECT_EQ(MeshStream(mesh, false, false),
            "PointsPolygons [ 3 4 ] [2 4 3 0 1 2 3 ]\n"
            " \"P\" [ 0 0 0 1 0 0 1 1 0 0 1 0 0.5 1.5 0  ]"
            " \"N\" [ 0 0 -1 0 0 -1 0 0 -1 0 0 -1 0 0 -1 ] "
            "\"st\" [ 0 1 0.5 1 0.5 0.5 0 0.5 0.25 0.25 ]"
            " \"Cs\" [ 1 0 0.501961 1 0.2 0.501961 1 0.4 0.501961 1 0.6 0.501961 "
            "1 0.8 0.501961 ] \n");
}

TEST(MeshWriter, SubdivisionMeshHasTextureButNoNormals) {
  ON_Mesh mesh = HouseMesh();
  AddNormals(mesh);
  AddTexture(mesh);
  EXPECT_EQ(MeshStream(mesh, false, true),
            "SubdivisionMesh \"catmull-clark\" [ 3 4 ] [2 4 3 0 1 2 3 ]\n"
            " [\"interpolateboundary\"] [1 0] [1] [0]\n"
            " \"P\" [ 0 0 0 1 0 0 1 1 0 0 1 0 0.5 1.5 0  ]"
            "\"st\" [ 0 1 0.5 1 0.5 0.5 0 0.5 0.25 0.25 ]\n");
}

TEST(MeshWriter, SubdivisionMeshKeepsItsColours) {
  ON_Mesh mesh = HouseMesh();
  AddNormals(mesh);
  AddColors(mesh);
  EXPECT_EQ(MeshStream(mesh, false, true),
            "SubdivisionMesh \"catmull-clark\" [ 3 4 ] [2 4 3 0 1 2 3 ]\n"
            " [\"interpolateboundary\"] [1 0] [1] [0]\n"
            " \"P\" [ 0 0 0 1 0 0 1 1 0 0 1 0 0.5 1.5 0  ]"
            " \"Cs\" [ 1 0 0.501961 1 0.2 0.501961 1 0.4 0.501961 1 0.6 0.501961 "
            "1 0.8 0.501961 ] \n");
}

TEST(MeshWriter, WeldWithoutDuplicatesWritesTheCommentAndThePlainForm) {
  ON_Mesh mesh = HouseMesh();
  AddNormals(mesh);
  AddTexture(mesh);
  AddColors(mesh);
  EXPECT_EQ(MeshStream(mesh, true, false),
            "# Welded - reduced 5 vertices to 5\n" + MeshStream(mesh, false, false));
}

TEST(MeshWriter, WeldWritesNormalsAndTextureForEachCornerAndNoColours) {
  ON_Mesh mesh = UnweldedHouseMesh();
  AddNormals(mesh);
  AddTexture(mesh);
  AddColors(mesh);
  mesh.m_N[5] = {1, 0, 0};
  EXPECT_EQ(MeshStream(mesh, true, false),
            "# Welded - reduced 7 vertices to 5\n"
            "PointsPolygons [ 3 4 ] [2 4 3 0 1 2 3 ]\n"
            "\"P\" [ 0 0 0 1 0 0 1 1 0 0 1 0 0.5 1.5 0  ]"
            " \"facevarying normal N\" [ 1 0 0 0 0 -1 0 0 -1 "
            "0 0 -1 0 0 -1 0 0 -1 0 0 -1 ] "
            " \"facevarying float[2] st\" [ 0.5 0.5 0.25 0.25 0 0.5 "
            "0 1 0.5 1 0.5 0.5 0 0.5 ]\n");
}

TEST(MeshWriter, WeldedSubdivisionMeshHasTextureButNoNormals) {
  ON_Mesh mesh = UnweldedHouseMesh();
  AddNormals(mesh);
  AddTexture(mesh);
  EXPECT_EQ(MeshStream(mesh, true, true),
            "# Welded - reduced 7 vertices to 5\n"
            "SubdivisionMesh \"catmull-clark\" [ 3 4 ] [2 4 3 0 1 2 3 ]\n"
            " [\"interpolateboundary\"] [1 0] [1] [0]\n"
            "\"P\" [ 0 0 0 1 0 0 1 1 0 0 1 0 0.5 1.5 0  ]"
            " \"facevarying float[2] st\" [ 0.5 0.5 0.25 0.25 0 0.5 "
            "0 1 0.5 1 0.5 0.5 0 0.5 ]\n");
}

TEST(MeshWriter, ChannelOfAnotherLengthThanTheVerticesIsNoChannel) {
  ON_Mesh mesh = HouseMesh();
  mesh.m_N.push_back({0, 0, 1});
  mesh.m_T.push_back({0, 0});
  mesh.m_C.push_back({0, 0, 0});
  EXPECT_EQ(MeshStream(mesh, false, false), MeshStream(HouseMesh(), false, false));
}

TEST(MeshWriter, MeshWithoutFacesWritesNothing) {
  ON_Mesh mesh = HouseMesh();
  mesh.m_F.clear();
  EXPECT_EQ(MeshStream(mesh, true, false), "");
  EXPECT_EQ(MeshStream(ON_Mesh(), false, true), "");
}

TEST(MeshWriter, MeshWithAFaceOutsideItsVerticesWritesNothing) {
  for (const int index : {-1, 5, std::numeric_limits<int>::max()}) {
    ON_Mesh mesh = HouseMesh();
    mesh.m_F[1].vi[3] = index;
    EXPECT_EQ(MeshStream(mesh, false, false), "");
    EXPECT_EQ(MeshStream(mesh, true, true), "");
  }
}

TEST(MeshWriter, StatementIsIndentedAndItsSecondLineToo) {
  EXPECT_EQ(Written([](RibWriter& writer) {
              writer.Indent = 4;
              EXPECT_TRUE(WriteMesh(writer, HouseMesh(), false, false));
            }),
            "    PointsPolygons [ 3 4 ] [2 4 3 0 1 2 3 ]\n"
            "     \"P\" [ 0 0 0 1 0 0 1 1 0 0 1 0 0.5 1.5 0  ]\n");
}

// The statement of a mesh as one text for each group of values, put into lines by the model.
class MeshModel {
 public:
  MeshModel(const ON_Mesh& mesh, int indent) : mesh_(mesh) { lines_.indent = indent; }

  std::string Plain() {
    std::vector<int> same(mesh_.m_V.size());
    std::iota(same.begin(), same.end(), 0);
    AddFaces(same);
    lines_.Add(" \"P\" [ ");
    AddPoints(same);
    lines_.Add(" \"N\" [ ");
    for (const ON_3fVector& n : mesh_.m_N) lines_.Add(host::Format("%g %g %g ", n.x, n.y, n.z));
    lines_.Add("] ");
    lines_.Add("\"st\" [ ");
    for (int i = 0; i < mesh_.VertexCount(); ++i) lines_.Add(Texture(i));
    lines_.Add("]");
    lines_.Add(" \"Cs\" [ ");
    for (const ON_Color& c : mesh_.m_C) {
      lines_.Add(host::Format("%g %g %g ", c.FractionRed(), c.FractionGreen(), c.FractionBlue()));
    }
    lines_.Add("] ");
    lines_.Add("\n");
    return lines_.written;
  }

  std::string Welded(const WeldedVertices& welded) {
    lines_.Add(host::Format("# Welded - reduced %d vertices to %d\n", mesh_.VertexCount(),
                            static_cast<int>(welded.unique.size())));
    AddFaces(welded.remap);
    lines_.Add("\"P\" [ ");
    AddPoints(welded.unique);
    lines_.Add(" \"facevarying normal N\" [ ");
    AddCorners([&](int vertex) { return Normal(vertex); });
    lines_.Add("] ");
    lines_.Add(" \"facevarying float[2] st\" [ ");
    AddCorners([&](int vertex) { return Texture(vertex); });
    lines_.Add("]");
    lines_.Add("\n");
    return lines_.written;
  }

 private:
  std::string Normal(int vertex) const {
    const ON_3fVector& n = mesh_.m_N[vertex];
    return host::Format("%g %g %g ", n.x, n.y, n.z);
  }

  std::string Texture(int vertex) const {
    const ON_2fPoint& st = mesh_.m_T[vertex];
    return host::Format("%g %g ", st.x, 1 - static_cast<double>(st.y));
  }

  void AddFaces(const std::vector<int>& remap) {
    lines_.Add("PointsPolygons [ ");
    for (const ON_MeshFace& face : mesh_.m_F) lines_.Add(face.IsTriangle() ? "3 " : "4 ");
    lines_.Add("] [");
    AddCorners([&](int vertex) { return host::Format("%d ", remap[vertex]); });
    lines_.Add("]\n");
  }

  void AddPoints(const std::vector<int>& vertices) {
    for (const int vertex : vertices) {
      const ON_3fPoint& p = mesh_.m_V[vertex];
      lines_.Add(host::Format("%g %g %g ", p.x, p.y, p.z));
    }
    lines_.Add(" ]");
  }

  template <class Text>
  void AddCorners(Text text) {
    for (const ON_MeshFace& face : mesh_.m_F) {
      lines_.Add(text(face.vi[0]) + text(face.vi[1]) + text(face.vi[2]));
      if (!face.IsTriangle()) lines_.Add(text(face.vi[3]));
    }
  }

  const ON_Mesh& mesh_;
  LineModel lines_;
};

ON_Mesh RandomMesh(std::mt19937& random, std::size_t vertexCount) {
  const auto value = [&] {
    const float scales[] = {1, 100, 1e-6f, 1e12f};
    return (static_cast<float>(random()) / 0x1p32f - 0.5f) * scales[random() % 4];
  };
  ON_Mesh mesh;
  for (std::size_t i = 0; i < vertexCount; ++i) {
    mesh.m_V.push_back({value(), value(), value()});
    mesh.m_N.push_back({value(), random() % 2 ? 0 : value(), random() % 2 ? 1 : value()});
    mesh.m_T.push_back({value(), value()});
    mesh.m_C.push_back({static_cast<int>(random() % 256), static_cast<int>(random() % 256), 0});
    const auto index = [&] { return static_cast<int>(random() % vertexCount); };
    mesh.m_F.push_back({{index(), index(), index(), index()}});
    if (random() % 2 == 0) mesh.m_F.back().vi[3] = mesh.m_F.back().vi[2];
  }
  return mesh;
}

TEST(MeshWriter, LongArraysAreBrokenBetweenGroups) {
  std::mt19937 random(1);
  for (int indent = 0; indent < 50; ++indent) {
    const ON_Mesh mesh = RandomMesh(random, 1 + random() % 2500);
    const std::string stream = Written([&](RibWriter& writer) {
      writer.Indent = indent;
      EXPECT_TRUE(WriteMesh(writer, mesh, false, false));
    });
    ASSERT_TRUE(stream == MeshModel(mesh, indent).Plain()) << indent;
  }
}

// Faces that name vertices far apart and again and again, so that kept texts are replaced and used.
TEST(MeshWriter, LongArraysOfCornersAreBrokenBetweenGroups) {
  std::mt19937 random(2);
  for (int indent = 0; indent < 12; ++indent) {
    ON_Mesh mesh = RandomMesh(random, 2000 + random() % 8000);
    for (std::size_t i = 1; i < mesh.m_V.size(); i += 2) mesh.m_V[i] = mesh.m_V[i / 2];
    const WeldedVertices welded = WeldVertices(mesh.m_V);
    const std::string stream = Written([&](RibWriter& writer) {
      writer.Indent = indent;
      EXPECT_TRUE(WriteMesh(writer, mesh, true, false));
    });
    ASSERT_TRUE(stream == MeshModel(mesh, indent).Welded(welded)) << indent;
  }
}

}  // namespace
}  // namespace orv
