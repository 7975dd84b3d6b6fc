#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/archive/read_brep.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "old_brep_record.h"
#include "support/brep_shapes.h"
#include "support/shapes.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

using Iso = ON_BrepTrim::Iso;
using Type = ON_BrepTrim::Type;

struct OldBrepResult {
  Reading reading;
  ON_Brep brep;
};

OldBrepResult ReadOld(const WriteContent& write) {
  OldBrepResult result;
  result.reading =
      ReadBytes(RecordBytes(2, 200107270, write), 2, 200107270,
                [&](ON_BinaryArchive& archive) { return host::ReadBrep(archive, result.brep); });
  return result;
}

void ExpectFailure(const WriteContent& write, const char* problem) {
  const Reading reading = ReadOld(write).reading;
  EXPECT_FALSE(reading.ok);
  ASSERT_THAT(reading.problems, SizeIs(1));
  EXPECT_THAT(reading.problems[0], HasSubstr(problem));
}

template <class Value, class Part>
std::vector<Value> All(const std::vector<Part>& parts, Value Part::*value) {
  std::vector<Value> values;
  for (const Part& part : parts) values.push_back(part.*value);
  return values;
}

}  // namespace

TEST(ReadOldBrep, ACylinderGetsItsVerticesAndTheKindsOfItsTrims) {
  const auto cylinder = MakeCylinderBrep(2, 5);
  const auto [reading, brep] = ReadOld(Writer(OldBrepRecord{}, *cylinder));
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_TRUE(brep.IsValid());
  EXPECT_THAT(brep.m_V, SizeIs(2));
  EXPECT_LT(brep.m_V[0].point.DistanceTo({2, 0, 0}), 1e-12);
  EXPECT_LT(brep.m_V[1].point.DistanceTo({2, 0, 5}), 1e-12);
  EXPECT_THAT(
      All(brep.m_T, &ON_BrepTrim::m_type),
      ElementsAre(Type::mated, Type::seam, Type::mated, Type::seam, Type::mated, Type::mated));
  EXPECT_THAT(All(brep.m_T, &ON_BrepTrim::m_iso),
              ElementsAre(Iso::south, Iso::east, Iso::north, Iso::west, Iso::none, Iso::none));
  EXPECT_THAT(All(brep.m_T, &ON_BrepTrim::m_bRev3d),
              ElementsAre(false, false, true, true, false, false));
  EXPECT_THAT(All(brep.m_F, &ON_BrepFace::m_bRev), ElementsAre(false, false, true));
  EXPECT_EQ(1, brep.m_is_solid);
  EXPECT_TRUE(brep.FaceIsSurface(0));
  EXPECT_FALSE(brep.FaceIsSurface(1));
}

TEST(ReadOldBrep, ACurveOfOneSegmentIsThatSegment) {
  const auto [reading, brep] =
      ReadOld(Writer(OldBrepRecord{}, *MakeBoxBrep({{0, 0, 0}, {1, 2, 3}})));
  ASSERT_TRUE(reading.ok);
  EXPECT_TRUE(brep.IsValid());
  EXPECT_THAT(brep.m_V, SizeIs(8));
  ASSERT_THAT(brep.m_C2, SizeIs(24));
  ASSERT_THAT(brep.m_C3, SizeIs(12));
  EXPECT_NE(nullptr, ON_NurbsCurve::Cast(brep.m_C2[0].get()));
  EXPECT_NE(nullptr, ON_NurbsCurve::Cast(brep.m_C3[0].get()));
  EXPECT_NE(nullptr, ON_NurbsSurface::Cast(brep.m_S[0].get()));
}

TEST(ReadOldBrep, InnerLoopsAndOpenEdgesAreTold) {
  const auto [reading, brep] = ReadOld(Writer(OldBrepRecord{}, *MakePlateBrep(5, 2)));
  ASSERT_TRUE(reading.ok);
  EXPECT_TRUE(brep.IsValid());
  EXPECT_THAT(brep.m_V, SizeIs(5));
  EXPECT_THAT(All(brep.m_L, &ON_BrepLoop::m_type),
              ElementsAre(ON_BrepLoop::Type::outer, ON_BrepLoop::Type::inner));
  EXPECT_THAT(All(brep.m_T, &ON_BrepTrim::m_type), testing::Each(Type::boundary));
  EXPECT_EQ(0, brep.m_is_solid);
}

TEST(ReadOldBrep, ASingularTrimIsAVertex) {
  // A triangle as a four-sided patch whose northern side is a point.
  ON_NurbsSurface patch;
  patch.Create({2, 2}, {ON_SimpleArray<double>{0, 1}, ON_SimpleArray<double>{0, 1}},
               {{0, 0, 0, 1}, {1, 2, 0, 1}, {2, 0, 0, 1}, {1, 2, 0, 1}}, false);
  const auto triangle = patch.BrepForm();
  ASSERT_NE(nullptr, triangle);
  const auto [reading, brep] = ReadOld(Writer(OldBrepRecord{}, *triangle));
  ASSERT_TRUE(reading.ok);
  EXPECT_TRUE(brep.IsValid());
  EXPECT_THAT(brep.m_V, SizeIs(3));
  EXPECT_THAT(brep.m_E, SizeIs(3));
  ASSERT_THAT(brep.m_T, SizeIs(4));
  EXPECT_EQ(Type::singular, brep.m_T[2].m_type);
  EXPECT_EQ(-1, brep.m_T[2].m_ei);
  EXPECT_EQ(brep.m_T[2].m_vi[0], brep.m_T[2].m_vi[1]);
  EXPECT_TRUE(brep.IsSurface());
}

TEST(ReadOldBrep, MeshesComeWithTheFaces) {
  const auto box = MakeBoxBrep({{0, 0, 0}, {1, 2, 3}});
  box->m_F[1].m_render_mesh = std::make_shared<ON_Mesh>(MakeBox({{0, 0, 0}, {1, 1, 1}}));
  box->m_F[4].m_analysis_mesh = box->m_F[1].m_render_mesh;
  const auto [reading, brep] = ReadOld(Writer(OldBrepRecord{}, *box));
  ASSERT_TRUE(reading.ok);
  ASSERT_NE(nullptr, brep.m_F[1].m_render_mesh);
  EXPECT_EQ(24, brep.m_F[1].m_render_mesh->VertexCount());
  EXPECT_NE(nullptr, brep.m_F[4].m_analysis_mesh);
  EXPECT_EQ(nullptr, brep.m_F[4].m_render_mesh);
  // An older one has no analysis meshes.
  const auto older = ReadOld(Writer(OldBrepRecord{.minor = 0}, *box));
  EXPECT_TRUE(older.reading.ok);
  EXPECT_EQ(nullptr, older.brep.m_F[4].m_analysis_mesh);
}

TEST(ReadOldBrep, WrongNamesAndCountsAreTold) {
  const auto box = MakeBoxBrep({{0, 0, 0}, {1, 2, 3}});
  ExpectFailure(Writer(OldBrepRecord{.major = 1}, *box), "a brep of an unknown version");
  ExpectFailure(Writer(OldBrepRecord{.face_count = 0x7fffffff}, *box), "count");
  ExpectFailure(Writer(OldBrepRecord{.edge_count = 0x7fffffff}, *box), "count");
  ExpectFailure(Writer(OldBrepRecord{.trim_count = 0x7fffffff}, *box), "count");
  // One loop less than the faces name.
  ExpectFailure(Writer(OldBrepRecord{.loop_count = 5}, *box), "don't fit together");
  ON_Brep twice = *box;
  twice.m_L[1].m_ti[0] = twice.m_L[0].m_ti[0];
  ExpectFailure(Writer(OldBrepRecord{}, twice), "don't fit together");
  ON_Brep dangling = *box;
  dangling.m_T[3].m_ei = 12;
  ExpectFailure(Writer(OldBrepRecord{}, dangling), "don't fit together");
  ON_Brep bare = *box;
  bare.m_F[2].m_li.clear();
  ExpectFailure(Writer(OldBrepRecord{}, bare), "don't fit together");
}
