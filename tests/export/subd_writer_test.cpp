#include "export/subd_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "export/crease_chains.h"
#include "host/archive/model_reader.h"
#include "rib_fragment.h"
#include "support/model_corpus.h"
#include "support/rib_checker.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using Tag = ON_SubDVertex::Tag;

// Two quads side by side. Edge 6 is the one between them, from vertex 1 to vertex 4.
ON_SubD Domino() {
  ON_SubD subd;
  for (const double y : {0.0, 1.0}) {
    for (const double x : {0.0, 1.0, 2.0}) subd.m_vertex.push_back({{x, y, 0.5}, Tag::crease});
  }
  for (const auto& ends : {std::array{0, 1}, {1, 2}, {2, 5}, {5, 4}, {4, 3}, {3, 0}}) {
    subd.m_edge.push_back({.m_vi = ends, .m_is_crease = true, .m_face_count = 1});
  }
  subd.m_edge.push_back({.m_vi = {1, 4}, .m_face_count = 2});
  subd.m_face = {{{0, 1, 4, 3}}, {{1, 2, 5, 4}}};
  return subd;
}

// Vertices in a row, creases between them in any order and direction, all inside.
ON_SubD Creases(int vertex_count, const std::vector<std::array<int, 2>>& edges) {
  ON_SubD subd;
  subd.m_vertex.resize(static_cast<std::size_t>(vertex_count));
  for (const auto& ends : edges) {
    subd.m_edge.push_back({.m_vi = ends, .m_is_crease = true, .m_face_count = 2});
  }
  return subd;
}

std::vector<std::vector<int>> ChainsOf(const ON_SubD& subd) {
  std::vector<std::vector<int>> chains;
  for (const CreaseChain& chain : FindCreaseChains(subd)) chains.push_back(chain.Vertices);
  return chains;
}

std::string SubDStream(const ON_SubD& subd) {
  return WrittenRib([&](RibWriter& writer) { EXPECT_TRUE(WriteSubD(writer, subd)); });
}

TEST(SubDWriter, ANetWithoutCreasesInsideEndsAtItsBoundary) {
  EXPECT_EQ(SubDStream(Domino()),
            "SubdivisionMesh \"catmull-clark\" [ 4 4 ] [0 1 4 3 1 2 5 4 ]\n"
            " [\"interpolateboundary\"] [1 0] [1] [0]\n"
            " \"P\" [ 0 0 0.5 1 0 0.5 2 0 0.5 0 1 0.5 1 1 0.5 2 1 0.5  ]\n");
}

TEST(SubDWriter, FacesMayHaveAnyNumberOfVertices) {
  ON_SubD subd = Domino();
  subd.m_face = {{{0, 1, 2, 5, 4, 3}}, {{0, 1, 4}}};
  EXPECT_THAT(SubDStream(subd), HasSubstr("\"catmull-clark\" [ 6 3 ] [0 1 2 5 4 3 0 1 4 ]\n"));
}

TEST(SubDWriter, ACreaseInsideIsInfinitelySharp) {
  ON_SubD subd = Domino();
  subd.m_edge[6].m_is_crease = true;
  EXPECT_THAT(SubDStream(subd),
              HasSubstr("\n [\"interpolateboundary\" \"crease\" ] [1 0 2 1 ] [1 1 4 ] [10 ]\n"));
}

TEST(SubDWriter, CornersAreOneTag) {
  ON_SubD subd = Domino();
  subd.m_vertex[0].m_tag = subd.m_vertex[5].m_tag = Tag::corner;
  EXPECT_THAT(SubDStream(subd),
              HasSubstr("\n [\"interpolateboundary\" \"corner\" ] [1 0 2 1 ] [1 0 5 ] [10 ]\n"));
  subd.m_edge[6].m_is_crease = true;
  EXPECT_THAT(SubDStream(subd), HasSubstr("\n [\"interpolateboundary\" \"crease\" \"corner\" ] "
                                          "[1 0 2 1 2 1 ] [1 1 4 0 5 ] [10 10 ]\n"));
}

TEST(SubDWriter, ASharpEdgeHasItsMeanSharpness) {
  ON_SubD subd = Domino();
  subd.m_edge[6].m_sharpness = {1, 2};
  EXPECT_THAT(SubDStream(subd), HasSubstr("[1 0 2 1 ] [1 1 4 ] [1.5 ]\n"));
  subd.m_edge[6].m_sharpness = {-1, 0.5};
  EXPECT_THAT(SubDStream(subd), HasSubstr(" [\"interpolateboundary\"] [1 0] [1] [0]\n"));
}

TEST(SubDWriter, WhatIsNoSurfaceIsNotWritten) {
  ON_SubD subd = Domino();
  subd.m_face.clear();
  EXPECT_EQ(SubDStream(subd), "");
  subd = Domino();
  subd.m_face[1].m_vi[2] = 6;
  EXPECT_EQ(SubDStream(subd), "");
  subd = Domino();
  subd.m_vertex[0].m_P.y = std::numeric_limits<double>::infinity();
  EXPECT_EQ(SubDStream(subd), "");
}

// The SubDs of the corpus are statements that a renderer takes, with all their faces and creases.
TEST(SubDWriter, WritesThoseOfRealDocuments) {
  const auto corpus = ModelCorpus();
  if (!corpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  ONX_Model model;
  ASSERT_TRUE(ON_ReadModel((*corpus / "real/v7_rhino_logo_subd.3dm").string(), model).ok);
  ASSERT_THAT(model.m_object_table, SizeIs(6));
  for (const ONX_ModelObject& object : model.m_object_table) {
    const ON_SubD* subd = ON_SubD::Cast(object.m_geometry.get());
    ASSERT_NE(subd, nullptr);
    const RibReport report = CheckRib(SubDStream(*subd));
    EXPECT_THAT(report.Complaints, IsEmpty());
    ASSERT_THAT(report.Statements, SizeIs(1));
    const std::vector<RibArgument>& arguments = report.Statements[0].Arguments;
    EXPECT_THAT(arguments[1].Numbers, SizeIs(subd->m_face.size()));
    EXPECT_THAT(report.Statements[0].Parameter("P")->Numbers, SizeIs(3 * subd->m_vertex.size()));
    // A crease of n edges has n + 1 vertices; one number belongs to the boundary.
    const auto creases = std::count_if(subd->m_edge.begin(), subd->m_edge.end(),
                                       [](const ON_SubDEdge& edge) { return edge.m_is_crease; });
    const std::size_t chains = arguments[3].Texts.size() - 1;
    EXPECT_EQ(arguments[5].Numbers.size(), 1 + static_cast<std::size_t>(creases) + chains);
    EXPECT_LT(chains, 5u);
  }
}

TEST(CreaseChains, AChainIsFoundInOnePieceWhereverItsEdgesStand) {
  EXPECT_THAT(ChainsOf(Creases(4, {{1, 2}, {3, 2}, {0, 1}})), ElementsAre(ElementsAre(0, 1, 2, 3)));
}

TEST(CreaseChains, AClosedChainEndsWhereItBegins) {
  const auto chains = ChainsOf(Creases(3, {{0, 1}, {2, 1}, {2, 0}}));
  ASSERT_THAT(chains, SizeIs(1));
  EXPECT_THAT(chains[0], SizeIs(4));
  EXPECT_EQ(chains[0].front(), chains[0].back());
}

TEST(CreaseChains, EndsWhereThreeMeet) {
  EXPECT_THAT(ChainsOf(Creases(4, {{0, 1}, {1, 2}, {1, 3}})),
              ElementsAre(ElementsAre(0, 1), ElementsAre(1, 2), ElementsAre(1, 3)));
}

TEST(CreaseChains, ALoopAtAJunctionIsOneChain) {
  EXPECT_THAT(ChainsOf(Creases(4, {{0, 1}, {1, 2}, {2, 3}, {3, 1}})),
              ElementsAre(ElementsAre(0, 1), ElementsAre(1, 2, 3, 1)));
}

TEST(CreaseChains, EndsWhereTheSharpnessChanges) {
  ON_SubD subd = Creases(4, {{0, 1}, {1, 2}, {2, 3}});
  subd.m_edge[1].m_is_crease = subd.m_edge[2].m_is_crease = false;
  subd.m_edge[1].m_sharpness = subd.m_edge[2].m_sharpness = {2, 2};
  const std::vector<CreaseChain> chains = FindCreaseChains(subd);
  ASSERT_THAT(chains, SizeIs(2));
  EXPECT_EQ(chains[0].Sharpness, 10);
  EXPECT_EQ(chains[1].Sharpness, 2);
  EXPECT_THAT(chains[1].Vertices, ElementsAre(1, 2, 3));
}

TEST(CreaseChains, ChainsOfTwoSharpnessesCross) {
  ON_SubD subd = Creases(5, {{1, 0}, {2, 0}, {0, 3}, {0, 4}});
  for (const std::size_t i : {1U, 3U}) {
    subd.m_edge[i].m_is_crease = false;
    subd.m_edge[i].m_sharpness = {2, 2};
  }
  EXPECT_THAT(ChainsOf(subd), ElementsAre(ElementsAre(1, 0, 3), ElementsAre(2, 0, 4)));
}

TEST(CreaseChains, TwoEdgesBetweenTheSameVerticesAreAClosedChain) {
  const auto chains = ChainsOf(Creases(2, {{0, 1}, {1, 0}}));
  ASSERT_THAT(chains, SizeIs(1));
  EXPECT_THAT(chains[0], SizeIs(3));
}

TEST(CreaseChains, NoneAtTheBoundaryOrOutsideAllFaces) {
  ON_SubD subd = Creases(3, {{0, 1}, {1, 2}});
  subd.m_edge[0].m_face_count = 1;
  subd.m_edge[1].m_face_count = 0;
  EXPECT_THAT(ChainsOf(subd), IsEmpty());
}

}  // namespace
}  // namespace orv
