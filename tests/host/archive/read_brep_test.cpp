#include "host/archive/read_brep.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "curve_records.h"
#include "host/archive/model_reader.h"
#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_plane_surface.h"
#include "support/brep_shapes.h"
#include "support/model_writer.h"
#include "support/record_writers.h"
#include "support/shapes.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr ON_BoundingBox kBox{{0, 0, 0}, {1, 2, 3}};

std::string Document(const ON_Brep& brep, int version = 50) {
  ONX_Model model;
  model.m_3dm_file_version = version;
  model.m_object_table.resize(1);
  model.m_object_table[0].m_geometry = std::make_shared<ON_Brep>(brep);
  return WriteModel(model);
}

// The document with that brep as it is read.
ONX_Model ReadDocument(const ON_Brep& brep, int version = 50) {
  ONX_Model model;
  const std::string bytes = Document(brep, version);
  EXPECT_TRUE(ON_ReadModel(std::as_bytes(std::span(bytes)), model).ok);
  return model;
}

const ON_Brep* BrepOf(const ONX_Model& model) {
  return model.m_object_table.empty() ? nullptr
                                      : ON_Brep::Cast(model.m_object_table[0].m_geometry.get());
}

void ExpectNotRead(const ON_Brep& brep, const char* problem) {
  const ONX_Model model = ReadDocument(brep);
  EXPECT_THAT(model.m_object_table, IsEmpty());
  ASSERT_THAT(model.m_problems, SizeIs(1));
  EXPECT_THAT(model.m_problems[0], testing::StartsWith("object at offset "));
  EXPECT_THAT(model.m_problems[0], HasSubstr(problem));
}

void ExpectSameParts(const ON_Brep& a, const ON_Brep& b) {
  for (std::size_t i = 0; i < a.m_V.size(); ++i) {
    EXPECT_EQ(a.m_V[i].point, b.m_V[i].point);
    EXPECT_EQ(a.m_V[i].m_ei, b.m_V[i].m_ei);
  }
  for (std::size_t i = 0; i < a.m_E.size(); ++i) {
    const ON_BrepEdge &e = a.m_E[i], &f = b.m_E[i];
    EXPECT_EQ(std::tie(e.m_c3i, e.m_bReversed, e.m_domain, e.m_vi, e.m_ti, e.m_tolerance),
              std::tie(f.m_c3i, f.m_bReversed, f.m_domain, f.m_vi, f.m_ti, f.m_tolerance));
  }
  for (std::size_t i = 0; i < a.m_T.size(); ++i) {
    const ON_BrepTrim &s = a.m_T[i], &t = b.m_T[i];
    EXPECT_EQ(std::tie(s.m_c2i, s.m_bReversed, s.m_domain, s.m_ei, s.m_vi, s.m_bRev3d, s.m_type,
                       s.m_iso, s.m_li, s.m_tolerance),
              std::tie(t.m_c2i, t.m_bReversed, t.m_domain, t.m_ei, t.m_vi, t.m_bRev3d, t.m_type,
                       t.m_iso, t.m_li, t.m_tolerance));
  }
  for (std::size_t i = 0; i < a.m_L.size(); ++i) {
    const ON_BrepLoop &l = a.m_L[i], &m = b.m_L[i];
    EXPECT_EQ(std::tie(l.m_ti, l.m_type, l.m_fi), std::tie(m.m_ti, m.m_type, m.m_fi));
  }
  for (std::size_t i = 0; i < a.m_F.size(); ++i) {
    const ON_BrepFace &f = a.m_F[i], &g = b.m_F[i];
    EXPECT_EQ(std::tie(f.m_li, f.m_si, f.m_bRev, f.m_material_channel_index),
              std::tie(g.m_li, g.m_si, g.m_bRev, g.m_material_channel_index));
  }
}

void ExpectSame(const ON_Brep& a, const ON_Brep& b) {
  ASSERT_EQ(a.m_C2.size(), b.m_C2.size());
  ASSERT_EQ(a.m_C3.size(), b.m_C3.size());
  ASSERT_EQ(a.m_S.size(), b.m_S.size());
  ASSERT_EQ(a.m_V.size(), b.m_V.size());
  ASSERT_EQ(a.m_E.size(), b.m_E.size());
  ASSERT_EQ(a.m_T.size(), b.m_T.size());
  ASSERT_EQ(a.m_L.size(), b.m_L.size());
  ASSERT_EQ(a.m_F.size(), b.m_F.size());
  EXPECT_EQ(a.m_is_solid, b.m_is_solid);
  ExpectSameParts(a, b);
}

}  // namespace

TEST(ReadBrep, AllTablesAndFlagsAreRead) {
  for (const int version : {4, 50}) {
    for (const auto& brep : {MakePlateBrep(5, 2), MakeBoxBrep(kBox), MakeCylinderBrep(2, 5)}) {
      const ONX_Model model = ReadDocument(*brep, version);
      EXPECT_THAT(model.m_problems, IsEmpty());
      EXPECT_THAT(model.m_unread, IsEmpty());
      const ON_Brep* read = BrepOf(model);
      ASSERT_NE(nullptr, read);
      EXPECT_TRUE(read->IsValid());
      ExpectSame(*brep, *read);
    }
  }
}

TEST(ReadBrep, CurvesAndSurfacesKeepTheirClasses) {
  const ONX_Model model = ReadDocument(*MakeCylinderBrep(2, 5));
  const ON_Brep* brep = BrepOf(model);
  ASSERT_NE(nullptr, brep);
  EXPECT_NE(nullptr, ON_ArcCurve::Cast(brep->m_C3[0].get()));
  EXPECT_NE(nullptr, ON_LineCurve::Cast(brep->m_C2[1].get()));
  EXPECT_NE(nullptr, ON_NurbsSurface::Cast(brep->m_S[0].get()));
  EXPECT_NE(nullptr, ON_PlaneSurface::Cast(brep->m_S[1].get()));
}

TEST(ReadBrep, MeshesComeWithTheFaces) {
  const auto box = MakeBoxBrep(kBox);
  box->m_F[2].m_render_mesh = std::make_shared<ON_Mesh>(MakeBox(kBox));
  box->m_F[3].m_analysis_mesh = std::make_shared<ON_Mesh>(MakeSphere({0, 0, 0}, 1, 6, 4));
  const ONX_Model model = ReadDocument(*box);
  const ON_Brep* brep = BrepOf(model);
  ASSERT_NE(nullptr, brep);
  ASSERT_NE(nullptr, brep->m_F[2].m_render_mesh);
  EXPECT_EQ(24, brep->m_F[2].m_render_mesh->VertexCount());
  EXPECT_EQ(nullptr, brep->m_F[2].m_analysis_mesh);
  ASSERT_NE(nullptr, brep->m_F[3].m_analysis_mesh);
  EXPECT_EQ(35, brep->m_F[3].m_analysis_mesh->VertexCount());
}

TEST(ReadBrep, ABrokenMeshIsLeftOutAndTold) {
  const auto box = MakeBoxBrep(kBox);
  auto mesh = std::make_shared<ON_Mesh>(MakeBox(kBox));
  mesh->m_F[0].vi[1] = 99;
  box->m_F[2].m_render_mesh = mesh;
  box->m_F[3].m_render_mesh = std::make_shared<ON_Mesh>(MakeBox(kBox));
  const ONX_Model model = ReadDocument(*box);
  const ON_Brep* brep = BrepOf(model);
  ASSERT_NE(nullptr, brep);
  EXPECT_EQ(nullptr, brep->m_F[2].m_render_mesh);
  EXPECT_NE(nullptr, brep->m_F[3].m_render_mesh);
  ASSERT_THAT(model.m_problems, SizeIs(1));
  EXPECT_THAT(model.m_problems[0], HasSubstr("a face of a mesh names a vertex that isn't there"));
}

TEST(ReadBrep, AFaceOfABrokenCurveOrSurfaceIsLeftOut) {
  const auto line = [](double x) {
    return std::make_shared<ON_LineCurve>(ON_3dPoint{x, 0, 0}, ON_3dPoint{1, 0, 0});
  };
  const auto whole = MakeBoxBrep(kBox);
  ON_Brep curve = *whole;
  curve.m_C2[5] = line(kNaN);
  ON_Brep missing = *whole;
  missing.m_S[1] = nullptr;
  for (const ON_Brep& broken : {curve, missing}) {
    const ONX_Model model = ReadDocument(broken);
    const ON_Brep* brep = BrepOf(model);
    ASSERT_NE(nullptr, brep);
    EXPECT_TRUE(brep->IsValid());
    EXPECT_THAT(brep->m_F, SizeIs(5));
    EXPECT_THAT(brep->m_L, SizeIs(5));
    EXPECT_THAT(brep->m_T, SizeIs(20));
    EXPECT_THAT(brep->m_E, SizeIs(12));
    EXPECT_THAT(brep->m_S, SizeIs(5));
  }
  EXPECT_THAT(ReadDocument(curve).m_problems, ElementsAre(HasSubstr("a line that isn't valid")));
  // Two faces and with them the edge between them.
  ON_Brep edge = *whole;
  edge.m_C3[0] = line(kNaN);
  const ONX_Model model = ReadDocument(edge);
  const ON_Brep* brep = BrepOf(model);
  ASSERT_NE(nullptr, brep);
  EXPECT_TRUE(brep->IsValid());
  EXPECT_THAT(brep->m_F, SizeIs(4));
  EXPECT_THAT(brep->m_E, SizeIs(11));
}

TEST(ReadBrep, ABrepThatHasNoUsableFaceIsTold) {
  const auto plate = MakePlateBrep(5, 2);
  plate->m_S[0] = nullptr;
  ExpectNotRead(*plate, "a brep without a face that can be used");
  ExpectNotRead(ON_Brep(), "a brep without a face that can be used");
}

TEST(ReadBrep, WrongNamesAreTold) {
  const std::function<void(ON_Brep&)> kMistakes[] = {
      [](ON_Brep& b) { b.m_F[0].m_si = 6; },
      [](ON_Brep& b) { b.m_F[1].m_li = {0}; },
      [](ON_Brep& b) { b.m_F[1].m_li = {}; },
      [](ON_Brep& b) { b.m_F[1].m_li = {-1}; },
      [](ON_Brep& b) { b.m_L[2].m_ti.clear(); },
      [](ON_Brep& b) { b.m_L[2].m_ti[1] = b.m_L[2].m_ti[0]; },
      [](ON_Brep& b) { b.m_L[2].m_ti[1] = 24; },
      [](ON_Brep& b) { b.m_T[7].m_ei = 12; },
      [](ON_Brep& b) { b.m_T[7].m_ei = -2; },
      [](ON_Brep& b) { b.m_T[7].m_c2i = -1; },
      [](ON_Brep& b) { b.m_T[7].m_c2i = 0x7fffffff; },
      [](ON_Brep& b) { b.m_T[7].m_vi[1] = 8; },
      [](ON_Brep& b) { b.m_E[5].m_c3i = 12; },
      [](ON_Brep& b) { b.m_E[5].m_vi[0] = -1; },
      [](ON_Brep& b) { b.m_V[3].point.y = kInfinity; },
  };
  const auto whole = MakeBoxBrep(kBox);
  for (const auto& mistake : kMistakes) {
    ON_Brep brep = *whole;
    mistake(brep);
    ExpectNotRead(brep, "a brep whose parts don't fit together");
  }
}

TEST(ReadBrep, AnOpenLoopIsTold) {
  const auto box = MakeBoxBrep(kBox);
  box->m_L[3].m_ti.erase(box->m_L[3].m_ti.begin() + 1);
  ExpectNotRead(*box, "a brep with an open loop");
  const auto plate = MakePlateBrep(5, 2);
  std::swap(plate->m_L[0].m_ti[1], plate->m_L[0].m_ti[2]);
  ExpectNotRead(*plate, "a brep with an open loop");
}

TEST(ReadBrep, ALoopWhoseTrimsMeetIsClosedWhateverItsVertices) {
  const auto box = MakeBoxBrep(kBox);
  box->m_T[5].m_vi = {7, 7};
  const ONX_Model model = ReadDocument(*box);
  ASSERT_NE(nullptr, BrepOf(model));
  EXPECT_TRUE(BrepOf(model)->IsValid());
}

TEST(ReadBrep, WhatOthersSayOfAPartIsTakenFromThem) {
  const auto whole = MakeBoxBrep(kBox);
  ON_Brep brep = *whole;
  brep.m_V[3].m_ei = {0};
  brep.m_E[5].m_ti = {0, 99};
  brep.m_T[7].m_li = -3;
  brep.m_L[2].m_fi = 17;
  const ONX_Model model = ReadDocument(brep);
  ASSERT_NE(nullptr, BrepOf(model));
  EXPECT_TRUE(BrepOf(model)->IsValid());
  ExpectSame(*whole, *BrepOf(model));
}

TEST(ReadBrep, TheTrimsWithoutAnEdgeAreTheSingularOnes) {
  const auto box = MakeBoxBrep(kBox);
  box->m_T[3].m_ei = -1;
  box->m_T[4].m_type = ON_BrepTrim::Type::singular;
  const ONX_Model model = ReadDocument(*box);
  ASSERT_NE(nullptr, BrepOf(model));
  EXPECT_TRUE(BrepOf(model)->IsValid());
  EXPECT_EQ(ON_BrepTrim::Type::singular, BrepOf(model)->m_T[3].m_type);
  EXPECT_EQ(ON_BrepTrim::Type::unknown, BrepOf(model)->m_T[4].m_type);
}

TEST(ReadBrep, DeletedPartsAreDropped) {
  const auto whole = MakeBoxBrep(kBox);
  ON_Brep brep = *whole;
  brep.m_F.insert(brep.m_F.begin(), ON_BrepFace{});
  brep.m_L.insert(brep.m_L.begin(), ON_BrepLoop{});
  brep.m_T.insert(brep.m_T.begin(), ON_BrepTrim{});
  brep.m_E.insert(brep.m_E.begin(), ON_BrepEdge{});
  brep.m_V.insert(brep.m_V.begin(), ON_BrepVertex{});
  brep.m_V.front().point = {ON_UNSET_VALUE, ON_UNSET_VALUE, ON_UNSET_VALUE};
  for (ON_BrepEdge& edge : brep.m_E) edge.m_vi = {edge.m_vi[0] + 1, edge.m_vi[1] + 1};
  for (ON_BrepTrim& trim : brep.m_T) {
    ++trim.m_ei;
    trim.m_vi = {trim.m_vi[0] + 1, trim.m_vi[1] + 1};
  }
  for (ON_BrepLoop& loop : brep.m_L) {
    for (int& index : loop.m_ti) ++index;
  }
  for (ON_BrepFace& face : brep.m_F) {
    for (int& index : face.m_li) ++index;
  }
  const ONX_Model model = ReadDocument(brep);
  EXPECT_THAT(model.m_problems, IsEmpty());
  ASSERT_NE(nullptr, BrepOf(model));
  ExpectSame(*whole, *BrepOf(model));
}

TEST(ReadBrep, StretchesAreCutToTheirCurves) {
  const auto whole = MakeBoxBrep(kBox);
  ON_Brep brep = *whole;
  brep.m_T[0].m_domain.Max += 1;
  brep.m_T[1].m_domain = {100, 101};
  brep.m_T[2].m_domain = {kNaN, 1};
  brep.m_E[0].m_domain = {};
  brep.m_E[1].m_domain.Min = 0.5;
  const ONX_Model model = ReadDocument(brep);
  ASSERT_NE(nullptr, BrepOf(model));
  const ON_Brep& read = *BrepOf(model);
  EXPECT_TRUE(read.IsValid());
  for (const std::size_t i : {0U, 1U, 2U}) {
    EXPECT_EQ(whole->m_T[i].m_domain, read.m_T[i].m_domain);
  }
  EXPECT_EQ(whole->m_E[0].m_domain, read.m_E[0].m_domain);
  EXPECT_EQ(0.5, read.m_E[1].m_domain.Min);
}

TEST(ReadBrep, ValuesOutsideTheirEnumerationsAreUnknown) {
  const auto plate = MakePlateBrep(5, 2);
  plate->m_T[0].m_type = static_cast<ON_BrepTrim::Type>(77);
  plate->m_T[1].m_iso = static_cast<ON_BrepTrim::Iso>(-1);
  plate->m_L[1].m_type = static_cast<ON_BrepLoop::Type>(4);
  plate->m_F[0].m_material_channel_index = -1;
  plate->m_is_solid = 4;
  const ONX_Model model = ReadDocument(*plate);
  ASSERT_NE(nullptr, BrepOf(model));
  const ON_Brep& read = *BrepOf(model);
  EXPECT_EQ(ON_BrepTrim::Type::unknown, read.m_T[0].m_type);
  EXPECT_EQ(ON_BrepTrim::Iso::none, read.m_T[1].m_iso);
  EXPECT_EQ(ON_BrepLoop::Type::unknown, read.m_L[1].m_type);
  EXPECT_EQ(0, read.m_F[0].m_material_channel_index);
  EXPECT_EQ(0, read.m_is_solid);
}

TEST(ReadBrep, ItsBoxIsComputedOnce) {
  const ONX_Model model = ReadDocument(*MakeCylinderBrep(2, 5));
  ASSERT_NE(nullptr, BrepOf(model));
  EXPECT_TRUE(BrepOf(model)->m_bbox.IsValid());
  EXPECT_NEAR(5, BrepOf(model)->m_bbox.m_max.z, 1e-12);
}

TEST(ReadBrep, TrimsOfOldWritersHaveNoReversal) {
  const auto cylinder = MakeCylinderBrep(2, 5);
  cylinder->m_T[5].m_bReversed = true;
  cylinder->m_E[0].m_bReversed = true;
  const auto read = [&](unsigned library) {
    const auto write = [&](ON_BinaryArchive& a) { model_writer::WriteBrepData(a, *cylinder); };
    ON_Brep brep;
    const Reading reading = ReadBytes(RecordBytes(4, library, write), 4, library,
                                      [&](ON_BinaryArchive& a) { return host::ReadBrep(a, brep); });
    EXPECT_TRUE(reading.ok);
    return brep;
  };
  ExpectSame(*cylinder, read(200206180));
  const ON_Brep older = read(200206179);
  cylinder->m_T[5].m_bReversed = false;
  ExpectSame(*cylinder, older);
}

TEST(ReadBrep, UnknownVersionsAreTold) {
  const auto failure = [](const WriteContent& write) {
    ON_Brep brep;
    const Reading reading = ReadBytes(RecordBytes(50, 201008125, write), 50, 201008125,
                                      [&](ON_BinaryArchive& a) { return host::ReadBrep(a, brep); });
    EXPECT_FALSE(reading.ok);
    return reading.problems.empty() ? "" : reading.problems[0];
  };
  EXPECT_THAT(failure([](ON_BinaryArchive& a) { a.Write3dmChunkVersion(4, 0); }),
              HasSubstr("a brep of an unknown version"));
  EXPECT_THAT(failure([](ON_BinaryArchive& a) {
                a.Write3dmChunkVersion(3, 2);
                WriteChunk(a, TCODE_ANONYMOUS_CHUNK,
                           [](ON_BinaryArchive& b) { b.Write3dmChunkVersion(2, 0); });
              }),
              HasSubstr("a table of a brep has an unknown version"));
  EXPECT_THAT(failure([](ON_BinaryArchive& a) { a.Write3dmChunkVersion(3, 2); }),
              HasSubstr("a brep without one of its tables"));
  EXPECT_THAT(failure([](ON_BinaryArchive& a) {
                a.Write3dmChunkVersion(3, 2);
                WriteChunk(a, TCODE_ANONYMOUS_CHUNK, [](ON_BinaryArchive& b) {
                  b.Write3dmChunkVersion(1, 0);
                  b.WriteInt(0x7fffffff);
                });
              }),
              HasSubstr("a count exceeds what its chunk can hold"));
}

TEST(ReadBrep, OnlyBrepsAreBreps) {
  EXPECT_TRUE(host::IsBrepClass("f06fc243-a32a-4608-9dd8-a7d2c4ce2a36"_uuid));
  EXPECT_TRUE(host::IsBrepClass("2d4cfedb-3e2a-11d4-800e-0010830122f0"_uuid));
  EXPECT_FALSE(host::IsBrepClass(kNurbs));
  EXPECT_FALSE(host::IsBrepClass({}));
}

TEST(ReadBrep, AnyByteMayBeWrong) {
  const auto shape = MakeCylinderBrep(2, 5);
  shape->m_F[1].m_render_mesh = std::make_shared<ON_Mesh>(MakeBox(kBox));
  for (const int version : {4, 50}) {
    const std::string whole = Document(*shape, version);
    const std::size_t first = whole.size() - whole.size() / 2;
    constexpr int kFlips[] = {0x01, 0x80, 0xff};
    for (std::size_t i = first; i < whole.size(); i += 4) {
      std::string bytes = whole;
      bytes[i] = static_cast<char>(bytes[i] ^ kFlips[i % std::size(kFlips)]);
      ONX_Model model;
      const ON_ReadResult result = ON_ReadModel(std::as_bytes(std::span(bytes)), model);
      EXPECT_EQ(result.error.empty(), result.ok) << i;
      const ON_Brep* brep = BrepOf(model);
      if (brep == nullptr) continue;
      EXPECT_TRUE(brep->IsValid()) << i;
      // Whatever it is, it can be asked and changed.
      ON_Brep copy = *brep;
      static_cast<void>(copy.IsSurface());
      static_cast<void>(copy.MakeValidForV2());
      static_cast<void>(copy.SetFaceDomain(0, {0, 1}, {0, 1}));
      copy.Compact();
      EXPECT_TRUE(copy.IsValid()) << i;
    }
  }
}
