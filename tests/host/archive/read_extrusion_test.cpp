#include "host/archive/read_extrusion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "curve_records.h"
#include "host/archive/model_reader.h"
#include "host/geometry/on_brep.h"
#include "host/geometry/on_polyline_curve.h"
#include "support/model_writer.h"
#include "support/record_writers.h"
#include "support/shapes.h"
#include "support/solid_shapes.h"
#include "wrong_bytes.h"

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr int kVersion = 80;
constexpr unsigned kLibrary = 0x90000000;

struct ReadResult {
  Reading reading;
  ON_Extrusion extrusion;
};

ReadResult Read(const WriteContent& write) {
  ReadResult result;
  result.reading = ReadBytes(
      RecordBytes(kVersion, kLibrary, write), kVersion, kLibrary,
      [&](ON_BinaryArchive& archive) { return host::ReadExtrusion(archive, result.extrusion); });
  return result;
}

void ExpectFailure(const WriteContent& write, const char* problem) {
  const Reading reading = Read(write).reading;
  EXPECT_FALSE(reading.ok);
  ASSERT_THAT(reading.problems, SizeIs(1)) << problem;
  EXPECT_THAT(reading.problems[0], HasSubstr(problem));
}

// What stands in an extrusion's chunk up to the caps, with a line as its profile.
void WriteFields(ON_BinaryArchive& a, int profile_count = 1) {
  WriteClass(a, kLine, Writer(LineRecord{}));
  a.WritePoint({0, 0, 0});
  a.WritePoint({0, 0, 5});
  a.WriteInterval({0, 1});
  a.WriteVector({0, 1, 0});
  a.WriteBool(false);
  a.WriteBool(true);
  a.WriteVector({0, 0, 0});
  a.WriteVector({0.5, 0, 1});
  a.WriteInterval({0, 5});
  a.WriteBool(true);
  a.WriteInt(profile_count);
}

void WriteCaps(ON_BinaryArchive& a) {
  a.WriteBool(true);
  a.WriteBool(false);
}

WriteContent Versioned(int major, int minor, const WriteContent& content) {
  return [=](ON_BinaryArchive& a) { WriteVersioned(a, major, minor, content); };
}

// An item of a mesh cache that isn't for rendering.
void WriteOtherMesh(ON_BinaryArchive& a) {
  a.WriteChar(1);
  WriteVersioned(a, 1, 0, [](ON_BinaryArchive& b) {
    b.WriteUuid("00000001-0000-0000-0000-000000000000"_uuid);
    b.WriteDouble(1);
  });
}

}  // namespace

TEST(ReadExtrusion, AllIsReadButForItsMeshes) {
  const auto [reading, extrusion] = Read(Versioned(1, 2, [](ON_BinaryArchive& a) {
    WriteFields(a);
    WriteCaps(a);
  }));
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_TRUE(extrusion.IsValid());
  EXPECT_EQ(extrusion.m_profile->PointAtStart(), (ON_3dPoint{1, 2, 3}));
  EXPECT_EQ(extrusion.m_path.to, (ON_3dPoint{0, 0, 5}));
  EXPECT_EQ(extrusion.m_t, (ON_Interval{0, 1}));
  EXPECT_EQ(extrusion.m_up, (ON_3dVector{0, 1, 0}));
  EXPECT_THAT(extrusion.m_bHaveN, testing::ElementsAre(false, true));
  EXPECT_EQ(extrusion.m_N[1], (ON_3dVector{0.5, 0, 1}));
  EXPECT_EQ(extrusion.m_path_domain, (ON_Interval{0, 5}));
  EXPECT_TRUE(extrusion.m_bTransposed);
  EXPECT_EQ(extrusion.m_profile_count, 1);
  EXPECT_THAT(extrusion.m_bCap, testing::ElementsAre(true, false));
  EXPECT_EQ(extrusion.m_render_mesh, nullptr);
}

TEST(ReadExtrusion, BeforeThereWereCapsTheEndsAreOpen) {
  const auto [reading, extrusion] =
      Read(Versioned(1, 1, [](ON_BinaryArchive& a) { WriteFields(a); }));
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(extrusion.m_bCap, testing::ElementsAre(false, false));
}

TEST(ReadExtrusion, WhatLaterMinorVersionsAddIsSkipped) {
  const auto [reading, extrusion] = Read(Versioned(1, 9, [](ON_BinaryArchive& a) {
    WriteFields(a);
    WriteCaps(a);
    WriteVersioned(a, 1, 0, [](ON_BinaryArchive& b) { b.WriteChar(0); });
    a.WriteDouble(1);
  }));
  EXPECT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
}

TEST(ReadExtrusion, TheCachedMeshForRenderingIsKept) {
  const auto write = [](ON_BinaryArchive& a) {
    auto block = MakeDrilledBlock();
    block->m_render_mesh = std::make_shared<ON_Mesh>(MakeBox({{0, 0, 0}, {1, 2, 3}}));
    model_writer::WriteExtrusionData(a, *block);
  };
  const auto [reading, extrusion] = Read(write);
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  ASSERT_NE(extrusion.m_render_mesh, nullptr);
  EXPECT_EQ(extrusion.m_render_mesh->BoundingBox().m_max, (ON_3dPoint{1, 2, 3}));
}

TEST(ReadExtrusion, OtherCachedMeshesArePassedOver) {
  const auto [reading, extrusion] = Read(Versioned(1, 3, [](ON_BinaryArchive& a) {
    WriteFields(a);
    WriteCaps(a);
    WriteVersioned(a, 1, 0, [](ON_BinaryArchive& b) {
      WriteOtherMesh(b);
      WriteOtherMesh(b);
      b.WriteChar(0);
    });
  }));
  EXPECT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_EQ(extrusion.m_render_mesh, nullptr);
}

TEST(ReadExtrusion, ABrokenMeshIsToldAndLeftOut) {
  const auto [reading, extrusion] = Read(Versioned(1, 3, [](ON_BinaryArchive& a) {
    WriteFields(a);
    WriteCaps(a);
    WriteVersioned(a, 1, 0, [](ON_BinaryArchive& b) {
      b.WriteChar(1);
      WriteVersioned(b, 1, 0, [](ON_BinaryArchive& c) {
        c.WriteUuid("f5e3baa9-a7a2-49fd-b8a1-66eb274a5f91"_uuid);
        WriteClass(c, kLine, Writer(LineRecord{}));
      });
      b.WriteChar(0);
    });
  }));
  EXPECT_TRUE(reading.ok);
  ASSERT_THAT(reading.problems, SizeIs(1));
  EXPECT_THAT(reading.problems[0], HasSubstr("a part that should be a mesh is of another class"));
  EXPECT_EQ(extrusion.m_render_mesh, nullptr);
  EXPECT_TRUE(extrusion.IsValid());
}

TEST(ReadExtrusion, WhatIsBrokenIsTold) {
  ExpectFailure(Versioned(2, 0, [](ON_BinaryArchive& a) { WriteFields(a); }),
                "an extrusion of an unknown version");
  ExpectFailure(Versioned(1, 1, [](ON_BinaryArchive& a) { WriteFields(a, 0); }),
                "an extrusion that isn't valid");
  ExpectFailure(Versioned(1, 1, [](ON_BinaryArchive& a) { WriteFields(a, 2); }),
                "an extrusion that isn't valid");
  ExpectFailure(Versioned(1, 1, [](ON_BinaryArchive& a) { WriteFields(a, -5); }),
                "an extrusion that isn't valid");
  ExpectFailure(Versioned(1, 1,
                          [](ON_BinaryArchive& a) {
                            WriteClass(a, kLine, Writer(LineRecord{.domain = {1, 0}}));
                          }),
                "a line that isn't valid");
  ExpectFailure(Versioned(1, 2, [](ON_BinaryArchive& a) { WriteFields(a); }), "chunk");
}

static ONX_Model ModelOfBlock(int version, bool has_mesh) {
  ONX_Model model;
  model.m_3dm_file_version = version;
  auto block = MakeDrilledBlock();
  if (has_mesh) {
    block->m_render_mesh = std::make_shared<ON_Mesh>(MakeBox({{0, 0, 0}, {1, 2, 3}}));
  }
  block->SetUserString("key", "value");
  model.m_object_table.emplace_back().m_geometry = std::move(block);
  return model;
}

TEST(ReadExtrusion, IsAnObjectOfADocument) {
  for (const int version : {4, 50, 80}) {
    const std::string bytes = WriteModel(ModelOfBlock(version, true));
    ONX_Model model;
    EXPECT_TRUE(ON_ReadModel(std::as_bytes(std::span(bytes)), model).ok);
    EXPECT_THAT(model.m_problems, IsEmpty());
    EXPECT_THAT(model.m_unread, IsEmpty());
    ASSERT_THAT(model.m_object_table, SizeIs(1));
    const ON_Extrusion* block = ON_Extrusion::Cast(model.m_object_table[0].m_geometry.get());
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(block->GetUserString("key"), "value");
    EXPECT_EQ(block->BoundingBox().m_max, (ON_3dPoint{10, 8, 6}));
    EXPECT_NE(block->m_render_mesh, nullptr);
    EXPECT_THAT(block->BrepForm()->m_F, SizeIs(7));
  }
}

TEST(ReadExtrusion, AnyByteMayBeWrong) {
  const std::string whole = WriteModel(ModelOfBlock(50, false));
  // The object stands behind the tables, near the end.
  ReadWithWrongBytes(whole, whole.size() / 3, [](const ONX_Model& model) {
    for (const ONX_ModelObject& object : model.m_object_table) {
      const ON_Extrusion* block = ON_Extrusion::Cast(object.m_geometry.get());
      if (block == nullptr) continue;
      EXPECT_TRUE(block->IsValid());
      // Whatever it is, it can be asked.
      static_cast<void>(block->BoundingBox());
      const auto brep = block->BrepForm();
      EXPECT_TRUE(brep == nullptr || brep->IsValid());
    }
  });
}
